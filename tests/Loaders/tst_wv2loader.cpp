#include "FixtureFiles.h"
#include "Loaders/Wv2DataReader.h"
#include "Loaders/Wv2Loader.h"
#include "Loaders/Wv2MetaDataReader.h"
#include "Model/EasyLibKorvane.h"
#include "Model/OscillogramData.h"
#include "Model/OscillogramLoaderFactory.h"
#include "Wv2FileWriter.h"

#include <QBuffer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

#include <ctime>

using namespace KorvaneTest;

namespace {
QByteArray cp1251(const QString& text)
{
    return QTextCodec::codecForName("CP1251")->fromUnicode(text);
}

// 2019-03-05 14:07:09 UTC, and 1250 microseconds.
constexpr qint32 startSeconds = 1551794829;
constexpr double startFraction = 0.00125;
constexpr int frameSize = 8;

// A frame of the sample record: three words for the analogues, two bytes for the discretes.
Wv2Frame frame(quint16 a0, quint16 a1, quint16 a2, quint8 flags, quint8 byte7)
{
    return Wv2Frame(frameSize).word(0, a0).word(2, a1).word(4, a2).byte(6, flags).byte(7, byte7);
}

Wv2AnalogSpec analog(const char* shortName, qint16 offset, quint32 mask, quint16 lineMask)
{
    Wv2AnalogSpec spec;
    spec.shortName = shortName;
    spec.fullName = QByteArray("full ") + shortName;
    spec.offset = offset;
    spec.mask = mask;
    spec.lineBitMask = lineMask;
    return spec;
}

Wv2DigitalSpec digital(const char* fullName, qint16 offset, quint8 mask)
{
    Wv2DigitalSpec spec;
    spec.fullName = fullName;
    spec.offset = offset;
    spec.mask = mask;
    return spec;
}

Wv2LineSpec line(quint16 id, const char* name)
{
    Wv2LineSpec spec;
    spec.id = id;
    spec.name = name;
    spec.voltage = 110.0;
    return spec;
}

// Three analogues (the third masked to nothing), three discretes sharing bytes 6 and 7, three
// lines, and five frames in two blocks with an unknown tag between them.
Wv2FileWriter sampleRecord()
{
    Wv2FileWriter writer(1000.0, startSeconds, startFraction);
    writer.source(3, "DEV-7", cp1251(QStringLiteral("Регистратор Р1")))
        .format(frameSize)
        .line(line(1, "L1"))
        .line(line(2, "L2"))
        .line(line(3, "L3"))
        .analog(analog("A0", 0, 0xFFFF, 0x1))
        .analog(analog("A1", 2, 0x0FFF, 0x3))
        .analog(analog("A2", 4, 0x0000, 0x0))
        .digital(digital("D0", 6, 0x01))
        .digital(digital("D1", 6, 0x80))
        .digital(digital("D2", 7, 0xFF))
        .data(1, { frame(0xFF6A, 0xF001, 0x7777, 0x01, 0x00), frame(100, 0x1002, 0xFFFF, 0x80, 0x10) })
        .tag(7, 8 + 5, "seven")
        .data(0,
            { frame(200, 0x0003, 1, 0x81, 0x00), frame(0x8000, 0xFFFF, 2, 0x00, 0x01),
                frame(0x7FFF, 0x0ABC, 3, 0x7E, 0x00) });
    return writer;
}

QString writeTemp(QTemporaryDir& dir, const QString& name, const QByteArray& bytes)
{
    const QString path = dir.filePath(name);
    return writeFile(path, bytes) ? path : QString();
}

struct Outcome
{
    QSharedPointer<Wv2Oscillogram> record;
    QString failure;
    bool cancelled = false;
};

Outcome load(Wv2Loader& loader)
{
    QSignalSpy errors(&loader, &TaskBase::error);
    QSignalSpy completions(&loader, &TaskBase::completed);
    loader.run();
    Outcome outcome;
    if (completions.count() == 1)
        outcome.record = loader.result().oscillogram.dynamicCast<Wv2Oscillogram>();
    if (errors.count() == 1) {
        const auto e = errors.first().first().value<QSharedPointer<Exception>>();
        outcome.failure = e->message();
        outcome.cancelled = bool(e.dynamicCast<CancelledException>());
        if (!e.dynamicCast<LoadFailureException>() && !outcome.cancelled)
            outcome.failure = QStringLiteral("not a LoadFailureException: ") + outcome.failure;
    }
    return outcome;
}

Outcome loadBytes(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    Wv2Loader loader(QStringLiteral("memory.wv2"), &buffer, nullptr);
    return load(loader);
}

// Runs the data pass alone on the bytes, with the meta-data given.
QString dataPassFailure(const QByteArray& bytes, const Wv2MetaData& meta)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    Wv2DataReader reader(&buffer, QSharedPointer<Wv2MetaData>::create(meta));
    try {
        reader.read();
    } catch (LoadFailureException* e) {
        const QString text = e->message();
        delete e;
        return text;
    }
    return {};
}

