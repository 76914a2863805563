#include "SaverFixture.h"

#include "FixtureFiles.h"
#include "Loaders/ComtradeLoader.h"
#include "Model/Exception.h"
#include "Model/OscillogramData.h"
#include "Savers/WaveSaver.h"

#include <QDir>

#include <QtMath>

namespace KorvaneTest {

void watchSaver(WaveSaver& saver, SaveRun& run)
{
    QObject::connect(&saver, &WaveSaver::updateProgress, [&run](const QString& stage, double fraction) {
        run.progress.append({ stage, fraction });
    });
    QObject::connect(&saver, &WaveSaver::finishProgress, [&run]() { ++run.finished; });
    QObject::connect(&saver, &WaveSaver::writeError, [&run]() { ++run.writeErrors; });
    QObject::connect(&saver, &WaveSaver::cancelSave, [&run]() { ++run.cancels; });
}

MeasureItem sampleRange(int start, int finish)
{
    MeasureItem item;
    item.setStartSampleNumber(start);
    item.setFinishSampleNumber(finish);
    return item;
}

double saverRaw(int sample, int channel)
{
    return 100.0 * (channel + 1) * qSin(2.0 * M_PI * sample / 20.0 + channel * M_PI / 3.0);
}

bool saverBit(int sample, int channel)
{
    return ((sample / (5 + channel)) % 2) == 1;
}

double storedRaw(DT::DataType type, int sample, int channel)
{
    const double value = saverRaw(sample, channel);
    switch (type) {
    case DT::Int16:
        return double(short(qRound(value)));
    case DT::Int32:
        return double(qRound(value * 1000.0));
    case DT::Float:
        return double(float(value));
    default:
        return value;
    }
}

PreciseDateTime saverBeginTime()
{
    return PreciseDateTime(2024, 3, 15, 10, 20, 30, 123456, 0);
}

namespace {
QSharedPointer<OscillogramData> makeStore(const SaverRecordDescription& d)
{
    OscillogramDataBuilder builder;
    const int a = d.analogs;
    builder.reserve(d.type == DT::Double ? a : 0, d.type == DT::Float ? a : 0, d.type == DT::Int32 ? a : 0,
        d.type == DT::Int16 ? a : 0, d.digitals, d.samples);
    for (int s = 0; s < d.samples; ++s) {
        for (int c = 0; c < a; ++c) {
            const double value = storedRaw(d.type, s, c);
            switch (d.type) {
            case DT::Int16:
                builder.appendInt16Value(short(value));
                break;
            case DT::Int32:
                builder.appendInt32Value(int(value));
                break;
            case DT::Float:
                builder.appendFloatValue(float(value));
                break;
            default:
                builder.appendDoubleValue(value);
                break;
            }
        }
    }
    builder.setCountOfSamples(d.samples);
    builder.digitalValues().resize(d.samples * d.digitals);
    for (int s = 0; s < d.samples; ++s) {
        for (int c = 0; c < d.digitals; ++c)
            builder.setDigitalChannelValue(s, c, saverBit(s, c));
    }
    return builder.build();
}

QSharedPointer<AnalogChannel> makeAnalog(
    int c, DT::DataType type, const QSharedPointer<OscillogramData>& store)
{
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setName(QStringLiteral("U%1 фаза").arg(c + 1));
    channel->setUnit(c % 2 ? QStringLiteral("А") : QStringLiteral("кВ"));
    channel->setData(store);
    channel->setDataType(type);
    channel->setDataOffset(c);
    channel->setDataCount(1);
    channel->setPhaseNumber(c % 4);
    channel->setMultiplier(0.25 * (c + 1));
    channel->setOffsetAdder(0.5 * c);
    channel->setPrimary(110.0 + c);
    channel->setSecondary(0.1);
    channel->setPs(c % 2 ? AnalogChannel::Secondary : AnalogChannel::Primary);
    channel->setNormalState(short(c % 2));
    channel->setCMRChanType(c % 3);
    channel->setPhysNum(10 + c);
    channel->setIsInverted(c == 1);
    channel->setIsPhysical(c != 2);
    channel->setAdcDelay(0.5);
    return channel;
}

QSharedPointer<DigitalChannel> makeDigital(int c, const QSharedPointer<OscillogramData>& store)
{
    auto channel = QSharedPointer<DigitalChannel>::create();
    channel->setName(QStringLiteral("Пуск %1").arg(c + 1));
    channel->setData(store);
    channel->setDataType(DT::Digital);
    channel->setDataOffset(c);
    channel->setDataCount(1);
    channel->setNormalState(c % 2 == 1);
    channel->setPhysNum(20 + c);
    channel->setIsInverted(c == 0);
    channel->setIsPhysical(c != 1);
    return channel;
}

QList<QSharedPointer<Line>> makeLines(const SaverRecordDescription& d)
{
    auto first = QSharedPointer<Line>::create();
    first->setName(QStringLiteral("ВЛ 110 кВ Южная"));
    first->setVoltage(110.0);
    first->setVtNumbers(QList<unsigned short> { 0 });
    first->setCtNumbers(QList<unsigned short> { 1 });
    first->setRpDNumbers(QList<unsigned short> { 0 });
    first->setZ0(1.5);
    first->setZ1(0.5);
    auto second = QSharedPointer<Line>::create();
    second->setName(QStringLiteral("ВЛ 35 кВ Северная"));
    second->setVoltage(35.0);
    second->setCtNumbers(QList<unsigned short> { static_cast<unsigned short>(d.analogs > 2 ? 2 : 0) });
    second->setRpDNumbers(QList<unsigned short> { static_cast<unsigned short>(d.digitals > 1 ? 1 : 0) });
    return { first, second };
}

RAS_OBJECT makeObject()
{
    RAS_RECORDING_DEVICE device;
    device.recordingDeviceId = QStringLiteral("РЗА-7");
    device.vendor = QStringLiteral("Производитель");
    device.model = QStringLiteral("Модель 3");
    device.serialNumber = QStringLiteral("SN-0042");
    device.hardwareRevision = QStringLiteral("HW 2");
    device.softwareRevision = QStringLiteral("SW 5.1");
    device.comtradeFileName = QStringLiteral("record.cfg");
    RAS_OBJECT object;
    object.territory = QStringLiteral("Северо-Запад");
    object.companyName = QStringLiteral("ТестЭнерго");
    object.stationName = QStringLiteral("ПС Южная");
    object.devices.append(device);
    return object;
}

QList<MergedWave> makeMergedWaves(const SimpleOscillogram& record)
{
    MergedWave first;
    first.beginTime = record.beginTime();
    first.analogNumbers = { 0, 1 };
    first.digitalNumbers = { 0 };
    MergedWave second;
    second.beginTime = record.beginTime().addUSec(60LL * 1000000);
    second.sampleOffset = record.countOfSamples() / 2;
    second.analogNumbers = { 2 };
    second.digitalNumbers = { 1 };
    return { first, second };
}
} // namespace

QSharedPointer<SimpleOscillogram> makeSaverRecord(const SaverRecordDescription& d)
{
    auto record = QSharedPointer<SimpleOscillogram>::create();
    const QSharedPointer<OscillogramData> store = makeStore(d);
    record->setData(store);
    record->setStationName(QStringLiteral("ПС Южная"));
    record->setDeviceName(QStringLiteral("РЗА-7"));
    record->setSampleRate(d.rate);
    QList<QSharedPointer<AnalogChannel>> analogs;
    for (int c = 0; c < d.analogs; ++c)
        analogs.append(makeAnalog(c, d.type, store));
    record->setAnalogChannels(analogs);
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int c = 0; c < d.digitals; ++c)
        digitals.append(makeDigital(c, store));
    record->setDigitalChannels(digitals);
    record->setCountOfPreFailureSamples(d.triggerSample);
    record->setCountOfPostFailureSamples(d.samples - d.triggerSample);
    record->setTriggerTime(saverBeginTime().addUSec(qRound(d.triggerSample * 1000000.0 / d.rate)));
    if (d.withLines)
        record->setLines(makeLines(d));
    record->setRasObjects({ makeObject() });
    if (d.withFailures) {
        record->setFailures({ QSharedPointer<Failure>::create(QStringLiteral("Пуск по току"), 60),
            QSharedPointer<Failure>::create(QStringLiteral("Срабатывание"), 150) });
    }
    if (d.withMergedWaves)
        record->setMergedWaves(makeMergedWaves(*record));
    return record;
}

