#include "FixtureFiles.h"
#include "SaverFixture.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/UserSettingsJson.h"
#include "ZipFixture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>
#include <QThread>

#include <cmath>
#include <cstring>
#include <functional>
#include <memory>

using namespace KorvaneTest;

namespace {
using Configure = std::function<void(ComtradeSaver&)>;

SaveRun save(const QSharedPointer<Oscillogram>& record, const QString& target,
    const Configure& configure = {}, bool onlySelected = false, bool useRange = false)
{
    ComtradeSaver saver(target, record, onlySelected, useRange);
    saver.setCodec(QStringLiteral("UTF-8"));
    if (configure)
        configure(saver);
    SaveRun run;
    watchSaver(saver, run);
    saver.saveProcess();
    run.ok = saver.isOk();
    return run;
}

// The raw number a format holds for a stored raw value: truncated toward zero into integers,
// 16 bits keeping the low half.
double written(double stored, DT::DataType source, int format)
{
    const bool integral = source == DT::Int16 || source == DT::Int32;
    switch (format) {
    case 1:
        return double(short(integral ? int(stored) : int(std::trunc(stored))));
    case 2:
        return std::trunc(stored);
    case 3:
        return double(float(stored));
    default:
        return stored;
    }
}

double rawOf(const Oscillogram& record, int channel, int sample)
{
    const auto analog = record.analogChannel(channel);
    return analog->Channel::getValue(sample, analog->dataOffset());
}

bool bitOf(const Oscillogram& record, int channel, int sample)
{
    const auto digital = record.digitalChannel(channel);
    return digital->Channel::getValue(sample, digital->dataOffset()) != 0.0;
}

// ASCII keeps six significant digits.
bool closeEnough(double actual, double expected, int format)
{
    const double tolerance = format == 0 ? std::abs(expected) * 1e-5 + 1e-9 : 0.0;
    return std::abs(actual - expected) <= tolerance;
}

UserSettingsJson viewState()
{
    UserSettingsJson json;
    json.analogSignalOrder = { { 0, 2 }, { 1 } };
    json.discreteSignalOrder = { 4, 3 };
    json.selectedSignals = { true, false, true, false, false };
    json.customColors = { {}, { 65535, 0, 0, 65535 }, {}, {}, {} };
    MeasureItem measure = sampleRange(10, 40);
    measure.setComplete(true);
    json.measures = { measure };
    json.markers = { 12, 99 };
    return json;
}

QStringList cfgLines(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes).split(QStringLiteral("\r\n"));
}

QByteArray entryData(const QString& zip, const QString& suffix)
{
    for (const ZipEntryInfo& entry : readZip(zip)) {
        if (entry.rawName.endsWith(suffix.toLatin1()))
            return entry.data;
    }
    return {};
}
} // namespace

