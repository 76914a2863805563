// Public COMTRADE sets from real relays and recorders, read where they lie (KORVANE_SAMPLES), each
// checked against the values an independent reader found in it.
#include "ExactCompare.h"
#include "FixtureFiles.h"
#include "ModalDialogs.h"
#include "RecordCompare.h"

#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <cmath>

namespace {
QJsonArray manifestSets()
{
    const QString dir = KorvaneTest::samplesDir();
    if (dir.isEmpty())
        return {};
    return QJsonDocument::fromJson(KorvaneTest::readFile(dir + QStringLiteral("/manifest.json")))
        .object()
        .value(QStringLiteral("sets"))
        .toArray();
}

QString setPath(const QJsonObject& entry)
{
    const QString dir = KorvaneTest::samplesDir();
    const QString cfg = entry.value(QStringLiteral("cfg")).toString();
    return dir + QLatin1Char('/') + (cfg.isEmpty() ? entry.value(QStringLiteral("zip")).toString() : cfg);
}

struct Stats
{
    QList<double> first;
    double last = 0.0;
    double min = INFINITY;
    double max = -INFINITY;
    double sum = 0.0;
};

Stats analogStats(const AnalogChannel& channel, int records)
{
    Stats stats;
    for (int s = 0; s < records; ++s) {
        const double value = channel.getRealValue(channel.getValue(s));
        if (s < 3)
            stats.first.append(value);
        stats.last = value;
        stats.min = std::min(stats.min, value);
        stats.max = std::max(stats.max, value);
        stats.sum += value;
    }
    return stats;
}

void verifyAnalog(
    const AnalogChannel& channel, const QJsonObject& expected, int records, bool allNames = false)
{
    if (allNames || expected.value(QStringLiteral("name_is_ascii")).toBool())
        QCOMPARE(channel.name(), expected.value(QStringLiteral("name")).toString());
    // The unit "none", in any case, is kept as no unit.
    const QString unit = expected.value(QStringLiteral("unit")).toString();
    QCOMPARE(channel.unit(), unit.toLower() == QLatin1String("none") ? QString() : unit);
    KORVANE_COMPARE_EXACTLY(channel.multiplier(), expected.value(QStringLiteral("a")).toDouble());
    KORVANE_COMPARE_EXACTLY(channel.offsetAdder(), expected.value(QStringLiteral("b")).toDouble());
    const QJsonObject want = expected.value(QStringLiteral("stats")).toObject();
    const Stats got = analogStats(channel, records);
    const QJsonArray first = want.value(QStringLiteral("first")).toArray();
    QCOMPARE(got.first.size(), first.size());
    for (int i = 0; i < first.size(); ++i)
        KORVANE_COMPARE_EXACTLY(got.first.at(i), first.at(i).toDouble());
    KORVANE_COMPARE_EXACTLY(got.last, want.value(QStringLiteral("last")).toDouble());
    KORVANE_COMPARE_EXACTLY(got.min, want.value(QStringLiteral("min")).toDouble());
    KORVANE_COMPARE_EXACTLY(got.max, want.value(QStringLiteral("max")).toDouble());
    const double sum = want.value(QStringLiteral("sum")).toDouble();
    // The order of summation may change the last bits only.
    QVERIFY2(std::abs(got.sum - sum) <= 1e-12 * std::max(1.0, std::abs(sum)),
        qPrintable(QStringLiteral("%1 against %2").arg(got.sum, 0, 'g', 17).arg(sum, 0, 'g', 17)));
}

void verifyDigital(
    const DigitalChannel& channel, const QJsonObject& expected, int records, bool allNames = false)
{
    if (allNames || expected.value(QStringLiteral("name_is_ascii")).toBool())
        QCOMPARE(channel.name(), expected.value(QStringLiteral("name")).toString());
    int ones = 0;
    int changes = 0;
    for (int s = 0; s < records; ++s) {
        ones += channel.value(s) ? 1 : 0;
        if (s > 0 && channel.value(s) != channel.value(s - 1))
            ++changes;
    }
    QCOMPARE(ones, expected.value(QStringLiteral("ones")).toInt());
    QCOMPARE(channel.value(0) ? 1 : 0, expected.value(QStringLiteral("first")).toInt());
    QCOMPARE(changes, expected.value(QStringLiteral("changes")).toInt());
}
// Opens a set through the library's entry with the given reading as the default, and checks
// that nothing is left in the temporary folder.
QSharedPointer<ComtradeOscillogram> openSet(const QJsonObject& entry, bool compatible)
{
    QTemporaryDir temp;
    const QByteArray oldTemp = qgetenv("TMPDIR");
    qputenv("TMPDIR", temp.path().toLocal8Bit());
    ComtradeLoader::setDefaultCompatible(compatible);
    QString errorText;
    const auto record = EasyLibKorvane::open(setPath(entry), errorText).dynamicCast<ComtradeOscillogram>();
    ComtradeLoader::setDefaultCompatible(false);
    qputenv("TMPDIR", oldTemp);
    if (!QDir(temp.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty())
        return {};
    return record;
}

// The time stamp of the last record of an ASCII .dat, in microseconds as the device wrote it.
long long lastAsciiStamp(const QString& datPath)
{
    const QList<QByteArray> lines = KorvaneTest::readFile(datPath).trimmed().split('\n');
    return lines.isEmpty() ? -1 : lines.last().split(',').value(1).trimmed().toLongLong();
}

void verifyChannels(const ComtradeOscillogram& record, const QJsonObject& entry, bool allNames)
{
    const int records = entry.value(QStringLiteral("complete_records")).toInt();
    const QJsonArray analogList = entry.value(QStringLiteral("analog")).toArray();
    for (int c = 0; c < record.countOfAnalogChannels(); ++c) {
        verifyAnalog(*record.analogChannel(c), analogList.at(c).toObject(), records, allNames);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("analogue channel %1").arg(c)));
    }
    const QJsonArray digitalList = entry.value(QStringLiteral("digital")).toArray();
    for (int c = 0; c < record.countOfDigitalChannels(); ++c) {
        verifyDigital(*record.digitalChannel(c), digitalList.at(c).toObject(), records, allNames);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("digital channel %1").arg(c)));
    }
}
} // namespace