Wv2MetaData metaOf(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    Wv2MetaDataReader reader;
    reader.setIoDevice(&buffer);
    reader.read();
    return *reader.metaData();
}

const QString expectedHeaderStart = QStringLiteral("Осциллограмма записана устройством Регистратор Р1\r\n"
                                                   "ООО \"Тессара-Системы\" г.Нордгород\r\n"
                                                   "Объект электроэнергетики: не указан\r\n"
                                                   "Источник: Регистратор Р1\r\n"
                                                   "Версия ПО: не указана\r\n"
                                                   "Дополнительная информация:\r\n");
} // namespace

class TestWv2Loader : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // A zone without summer time, three hours east of UTC, whatever the machine has.
        qputenv("TZ", "<+03>-3");
        tzset();
        qRegisterMetaType<QSharedPointer<Exception>>("QSharedPointer<Exception>");
        QVERIFY(m_dir.isValid());
        m_samplePath = writeTemp(m_dir, QStringLiteral("sample.wv2"), sampleRecord().bytes());
        QVERIFY(!m_samplePath.isEmpty());
    }

    void recordDescription()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const Outcome outcome = load(loader);
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        const auto& record = outcome.record;
        QCOMPARE(record->filename(), m_samplePath);
        QCOMPARE(record->sampleRate(), 1000.0);
        QCOMPARE(int(record->orderNum()), 3);
        QCOMPARE(record->id(), QStringLiteral("DEV-7"));
        QCOMPARE(record->name(), QStringLiteral("Регистратор Р1"));
        QCOMPARE(record->deviceName(), QStringLiteral("Регистратор Р1"));
        QCOMPARE(record->waveType(), 1);
        QCOMPARE(record->countOfAnalogChannels(), 3);
        QCOMPARE(record->countOfDigitalChannels(), 3);
        QCOMPARE(record->countOfSamples(), 5);
        QCOMPARE(record->analogChannel(1)->name(), QStringLiteral("A1 (full A1)"));
        QCOMPARE(record->digitalChannel(2)->name(), QStringLiteral("D2"));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(record->analogChannel(i)->dataOffset(), i);
            QCOMPARE(record->digitalChannel(i)->dataOffset(), i);
            QVERIFY(record->analogChannel(i)->data() == record->data());
            QVERIFY(record->digitalChannel(i)->data() == record->data());
        }
    }

    void withoutEmergencyThePreFailureCountIsTheFramesOfType1()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->countOfPreFailureSamples(), 2);
        QCOMPARE(record->countOfPostFailureSamples(), 3);
        QVERIFY(record->failures().isEmpty());
    }

    void timeIsTheHeadersClockInTheReadersZone()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->triggerTime().toString(), QStringLiteral("05.03.2019 14:07:09.001250"));
        QCOMPARE(record->triggerTime().offsetFromUtc(), 3 * 3600);
        QCOMPARE(record->localCode(), 3);
        // Two frames before the trigger at 1000 Hz.
        QCOMPARE(record->beginTime().toString(), QStringLiteral("05.03.2019 14:07:08.999250"));
    }

    void analogueValuesUnderOffsetsAndMasks()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        const auto data = record->data();
        QCOMPARE(data->countOfInt16AnalogChannels(), 3);
        const QVector<short> a0 { -150, 100, 200, -32768, 32767 };
        const QVector<short> a1 { 0x001, 0x002, 0x003, 0xFFF, 0xABC };
        for (int s = 0; s < 5; ++s) {
            QCOMPARE(data->int16ChannelValue(s, 0), a0[s]);
            QCOMPARE(data->int16ChannelValue(s, 1), a1[s]);
            // A mask that clears all bits yields zeros.
            QCOMPARE(data->int16ChannelValue(s, 2), short(0));
            QCOMPARE(record->analogChannel(0)->getValue(s), double(a0[s]));
        }
    }

    void digitalValuesUnderOffsetsAndMasks()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        const QVector<bool> d0 { true, false, true, false, false };
        const QVector<bool> d1 { false, true, true, false, false };
        const QVector<bool> d2 { false, true, false, true, false };
        for (int s = 0; s < 5; ++s) {
            QCOMPARE(record->digitalChannel(0)->value(s), d0[s]);
            QCOMPARE(record->digitalChannel(1)->value(s), d1[s]);
            QCOMPARE(record->digitalChannel(2)->value(s), d2[s]);
        }
    }

    void linesJoinChannelsByBitMask()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->countOfLines(), 3);
        QCOMPARE(record->line(0)->rpNumbers(), (QList<unsigned short> { 0, 1 }));
        QCOMPARE(record->line(1)->rpNumbers(), (QList<unsigned short> { 1 }));
        QVERIFY(record->line(2)->rpNumbers().isEmpty());
        for (int l = 0; l < 3; ++l)
            QVERIFY(record->line(l)->rpDNumbers().isEmpty());
        QCOMPARE(record->line(1)->unit(), QStringLiteral("кВ"));
        QCOMPARE(record->line(1)->voltage(), 110.0);
        QCOMPARE(record->analogChannel(0)->lineNames(), QStringList { "L1" });
        QCOMPARE(record->analogChannel(1)->lineNames(), (QStringList { "L1", "L2" }));
        QVERIFY(record->analogChannel(2)->lineNames().isEmpty());
    }

    void linesForBitMask()
    {
        Wv2Oscillogram record;
        QList<QSharedPointer<Line>> lines;
        for (unsigned short id = 1; id <= 3; ++id) {
            lines.append(QSharedPointer<Line>::create());
            lines.last()->setLineID(id);
        }
        record.setLines(lines);
        QCOMPARE(record.linesForBitMask(0x0005), (QList<QSharedPointer<Line>> { lines[0], lines[2] }));
        QVERIFY(record.linesForBitMask(0x0008).isEmpty());
        QVERIFY(record.linesForBitMask(0).isEmpty());
    }

    void headerWithoutEmergencies()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->headerContent(), expectedHeaderStart);
    }

    void rasObjectOfTheRecord()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->rasVersion(), QStringLiteral("2017"));
        QCOMPARE(record->rasRevision(), QStringLiteral("1.0"));
        QCOMPARE(record->rasObjects().size(), 1);
        const RAS_OBJECT object = record->rasObjects().first();
        const QString unknown = QStringLiteral("Не указано");
        QCOMPARE(object.territory, unknown);
        QCOMPARE(object.companyName, unknown);
        QCOMPARE(object.stationName, unknown);
        QCOMPARE(object.devices.size(), 1);
        const RAS_RECORDING_DEVICE device = object.devices.first();
        QCOMPARE(device.recordingDeviceId, QStringLiteral("Регистратор Р1"));
        for (const QString& text : { device.vendor, device.model, device.serialNumber,
                 device.hardwareRevision, device.softwareRevision })
            QCOMPARE(text, unknown);
        QCOMPARE(device.comtradeFileName, QStringLiteral("sample.wv2"));
        QVERIFY(device.lines.isEmpty());
    }

    void emergenciesSetThePreFailureCountAndTheHeader()
    {
        const QByteArray bytes
            = sampleRecord().emergency(4, 11, 1, "Overcurrent").emergency(1, 12, 2, "Trip").bytes();
        const Outcome outcome = loadBytes(bytes);
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        const auto& record = outcome.record;
        // The block number of the first emergency, not the frames of type 1.
        QCOMPARE(record->countOfPreFailureSamples(), 4);
        QCOMPARE(record->countOfPostFailureSamples(), 1);
        QCOMPARE(record->failures().size(), 2);
        QCOMPARE(record->failures()[0]->reason(), QStringLiteral("Overcurrent"));
        QCOMPARE(record->failures()[0]->physicalNumber(), 11);
        QCOMPARE(record->failures()[1]->blockNum(), 1);
        QCOMPARE(record->failures()[1]->lineId(), 2);
        // The trigger lies at sample 4; sample 1 is 3 ms before it.
        QCOMPARE(record->headerContent(),
            expectedHeaderStart
                + QStringLiteral("Осциллограмма содержит аварийные записи:\r\n"
                                 "Дата и время: 05.03.2019 14:07:09.001250 Авария: Overcurrent\r\n"
                                 "Дата и время: 05.03.2019 14:07:08.998250 Авария: Trip\r\n"));
    }

    void fileOfOnlyTheHeaderLoadsEmpty()
    {
        const Outcome outcome = loadBytes(Wv2FileWriter(500.0).bytes());
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        QCOMPARE(outcome.record->countOfChannels(), 0);
        QCOMPARE(outcome.record->countOfSamples(), 0);
        QCOMPARE(outcome.record->countOfPreFailureSamples(), 0);
        QCOMPARE(outcome.record->sampleRate(), 500.0);
        QCOMPARE(outcome.record->headerContent(),
            QString(expectedHeaderStart).replace(QStringLiteral("Регистратор Р1"), QString()));
    }

    void unknownTagIsPassedOverInBothPasses()
    {
        // The sample has a tag 7 between its blocks; frames on both sides of it are right.
        Wv2Loader loader(m_samplePath, nullptr);
        const auto record = load(loader).record;
        QVERIFY(record);
        QCOMPARE(record->data()->int16ChannelValue(1, 0), short(100));
        QCOMPARE(record->data()->int16ChannelValue(2, 0), short(200));
    }

    void tagBelowItsKnownLengthFails()
    {
        const QByteArray bytes
            = Wv2FileWriter().tag(2, 8 + 100, Wv2FileWriter::analogBody(Wv2AnalogSpec())).format(2).bytes();
        QCOMPARE(loadBytes(bytes).failure, QStringLiteral("Ошибка пропуска строк метаданных"));
    }

    void damagedFilesFail_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const QString damaged = QStringLiteral("Ошибка чтения, осциллограмма повреждена!");
        const QByteArray sample = sampleRecord().bytes();
        QTest::newRow("cut in the file header")
            << sample.left(20) << QStringLiteral("Ошибка чтения блока метаданных");
        QTest::newRow("cut in the last block") << sample.left(sample.size() - 3) << damaged;
        QTest::newRow("more frames than the block holds")
            << Wv2FileWriter().format(4).analog(Wv2AnalogSpec()).data(0, 3, QByteArray(8, '\0')).bytes()
            << damaged;
        QTest::newRow("frames without a frame size")
            << Wv2FileWriter().analog(Wv2AnalogSpec()).data(0, 2, QByteArray(8, '\0')).bytes() << damaged;
        QTest::newRow("frame size taken as negative")
            << Wv2FileWriter().format(0x8000).analog(Wv2AnalogSpec()).data(0, 1, QByteArray(8, '\0')).bytes()
            << damaged;
        QTest::newRow("four billion frames")
            << Wv2FileWriter().format(1).data(0, 0xFFFFFFFF, QByteArray(8, '\0')).bytes() << damaged;
    }

    void damagedFilesFail()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(loadBytes(bytes).failure, text);
    }

    void valuesOutsideTheirBlockReadZero()
    {
        Wv2AnalogSpec beyond = analog("B", 3, 0xFFFF, 0);
        Wv2AnalogSpec before = analog("N", -2, 0xFFFF, 0);
        const QByteArray frames = Wv2Frame(4).word(0, 0x1111).word(2, 0x2222).bytes();
        const Outcome outcome = loadBytes(Wv2FileWriter()
                                              .format(4)
                                              .analog(beyond)
                                              .analog(before)
                                              .digital(digital("far", 4, 0xFF))
                                              .data(0, 1, frames)
                                              .bytes());
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        const auto data = outcome.record->data();
        QCOMPARE(data->int16ChannelValue(0, 0), short(0));
        QCOMPARE(data->int16ChannelValue(0, 1), short(0));
        QVERIFY(!outcome.record->digitalChannel(0)->value(0));
    }

    void channelOffsetBeyondItsFrameReadsTheNextFrame()
    {
        // Offsets are only places in the block: the device may point past its own frame.
        const QByteArray frames = Wv2Frame(2).word(0, 7).bytes() + Wv2Frame(2).word(0, 9).bytes();
        const Outcome outcome = loadBytes(
            Wv2FileWriter().format(2).analog(analog("X", 2, 0xFFFF, 0)).data(0, 2, frames).bytes());
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        QCOMPARE(outcome.record->data()->int16ChannelValue(0, 0), short(9));
        QCOMPARE(outcome.record->data()->int16ChannelValue(1, 0), short(0));
    }

    void dataPassFailures_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const QByteArray header = Wv2FileWriter().bytes();
        QTest::newRow("0x04 file header cut") << header.left(30) << QStringLiteral("Ошибка чтения (0x04)");
        QTest::newRow("0x01 tag head cut") << header + "abc" << QStringLiteral("Ошибка чтения (0x01)");
        QTest::newRow("0x05 block header cut")
            << Wv2FileWriter().tag(4, 18, "abcd").bytes() << QStringLiteral("Ошибка чтения (0x05) / 10 / 4");
        QTest::newRow("0x06 frames cut") << Wv2FileWriter().tag(4, 18 + 12, QByteArray(14, '\0')).bytes()
                                         << QStringLiteral("Ошибка чтения (0x06) / 12 / 4");
        QTest::newRow("0x06 block below its header")
            << Wv2FileWriter().tag(4, 16, QByteArray(10, '\0')).bytes()
            << QStringLiteral("Ошибка чтения (0x06) / -2 / 0");
        QTest::newRow("0x07 skip beyond the end") << Wv2FileWriter().tag(9, 8 + 20, "12345").bytes()
                                                  << QStringLiteral("Ошибка чтения (0x07) / 20 / 5");
        QTest::newRow("0x07 size below the head")
            << Wv2FileWriter().tag(9, 3, {}).bytes() << QStringLiteral("Ошибка чтения (0x07) / -5 / 0");
    }

    void dataPassFailures()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(dataPassFailure(bytes, Wv2MetaData()), text);
    }

    // The file is cut between the two passes: the meta-data promise frames, but the data pass
    // finds less than the 39-byte file header and says so with its own step's message.
    void dataPassOfAFileCutBelowItsHeader()
    {
        const QByteArray whole = sampleRecord().bytes();
        const Wv2MetaData meta = metaOf(whole);
        QVERIFY(meta.totalFrames > 0);
        for (int size = 1; size < 39; ++size)
            QVERIFY2(dataPassFailure(whole.left(size), meta) == QStringLiteral("Ошибка чтения (0x04)"),
                qPrintable(QStringLiteral("cut to %1 bytes").arg(size)));
    }

    // Channels whose offsets lie outside the frame are accepted and cost a value in every frame;
    // their products with the frame count are checked before the store is reserved.
    void channelsTimesFramesBeyondWhatTheFileFills_data()
    {
        QTest::addColumn<int>("analogs");
        QTest::addColumn<int>("digitals");
        QTest::addColumn<int>("frames");
        // 4000 x 600,000 values of 16 bits pass the int range: the product used to wrap.
        QTest::newRow("4000 analogue tags, 600,000 one-byte frames (1.2 MB)") << 4000 << 0 << 600000;
        // 100 x 600,000 x 2 bytes fit an int but are 200 times the 0.6 MB of frames.
        QTest::newRow("100 analogue tags, 600,000 one-byte frames") << 100 << 0 << 600000;
        // 40,000 x 60,000 bits pass the int range of a bit array.
        QTest::newRow("40,000 digital tags, 60,000 one-byte frames") << 0 << 40000 << 60000;
    }

    void channelsTimesFramesBeyondWhatTheFileFills()
    {
        QFETCH(int, analogs);
        QFETCH(int, digitals);
        QFETCH(int, frames);
        Wv2FileWriter writer;
        writer.format(1);
        for (int a = 0; a < analogs; ++a)
            writer.analog(analog("A", qint16(a % 30000), 0xFFFF, 0));
        for (int d = 0; d < digitals; ++d)
            writer.digital(digital("D", qint16(d % 30000), 1));
        writer.data(0, quint32(frames), QByteArray(frames, '\x5A'));
        QCOMPARE(
            loadBytes(writer.bytes()).failure, QStringLiteral("Ошибка чтения, осциллограмма повреждена!"));
    }

    // Sixteen channels may share one word, each under a mask of one bit: the most values a
    // frame can give per byte of the file, and still a record.
    void sixteenChannelsOfOneWordLoad()
    {
        Wv2FileWriter writer;
        writer.format(2);
        for (int bit = 0; bit < 16; ++bit)
            writer.analog(analog("B", 0, 1u << bit, 0));
        constexpr int frames = 20000;
        QByteArray bytes;
        for (int f = 0; f < frames; ++f)
            bytes += Wv2Frame(2).word(0, quint16(f)).bytes();
        writer.data(0, quint32(frames), bytes);
        const Outcome outcome = loadBytes(writer.bytes());
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        // Frame 12345 holds the word 12345 = 0x3039: bits 0, 3, 4, 5, 12 and 13 are set.
        const auto data = outcome.record->data();
        QCOMPARE(data->int16ChannelValue(12345, 0), short(1));
        QCOMPARE(data->int16ChannelValue(12345, 1), short(0));
        QCOMPARE(data->int16ChannelValue(12345, 13), short(0x2000));
        QCOMPARE(data->int16ChannelValue(12345, 15), short(0));
    }

    void dataPassReadsWhatTheMetaDataDescribes()
    {
        const QByteArray bytes = sampleRecord().bytes();
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        QList<qint64> positions;
        Wv2DataReader reader(&buffer, QSharedPointer<Wv2MetaData>::create(metaOf(bytes)));
        reader.setProgressCallback([&positions](qint64 position) { positions.append(position); });
        const auto data = reader.read();
        QCOMPARE(data->countOfSamples(), 5);
        QCOMPARE(data->countOfDigitalChannels(), 3);
        QCOMPARE(data->digitalValues().size(), 15);
        QVERIFY(!positions.isEmpty());
        QCOMPARE(positions.last(), qint64(bytes.size()));
        QVERIFY(std::is_sorted(positions.begin(), positions.end()));
    }

    void fileThatCannotBeOpened()
    {
        Wv2Loader loader(m_dir.filePath(QStringLiteral("missing.wv2")), nullptr);
        QCOMPARE(load(loader).failure, QStringLiteral("Невозможно открыть файл"));
    }

    void bufferSource()
    {
        QBuffer buffer;
        buffer.setData(sampleRecord().bytes());
        buffer.open(QIODevice::ReadOnly);
        buffer.seek(100);
        Wv2Loader loader(QStringLiteral("archive/entry.wv2"), &buffer, nullptr);
        const Outcome outcome = load(loader);
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        QCOMPARE(outcome.record->filename(), QStringLiteral("archive/entry.wv2"));
        QCOMPARE(outcome.record->countOfSamples(), 5);
        QCOMPARE(outcome.record->data()->int16ChannelValue(4, 1), short(0xABC));
    }

    void bufferThatCannotBeRead()
    {
        QBuffer writeOnly;
        writeOnly.open(QIODevice::WriteOnly);
        Wv2Loader loader(QStringLiteral("x.wv2"), &writeOnly, nullptr);
        QCOMPARE(load(loader).failure, QStringLiteral("Невозможно открыть файл"));
        Wv2Loader noBuffer(QStringLiteral("x.wv2"), nullptr, nullptr);
        QCOMPARE(load(noBuffer).failure, QStringLiteral("Невозможно открыть файл"));
    }

    void progressStages()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        QSignalSpy progress(&loader, &TaskBase::progressChanged);
        QVERIFY(load(loader).record);
        QStringList stages;
        for (const auto& call : qAsConst(progress)) {
            const QString stage = call.at(0).toString();
            if (stages.isEmpty() || stages.last() != stage)
                stages.append(stage);
        }
        QCOMPARE(stages, (QStringList { "Чтение конфигурации", "Чтение данных", "Отображение" }));
        QCOMPARE(progress.first().at(1).toDouble(), 0.0);
        QCOMPARE(progress.last().at(1).toDouble(), 50.0);
    }

    void cancelledLoadEndsWithCancelledException()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        loader.cancel();
        const Outcome outcome = load(loader);
        QVERIFY(outcome.cancelled);
        QVERIFY(!outcome.record);
    }

    void cancelDuringTheDataPass()
    {
        Wv2Loader loader(m_samplePath, nullptr);
        connect(&loader, &TaskBase::progressChanged, &loader, [&loader](const QString& stage) {
            if (stage == QStringLiteral("Чтение данных"))
                loader.cancel();
        });
        QVERIFY(load(loader).cancelled);
    }

    void factoryAndEntry_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("lower case") << "record.wv2";
        QTest::newRow("upper case") << "RECORD.WV2";
        QTest::newRow("mixed case") << "Record.Wv2";
    }

    void factoryAndEntry()
    {
        QFETCH(QString, name);
        const QString path = writeTemp(m_dir, name, sampleRecord().bytes());
        QVERIFY(OscillogramLoaderFactory::isWave(path));
        QVERIFY(EasyLibKorvane::isWave(path));
        std::unique_ptr<OscillogramLoader> loader(OscillogramLoaderFactory::createLoaderForFile(path));
        QVERIFY(qobject_cast<Wv2Loader*>(loader.get()));
        QVERIFY(!loader->parent());
        QString errorText = QStringLiteral("untouched");
        const auto record = EasyLibKorvane::open(path, errorText).dynamicCast<Wv2Oscillogram>();
        QVERIFY(record);
        QCOMPARE(record->countOfSamples(), 5);
        QCOMPARE(record->data()->int16ChannelValue(3, 0), short(-32768));
        QCOMPARE(errorText, QStringLiteral("untouched"));
    }

    void entryWithDamagedFileGivesNullAndNoText()
    {
        const QString path = writeTemp(m_dir, QStringLiteral("damaged.wv2"), sampleRecord().bytes().left(50));
        QString errorText = QStringLiteral("untouched");
        QVERIFY(!EasyLibKorvane::open(path, errorText));
        QCOMPARE(errorText, QStringLiteral("untouched"));
    }

    void wv2IsNotReadWithoutItsSuffix()
    {
        QVERIFY(!OscillogramLoaderFactory::isWave(QStringLiteral("record")));
        QVERIFY(!OscillogramLoaderFactory::isWave(QStringLiteral("record.wv3")));
        QVERIFY(!OscillogramLoaderFactory::createLoaderForFile(QStringLiteral("record.wv")));
    }

    void copiedChannelsKeepTheirOwnFields()
    {
        Wv2DigitalChannel digitalChannel;
        digitalChannel.setShortName(QStringLiteral("s"));
        digitalChannel.setWv2Offset(-3);
        digitalChannel.setWv2Mask(0x40);
        const Wv2DigitalChannel digitalCopy(digitalChannel);
        QCOMPARE(digitalCopy.shortName(), QStringLiteral("s"));
        QCOMPARE(digitalCopy.wv2Offset(), short(-3));
        QCOMPARE(digitalCopy.wv2Mask(), quint8(0x40));
        Wv2AnalogChannel analogChannel;
        analogChannel.setFullName(QStringLiteral("f"));
        analogChannel.setUnitType(UNIT_TYPE { 2, 3 });
        const Wv2AnalogChannel analogCopy(analogChannel);
        QCOMPARE(analogCopy.fullName(), QStringLiteral("f"));
        QCOMPARE(analogCopy.unit(), QStringLiteral("кА"));
    }

private:
    QTemporaryDir m_dir;
    QString m_samplePath;
};

QTEST_GUILESS_MAIN(TestWv2Loader)
#include "tst_wv2loader.moc"