class TestComtradeSaver : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    int m_counter = 0;

    QString freshPath(const QString& suffix = QStringLiteral(".zip"))
    {
        return m_dir.filePath(QStringLiteral("out%1%2").arg(++m_counter).arg(suffix));
    }

    void compareChannels(const Oscillogram& original, const Oscillogram& loaded, const QList<int>& analogs,
        const QList<int>& digitals)
    {
        QCOMPARE(loaded.countOfAnalogChannels(), analogs.size());
        QCOMPARE(loaded.countOfDigitalChannels(), digitals.size());
        for (int i = 0; i < analogs.size(); ++i) {
            const auto a = original.analogChannel(analogs[i]);
            const auto b = loaded.analogChannel(i);
            QCOMPARE(b->name(), a->name());
            QCOMPARE(b->unit(), a->unit());
            QCOMPARE(b->phaseNumber(), a->phaseNumber());
            QCOMPARE(b->multiplier(), a->multiplier());
            QCOMPARE(b->offsetAdder(), a->offsetAdder());
            QVERIFY(qAbs(b->primary() - a->primary()) < 1e-4);
            QVERIFY(qAbs(b->secondary() - a->secondary()) < 1e-6);
            QCOMPARE(b->ps(), a->ps());
            QVERIFY(qAbs(b->adcDelay() - a->adcDelay()) < 1e-9);
            QCOMPARE(b->normalState(), a->normalState());
            QCOMPARE(b->cmrChanType(), a->cmrChanType());
            QCOMPARE(b->physNum(), a->physNum());
            QCOMPARE(b->isInverted(), a->isInverted());
            QCOMPARE(b->isPhysical(), a->isPhysical());
        }
        for (int i = 0; i < digitals.size(); ++i) {
            const auto a = original.digitalChannel(digitals[i]);
            const auto b = loaded.digitalChannel(i);
            QCOMPARE(b->name(), a->name());
            QCOMPARE(b->normalState(), a->normalState());
            QCOMPARE(b->physNum(), a->physNum());
            QCOMPARE(b->isInverted(), a->isInverted());
            QCOMPARE(b->isPhysical(), a->isPhysical());
        }
    }

    void compareValues(DT::DataType source, int format, const Oscillogram& loaded, const QList<int>& analogs,
        const QList<int>& digitals, int first, int count)
    {
        QCOMPARE(loaded.countOfSamples(), count);
        for (int s = 0; s < count; ++s) {
            for (int i = 0; i < analogs.size(); ++i) {
                const double expected = written(storedRaw(source, first + s, analogs[i]), source, format);
                const double actual = rawOf(loaded, i, s);
                if (!closeEnough(actual, expected, format))
                    QFAIL(qPrintable(QStringLiteral("sample %1 channel %2: %3 instead of %4")
                                         .arg(s)
                                         .arg(i)
                                         .arg(actual)
                                         .arg(expected)));
            }
            for (int i = 0; i < digitals.size(); ++i)
                QCOMPARE(bitOf(loaded, i, s), saverBit(first + s, digitals[i]));
        }
    }

    void compareDescription(const SimpleOscillogram& original, const ComtradeOscillogram& loaded)
    {
        QCOMPARE(loaded.stationName(), original.stationName());
        QCOMPARE(loaded.deviceName(), original.deviceName());
        QCOMPARE(loaded.sampleRate(), original.sampleRate());
        QCOMPARE(loaded.beginTime().toUSecsSinceEpoch(), original.beginTime().toUSecsSinceEpoch());
        QCOMPARE(loaded.triggerTime().toUSecsSinceEpoch(), original.triggerTime().toUSecsSinceEpoch());
        QCOMPARE(loaded.countOfLines(), original.countOfLines());
        for (int i = 0; i < original.countOfLines(); ++i) {
            const auto a = original.line(i);
            const auto b = loaded.line(i);
            QCOMPARE(b->name(), a->name());
            QCOMPARE(b->voltage(), a->voltage());
            QCOMPARE(b->vtNumbers(), a->vtNumbers());
            QCOMPARE(b->ctNumbers(), a->ctNumbers());
            QCOMPARE(b->rpNumbers(), a->rpNumbers());
            QCOMPARE(b->rpDNumbers(), a->rpDNumbers());
            QCOMPARE(b->z0(), a->z0());
            QCOMPARE(b->z1(), a->z1());
        }
        QCOMPARE(loaded.failures().size(), original.failures().size());
        for (int i = 0; i < original.failures().size(); ++i) {
            QCOMPARE(loaded.failures()[i]->reason(), original.failures()[i]->reason());
            QCOMPARE(loaded.failures()[i]->blockNum(), original.failures()[i]->blockNum());
        }
        const QList<MergedWave> originalWaves = original.mergedWaves();
        const QList<MergedWave> loadedWaves = loaded.mergedWaves();
        QCOMPARE(loadedWaves.size(), originalWaves.size());
        for (int i = 0; i < originalWaves.size(); ++i) {
            const MergedWave& a = originalWaves[i];
            const MergedWave& b = loadedWaves[i];
            QCOMPARE(QString::fromStdString(b.beginTime.toCMRString()),
                QString::fromStdString(a.beginTime.toCMRString()));
            QCOMPARE(b.sampleOffset, a.sampleOffset);
            QCOMPARE(b.analogNumbers, a.analogNumbers);
            QCOMPARE(b.digitalNumbers, a.digitalNumbers);
        }
        const QList<RAS_OBJECT> originalObjects = original.rasObjects();
        const QList<RAS_OBJECT> loadedObjects = loaded.rasObjects();
        QCOMPARE(loadedObjects.size(), 1);
        const RAS_OBJECT& a = originalObjects[0];
        const RAS_OBJECT& b = loadedObjects[0];
        QCOMPARE(b.territory, a.territory);
        QCOMPARE(b.companyName, a.companyName);
        QCOMPARE(b.stationName, a.stationName);
        QCOMPARE(b.devices.size(), 1);
        QCOMPARE(b.devices[0].recordingDeviceId, a.devices[0].recordingDeviceId);
        QCOMPARE(b.devices[0].vendor, a.devices[0].vendor);
        QCOMPARE(b.devices[0].model, a.devices[0].model);
        QCOMPARE(b.devices[0].serialNumber, a.devices[0].serialNumber);
        QCOMPARE(b.devices[0].hardwareRevision, a.devices[0].hardwareRevision);
        QCOMPARE(b.devices[0].softwareRevision, a.devices[0].softwareRevision);
        QCOMPARE(b.devices[0].comtradeFileName, a.devices[0].comtradeFileName);
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void roundTrip_data()
    {
        QTest::addColumn<int>("sourceType");
        QTest::addColumn<int>("format");
        QTest::newRow("float into ASCII") << int(DT::Float) << 0;
        QTest::newRow("float into 16-bit, truncated") << int(DT::Float) << 1;
        QTest::newRow("float into 32-bit, truncated") << int(DT::Float) << 2;
        QTest::newRow("float into float32") << int(DT::Float) << 3;
        QTest::newRow("double into ASCII") << int(DT::Double) << 0;
        QTest::newRow("double into float32") << int(DT::Double) << 3;
        QTest::newRow("16-bit into 16-bit") << int(DT::Int16) << 1;
        QTest::newRow("16-bit into float32") << int(DT::Int16) << 3;
        QTest::newRow("32-bit into 16-bit keeps the low half") << int(DT::Int32) << 1;
        QTest::newRow("32-bit into 32-bit") << int(DT::Int32) << 2;
    }
    void roundTrip()
    {
        QFETCH(int, sourceType);
        QFETCH(int, format);
        const auto type = DT::DataType(sourceType);
        SaverRecordDescription description;
        description.type = type;
        description.withMergedWaves = true;
        const auto original = makeSaverRecord(description);
        const CMR_USER_SETTINGS settings = viewState().toSettings();
        const QList<int> analogs { 0, 1, 2 }, digitals { 0, 1 };

        // Generated, saved, opened; then the opened record saved and opened once more.
        QSharedPointer<SimpleOscillogram> source = original;
        CMR_USER_SETTINGS sourceSettings = settings;
        for (int pass = 0; pass < 2; ++pass) {
            const QString target = freshPath();
            const SaveRun run = save(source, target, [&](ComtradeSaver& saver) {
                saver.setComtradeFormat(format);
                saver.setNewTz(0);
                saver.setUserSettings(sourceSettings);
            });
            QVERIFY(run.ok);
            const LoadedRecord loaded = loadComtrade(target);
            QVERIFY2(loaded.record, qPrintable(loaded.error));
            compareChannels(*original, *loaded.record, analogs, digitals);
            compareValues(type, format, *loaded.record, analogs, digitals, 0, description.samples);
            compareDescription(*original, *loaded.record);
            QCOMPARE(loaded.userSettings.version, 1);
            QCOMPARE(loaded.userSettings.analogSignalOrder, settings.analogSignalOrder);
            QCOMPARE(loaded.userSettings.discreteSignalOrder, settings.discreteSignalOrder);
            QCOMPARE(loaded.userSettings.selectedSignals, settings.selectedSignals);
            QCOMPARE(loaded.userSettings.customColors, settings.customColors);
            QCOMPARE(loaded.userSettings.measures, settings.measures);
            QCOMPARE(loaded.userSettings.markers, settings.markers);
            source = loaded.record;
            sourceSettings = loaded.userSettings;
        }
    }

    void roundTripInTheDefaultCodec()
    {
        const auto original = makeSaverRecord({});
        const QString target = freshPath();
        const SaveRun run = save(original, target, [](ComtradeSaver& saver) {
            saver.setCodec(QStringLiteral("CP1251"));
            saver.setNewTz(0);
        });
        QVERIFY(run.ok);
        QVERIFY(entryData(target, ".CFG")
                    .startsWith(QTextCodec::codecForName("CP1251")->fromUnicode(
                        QStringLiteral("ПС Южная,РЗА-7,2013\r\n"))));
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        compareChannels(*original, *loaded.record, { 0, 1, 2 }, { 0, 1 });
        compareDescription(*original, *loaded.record);
        // Without a view state the .INF has no section for it.
        QCOMPARE(loaded.userSettings.version, 0);
        QVERIFY(!entryData(target, ".INF").contains("UserSettings"));
    }

    void selectedChannelsOnly()
    {
        const auto original = makeSaverRecord({});
        original->analogChannel(0)->setIsSelected(true);
        original->analogChannel(2)->setIsSelected(true);
        original->digitalChannel(1)->setIsSelected(true);
        const QString target = freshPath();
        QVERIFY(save(
            original, target, [](ComtradeSaver& saver) { saver.setNewTz(0); }, true)
                    .ok);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        compareChannels(*original, *loaded.record, { 0, 2 }, { 1 });
        compareValues(DT::Float, 3, *loaded.record, { 0, 2 }, { 1 }, 0, 200);
        // Both lines hold a selected channel; the connections to the others are cut, and the
        // numbers after a cut one move up.
        QCOMPARE(loaded.record->countOfLines(), 2);
        QCOMPARE(loaded.record->line(0)->vtNumbers(), QList<unsigned short>({ 0 }));
        QCOMPARE(loaded.record->line(0)->ctNumbers(), QList<unsigned short>());
        QCOMPARE(loaded.record->line(0)->rpDNumbers(), QList<unsigned short>());
        QCOMPARE(loaded.record->line(1)->ctNumbers(), QList<unsigned short>({ 1 }));
        QCOMPARE(loaded.record->line(1)->rpDNumbers(), QList<unsigned short>({ 0 }));
        QCOMPARE(loaded.record->failures().size(), 2);
    }

    void aLineWithoutSelectedChannelsIsLeftOut()
    {
        const auto original = makeSaverRecord({});
        original->analogChannel(2)->setIsSelected(true);
        ComtradeSaver saver(freshPath(), original, true, false);
        saver.setCodec(QStringLiteral("UTF-8"));
        QVERIFY(!saver.isLineUsed(original->line(0)));
        QVERIFY(saver.isLineUsed(original->line(1)));
        QCOMPARE(saver.initComtradeBasics(), 0);
        QCOMPARE(saver.writeComtradeBasics(), 0);
        COMTRADE reader;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        ComtradeFaultList faults;
        RasDescription ras;
        QCOMPARE(
            reader.readInf(analogs, digitals, faults, ras,
                QFile::encodeName(QDir(saver.temporaryPath()).filePath("file.INF")).toStdString(), nullptr),
            0);
        QCOMPARE(ras.powerObjects.size(), size_t(1));
        const auto& equipment = ras.powerObjects.front().recordingDevices.front().equipment;
        QCOMPARE(equipment.size(), size_t(1));
        QCOMPARE(equipment.front().equipmentId, std::string("ВЛ 35 кВ Северная"));
    }

    void isLineUsedLooksAtValidNumbersOnly()
    {
        const auto original = makeSaverRecord({});
        original->digitalChannel(0)->setIsSelected(true);
        ComtradeSaver saver(freshPath(), original, true, false);
        auto line = QSharedPointer<Line>::create();
        line->setFNumbers(QList<unsigned short> { 7 });
        QVERIFY(!saver.isLineUsed(line));
        line->setRpDNumbers(QList<unsigned short> { 9 });
        QVERIFY(!saver.isLineUsed(line));
        line->setRpDNumbers(QList<unsigned short> { 0 });
        QVERIFY(saver.isLineUsed(line));
        // A digital number in an analogue list doesn't count.
        auto analogOnly = QSharedPointer<Line>::create();
        analogOnly->setEsNumbers(QList<unsigned short> { 0 });
        QVERIFY(!saver.isLineUsed(analogOnly));
    }

    void prepareLineCutsInRecordOrder()
    {
        SaverRecordDescription description;
        description.analogs = 4;
        const auto original = makeSaverRecord(description);
        original->analogChannel(0)->setIsSelected(true);
        original->analogChannel(3)->setIsSelected(true);
        ComtradeSaver saver(freshPath(), original, true, false);
        auto line = QSharedPointer<Line>::create();
        line->setVtNumbers(QList<unsigned short> { 0, 1, 2, 3 });
        line->setRpDNumbers(QList<unsigned short> { 0, 1 });
        saver.prepareLine(line);
        // Cutting 1 moves 2 and 3 up to 1 and 2; cutting 2 then takes what was 3.
        QCOMPARE(line->vtNumbers(), QList<unsigned short>({ 0, 1 }));
        // Neither discrete channel is selected: 0 goes, 1 moves to 0, and then 1 is gone already.
        QCOMPARE(line->rpDNumbers(), QList<unsigned short>({ 0 }));
    }

    void timeRange()
    {
        SaverRecordDescription description;
        description.withMergedWaves = true;
        const auto original = makeSaverRecord(description);
        const QString target = freshPath();
        // A reversed range of 100 samples; the failure on its finish sample stays, as 100.
        const SaveRun run = save(
            original, target,
            [](ComtradeSaver& saver) {
                saver.setNewTz(0);
                saver.setTimeRange(sampleRange(150, 50));
            },
            false, true);
        QVERIFY(run.ok);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        compareChannels(*original, *loaded.record, { 0, 1, 2 }, { 0, 1 });
        compareValues(DT::Float, 3, *loaded.record, { 0, 1, 2 }, { 0, 1 }, 50, 100);
        QCOMPARE(loaded.record->failures().size(), 2);
        QCOMPARE(loaded.record->failures()[0]->blockNum(), 10);
        QCOMPARE(loaded.record->failures()[1]->blockNum(), 100);
        QCOMPARE(loaded.record->failures()[1]->reason(), QStringLiteral("Срабатывание"));
        QVERIFY(loaded.record->mergedWaves().isEmpty());
        QCOMPARE(loaded.record->beginTime().toUSecsSinceEpoch(), original->dateTime(50).toUSecsSinceEpoch());
        QCOMPARE(
            loaded.record->triggerTime().toUSecsSinceEpoch(), original->triggerTime().toUSecsSinceEpoch());
        QVERIFY(cfgLines(entryData(target, ".CFG")).contains(QStringLiteral("1000,99")));
    }

    void failuresOutsideTheRangeAreLeftOut()
    {
        const auto original = makeSaverRecord({});
        ComtradeSaver saver(freshPath(), original, false, true);
        saver.setTimeRange(sampleRange(61, 149));
        QCOMPARE(saver.initComtradeBasics(), 0);
        QCOMPARE(saver.writeComtradeBasics(), 0);
        const QByteArray inf = readFile(QDir(saver.temporaryPath()).filePath("file.INF"));
        QVERIFY(!inf.contains("BlockNum"));
    }

    void cfgFollowsTheRules()
    {
        SaverRecordDescription description;
        description.analogs = 1;
        description.digitals = 1;
        const auto original = makeSaverRecord(description);
        const QString target = freshPath();
        QVERIFY(save(original, target, [](ComtradeSaver& saver) { saver.setNewTz(0); }).ok);
        const QString expected = QStringLiteral("ПС Южная,РЗА-7,2013\r\n"
                                                "2,1A,1D\r\n"
                                                "1,U1 фаза,,,кВ,0.25,0,500,0,0,110,0.1,P\r\n"
                                                "1,Пуск 1,,,0\r\n"
                                                "50\r\n"
                                                "1\r\n"
                                                "1000,199\r\n"
                                                "15/03/2024,10:20:30.123456\r\n"
                                                "15/03/2024,10:20:30.173456\r\n"
                                                "float32\r\n"
                                                "1\r\n"
                                                "0,0\r\n"
                                                "1,0\r\n");
        QCOMPARE(QString::fromUtf8(entryData(target, ".CFG")), expected);
    }

    void skewIsTheDelayInMicroseconds()
    {
        SaverRecordDescription description;
        description.rate = 4800.0;
        const auto original = makeSaverRecord(description);
        original->analogChannel(0)->setAdcDelay(1.5);
        ComtradeSaver saver(freshPath(), original, false, false);
        QCOMPARE(saver.adcDelayToMicroSec(1.5), float(1.5 * 1000000.0 / 4800.0));
        const QString target = freshPath();
        QVERIFY(save(original, target).ok);
        // 312.5 µs, six significant digits.
        QVERIFY(cfgLines(entryData(target, ".CFG"))[2].contains(QStringLiteral(",312.5,0,0,")));
    }

    void phases()
    {
        ComtradeSaver saver(freshPath(), makeSaverRecord({}), false, false);
        QCOMPARE(saver.getPhase(1), QStringLiteral("A"));
        QCOMPARE(saver.getPhase(2), QStringLiteral("B"));
        QCOMPARE(saver.getPhase(3), QStringLiteral("C"));
        QCOMPARE(saver.getPhase(0), QString());
        QCOMPARE(saver.getPhase(4), QString());
        QCOMPARE(saver.getPhase(-1), QString());
    }

    void sampleEndIsOneLessThanWritten()
    {
        const auto original = makeSaverRecord({});
        ComtradeSaver whole(freshPath(), original, false, false);
        QCOMPARE(whole.sampleEnd(), 199);
        ComtradeSaver part(freshPath(), original, false, true);
        part.setTimeRange(sampleRange(20, 70));
        QCOMPARE(part.sampleEnd(), 49);
        QCOMPARE(part.countSamples(), 50);
    }

    void timeCodes_data()
    {
        QTest::addColumn<bool>("fromUtcSet");
        QTest::addColumn<QString>("codes");
        QTest::addColumn<QString>("firstTime");
        QTest::newRow("a record in local time moves by the hours") << false << "+5,+5"
                                                                   << "15/03/2024,15:20:30.123456";
        QTest::newRow("a COMTRADE record set to UTC keeps UTC") << true << "0,+5"
                                                                << "15/03/2024,10:20:30.123456";
    }
    void timeCodes()
    {
        QFETCH(bool, fromUtcSet);
        QFETCH(QString, codes);
        QFETCH(QString, firstTime);
        QSharedPointer<SimpleOscillogram> record = makeSaverRecord({});
        if (fromUtcSet) {
            const QString utc = freshPath();
            QVERIFY(save(record, utc, [](ComtradeSaver& saver) { saver.setNewTz(0); }).ok);
            const LoadedRecord loaded = loadComtrade(utc);
            QVERIFY(loaded.record);
            QVERIFY(loaded.record->isSetToUtc());
            record = loaded.record;
        }
        const QString target = freshPath();
        ComtradeSaver probe(target, record, false, false);
        probe.setNewTz(5);
        QCOMPARE(probe.isOscTimeSetToUtc(), fromUtcSet);
        QCOMPARE(probe.localCodeHours(), 5);
        QCOMPARE(probe.timeCodeHours(), fromUtcSet ? 0 : 5);
        QVERIFY(save(record, target, [](ComtradeSaver& saver) { saver.setNewTz(5); }).ok);
        const QStringList lines = cfgLines(entryData(target, ".CFG"));
        QCOMPARE(lines[lines.size() - 3], codes);
        QCOMPARE(lines[10], firstTime);
    }

    void setLocalCodeAlone()
    {
        ComtradeSaver saver(freshPath(), makeSaverRecord({}), false, false);
        saver.setLocalCode(-3);
        QCOMPARE(saver.localCodeHours(), -3);
        QCOMPARE(saver.timeCodeHours(), 0);
    }

    void objectsComeFromTheRecordAndCanBeReplaced()
    {
        const auto original = makeSaverRecord({});
        ComtradeSaver saver(freshPath(), original, false, false);
        QCOMPARE(saver.objList().size(), 1);
        QCOMPARE(saver.objList()[0].territory, QStringLiteral("Северо-Запад"));
        RAS_OBJECT other;
        other.territory = QStringLiteral("Юг");
        saver.setObjList({ other, other });
        QCOMPARE(saver.objList().size(), 2);
        QCOMPARE(saver.initComtradeBasics(), 0);
        QCOMPARE(saver.writeComtradeBasics(), 0);
        const QByteArray inf = readFile(QDir(saver.temporaryPath()).filePath("file.INF"));
        QVERIFY(
            !inf.contains(QTextCodec::codecForName("CP1251")->fromUnicode(QStringLiteral("Северо-Запад"))));
        QVERIFY(inf.contains(QTextCodec::codecForName("CP1251")->fromUnicode(QStringLiteral("Юг"))));
    }

    void progressStages()
    {
        const QString target = freshPath();
        const SaveRun run = save(makeSaverRecord({}), target);
        QVERIFY(run.ok);
        QCOMPARE(run.finished, 1);
        QCOMPARE(run.writeErrors + run.cancels, 0);
        const QString saving = QStringLiteral("Сохранение...");
        const QString packing = QStringLiteral("Архивация...");
        const QList<QPair<QString, double>> expected { { saving, 0.0 }, { saving, 0.05 }, { saving, 0.1 },
            { saving, 0.9 }, { packing, 0.9 }, { packing, 1.0 } };
        QCOMPARE(run.progress.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            QCOMPARE(run.progress[i].first, expected[i].first);
            QVERIFY(qAbs(run.progress[i].second - expected[i].second) < 1e-12);
        }
    }

    void aSmallRecordIsOneBlock()
    {
        ComtradeSaver saver(freshPath(), makeSaverRecord({}), false, false);
        QCOMPARE(saver.blockCount(), 1);
    }

    void aRangeIsCountedForBlocksBeforeItIsSet()
    {
        // The blocks are counted at construction, when the range is still empty.
        ComtradeSaver saver(freshPath(), makeSaverRecord({}), false, true);
        QCOMPARE(saver.blockCount(), 1);
    }

    void blocksSplitTheSamples()
    {
        // 31488 discrete channels and one analogue make 31492 bytes a sample, 332 samples a block
        // of 10 MiB, and so 3 blocks for 1000 samples; only the analogue one is written.
        SaverRecordDescription description;
        description.analogs = 1;
        description.digitals = 31488;
        description.samples = 1000;
        description.withLines = false;
        const auto original = makeSaverRecord(description);
        original->analogChannel(0)->setIsSelected(true);
        original->digitalChannel(7)->setIsSelected(true);
        ComtradeSaver saver(freshPath(), original, true, false);
        QCOMPARE(saver.blockCount(), 3);
        QCOMPARE(saver.initComtradeBasics(), 0);
        const int firsts[] = { 0, 333, 666 };
        const uint64_t counts[] = { 333, 333, 334 };
        for (int block = 0; block < 3; ++block) {
            QCOMPARE(saver.initComtradeData(block), 0);
            QCOMPARE(saver.firstSampleOfBlock(), firsts[block]);
            QCOMPARE(saver.dataBuffer().sampleCount(), counts[block]);
            QCOMPARE(saver.dataBuffer().analogCount(), 1u);
            QCOMPARE(saver.dataBuffer().digitalCount(), 1u);
            QCOMPARE(
                saver.dataBuffer().sample(0, 0).analogAsDouble(0), storedRaw(DT::Float, firsts[block], 0));
        }

        const QString target = freshPath();
        const SaveRun run = save(original, target, {}, true);
        QVERIFY(run.ok);
        QCOMPARE(run.progress.size(), 8);
        QVERIFY(qAbs(run.progress[3].second - (0.8 / 3 + 0.1)) < 1e-12);
        QVERIFY(qAbs(run.progress[4].second - (2 * 0.8 / 3 + 0.1)) < 1e-12);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        compareValues(DT::Float, 3, *loaded.record, { 0 }, { 7 }, 0, 1000);
        // Sample numbers and times run on across the blocks.
        const QByteArray dat = entryData(target, ".DAT");
        const int recordSize = 8 + 4 + 2;
        QCOMPARE(dat.size(), 1000 * recordSize);
        for (int s : { 0, 332, 333, 334, 665, 666, 999 }) {
            qint32 number = 0;
            quint32 time = 0;
            std::memcpy(&number, dat.constData() + s * recordSize, 4);
            std::memcpy(&time, dat.constData() + s * recordSize + 4, 4);
            QCOMPARE(number, s + 1);
            QCOMPARE(time, quint32(s * 1000));
        }
    }

    void nothingSelectedWritesNumbersAndTimesAlone()
    {
        const auto original = makeSaverRecord({});
        const QString target = freshPath();
        QVERIFY(save(original, target, {}, true).ok);
        QCOMPARE(cfgLines(entryData(target, ".CFG"))[1], QStringLiteral("0,0A,0D"));
        const QByteArray dat = entryData(target, ".DAT");
        QCOMPARE(dat.size(), 200 * 8);
        for (int s = 0; s < 200; ++s) {
            qint32 number = 0;
            quint32 time = 0;
            std::memcpy(&number, dat.constData() + s * 8, 4);
            std::memcpy(&time, dat.constData() + s * 8 + 4, 4);
            QCOMPARE(number, s + 1);
            QCOMPARE(time, quint32(s * 1000));
        }
        // No channel is selected, so neither line is written.
        QVERIFY(!entryData(target, ".INF").contains("Equipment_ID"));
    }

    void unfilteredColumnsAreTheChannelIndex()
    {
        // Two float channels whose store columns are crossed: the full set is read by index,
        // a selection by each channel's own column.
        const auto original = makeSaverRecord({});
        original->analogChannel(0)->setDataOffset(1);
        original->analogChannel(1)->setDataOffset(0);
        for (int c = 0; c < 3; ++c)
            original->analogChannel(c)->setIsSelected(true);
        const QString byIndex = freshPath();
        const QString byColumn = freshPath();
        QVERIFY(save(original, byIndex).ok);
        QVERIFY(save(original, byColumn, {}, true).ok);
        const LoadedRecord a = loadComtrade(byIndex);
        const LoadedRecord b = loadComtrade(byColumn);
        QVERIFY(a.record && b.record);
        for (int s = 0; s < 200; s += 7) {
            QCOMPARE(rawOf(*a.record, 0, s), storedRaw(DT::Float, s, 0));
            QCOMPARE(rawOf(*b.record, 0, s), storedRaw(DT::Float, s, 1));
            QCOMPARE(rawOf(*b.record, 1, s), storedRaw(DT::Float, s, 0));
        }
    }

    void aRecordOfSeveralTypesIsReadFromEachTypedBlock()
    {
        // A merged record keeps each channel in the block of its own type: the first channel is
        // the only 16-bit one, the other two are the columns of the float block. Each is written
        // from its own block, whatever its index in the whole set.
        const auto original = makeSaverRecord({});
        OscillogramDataBuilder builder;
        builder.reserve(0, 2, 0, 1, 0, 200);
        for (int s = 0; s < 200; ++s) {
            builder.appendInt16Value(short(s - 100));
            builder.appendFloatValue(float(2 * s));
            builder.appendFloatValue(float(-3 * s));
        }
        const auto store = builder.build();
        original->setData(store);
        const DT::DataType types[] = { DT::Int16, DT::Float, DT::Float };
        const int columns[] = { 0, 0, 1 };
        for (int c = 0; c < 3; ++c) {
            original->analogChannel(c)->setData(store);
            original->analogChannel(c)->setDataType(types[c]);
            original->analogChannel(c)->setDataOffset(columns[c]);
        }
        const QString target = freshPath();
        QVERIFY(save(original, target).ok);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY(loaded.record);
        for (int s = 0; s < 200; s += 3) {
            QCOMPARE(rawOf(*loaded.record, 0, s), double(s - 100));
            QCOMPARE(rawOf(*loaded.record, 1, s), double(2 * s));
            QCOMPARE(rawOf(*loaded.record, 2, s), double(-3 * s));
        }
    }

    void anUnknownValueTypeIsReportedAsACancel()
    {
        const auto original = makeSaverRecord({});
        original->analogChannel(1)->setDataType(DT::None);
        const QString target = freshPath();
        QTest::ignoreMessage(QtDebugMsg, "Error value type");
        const SaveRun run = save(original, target);
        QVERIFY(!run.ok);
        QCOMPARE(run.cancels, 1);
        QCOMPARE(run.finished + run.writeErrors, 0);
        QVERIFY(!QFileInfo::exists(target));
    }

    void zipEntries_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("Cyrillic name in CP866") << "запись.zip";
        QTest::newRow("Latin name") << "Record 1.zip";
        QTest::newRow("only the last suffix goes") << "a.b.zip";
    }
    void zipEntries()
    {
        QFETCH(QString, name);
        const QString target = m_dir.filePath(name);
        QVERIFY(save(makeSaverRecord({}), target, [](ComtradeSaver& saver) {
            saver.setCodec(QStringLiteral("CP1251"));
        }).ok);
        const QList<ZipEntryInfo> entries = readZip(target);
        QCOMPARE(entries.size(), 4);
        const QString base = QFileInfo(name).completeBaseName();
        const QStringList suffixes { ".INF", ".HDR", ".CFG", ".DAT" };
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(entries[i].rawName, cp866(base + suffixes[i]));
            QCOMPARE(entries[i].permissions, 0644);
            QVERIFY(entries[i].isRegularFile);
            QCOMPARE(entries[i].size, qint64(entries[i].data.size()));
            QVERIFY(!entries[i].data.isEmpty());
        }
        QCOMPARE(entries[3].data.size(), 200 * (8 + 3 * 4 + 2));
    }

    void generatedHeaderIsInTheSaversEncoding()
    {
        const QString target = freshPath();
        QVERIFY(save(makeSaverRecord({}), target, [](ComtradeSaver& saver) {
            saver.setCodec(QStringLiteral("CP1251"));
            saver.setNewTz(0);
            saver.setAdditionalHeaderInfo({ QStringLiteral("Plain line") });
        }).ok);
        const QByteArray bytes = entryData(target, ".HDR");
        QTextCodec* cp1251 = QTextCodec::codecForName("CP1251");
        const QString text = cp1251->toUnicode(bytes);
        QCOMPARE(cp1251->fromUnicode(text), bytes);
        const QStringList lines = text.split(QStringLiteral("\r\n"));
        QCOMPARE(lines[0], QStringLiteral("Осциллограмма записана устройством \"РЗА-7\""));
        QCOMPARE(lines[2], QStringLiteral("Субъект электроэнергетики: "));
        QCOMPARE(lines[3], QStringLiteral("Объект электроэнергетики: ПС Южная"));
        QCOMPARE(lines[5], QStringLiteral("Версия ПО: v1.0"));
        QCOMPARE(lines[6], QStringLiteral("Наименование файла: /tmp"));
        QCOMPARE(lines[7], QStringLiteral("Дата и время: 15/03/2024,10:20:30.123456"));
        QCOMPARE(lines[8], QStringLiteral("Временной код: 0"));
        QCOMPARE(lines[10], QStringLiteral("Дополнительная информация:"));
        QCOMPARE(lines[11], QStringLiteral("Plain line"));
    }

    void headerDataIsWrittenRaw()
    {
        const QString target = freshPath();
        const QString header = QStringLiteral("Заголовок записи\r\nвторая строка");
        QVERIFY(save(makeSaverRecord({}), target, [&header](ComtradeSaver& saver) {
            saver.setCodec(QStringLiteral("CP1251"));
            saver.setHeaderData(header);
            saver.setAdditionalHeaderInfo({ QStringLiteral("not written") });
        }).ok);
        QCOMPARE(entryData(target, ".HDR"), QTextCodec::codecForName("CP1251")->fromUnicode(header));
    }

    void additionalHeaderInfo_data()
    {
        QTest::addColumn<QString>("codec");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("stored");
        QTest::newRow("UTF-8 leaves the text") << "UTF-8"
                                               << "Доп. сведения"
                                               << "Доп. сведения";
        QTest::newRow("CP1251 keeps plain text") << "CP1251"
                                                 << "Plain"
                                                 << "Plain";
        QTest::newRow("CP1251 bytes are no UTF-8") << "CP1251"
                                                   << "Да"
                                                   << "\uFFFD\uFFFD";
        QTest::newRow("the conversion stops at a NUL") << "UTF-8" << QStringLiteral("ab") + QChar(0) + "cd"
                                                       << "ab";
    }
    void additionalHeaderInfo()
    {
        QFETCH(QString, codec);
        QFETCH(QString, line);
        QFETCH(QString, stored);
        ComtradeSaver saver(freshPath(), makeSaverRecord({}), false, false);
        saver.setCodec(codec);
        saver.setAdditionalHeaderInfo({ line, QStringLiteral("second") });
        QCOMPARE(saver.additionalHeaderInfo().size(), size_t(2));
        QCOMPARE(QString::fromStdString(saver.additionalHeaderInfo()[0]), stored);
        saver.setAdditionalHeaderInfo({});
        QVERIFY(saver.additionalHeaderInfo().empty());
    }

    void cancelInAThreadOfItsOwn_data()
    {
        QTest::addColumn<double>("cancelAt");
        QTest::newRow("while the channels are described") << 0.0;
        QTest::newRow("while the samples are copied") << 0.1;
    }
    void cancelInAThreadOfItsOwn()
    {
        QFETCH(double, cancelAt);
        QTemporaryDir folder;
        const QString target = folder.filePath(QStringLiteral("kept.zip"));
        QVERIFY(writeFile(target, "the old archive"));
        auto* saver = new ComtradeSaver(target, makeSaverRecord({}), false, false);
        const QString temporary = saver->temporaryPath();
        QVERIFY(QFileInfo(temporary).isDir());
        QThread thread;
        saver->moveToThread(&thread);
        connect(&thread, &QThread::started, saver, &WaveSaver::saveProcess);
        connect(
            saver, &WaveSaver::updateProgress, saver,
            [&thread, cancelAt](const QString&, double fraction) {
                if (fraction == cancelAt)
                    thread.requestInterruption();
            },
            Qt::DirectConnection);
        QSignalSpy cancelled(saver, &WaveSaver::cancelSave);
        QSignalSpy finished(saver, &WaveSaver::finishProgress);
        QSignalSpy failed(saver, &WaveSaver::writeError);
        // The thread ends itself once the save has stopped, so nothing races with the spies.
        for (auto end : { &WaveSaver::cancelSave, &WaveSaver::finishProgress, &WaveSaver::writeError })
            connect(
                saver, end, saver, [&thread]() { thread.quit(); }, Qt::DirectConnection);
        thread.start();
        QVERIFY(thread.wait(10000));
        QCOMPARE(cancelled.count(), 1);
        QCOMPARE(finished.count(), 0);
        QCOMPARE(failed.count(), 0);
        QVERIFY(!saver->isOk());
        delete saver;
        QCOMPARE(readFile(target), QByteArray("the old archive"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
            QStringList { "kept.zip" });
        QVERIFY(!QFileInfo::exists(temporary));
    }

    void unwritableTarget_data()
    {
        QTest::addColumn<bool>("folderInPlace");
        QTest::newRow("a file where the folder should be") << false;
        QTest::newRow("a folder where the archive should be") << true;
    }
    void unwritableTarget()
    {
        QFETCH(bool, folderInPlace);
        QTemporaryDir folder;
        const QString blocker = folder.filePath(QStringLiteral("blocker"));
        QString target;
        if (folderInPlace) {
            target = folder.filePath(QStringLiteral("taken.zip"));
            QVERIFY(QDir().mkpath(target));
        } else {
            QVERIFY(writeFile(blocker, "a plain file"));
            target = blocker + QStringLiteral("/out.zip");
        }
        QString temporary;
        const SaveRun run = save(makeSaverRecord({}), target,
            [&temporary](ComtradeSaver& saver) { temporary = saver.temporaryPath(); });
        QVERIFY(!run.ok);
        QCOMPARE(run.writeErrors, 1);
        QCOMPARE(run.finished + run.cancels, 0);
        QCOMPARE(run.progress.last().first, QStringLiteral("Архивация..."));
        QVERIFY(!QFileInfo::exists(temporary));
        if (folderInPlace) {
            QVERIFY(QFileInfo(target).isDir());
            QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
                QStringList { "taken.zip" });
        } else {
            QCOMPARE(readFile(blocker), QByteArray("a plain file"));
            QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
                QStringList { "blocker" });
        }
    }

    // A zip reader keeps each member's method in the central directory (8 deflated, 0 stored).
    // Every member is deflated unless the samples are asked to be stored as they are; either way
    // each member's CRC-32 and sizes agree with its bytes, as any zip reader checks them.
    void zipMethods_data()
    {
        QTest::addColumn<bool>("storeSamples");
        QTest::addColumn<QList<int>>("methods");
        QTest::newRow("default") << false << QList<int> { 8, 8, 8, 8 };
        QTest::newRow("samples stored") << true << QList<int> { 8, 8, 8, 0 };
    }
    void zipMethods()
    {
        QFETCH(bool, storeSamples);
        QFETCH(QList<int>, methods);
        const QString target = freshPath();
        QVERIFY(save(makeSaverRecord({}), target, [storeSamples](ComtradeSaver& saver) {
            QVERIFY(!saver.storesSamples());
            saver.setStoreSamples(storeSamples);
        }).ok);
        const QList<ZipDirectoryEntry> directory = zipDirectory(target);
        const QList<ZipEntryInfo> entries = readZip(target);
        QCOMPARE(directory.size(), 4);
        QCOMPARE(entries.size(), 4);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(directory[i].rawName, entries[i].rawName);
            QCOMPARE(directory[i].method, methods[i]);
            QCOMPARE(directory[i].size, quint32(entries[i].data.size()));
            QCOMPARE(directory[i].crc, zipCrc32(entries[i].data));
        }
        // A stored member takes exactly its own size; a deflated text file shrinks.
        if (storeSamples)
            QCOMPARE(directory[3].compressedSize, directory[3].size);
        QVERIFY(directory[2].compressedSize < directory[2].size);
    }

    // Neighbouring columns of one type are copied together. A run is broken where the type
    // changes, and a store that holds fewer values than its rows ask reads 0 beyond its end,
    // in the middle of a run as well.
    void columnRunsAndAShortStore_data()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("ASCII") << 0;
        QTest::newRow("16-bit") << 1;
        QTest::newRow("32-bit") << 2;
        QTest::newRow("float32") << 3;
    }
    void columnRunsAndAShortStore()
    {
        QFETCH(int, format);
        constexpr int samples = 10;
        constexpr int floatValues = 25; // eight full rows of three, one value of the ninth
        auto floatValue = [](int index) { return float(index) * 1.5f - 7.25f; };
        auto shortValue = [](int sample) { return short(sample * 100 - 300); };
        OscillogramDataBuilder builder;
        builder.reserve(0, 3, 0, 1, 2, samples);
        for (int i = 0; i < floatValues; ++i)
            builder.appendFloatValue(floatValue(i));
        for (int s = 0; s < samples; ++s) {
            builder.appendInt16Value(shortValue(s));
            builder.setDigitalChannelValue(s, 0, saverBit(s, 0));
            builder.setDigitalChannelValue(s, 1, saverBit(s, 1));
        }
        const QSharedPointer<OscillogramData> store = builder.build();

        SaverRecordDescription description;
        description.analogs = 4;
        description.samples = samples;
        description.triggerSample = 5;
        description.withLines = false;
        description.withFailures = false;
        const auto record = makeSaverRecord(description);
        record->setData(store);
        // Float columns 0 and 1, the 16-bit column, float column 2.
        const QList<QPair<DT::DataType, int>> columns { { DT::Float, 0 }, { DT::Float, 1 }, { DT::Int16, 0 },
            { DT::Float, 2 } };
        for (int c = 0; c < 4; ++c) {
            record->analogChannel(c)->setData(store);
            record->analogChannel(c)->setDataType(columns[c].first);
            record->analogChannel(c)->setDataOffset(columns[c].second);
            record->analogChannel(c)->setIsSelected(true);
        }
        for (int c = 0; c < 2; ++c) {
            record->digitalChannel(c)->setData(store);
            record->digitalChannel(c)->setIsSelected(true);
        }

        const QString target = freshPath();
        QVERIFY(save(
            record, target, [format](ComtradeSaver& saver) { saver.setComtradeFormat(format); }, true)
                    .ok);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        QCOMPARE(loaded.record->countOfSamples(), samples);
        for (int s = 0; s < samples; ++s) {
            for (int c = 0; c < 4; ++c) {
                const int index = s * 3 + columns[c].second;
                const double stored = columns[c].first == DT::Int16
                    ? double(shortValue(s))
                    : (index < floatValues ? double(floatValue(index)) : 0.0);
                const double expected = written(stored, columns[c].first, format);
                QVERIFY2(closeEnough(rawOf(*loaded.record, c, s), expected, format),
                    qPrintable(QStringLiteral("sample %1 channel %2").arg(s).arg(c)));
            }
            QCOMPARE(bitOf(*loaded.record, 0, s), saverBit(s, 0));
            QCOMPARE(bitOf(*loaded.record, 1, s), saverBit(s, 1));
        }
    }

    void anExistingTargetIsReplaced()
    {
        const QString target = freshPath();
        QVERIFY(writeFile(target, "the old archive"));
        QVERIFY(save(makeSaverRecord({}), target).ok);
        QCOMPARE(readZip(target).size(), 4);
    }
};

QTEST_GUILESS_MAIN(TestComtradeSaver)
#include "tst_comtradesaver.moc"