class TestComtradeSamples : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        EasyLibKorvane::initialize();
        // A folder without its list of sets would pass with no rows at all.
        QVERIFY2(!manifestSets().isEmpty(), "manifest.json of KORVANE_SAMPLES is missing or lists no sets");
    }

    void samplesOpen_data() { addRows(QStringLiteral("opens")); }

    void samplesOpen()
    {
        QFETCH(QJsonObject, entry);
        QTemporaryDir temp;
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", temp.path().toLocal8Bit());
        QString errorText;
        const auto record
            = EasyLibKorvane::open(setPath(entry), errorText).dynamicCast<ComtradeOscillogram>();
        qputenv("TMPDIR", oldTemp);
        QVERIFY(record);
        QCOMPARE(QDir(temp.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());

        const int analogs = entry.value(QStringLiteral("analog_count")).toInt();
        const int digitals = entry.value(QStringLiteral("digital_count")).toInt();
        QCOMPARE(record->countOfAnalogChannels(), analogs);
        QCOMPARE(record->countOfDigitalChannels(), digitals);
        // A partial last record counts, filled with zeros.
        QCOMPARE(record->countOfSamples(), entry.value(QStringLiteral("sample_count")).toInt());
        const int nrates = entry.value(QStringLiteral("nrates")).toInt();
        const double rate = entry.value(QStringLiteral("first_rate")).toDouble();
        KORVANE_COMPARE_EXACTLY(record->sampleRate(), rate);
        QCOMPARE(record->isEventTriggeredOsc(), nrates == 0 && rate == 0.0);
        QCOMPARE(record->dataFormat().toString().toUpper(),
            entry.value(QStringLiteral("data_format")).toString().toUpper());
        const QString revision = entry.value(QStringLiteral("revision")).toString();
        QCOMPARE(record->version().value(), revision.isEmpty() ? 1991 : revision.toInt());

        const int records = entry.value(QStringLiteral("complete_records")).toInt();
        const QJsonArray analogList = entry.value(QStringLiteral("analog")).toArray();
        for (int c = 0; c < analogs; ++c) {
            verifyAnalog(*record->analogChannel(c), analogList.at(c).toObject(), records);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("analogue channel %1").arg(c)));
        }
        const QJsonArray digitalList = entry.value(QStringLiteral("digital")).toArray();
        for (int c = 0; c < digitals; ++c) {
            verifyDigital(*record->digitalChannel(c), digitalList.at(c).toObject(), records);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("digital channel %1").arg(c)));
        }
    }

    void samplesAreRefused_data() { addRows(QStringLiteral("fails")); }

    void samplesAreRefused()
    {
        QFETCH(QJsonObject, entry);
        QTemporaryDir temp;
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", temp.path().toLocal8Bit());
        QString errorText;
        const bool synchronousIsNull = EasyLibKorvane::open(setPath(entry), errorText).isNull();
        SeenBox box;
        closeNextMessageBox(box);
        bool called = false;
        const bool opened
            = EasyLibKorvane::open(setPath(entry), nullptr, [&called](LoaderResult&) { called = true; });
        qputenv("TMPDIR", oldTemp);
        QVERIFY(synchronousIsNull);
        QCOMPARE(errorText, QString());
        QVERIFY(!opened);
        QVERIFY(!called);
        QCOMPARE(box.text, entry.value(QStringLiteral("spec_message")).toString());
        QCOMPARE(QDir(temp.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }

    void samplesOpenCompatibly_data() { addRows(QString()); }

    // Compatible reading opens every set, with the values the independent reader found, names
    // in other encodings included; where strict reading opens a set too, both records agree.
    void samplesOpenCompatibly()
    {
        QFETCH(QJsonObject, entry);
        const auto record = openSet(entry, true);
        QVERIFY(record);
        QCOMPARE(record->countOfAnalogChannels(), entry.value(QStringLiteral("analog_count")).toInt());
        QCOMPARE(record->countOfDigitalChannels(), entry.value(QStringLiteral("digital_count")).toInt());
        QCOMPARE(record->countOfSamples(), entry.value(QStringLiteral("sample_count")).toInt());
        const int nrates = entry.value(QStringLiteral("nrates")).toInt();
        const double rate = entry.value(QStringLiteral("first_rate")).toDouble();
        KORVANE_COMPARE_EXACTLY(record->sampleRate(), rate);
        QCOMPARE(record->isEventTriggeredOsc(), nrates == 0 && rate == 0.0);
        QCOMPARE(record->isTimedByRates(), nrates > 1);
        const int revision = entry.value(QStringLiteral("revision")).toString().toInt();
        const bool standardYear = revision == 1991 || revision == 1999 || revision == 2013;
        // The sets without a year are written with the lines of 1991, those of other years with
        // the lines of 1999.
        const int inferred = entry.value(QStringLiteral("revision")).isNull() ? 1991 : 1999;
        QCOMPARE(record->version().value(), standardYear ? revision : inferred);
        verifyChannels(*record, entry, true);
        if (QTest::currentTestFailed())
            return;

        if (record->isTimedByRates()) {
            // The device's own stamps of the last record (ASCII, in microseconds) agree with the
            // time from the rate table within 0.2 %: the device steps its stamps by whole
            // microseconds (416) where its rates give 416.4.
            const QString dat = setPath(entry).replace(QStringLiteral(".cfg"), QStringLiteral(".dat"));
            const long long stamp = lastAsciiStamp(dat);
            const long long computed = record->beginTime().uSecsTo(record->endTime());
            QVERIFY2(std::llabs(computed - stamp) <= stamp / 500,
                qPrintable(QStringLiteral("%1 against %2").arg(computed).arg(stamp)));
        }
        const bool strictOpens
            = entry.value(QStringLiteral("spec_outcome")).toString() == QLatin1String("opens");
        // What strict reading refuses or times otherwise is said in the record's information.
        if (!strictOpens || record->isTimedByRates())
            QVERIFY(record->readingNote().startsWith(QStringLiteral("Прочитано в режиме совместимости: ")));
        if (strictOpens && !record->isTimedByRates()) {
            const auto strict = openSet(entry, false);
            QVERIFY(strict);
            KorvaneTest::compareRecords(*strict, *record);
        }
    }

private:
    void addRows(const QString& outcome)
    {
        QTest::addColumn<QJsonObject>("entry");
        const QJsonArray sets = manifestSets();
        for (const QJsonValue& value : sets) {
            const QJsonObject entry = value.toObject();
            if (!outcome.isEmpty() && entry.value(QStringLiteral("spec_outcome")).toString() != outcome)
                continue;
            const QString name = entry.contains(QStringLiteral("zip"))
                ? entry.value(QStringLiteral("zip")).toString()
                : entry.value(QStringLiteral("cfg")).toString();
            QTest::newRow(qPrintable(name)) << entry;
        }
    }
};

// Without a folder of samples there is nothing to run, and CTest shows the test as skipped.
int main(int argc, char* argv[])
{
    if (KorvaneTest::samplesDir().isEmpty()) {
        QTextStream(stdout) << "SKIP: KORVANE_SAMPLES names no folder of samples\n";
        return KorvaneTest::skipReturnCode;
    }
    QApplication app(argc, argv);
    TestComtradeSamples test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_comtradesamples.moc"
