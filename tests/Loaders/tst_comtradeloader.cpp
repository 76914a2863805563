#include "ComtradeFixture.h"
#include "ExactCompare.h"
#include "FixtureFiles.h"
#include "ModalDialogs.h"
#include "ZipFixture.h"

#include "CalcLib/Comtrade.h"
#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <limits>

using namespace KorvaneTest;

Q_DECLARE_METATYPE(QList<ZipMember>)

namespace {
struct LoadOutcome
{
    LoaderResult result;
    QSharedPointer<Exception> error;
    QList<QPair<QString, double>> progress;

    QSharedPointer<ComtradeOscillogram> record() const
    {
        return result.oscillogram.dynamicCast<ComtradeOscillogram>();
    }
};

// Runs a loader on this thread, so that every signal arrives before run() returns. The hook may
// cancel the loader from inside a progress signal.
LoadOutcome load(const QString& path, std::function<void(ComtradeLoader&, const QString&, double)> hook = {})
{
    LoadOutcome outcome;
    ComtradeLoader loader(path, nullptr);
    QObject::connect(
        &loader, &TaskBase::error, [&outcome](QSharedPointer<Exception> e) { outcome.error = e; });
    QObject::connect(&loader, &TaskBase::progressChanged, [&](const QString& stage, double percent) {
        outcome.progress.append({ stage, percent });
        if (hook)
            hook(loader, stage, percent);
    });
    loader.run();
    if (!outcome.error)
        outcome.result = loader.result();
    return outcome;
}

// A zip of one deflated member whose headers declare an uncompressed size the data never
// reach: the member is the empty deflate stream (03 00). Laid out byte by byte after the zip
// format: local header, data, central directory entry, end of central directory.
QByteArray zipWithDeclaredSize(const QByteArray& name, quint32 declared)
{
    auto le16 = [](QByteArray& out, quint16 v) { out += char(v & 0xFF), out += char(v >> 8); };
    auto le32 = [&le16](QByteArray& out, quint32 v) { le16(out, quint16(v)), le16(out, quint16(v >> 16)); };
    const QByteArray data("\x03\x00", 2);
    QByteArray local;
    le32(local, 0x04034b50);
    le16(local, 20), le16(local, 0), le16(local, 8), le16(local, 0), le16(local, 0x21);
    le32(local, 0), le32(local, quint32(data.size())), le32(local, declared);
    le16(local, quint16(name.size())), le16(local, 0);
    local += name + data;
    QByteArray central;
    le32(central, 0x02014b50);
    le16(central, 20), le16(central, 20), le16(central, 0), le16(central, 8), le16(central, 0);
    le16(central, 0x21);
    le32(central, 0), le32(central, quint32(data.size())), le32(central, declared);
    le16(central, quint16(name.size())), le16(central, 0), le16(central, 0), le16(central, 0);
    le16(central, 0), le32(central, 0), le32(central, 0);
    central += name;
    QByteArray end;
    le32(end, 0x06054b50);
    le16(end, 0), le16(end, 0), le16(end, 1), le16(end, 1);
    le32(end, quint32(central.size())), le32(end, quint32(local.size())), le16(end, 0);
    return local + central + end;
}

// Loads with TMPDIR pointing at the given folder, where a zip is extracted.
LoadOutcome loadWithTemporaryFolder(const QString& path, const QString& temporaryFolder)
{
    const QByteArray oldTemp = qgetenv("TMPDIR");
    qputenv("TMPDIR", temporaryFolder.toLocal8Bit());
    const LoadOutcome outcome = load(path);
    qputenv("TMPDIR", oldTemp);
    return outcome;
}

QString errorText(const LoadOutcome& outcome)
{
    return outcome.error ? outcome.error->message() : QString();
}

// Names of everything left in a folder, for the check that nothing stays behind.
QStringList leftovers(const QString& dir)
{
    return QDir(dir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

void verifySamples(const ComtradeOscillogram& record, const ComtradeSetDescription& set)
{
    QCOMPARE(record.countOfSamples(), set.samples);
    QCOMPARE(record.countOfAnalogChannels(), set.analogs);
    QCOMPARE(record.countOfDigitalChannels(), set.digitals);
    for (int c = 0; c < set.analogs; ++c) {
        const auto channel = record.analogChannel(c);
        QCOMPARE(channel->name(), set.analogName(c));
        QCOMPARE(channel->unit(), set.unitText(c));
        const double a = set.multiplierText(c).toDouble();
        const double b = set.offsetText(c).toDouble();
        KORVANE_COMPARE_EXACTLY(channel->multiplier(), a);
        KORVANE_COMPARE_EXACTLY(channel->offsetAdder(), b);
        for (int s = 0; s < set.samples; ++s) {
            const double raw = storedRaw(set, s, c);
            KORVANE_COMPARE_EXACTLY(channel->getValue(s), raw);
            // The physical value is raw * a + b in double, as any reader computes it.
            KORVANE_COMPARE_EXACTLY(channel->getRealValue(channel->getValue(s)), raw * a + b);
            if (QTest::currentTestFailed())
                return;
        }
    }
    for (int c = 0; c < set.digitals; ++c) {
        const auto channel = record.digitalChannel(c);
        QCOMPARE(channel->name(), set.digitalName(c));
        for (int s = 0; s < set.samples; ++s)
            QCOMPARE(channel->value(s), set.bit(s, c));
    }
}

ComtradeSetDescription smallSet(int year, const QString& format)
{
    ComtradeSetDescription set;
    set.year = year;
    set.format = format;
    return set;
}
} // namespace

class TestComtradeLoader : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { EasyLibKorvane::initialize(); }

    void everyYearAndFormatOpens_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("analogs");
        QTest::addColumn<int>("digitals");
        const QList<QPair<int, QString>> years { { 0, QStringLiteral("no year token") },
            { 1991, QStringLiteral("1991") }, { 1999, QStringLiteral("1999") },
            { 2013, QStringLiteral("2013") } };
        const QStringList formats { QStringLiteral("ASCII"), QStringLiteral("BINARY"),
            QStringLiteral("binary32"), QStringLiteral("FLOAT32") };
        int shape = 0;
        for (const auto& year : years) {
            for (const QString& format : formats) {
                // Digital counts around the 16-bit word: none, part of one, one full, one bit over.
                const int digitals = QList<int> { 0, 3, 16, 17 }.at(shape % 4);
                const int analogs = QList<int> { 1, 3, 0, 5 }.at(shape % 4);
                ++shape;
                QTest::addRow("%s %s %dA %dD", qPrintable(year.second), qPrintable(format), analogs, digitals)
                    << year.first << format << analogs << digitals;
            }
        }
    }