double smallSetRaw(int sample, int channel)
{
    return channel == 0 ? 10.0 * sample - 30.0 : double(sample * sample);
}

bool smallSetBit(int sample)
{
    return sample % 2 == 1;
}

QString writeSmallComtradeSet(const QString& folder, const QString& base)
{
    QString cfg = QStringLiteral("Малая ПС,Рег 1,1999\r\n3,2A,1D\r\n"
                                 "1,Ia,A,,A,0.5,1,0,-1000,1000,600,5,S\r\n"
                                 "2,Ub,B,,kV,0.01,0,0,-1000,1000,110,0.1,P\r\n"
                                 "1,Пуск,,,0\r\n50\r\n1\r\n1000,%1\r\n"
                                 "01/02/2020,03:04:05.000000\r\n01/02/2020,03:04:05.005000\r\nASCII\r\n1\r\n")
                      .arg(smallSetSamples);
    QByteArray dat;
    for (int s = 0; s < smallSetSamples; ++s) {
        dat += QByteArray::number(s + 1) + ',' + QByteArray::number(s * 1000) + ','
            + QByteArray::number(smallSetRaw(s, 0)) + ',' + QByteArray::number(smallSetRaw(s, 1)) + ','
            + (smallSetBit(s) ? "1" : "0") + "\r\n";
    }
    const QString cfgPath = QDir(folder).filePath(base + QStringLiteral(".cfg"));
    writeFile(cfgPath, cfg.toUtf8());
    writeFile(QDir(folder).filePath(base + QStringLiteral(".dat")), dat);
    return cfgPath;
}

LoadedRecord loadComtrade(const QString& path)
{
    LoadedRecord loaded;
    ComtradeLoader loader(path, nullptr);
    loader.setAutoDelete(false);
    QObject::connect(&loader, &TaskBase::error,
        [&loaded](QSharedPointer<Exception> exception) { loaded.error = exceptionChainText(*exception); });
    loader.run();
    loaded.record = loader.result().oscillogram.dynamicCast<ComtradeOscillogram>();
    loaded.userSettings = loader.result().userSettings;
    return loaded;
}

} // namespace KorvaneTest