    void everyYearAndFormatOpens()
    {
        QFETCH(int, year);
        QFETCH(QString, format);
        QFETCH(int, analogs);
        QFETCH(int, digitals);
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(year, format);
        set.analogs = analogs;
        set.digitals = digitals;
        set.samples = 23;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("rec")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("rec.cfg")));
        QCOMPARE(errorText(outcome), QString());
        const auto record = outcome.record();
        QVERIFY(record);
        verifySamples(*record, set);
        QCOMPARE(record->version().value(), year == 0 ? 1991 : year);
        QCOMPARE(record->dataFormat().toString().toLower(), format.toLower());
        KORVANE_COMPARE_EXACTLY(record->sampleRate(), 1000.0);
        QVERIFY(!record->isEventTriggeredOsc());
        QCOMPARE(record->stationName(), set.station);
        QCOMPARE(record->deviceName(), set.device);
        QCOMPARE(record->filename(), dir.filePath(QStringLiteral("rec.cfg")));
        QCOMPARE(record->lineFrequency(), 50.0);
        QCOMPARE(record->timestampMultiplier(), 1.0);
        const DT::DataType expectedType = QMap<QString, DT::DataType> { { "ascii", DT::Double },
            { "binary", DT::Int16 }, { "binary32", DT::Int32 },
            { "float32", DT::Float } }.value(format.toLower());
        for (int c = 0; c < analogs; ++c) {
            const auto channel = record->analogChannel(c).staticCast<ComtradeAnalogChannel>();
            QCOMPARE(channel->dataType(), expectedType);
            QCOMPARE(channel->dataOffset(), c);
            QCOMPARE(channel->index(), c + 1);
            QCOMPARE(channel->phaseIdentification(), QStringLiteral("A"));
            QCOMPARE(channel->ccbm(), QStringLiteral("Bay 1"));
            const bool longForm = year == 1999 || year == 2013;
            QCOMPARE(channel->primary(), longForm ? 110.0 : 1.0);
            QCOMPARE(channel->secondary(), longForm ? 0.1 : 1.0);
        }
        for (int c = 0; c < digitals; ++c) {
            const auto channel = record->digitalChannel(c).staticCast<ComtradeDigitalChannel>();
            QCOMPARE(channel->dataType(), DT::Digital);
            QCOMPARE(channel->y(), c % 2 == 1);
            QCOMPARE(channel->phaseIdentification(), QString());
        }
        // The time lines read as day, month, year in every year.
        QCOMPARE(record->beginTime().toDateTime().date(), QDate(2020, 2, 1));
        QCOMPARE(record->beginTime().uSec(), 6LL);
        QCOMPARE(record->triggerTime().uSec(), 5006LL);
    }

    void unitNoneReadsAsEmptyAndSecondaryIsRead()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("BINARY"));
        set.unitText = [](int channel) { return channel ? QStringLiteral("NONE") : QStringLiteral("None"); };
        set.psText = QStringLiteral("s");
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("u")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("u.cfg")));
        QVERIFY(outcome.record());
        QCOMPARE(outcome.record()->analogChannel(0)->unit(), QString());
        QCOMPARE(outcome.record()->analogChannel(1)->unit(), QString());
        QCOMPARE(outcome.record()->analogChannel(1)->ps(), AnalogChannel::Secondary);
    }

    void skewBecomesDelayInSamples()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.rates = { { 4000.0, 10 } };
        QByteArray cfg = comtradeCfg(set);
        // Skew of 125 us at 4 kHz is half a sample.
        cfg.replace(",0,-32767,32767,110", ",125,-32767,32767,110");
        QVERIFY(writeFile(dir.filePath(QStringLiteral("s.cfg")), cfg));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("s.dat")), comtradeDat(set)));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("s.cfg")));
        QVERIFY(outcome.record());
        QCOMPARE(outcome.record()->analogChannel(0)->adcDelay(), 0.5);
    }

    void sampleRates_data()
    {
        QTest::addColumn<int>("nRates");
        QTest::addColumn<QList<double>>("rates");
        QTest::addColumn<double>("expectedRate");
        QTest::addColumn<bool>("eventTriggered");
        QTest::newRow("no rate and rate 0: event-triggered") << 0 << QList<double> { 0.0 } << 0.0 << true;
        QTest::newRow("no rate but a rate line: not event-triggered")
            << 0 << QList<double> { 800.0 } << 800.0 << false;
        QTest::newRow("three rates: the first throughout")
            << 3 << QList<double> { 2400.5, 1200.0, 600.0 } << 2400.5 << false;
        QTest::newRow("one rate of 0 counted: not event-triggered")
            << 1 << QList<double> { 0.0 } << 0.0 << false;
    }

    void sampleRates()
    {
        QFETCH(int, nRates);
        QFETCH(QList<double>, rates);
        QFETCH(double, expectedRate);
        QFETCH(bool, eventTriggered);
        for (const QString& format : { QStringLiteral("ASCII"), QStringLiteral("BINARY") }) {
            QTemporaryDir dir;
            ComtradeSetDescription set = smallSet(1999, format);
            set.samples = 12;
            set.nRates = nRates;
            set.rates.clear();
            for (int i = 0; i < rates.size(); ++i)
                set.rates.append({ rates.at(i), (i + 1) * 4LL });
            // Stamps that no rate would give: 0, 7, 14, ... microseconds.
            set.timeStamp = [](int sample) { return quint32(sample * 7); };
            QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("r")), set));
            const LoadOutcome outcome = load(dir.filePath(QStringLiteral("r.cfg")));
            QCOMPARE(errorText(outcome), QString());
            const auto record = outcome.record();
            KORVANE_COMPARE_EXACTLY(record->sampleRate(), expectedRate);
            QCOMPARE(record->isEventTriggeredOsc(), eventTriggered);
            QCOMPARE(record->timeStamps().size(), eventTriggered ? set.samples : 0);
            if (eventTriggered) {
                for (int s = 0; s < set.samples; ++s)
                    QCOMPARE(record->timeStamp(s), 7LL * s);
            }
            verifySamples(*record, set);
        }
    }

    void eventTriggeredBinaryStampIsUnsigned()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("BINARY32"));
        set.nRates = 0;
        set.rates = { { 0.0, 3 } };
        set.samples = 3;
        set.timeStamp = [](int sample) { return sample == 2 ? 0xFFFFFFFFu : quint32(sample); };
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("e")), set));
        const auto record = load(dir.filePath(QStringLiteral("e.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->timeStamp(2), 4294967295LL);
    }

    void timeCodes_data()
    {
        QTest::addColumn<QString>("codes");
        QTest::addColumn<int>("timeCode");
        QTest::addColumn<int>("localCode");
        QTest::newRow("+5h30 and 5: minutes lost") << "+5h30,5" << 5 << 5;
        QTest::newRow("-3 and 0") << "-3,0" << -3 << 0;
        QTest::newRow("beyond 12 gives 0") << "13,-13" << 0 << 0;
        QTest::newRow("12 and -12 kept") << "12,-12" << 12 << -12;
        QTest::newRow("no number gives 0") << "x,h5" << 0 << 0;
    }

    void timeCodes()
    {
        QFETCH(QString, codes);
        QFETCH(int, timeCode);
        QFETCH(int, localCode);
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(2013, QStringLiteral("ASCII"));
        set.timeCodes = codes;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("t")), set));
        const auto record = load(dir.filePath(QStringLiteral("t.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->timeCode(), timeCode);
        QCOMPARE(record->localCode(), localCode);
        QCOMPARE(record->beginTime().offsetFromUtc(), timeCode * 3600);
        QCOMPARE(record->triggerTime().offsetFromUtc(), timeCode * 3600);
        // Date and clock fields stay as written.
        QCOMPARE(record->beginTime().toDateTime().date(), QDate(2020, 2, 1));
        QCOMPARE(record->beginTime().toDateTime().time(), QTime(3, 4, 5));
    }

    void fractionGoesInAsWritten_data()
    {
        QTest::addColumn<QString>("firstTime");
        QTest::addColumn<long long>("uSec");
        QTest::addColumn<int>("year");
        QTest::newRow("0.5 gives 5 microseconds") << "01/02/2020,03:04:05.5" << 5LL << 2020;
        QTest::newRow("nanoseconds pass one million")
            << "01/02/2020,03:04:05.123456789" << 123456789LL << 2020;
        QTest::newRow("two-digit year stays in the first century") << "11/12/02,03:04:05.000001" << 1LL << 2;
    }

    void fractionGoesInAsWritten()
    {
        QFETCH(QString, firstTime);
        QFETCH(long long, uSec);
        QFETCH(int, year);
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.firstTime = firstTime;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("f")), set));
        const auto record = load(dir.filePath(QStringLiteral("f.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->beginTime().uSec(), uSec);
        QCOMPARE(record->beginTime().toDateTime().date().year(), year);
    }

    void crlfConfigAndData()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(2013, QStringLiteral("ASCII"));
        set.lineEnd = "\r\n";
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("c")), set));
        const auto record = load(dir.filePath(QStringLiteral("c.cfg"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
    }

    void asciiEndsAtSubstituteLine()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("z.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("z.dat")), comtradeDat(set) + "\x1a\n1,0,5,5,1,1,1\n"));
        const auto record = load(dir.filePath(QStringLiteral("z.cfg"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
    }

    void asciiEmptyFieldsReadAsZero()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.analogs = 2;
        set.digitals = 2;
        QVERIFY(writeFile(dir.filePath(QStringLiteral("e.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("e.dat")), "1,,,7.5,,1\n2, 0 ,99999, -2 ,1,\n"));
        const auto record = load(dir.filePath(QStringLiteral("e.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->countOfSamples(), 2);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(0)->getValue(0), 0.0);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(1)->getValue(0), 7.5);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(0)->getValue(1), 99999.0);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(1)->getValue(1), -2.0);
        QCOMPARE(record->digitalChannel(0)->value(0), false);
        QCOMPARE(record->digitalChannel(1)->value(0), true);
        QCOMPARE(record->digitalChannel(0)->value(1), true);
        QCOMPARE(record->digitalChannel(1)->value(1), false);
    }

    void asciiOddFieldsReadAsTheTextParserReads()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.analogs = 3;
        set.digitals = 1;
        QVERIFY(writeFile(dir.filePath(QStringLiteral("o.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("o.dat")),
            "1,0,1E2,-0.5e-1,3,1\n+2,+10, +1.5 ,12345678.5,-0,  0 "
            "\n3,7,1,2,3,1,ignored,\x1a\n4,0,9,9,9,1\n"));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("o.cfg")));
        QCOMPARE(errorText(outcome), QString());
        const auto record = outcome.record();
        // The third line holds the end mark as a field of its own: the data end before it.
        QCOMPARE(record->countOfSamples(), 2);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(0)->getValue(0), 100.0);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(1)->getValue(0), -0.05);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(0)->getValue(1), 1.5);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(1)->getValue(1), 12345678.5);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(2)->getValue(1), 0.0);
        QCOMPARE(record->digitalChannel(0)->value(0), true);
        QCOMPARE(record->digitalChannel(0)->value(1), false);
    }

    void asciiDataFailures_data()
    {
        QTest::addColumn<QByteArray>("dat");
        QTest::addColumn<QString>("message");
        QTest::newRow("not a number") << QByteArray("1,0,1,2,0,0,0\n2,0,1,2,0,0,0\n3,0,abc,2,0,0,0\n")
                                      << "В строке 3 неверный тип данных, abc не double";
        QTest::newRow("a field missing") << QByteArray("1,0,1,2,0,0,0\n2,0,1,2,0,0\n")
                                         << "В строке 2 отсутствует необходимое количество значений";
        QTest::newRow("an empty line inside") << QByteArray("1,0,1,2,0,0,0\n\n3,0,1,2,0,0,0\n")
                                              << "В строке 2 отсутствует необходимое количество значений";
        QTest::newRow("a bit of 2")
            << QByteArray("1,0,1,2,0,2,0\n")
            << "В строке 1 значение \"2\" не булево, потому что не равно ни 1 (принято как "
               "истина), ни 0 (принято как ложь)";
        QTest::newRow("a sample number beyond six digits of sense") << QByteArray(
            "1,0,1,2,0,0,0\nx1234567,0,1,2,0,0,0\n") << "В строке 2 неверный тип данных, x1234567 не int";
    }

    void asciiDataFailures()
    {
        QFETCH(QByteArray, dat);
        QFETCH(QString, message);
        QTemporaryDir dir;
        QVERIFY(writeFile(
            dir.filePath(QStringLiteral("d.cfg")), comtradeCfg(smallSet(1999, QStringLiteral("ASCII")))));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("d.dat")), dat));
        QCOMPARE(errorText(load(dir.filePath(QStringLiteral("d.cfg")))), message);
    }

    void asciiWithByteOrderMark()
    {
        QTemporaryDir dir;
        const ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("m.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("m.dat")), "\xef\xbb\xbf" + comtradeDat(set)));
        const auto record = load(dir.filePath(QStringLiteral("m.cfg"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
    }

    void largeFilesAcrossReadBlocks_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("binary") << "BINARY";
        QTest::newRow("ascii") << "ASCII";
    }

    void largeFilesAcrossReadBlocks()
    {
        QFETCH(QString, format);
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, format);
        set.analogs = 2;
        set.digitals = 1;
        set.samples = 120000;
        set.raw = [](int sample, int channel) { return double((sample * 7 + channel * 13) % 20011 - 10000); };
        set.rates = { { 1000.0, set.samples } };
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("big")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("big.cfg")));
        QCOMPARE(errorText(outcome), QString());
        verifySamples(*outcome.record(), set);
    }

    void binaryOfZeroLengthHasNoSamples()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("FLOAT32"));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("n.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("n.dat")), QByteArray()));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("n.cfg")));
        QCOMPARE(errorText(outcome), QString());
        QCOMPARE(outcome.record()->countOfSamples(), 0);
    }

    void binaryCutRecordCountsWithZeros()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("BINARY"));
        set.samples = 4;
        QByteArray dat = comtradeDat(set);
        // Sample number, stamp and the first value's low byte of a fifth record.
        dat += QByteArray("\x05\x00\x00\x00\x10\x00\x00\x00\x07", 9);
        QVERIFY(writeFile(dir.filePath(QStringLiteral("p.cfg")), comtradeCfg(set)));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("p.dat")), dat));
        const auto record = load(dir.filePath(QStringLiteral("p.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->countOfSamples(), 5);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(0)->getValue(4), 7.0);
        KORVANE_COMPARE_EXACTLY(record->analogChannel(1)->getValue(4), 0.0);
        for (int c = 0; c < set.digitals; ++c)
            QCOMPARE(record->digitalChannel(c)->value(4), false);
    }

    void nameFilterTakesEveryFileOfTheBaseName()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("abc")), set));
        ComtradeSetDescription other = set;
        other.raw = [](int, int) { return 1.0; };
        // "abc.dat" sorts before "abc_old.dat", so the set's own data wins.
        QVERIFY(writeFile(dir.filePath(QStringLiteral("abc_old.dat")), comtradeDat(other)));
        auto record = load(dir.filePath(QStringLiteral("abc.cfg"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
        // "x.mycfg" ends in cfg and counts as the configuration.
        QTemporaryDir second;
        QVERIFY(writeComtradeSet(second.filePath(QStringLiteral("x")), set, QStringLiteral(".mycfg")));
        record = load(second.filePath(QStringLiteral("x.cfg"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
    }

    void upperCaseSuffixes()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("BINARY32"));
        QVERIFY(writeComtradeSet(
            dir.filePath(QStringLiteral("UP")), set, QStringLiteral(".CFG"), QStringLiteral(".DAT")));
        const auto record = load(dir.filePath(QStringLiteral("UP.CFG"))).record();
        QVERIFY(record);
        verifySamples(*record, set);
        QVERIFY(ComtradeLoader::isComtrade(dir.filePath(QStringLiteral("UP.CFG"))));
    }

    void isComtradeLooksForBothSuffixes()
    {
        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(QStringLiteral("a.cfg")), "x"));
        QVERIFY(!ComtradeLoader::isComtrade(dir.filePath(QStringLiteral("a.cfg"))));
        // Names are not matched with each other.
        QVERIFY(writeFile(dir.filePath(QStringLiteral("b.dat")), "x"));
        QVERIFY(ComtradeLoader::isComtrade(dir.filePath(QStringLiteral("a.cfg"))));
        QVERIFY(!ComtradeLoader::isComtrade(dir.filePath(QStringLiteral("a.dat"))));
        const QString zip = dir.filePath(QStringLiteral("z.zip"));
        QVERIFY(writeZip(zip, { { "q/r.CFG", "x" }, { "s.Dat", "y" } }));
        QVERIFY(ComtradeLoader::isComtrade(zip));
        QVERIFY(writeZip(zip, { { "r.cfg", "x" } }));
        QVERIFY(!ComtradeLoader::isComtrade(zip));
        QVERIFY(writeFile(zip, "not a zip"));
        QVERIFY(!ComtradeLoader::isComtrade(zip));
    }

    void cyrillicConfigTextIsDetected()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.codec = "CP1251";
        set.station = QStringLiteral("Подстанция Северная напряжением триста тридцать киловольт");
        set.device = QStringLiteral("Регистратор аварийных событий");
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("w")), set));
        const auto record = load(dir.filePath(QStringLiteral("w.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->stationName(), set.station);
        QCOMPARE(record->deviceName(), set.device);
    }

    void headerIsReadWithTheCodec()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("h")), set));
        const QString text = QStringLiteral("Пуск защиты от замыкания на землю\nвторая строка");
        QVERIFY(writeFile(dir.filePath(QStringLiteral("h.hdr")), text.toUtf8()));
        const auto record = load(dir.filePath(QStringLiteral("h.cfg"))).record();
        QVERIFY(record);
        QCOMPARE(record->headerFileContent(), text);
    }

    void withoutInfTheEmptyObjectsStand()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("o")), set));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("o.hdr")), "header"));
        const auto record = load(dir.filePath(QStringLiteral("o.cfg"))).record();
        QVERIFY(record);
        const QList<RAS_OBJECT> objects = record->rasObjects();
        QCOMPARE(objects.size(), 1);
        const QString unknown = QStringLiteral("Не указано");
        QCOMPARE(objects[0].territory, unknown);
        QCOMPARE(objects[0].companyName, unknown);
        QCOMPARE(objects[0].stationName, set.station);
        QCOMPARE(objects[0].devices.size(), 1);
        const RAS_RECORDING_DEVICE device = objects[0].devices[0];
        QCOMPARE(device.recordingDeviceId, set.device);
        QCOMPARE(device.comtradeFileName, QStringLiteral("o.cfg"));
        for (const QString& field : { device.vendor, device.model, device.serialNumber,
                 device.hardwareRevision, device.softwareRevision })
            QCOMPARE(field, unknown);
        QVERIFY(device.lines.isEmpty());
        for (int c = 0; c < set.analogs; ++c)
            QCOMPARE(record->analogChannel(c)->physNum(), c + 1);
        for (int c = 0; c < set.digitals; ++c)
            QCOMPARE(record->digitalChannel(c)->physNum(), c + 1);
    }

    void infFillsLinesObjectsFailuresAndParts()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.analogs = 3;
        set.digitals = 2;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("i")), set));
        QVERIFY(writeInfFixture(dir.filePath(QStringLiteral("i.inf")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("i.cfg")));
        QCOMPARE(errorText(outcome), QString());
        const auto record = outcome.record();
        QCOMPARE(record->rasVersion(), QStringLiteral("2017"));
        QCOMPARE(record->rasRevision(), QStringLiteral("1.1"));
        const QList<RAS_OBJECT> objects = record->rasObjects();
        QCOMPARE(objects.size(), 1);
        QCOMPARE(objects[0].territory, QStringLiteral("Сибирь"));
        QCOMPARE(objects[0].stationName, QStringLiteral("ПС Южная"));
        QCOMPARE(objects[0].devices.size(), 1);
        QCOMPARE(objects[0].devices[0].vendor, QStringLiteral("Завод"));
        // Equipment 0 and 2 are lines; 1 is of another type and leaves a gap in the ids.
        QCOMPARE(record->countOfLines(), 2);
        QCOMPARE(objects[0].devices[0].lines.size(), 2);
        QCOMPARE(record->line(0)->name(), QStringLiteral("ВЛ 110 кВ Северная"));
        QCOMPARE(record->line(0)->id(), (unsigned short)0);
        QCOMPARE(record->line(1)->id(), (unsigned short)2);
        QCOMPARE(record->line(0)->voltage(), 110.0);
        QCOMPARE(record->line(0)->ctNumbers(), (QList<unsigned short> { 0, 1 }));
        QCOMPARE(record->line(0)->unit(), QStringLiteral("кВ"));
        QCOMPARE(record->analogChannel(1)->physNum(), 12);
        QVERIFY(record->analogChannel(1)->isInverted());
        QCOMPARE(record->digitalChannel(1)->physNum(), 22);
        QCOMPARE(record->failures().size(), 1);
        QCOMPARE(record->failures()[0]->reason(), QStringLiteral("КЗ на линии"));
        QCOMPARE(record->failures()[0]->blockNum(), 7);
        QCOMPARE(record->mergedWaves().size(), 1);
        const MergedWave part = record->mergedWaves()[0];
        QCOMPARE(part.sampleOffset, 4);
        QCOMPARE(part.beginTime.toDateTime(), QDateTime(QDate(2021, 3, 4), QTime(5, 6, 7)));
        QCOMPARE(part.beginTime.uSec(), 890LL);
        QCOMPARE(part.analogNumbers, (QVector<unsigned short> { 0, 2 }));
        QCOMPARE(outcome.result.userSettings.version, 3);
        QCOMPARE(outcome.result.userSettings.markers, std::string("m1 m2"));
    }

    void brokenInfGivesTheEmptyObjects()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("b")), set));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("b.inf")), "\x01\x02 no sections here\n"));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("b.cfg")));
        QCOMPARE(errorText(outcome), QString());
        QCOMPARE(outcome.record()->rasObjects().size(), 1);
        QCOMPARE(outcome.record()->rasObjects()[0].territory, QStringLiteral("Не указано"));
    }

    void zipRoad_data()
    {
        QTest::addColumn<QList<ZipMember>>("members");
        ComtradeSetDescription set = smallSet(2013, QStringLiteral("BINARY"));
        const QByteArray cfg = comtradeCfg(set);
        const QByteArray dat = comtradeDat(set);
        QTest::newRow("plain names") << QList<ZipMember> { { "rec.cfg", cfg }, { "rec.dat", dat } };
        QTest::newRow("cp866 cyrillic names with blanks")
            << QList<ZipMember> { { cp866(QStringLiteral("Осциллограмма №1 от 12.03.cfg")), cfg },
                   { cp866(QStringLiteral("Осциллограмма №1 от 12.03.dat")), dat } };
        QTest::newRow("nested folders") << QList<ZipMember> { { "a/", {}, true }, { "a/b/", {}, true },
            { "a/b/rec.CFG", cfg }, { "a/b/rec.DAT", dat } };
        ComtradeSetDescription other = set;
        other.raw = [](int, int) { return 3.0; };
        QTest::newRow("two cfg: the later wins") << QList<ZipMember> { { "first.cfg", comtradeCfg(other) },
            { "second.cfg", cfg }, { "x.dat", dat } };
        QTest::newRow("a member named by blanks only")
            << QList<ZipMember> { { "r.cfg", cfg }, { "r.dat", dat }, { "  ", "nameless" } };
        QTest::newRow("members named dot and dot-dot")
            << QList<ZipMember> { { "r.cfg", cfg }, { "r.dat", dat }, { ".", "dot" }, { "..", "dots" } };
        QTest::newRow("with hdr and inf") << QList<ZipMember> { { "r.cfg", cfg }, { "r.dat", dat },
            { "r.hdr", "header text" }, { "r.inf", "[Nothing]\n" } };
    }

    void zipRoad()
    {
        QFETCH(QList<ZipMember>, members);
        QTemporaryDir temp;
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("set.zip"));
        QVERIFY(writeZip(zip, members));
        const LoadOutcome outcome = loadWithTemporaryFolder(zip, temp.path());
        QCOMPARE(errorText(outcome), QString());
        const auto record = outcome.record();
        QVERIFY(record);
        verifySamples(*record, smallSet(2013, QStringLiteral("BINARY")));
        QCOMPARE(record->filename(), zip);
        QCOMPARE(record->rasObjects().value(0).devices.value(0).comtradeFileName, QStringLiteral("set.zip"));
        QCOMPARE(outcome.progress.value(0), qMakePair(QStringLiteral("Извлечение архива"), 0.0));
        QCOMPARE(outcome.progress.value(1), qMakePair(QStringLiteral("Извлечение архива"), 100.0));
        QCOMPARE(leftovers(temp.path()), QStringList());
    }

    void progressStages()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.analogs = 2;
        set.digitals = 2;
        set.samples = 4;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("p")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("p.cfg")));
        const QString config = QStringLiteral("Чтение файла конфигурации");
        const QString data = QStringLiteral("Чтение файла данных");
        const QList<QPair<QString, double>> expected { { config, 0.0 }, { config, 0.0 }, { config, 0.25 },
            { config, 0.5 }, { config, 0.75 }, { config, 100.0 }, { data, 0.0 } };
        QCOMPARE(outcome.progress.mid(0, expected.size()), expected);
        QCOMPARE(outcome.progress.size(), expected.size() + set.samples - 1);
        double last = 0.0;
        for (const auto& step : outcome.progress.mid(expected.size() - 1)) {
            QCOMPARE(step.first, data);
            QVERIFY(step.second >= last && step.second < 1.0);
            last = step.second;
        }
    }

    void failures_data()
    {
        QTest::addColumn<QByteArray>("cfg");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("cause");
        const ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        const QByteArray good = comtradeCfg(set);
        QTest::newRow("wrong ps letter") << QByteArray(good).replace(",0.1,P\n", ",0.1,X\n")
                                         << "Канал 0 содержит неправильное ps значение" << QString();
        QTest::newRow("token error in an analogue line")
            << QByteArray(good).replace("\n2,U2,", "\n2,U2,").replace("1,U1,A,Bay 1,A,", "z,U1,A,Bay 1,A,")
            << "Не удалось прочитать информацию об аналоговом канале 0"
            << "В строке 3 неверный тип данных, z не int";
        QTest::newRow("token error in a later analogue line")
            << QByteArray(good).replace(",kV,0.020123,", ",kV,abc,")
            << "Не удалось прочитать информацию об аналоговом канале 1"
            << "В строке 4 неверный тип данных, abc не double";
        QTest::newRow("token error in a digital line")
            << QByteArray(good).replace("\n3,D3,,,0\n", "\n3,D3,,,x\n")
            << "Не удалось прочитать информацию о дискретном канале 2"
            << "В строке 7 значение \"x\" не булево, потому что не "
               "равно ни 1 (принято как истина), ни 0 (принято как ложь)";
        QTest::newRow("shape error of an analogue line")
            << QByteArray(good).replace(",110,0.1,P\n2,", "\n2,")
            << "Строка 3 содержит неправильное значение 'множитель коэффициента трансформации'" << QString();
        QTest::newRow("shape error of a digital line")
            << QByteArray(good).replace("\n1,D1,,,0\n", "\n1,D1\n")
            << "Строка 5 содержит неправильное значение 'номер фазы'" << QString();
        QTest::newRow("shape error of the counts line")
            << QByteArray(good).replace("5,2A,3D", "5,2A")
            << "В cтроке 2 неверная информация о количестве сигналов "
               "и их типе"
            << QString();
        QTest::newRow("station alone on line 1: line 2 is found wanting")
            << QByteArray("\x00\x05Station without a device or a line break")
            << "В cтроке 2 неверная информация о количестве сигналов и их типе" << QString();
        // Counts are summed in 64 bits: a sum or a count beyond an int is a wrong counts line.
        QTest::newRow("counts whose sum passes an int")
            << QByteArray(good).replace("5,2A,3D", "2,2147483647A,2147483647D")
            << "В cтроке 2 неверная информация о количестве сигналов и их типе" << QString();
        QTest::newRow("a count beyond an int")
            << QByteArray(good).replace("5,2A,3D", "5,4294967298A,3D")
            << "В cтроке 2 неверная информация о количестве сигналов и их типе" << QString();
        QTest::newRow("token error in the counts line")
            << QByteArray(good).replace("5,2A,3D", "5,xA,3D") << "В строке 2 неверный тип данных, x не int"
            << QString();
        QTest::newRow("time without fraction")
            << QByteArray(good).replace("03:04:05.000006", "03:04:05")
            << "В строке 11 отсутствует необходимое количество значений" << QString();
        QTest::newRow("trigger time without its date")
            << QByteArray(good).replace("01/02/2020,03:04:05.005006", ",03:04:05.005006")
            << "В cтроке 12 неверная информация , отсутствует дата срабатывания" << QString();
        QTest::newRow("unknown file type")
            << QByteArray(good).replace("\nASCII\n", "\nTEXT\n")
            << "В cтроке 13 неверная информация о формате хранения данных" << QString();
    }

    void failures()
    {
        QFETCH(QByteArray, cfg);
        QFETCH(QString, message);
        QFETCH(QString, cause);
        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(QStringLiteral("f.cfg")), cfg));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("f.dat")), comtradeDat(smallSet(1999, "ASCII"))));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("f.cfg")));
        QVERIFY(outcome.error);
        QCOMPARE(outcome.error->message(), message);
        QCOMPARE(outcome.error->cause() ? outcome.error->cause()->message() : QString(), cause);
        if (!cause.isEmpty())
            QVERIFY(outcome.error.dynamicCast<LoadFailureException>());
        QString ignored;
        QVERIFY(EasyLibKorvane::open(dir.filePath(QStringLiteral("f.cfg")), ignored).isNull());
    }

    void missingFiles_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("open");
        QTest::addColumn<QString>("message");
        const QString notOpened = QStringLiteral("Не удалось открыть осциллограмму.");
        QTest::newRow("no dat") << QStringList { "a.cfg" } << "a.cfg" << notOpened;
        QTest::newRow("no cfg") << QStringList { "a.dat" } << "a.cfg" << notOpened;
        QTest::newRow("cfg not openable") << QStringList { "a.cfg/", "a.dat" } << "a.cfg"
                                          << "UnableOpenFileException";
        QTest::newRow("ascii dat not openable") << QStringList { "a.cfg", "a.dat/" } << "a.cfg"
                                                << "UnableOpenFileException";
        QTest::newRow("binary dat not openable") << QStringList { "b.cfg", "b.dat/" } << "b.cfg"
                                                 << "Невозможно открыть файл с данными";
        QTest::newRow("hdr not openable") << QStringList { "a.cfg", "a.dat", "a.hdr/" } << "a.cfg"
                                          << "Не удалось открыть HDR файл";
        QTest::newRow("unknown suffix") << QStringList { "a.cfg", "a.dat" } << "a.txt"
                                        << "FileFormatException";
        QTest::newRow("zip that is no zip") << QStringList { "a.zip:garbage" } << "a.zip"
                                            << "Zip архив не содержит файлов Comtrade";
        QTest::newRow("zip without cfg") << QStringList { "a.zip:nocfg" } << "a.zip"
                                         << "Zip архив не содержит файлов Comtrade";
    }

    void missingFiles()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, open);
        QFETCH(QString, message);
        QTemporaryDir dir;
        const ComtradeSetDescription ascii = smallSet(1999, QStringLiteral("ASCII"));
        const ComtradeSetDescription binary = smallSet(1999, QStringLiteral("BINARY"));
        for (const QString& file : files) {
            const QString path = dir.filePath(file);
            const ComtradeSetDescription& set = file.startsWith('b') ? binary : ascii;
            // A folder in place of a file: listed beside the set, but it will not open.
            if (file.endsWith('/'))
                QVERIFY(QDir().mkpath(path));
            else if (file == "a.zip:garbage")
                QVERIFY(writeFile(dir.filePath("a.zip"), "PK but not really"));
            else if (file == "a.zip:nocfg")
                QVERIFY(writeZip(dir.filePath("a.zip"), { { "a.dat", comtradeDat(set) }, { "a.txt", "x" } }));
            else if (file.endsWith(QLatin1String("cfg")))
                QVERIFY(writeFile(path, comtradeCfg(set)));
            else
                QVERIFY(writeFile(path, comtradeDat(set)));
        }
        const LoadOutcome outcome = load(dir.filePath(open));
        QVERIFY(outcome.error);
        QCOMPARE(outcome.error->message(), message);
        QVERIFY(outcome.error.dynamicCast<LoadFailureException>());
    }

    // A member that unpacks to more than the limit is refused, with nothing left behind: the
    // limit is 100 times the archive, but never below 16 MiB.
    void zipBombIsRefused()
    {
        QTemporaryDir temp;
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("bomb.zip"));
        const ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        const QByteArray zeros((16 << 20) + 1, '0');
        QVERIFY(writeZip(zip, { { "r.cfg", comtradeCfg(set) }, { "r.dat", zeros } }));
        QVERIFY(QFileInfo(zip).size() * 100 < zeros.size());
        const LoadOutcome outcome = loadWithTemporaryFolder(zip, temp.path());
        QCOMPARE(errorText(outcome), QStringLiteral("Архив содержит файл слишком большого размера"));
        QVERIFY(outcome.error.dynamicCast<LoadFailureException>());
        QCOMPARE(leftovers(temp.path()), QStringList());
    }

    // A member whose header declares more than the limit is refused before a byte is written.
    void zipMemberDeclaredTooLargeIsRefused()
    {
        QTemporaryDir temp;
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("lie.zip"));
        QVERIFY(writeFile(zip, zipWithDeclaredSize("r.dat", 3000000000u)));
        const LoadOutcome outcome = loadWithTemporaryFolder(zip, temp.path());
        QCOMPARE(errorText(outcome), QStringLiteral("Архив содержит файл слишком большого размера"));
        QCOMPARE(leftovers(temp.path()), QStringList());
    }

    // A sample rate of 1e308 or a trigger eight thousand years after the first sample: the
    // count of samples before the trigger saturates at the top of the int range (less the
    // margin of qRound) instead of overflowing.
    void preFailureCountSaturates_data()
    {
        QTest::addColumn<double>("rate");
        QTest::addColumn<QString>("trigger");
        QTest::newRow("rate 1e308") << 1e308 << QStringLiteral("01/02/2020,03:04:05.005006");
        QTest::newRow("far trigger") << 1000.0 << QStringLiteral("01/02/9999,03:04:05.005006");
    }

    void preFailureCountSaturates()
    {
        QFETCH(double, rate);
        QFETCH(QString, trigger);
        QTemporaryDir dir;
        ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        set.rates = { { rate, set.samples } };
        set.triggerTime = trigger;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("r")), set));
        const LoadOutcome outcome = load(dir.filePath(QStringLiteral("r.cfg")));
        QVERIFY2(outcome.record(), qPrintable(errorText(outcome)));
        QVERIFY(outcome.record()->countOfPreFailureSamples() >= std::numeric_limits<int>::max() - 2);
    }

    void unusableTemporaryFolder()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("set.zip"));
        const ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeZip(zip, { { "r.cfg", comtradeCfg(set) }, { "r.dat", comtradeDat(set) } }));
        const QByteArray oldTemp = qgetenv("TMPDIR");
        // A folder that exists and takes no new folder, even from the superuser.
        qputenv("TMPDIR", "/proc");
        const LoadOutcome outcome = load(zip);
        qputenv("TMPDIR", oldTemp);
        QCOMPARE(errorText(outcome), QStringLiteral("Невозможно распаковать архив"));
    }

    void cancelBeforeStart()
    {
        QTemporaryDir dir;
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("c")), smallSet(1999, QStringLiteral("ASCII"))));
        ComtradeLoader loader(dir.filePath(QStringLiteral("c.cfg")), nullptr);
        QSharedPointer<Exception> error;
        connect(&loader, &TaskBase::error, [&error](QSharedPointer<Exception> e) { error = e; });
        loader.cancel();
        loader.run();
        QVERIFY(error.dynamicCast<CancelledException>());
        QCOMPARE(error->message(), QStringLiteral("Task cancelled"));
    }

    void cancelDuringTheDataStage_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("ascii") << "ASCII";
        QTest::newRow("binary") << "BINARY";
        QTest::newRow("float32 in a zip") << "FLOAT32";
    }

    void cancelDuringTheDataStage()
    {
        QFETCH(QString, format);
        QTemporaryDir temp;
        QTemporaryDir dir;
        const ComtradeSetDescription set = smallSet(1999, format);
        QString path = dir.filePath(QStringLiteral("c.cfg"));
        if (format == QLatin1String("FLOAT32")) {
            path = dir.filePath(QStringLiteral("c.zip"));
            QVERIFY(writeZip(path, { { "c.cfg", comtradeCfg(set) }, { "c.dat", comtradeDat(set) } }));
        } else {
            QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("c")), set));
        }
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", temp.path().toLocal8Bit());
        int dataSteps = 0;
        const LoadOutcome outcome
            = load(path, [&dataSteps](ComtradeLoader& loader, const QString& stage, double) {
                  if (stage == QStringLiteral("Чтение файла данных") && ++dataSteps == 3)
                      loader.cancel();
              });
        qputenv("TMPDIR", oldTemp);
        QVERIFY(outcome.error.dynamicCast<CancelledException>());
        // The flag is polled right after the signal of each record.
        QCOMPARE(dataSteps, 3);
        QCOMPARE(leftovers(temp.path()), QStringList());
    }

    void modalOpenShowsTheCauseChain()
    {
        QTemporaryDir dir;
        const ComtradeSetDescription set = smallSet(1999, QStringLiteral("ASCII"));
        QVERIFY(writeFile(
            dir.filePath(QStringLiteral("m.cfg")), comtradeCfg(set).replace(",kV,0.020123,", ",kV,abc,")));
        QVERIFY(writeFile(dir.filePath(QStringLiteral("m.dat")), comtradeDat(set)));
        SeenBox box;
        closeNextMessageBox(box);
        bool called = false;
        QVERIFY(!EasyLibKorvane::open(
            dir.filePath(QStringLiteral("m.cfg")), nullptr, [&called](LoaderResult&) { called = true; }));
        QVERIFY(!called);
        QCOMPARE(box.title, QStringLiteral("Загрузка файла"));
        QCOMPARE(box.text,
            QStringLiteral("Не удалось прочитать информацию об аналоговом канале 1\nПо причине: В "
                           "строке 4 неверный тип данных, abc не double"));
    }

    void modalOpenHandsTheRecordOver()
    {
        QTemporaryDir dir;
        const ComtradeSetDescription set = smallSet(2013, QStringLiteral("FLOAT32"));
        QVERIFY(writeComtradeSet(dir.filePath(QStringLiteral("ok")), set));
        QSharedPointer<Oscillogram> record;
        QVERIFY(EasyLibKorvane::open(dir.filePath(QStringLiteral("ok.cfg")), nullptr,
            [&record](LoaderResult& result) { record = result.oscillogram; }));
        QVERIFY(record);
        verifySamples(*record.staticCast<ComtradeOscillogram>(), set);
    }

private:
    static bool writeInfFixture(const QString& path, const ComtradeSetDescription& set);
};

bool TestComtradeLoader::writeInfFixture(const QString& path, const ComtradeSetDescription& set)
{
    auto utf8 = [](const QString& text) { return text.toStdString(); };
    ComtradeAnalogList analogs(size_t(set.analogs));
    int c = 0;
    for (ComtradeAnalogInfo& info : analogs) {
        info.name = utf8(set.analogName(c));
        info.physNum = 11 + c;
        info.inversion = c == 1;
        ++c;
    }
    ComtradeDigitalList digitals(size_t(set.digitals));
    c = 0;
    for (ComtradeDigitalInfo& info : digitals) {
        info.name = utf8(set.digitalName(c));
        info.physNum = 21 + c;
        ++c;
    }
    ComtradeFaultList faults { { utf8(QStringLiteral("КЗ на линии")), 7 } };
    RasDescription ras;
    ras.version = "2017";
    ras.revision = "1.1";
    RasPowerObject object;
    object.territory = utf8(QStringLiteral("Сибирь"));
    object.companyName = utf8(QStringLiteral("Сети"));
    object.stationName = utf8(QStringLiteral("ПС Южная"));
    RasRecordingDevice device;
    device.recordingDeviceId = "R1";
    device.vendor = utf8(QStringLiteral("Завод"));
    RasEquipment line;
    line.equipmentType = 0;
    line.equipmentId = utf8(QStringLiteral("ВЛ 110 кВ Северная"));
    line.equipmentShortName = "L1";
    line.voltageLevelKv = 110;
    line.ctChannelNumbers = { 0, 1 };
    RasEquipment transformer = line;
    transformer.equipmentType = 1;
    transformer.equipmentId = "T1";
    RasEquipment second = line;
    second.equipmentId = "L2";
    device.equipment = { line, transformer, second };
    object.recordingDevices = { device };
    ras.powerObjects = { object };
    ComtradeMergedWaveList parts(1);
    parts[0].beginTime = "04/03/2021,05:06:07.000890";
    parts[0].blockNum = 4;
    parts[0].analogNumbers = { 0, 2 };
    CMR_USER_SETTINGS settings;
    settings.version = 3;
    settings.markers = "m1 m2";
    COMTRADE comtrade;
    if (comtrade.writeInf(
            analogs, digitals, faults, ras, QFile::encodeName(path).toStdString(), parts, &settings))
        return false;
    // The class writes the type by name and reads it as a number; other writers put the number.
    QString text = QString::fromUtf8(readFile(path));
    text.replace(QRegularExpression(QStringLiteral("Equipment_Type\\s*=\\s*Shunt_Reactor")),
        QStringLiteral("Equipment_Type=1"));
    return text.contains(QStringLiteral("Equipment_Type=1")) && writeFile(path, text.toUtf8());
}

QTEST_MAIN(TestComtradeLoader)
#include "tst_comtradeloader.moc"
