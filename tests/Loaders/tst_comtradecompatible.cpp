// Compatible COMTRADE reading against strict reading, one generated set per kind of departure
// from the standard that real devices write: strict reading keeps its outcome and message,
// compatible reading gives the record with the values the set was written with.
#include "ComtradeFixture.h"
#include "ExactCompare.h"
#include "FixtureFiles.h"
#include "RecordCompare.h"
#include "ZipFixture.h"

#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"
#include "Model/OscillogramLoaderFactory.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

using namespace KorvaneTest;

namespace {
const QString notePrefix = QStringLiteral("Прочитано в режиме совместимости: ");

struct Outcome
{
    QSharedPointer<ComtradeOscillogram> record;
    QSharedPointer<Exception> error;
    QString message() const { return error ? error->message() : QString(); }
};

// Runs the loader on this thread in the mode asked for.
Outcome load(const QString& path, bool compatible)
{
    Outcome outcome;
    ComtradeLoader loader(path, nullptr);
    loader.setCompatible(compatible);
    QObject::connect(
        &loader, &TaskBase::error, [&outcome](QSharedPointer<Exception> e) { outcome.error = e; });
    loader.run();
    if (!outcome.error)
        outcome.record = loader.result().oscillogram.dynamicCast<ComtradeOscillogram>();
    return outcome;
}

// The set's .cfg with line 1 given anew.
QByteArray withFirstLine(const ComtradeSetDescription& set, const QByteArray& firstLine)
{
    const QByteArray cfg = comtradeCfg(set);
    return firstLine + cfg.mid(cfg.indexOf('\n'));
}

QString writeSet(const QTemporaryDir& dir, const ComtradeSetDescription& set, const QByteArray& cfg)
{
    const QString cfgPath = dir.filePath(QStringLiteral("r.cfg"));
    writeFile(cfgPath, cfg);
    writeFile(dir.filePath(QStringLiteral("r.dat")), comtradeDat(set));
    return cfgPath;
}

ComtradeSetDescription setOf(int year, const QString& format)
{
    ComtradeSetDescription set;
    set.year = year;
    set.format = format;
    return set;
}
} // namespace

class TestComtradeCompatible : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { EasyLibKorvane::initialize(); }
    void cleanup() { ComtradeLoader::setDefaultCompatible(false); }

    void strictIsTheDefault()
    {
        QVERIFY(!ComtradeLoader::defaultCompatible());
        QVERIFY(!ComtradeLoader(QStringLiteral("x.cfg"), nullptr).isCompatible());
        ComtradeLoader::setDefaultCompatible(true);
        QVERIFY(ComtradeLoader(QStringLiteral("x.cfg"), nullptr).isCompatible());
    }

    void standardSetsReadAlike_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("format");
        for (int year : { 0, 1991, 1999, 2013 }) {
            for (const char* format : { "ASCII", "BINARY", "BINARY32", "FLOAT32" })
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(year).arg(QLatin1String(format))))
                    << year << QString::fromLatin1(format);
        }
    }

    // A set that keeps to the standard reads the same in both modes, and carries no note.
    void standardSetsReadAlike()
    {
        QFETCH(int, year);
        QFETCH(QString, format);
        QTemporaryDir dir;
        const ComtradeSetDescription set = setOf(year, format);
        const QString path = writeSet(dir, set, comtradeCfg(set));
        const Outcome strict = load(path, false);
        const Outcome compatible = load(path, true);
        QVERIFY2(strict.record && compatible.record, qPrintable(strict.message() + compatible.message()));
        compareRecords(*strict.record, *compatible.record);
        QCOMPARE(compatible.record->stationName(), strict.record->stationName());
        QCOMPARE(compatible.record->readingNote(), QString());
        QCOMPARE(strict.record->readingNote(), QString());
    }

    void revisionYear_data()
    {
        QTest::addColumn<int>("shape");
        QTest::addColumn<QByteArray>("firstLine");
        QTest::addColumn<QString>("strictMessage");
        QTest::addColumn<int>("compatibleYear");
        QTest::addColumn<QString>("reason");
        // Read as 1991, a line of 13 fields goes beyond the 10 of that year.
        const QString tooMany = QStringLiteral(
            "Строка 3 содержит неправильное значение 'неверное количество параметров аналогового сигнала'");
        QTest::newRow("2000 on 1999 lines")
            << 1999 << QByteArray("S,R,2000") << tooMany << 1999 << "год ревизии \"2000\" прочитан как 1999";
        QTest::newRow("1997 on 1999 lines")
            << 1999 << QByteArray("S,R,1997") << tooMany << 1999 << "год ревизии \"1997\" прочитан как 1999";
        QTest::newRow("no year on 1999 lines")
            << 1999 << QByteArray("S,R") << tooMany << 1999 << "год ревизии не указан, прочитан как 1999";
        QTest::newRow("2001 on 1991 lines: read as 1991 in both")
            << 1991 << QByteArray("S,R,2001") << QString() << 1991 << QString();
    }

    void revisionYear()
    {
        QFETCH(int, shape);
        QFETCH(QByteArray, firstLine);
        QFETCH(QString, strictMessage);
        QFETCH(int, compatibleYear);
        QFETCH(QString, reason);
        QTemporaryDir dir;
        const ComtradeSetDescription set = setOf(shape, QStringLiteral("BINARY"));
        const QString path = writeSet(dir, set, withFirstLine(set, firstLine));
        const Outcome strict = load(path, false);
        QCOMPARE(strict.message(), strictMessage);
        const Outcome compatible = load(path, true);
        QVERIFY2(compatible.record, qPrintable(compatible.message()));
        QCOMPARE(compatible.record->version().value(), compatibleYear);
        verifySetValues(*compatible.record, set);
        QCOMPARE(compatible.record->readingNote(), reason.isEmpty() ? QString() : notePrefix + reason);
    }

    void digitalLinesOfThreeToFiveFields_data()
    {
        QTest::addColumn<QByteArray>("digitalLine");
        QTest::addColumn<QString>("phase");
        QTest::addColumn<QString>("component");
        QTest::newRow("4 fields: the third is the phase") << QByteArray("1,D1,C,0") << "C"
                                                          << "";
        QTest::newRow("5 fields: phase and component") << QByteArray("1,D1,C,Breaker 2,0") << "C"
                                                       << "Breaker 2";
    }

    // A 1991 file whose digital lines are written as in later years.
    void digitalLinesOfThreeToFiveFields()
    {
        QFETCH(QByteArray, digitalLine);
        QFETCH(QString, phase);
        QFETCH(QString, component);
        QTemporaryDir dir;
        ComtradeSetDescription set = setOf(1991, QStringLiteral("ASCII"));
        set.digitals = 1;
        const QByteArray cfg = comtradeCfg(set).replace("\n1,D1,0\n", "\n" + digitalLine + "\n");
        const QString path = writeSet(dir, set, cfg);
        QCOMPARE(load(path, false).message(),
            QStringLiteral("Строка 5 содержит неправильное значение 'неверное количество параметров "
                           "дискретного сигнала'"));
        const Outcome compatible = load(path, true);
        QVERIFY2(compatible.record, qPrintable(compatible.message()));
        verifySetValues(*compatible.record, set);
        const auto channel = compatible.record->digitalChannel(0).staticCast<ComtradeDigitalChannel>();
        QCOMPARE(channel->phaseIdentification(), phase);
        QCOMPARE(channel->ccbm(), component);
        // The normal state is the last field whatever the count: 0 here.
        QCOMPARE(channel->y(), false);
        const int fields = digitalLine.count(',') + 1;
        QCOMPARE(compatible.record->readingNote(),
            notePrefix + QStringLiteral("дискретные каналы с %1 полями").arg(fields));
    }

    // The resource forks a Mac archiver stores after the real members.
    void macArchiveMembersAreIgnored()
    {
        QTemporaryDir dir;
        const ComtradeSetDescription set = setOf(1999, QStringLiteral("ASCII"));
        // An AppleDouble header: magic number and version, and no line break anywhere.
        const QByteArray fork = QByteArray("\x00\x05\x16\x07\x00\x02\x00\x00Mac OS X        ", 24);
        const QString zip = dir.filePath(QStringLiteral("r.zip"));
        QVERIFY(writeZip(zip,
            { { "rec/rec.cfg", comtradeCfg(set) }, { "rec/rec.dat", comtradeDat(set) },
                { "__MACOSX/", {}, true }, { "__MACOSX/rec/._rec.cfg", fork },
                { "__MACOSX/rec/._rec.dat", fork }, { "rec/._notes.hdr", fork } }));
        // Strictly every member lands as Wave.<suffix>: the fork is the .cfg, one line without a break.
        QCOMPARE(load(zip, false).message(),
            QStringLiteral("В cтроке 2 неверная информация о количестве сигналов и их типе"));
        const Outcome compatible = load(zip, true);
        QVERIFY2(compatible.record, qPrintable(compatible.message()));
        verifySetValues(*compatible.record, set);
        QCOMPARE(compatible.record->headerFileContent(), QString());
        QCOMPARE(compatible.record->filename(), zip);
        QCOMPARE(compatible.record->readingNote(),
            notePrefix + QStringLiteral("служебные файлы Mac в архиве пропущены"));
    }

    void monthFirstDates_data()
    {
        QTest::addColumn<QString>("firstTime");
        QTest::addColumn<QString>("triggerTime");
        QTest::addColumn<bool>("strictValid");
        QTest::addColumn<QDate>("compatibleDate");
        QTest::addColumn<bool>("noted");
        QTest::newRow("09/17/15: month first")
            << "09/17/2015,03:04:05.000006"
            << "09/17/2015,03:04:05.005006" << false << QDate(2015, 9, 17) << true;
        QTest::newRow("trigger decides for both lines")
            << "09/12/2015,23:59:59.999000"
            << "09/13/2015,00:00:00.004000" << false << QDate(2015, 9, 12) << true;
        QTest::newRow("ambiguous: day first")
            << "09/10/2015,03:04:05.000006"
            << "09/10/2015,03:04:05.005006" << true << QDate(2015, 10, 9) << false;
    }

    void monthFirstDates()
    {
        QFETCH(QString, firstTime);
        QFETCH(QString, triggerTime);
        QFETCH(bool, strictValid);
        QFETCH(QDate, compatibleDate);
        QFETCH(bool, noted);
        QTemporaryDir dir;
        ComtradeSetDescription set = setOf(1999, QStringLiteral("ASCII"));
        set.firstTime = firstTime;
        set.triggerTime = triggerTime;
        const QString path = writeSet(dir, set, comtradeCfg(set));
        const Outcome strict = load(path, false);
        QVERIFY(strict.record);
        QCOMPARE(strict.record->beginTime().toDateTime().isValid()
                && strict.record->triggerTime().toDateTime().isValid(),
            strictValid);
        const Outcome compatible = load(path, true);
        QVERIFY(compatible.record);
        QCOMPARE(compatible.record->beginTime().toDateTime().date(), compatibleDate);
        QVERIFY(compatible.record->triggerTime().toDateTime().isValid());
        // The trigger lies 5 ms after the first value in every row.
        QCOMPARE(compatible.record->beginTime().uSecsTo(compatible.record->triggerTime()), 5000LL);
        QCOMPARE(compatible.record->countOfPreFailureSamples(), 5);
        QCOMPARE(compatible.record->readingNote(),
            noted ? notePrefix + QStringLiteral("даты записаны в порядке месяц/день/год") : QString());
    }

    // Names of a Chinese recorder in GB18030: strictly decoded as CP1251, compatibly as written.
    void encodingsThatQtDecodes()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = setOf(1999, QStringLiteral("ASCII"));
        set.codec = "GB18030";
        set.station = QStringLiteral("华东电网变电站线路保护装置故障录波器第一号母线电压电流");
        set.device = QStringLiteral("故障录波器型号数字式继电保护装置南京自动化设备");
        const QString path = writeSet(dir, set, comtradeCfg(set));
        const QByteArray stationBytes = QTextCodec::codecForName("GB18030")->fromUnicode(set.station);
        const Outcome strict = load(path, false);
        QVERIFY(strict.record);
        QCOMPARE(strict.record->stationName(),
            QTextCodec::codecForName("CP1251")->toUnicode(stationBytes).trimmed());
        const Outcome compatible = load(path, true);
        QVERIFY(compatible.record);
        QCOMPARE(compatible.record->stationName(), set.station);
        QCOMPARE(compatible.record->recordingDeviceId(), set.device);
        verifySetValues(*compatible.record, set);
        QCOMPARE(compatible.record->readingNote(), notePrefix + QStringLiteral("тексты в кодировке GB18030"));
    }

    // 1000 Hz up to sample 4, then 500 Hz up to sample 10.
    void severalRatesGiveEverySampleItsTime()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = setOf(1999, QStringLiteral("BINARY"));
        set.rates = { { 1000.0, 4 }, { 500.0, 10 } };
        const QString path = writeSet(dir, set, comtradeCfg(set));
        // Each sample lies one period of its segment's rate after the one before.
        const QList<long long> times { 0, 1000, 2000, 3000, 5000, 7000, 9000, 11000, 13000, 15000 };

        const Outcome strict = load(path, false);
        QVERIFY(strict.record);
        KORVANE_COMPARE_EXACTLY(strict.record->sampleRate(), 1000.0);
        // Strictly the first rate holds throughout: the last sample lies 9 ms after the first.
        QCOMPARE(strict.record->beginTime().uSecsTo(strict.record->endTime()), 9000LL);

        const Outcome compatible = load(path, true);
        QVERIFY(compatible.record);
        const ComtradeOscillogram& record = *compatible.record;
        verifySetValues(record, set);
        QVERIFY(record.isTimedByRates());
        QVERIFY(!record.isEventTriggeredOsc());
        for (int s = 0; s < set.samples; ++s)
            QCOMPARE(record.beginTime().uSecsTo(record.dateTime(s)), times.at(s));
        QCOMPARE(record.beginTime().uSecsTo(record.endTime()), 15000LL);
        // The trigger, 5 ms after the first value, falls on the fifth sample.
        QCOMPARE(record.beginTime().uSecsTo(record.triggerTime()), 5000LL);
        QCOMPARE(record.countOfPreFailureSamples(), 4);
        QCOMPARE(record.countOfPostFailureSamples(), 6);
        // Measures in milliseconds between samples.
        QCOMPARE(record.timeForSample(3, 6), 6.0);
        QCOMPARE(record.timeBetweenSamples(9, 0), -15.0);
        QCOMPARE(record.readingNote(),
            notePrefix
                + QStringLiteral("2 частот дискретизации, время каждой выборки взято из таблицы частот; "
                                 "вычислители считают по первой частоте, 1000 Гц"));
    }

    void singleFileForm_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("ascii data") << "ASCII";
        QTest::newRow("binary data") << "BINARY";
        QTest::newRow("float data") << "FLOAT32";
    }

    void singleFileForm()
    {
        QFETCH(QString, format);
        QTemporaryDir dir;
        const ComtradeSetDescription set = setOf(2013, format);
        const QByteArray dat = comtradeDat(set);
        const bool ascii = format == QLatin1String("ASCII");
        const QByteArray cff = "--- file type: CFG ---\r\n" + comtradeCfg(set) + "--- file type: INF ---\r\n"
            + "--- file type: HDR ---\r\nHeader of the test record\r\n"
            + (ascii
                    ? QByteArray("--- file type: DAT ASCII ---\r\n")
                    : QByteArray("--- file type: DAT BINARY: ") + QByteArray::number(dat.size()) + " ---\r\n")
            + dat;
        const QString path = dir.filePath(QStringLiteral("r.cff"));
        QVERIFY(writeFile(path, cff));

        QCOMPARE(load(path, false).message(), QStringLiteral("FileFormatException"));
        QVERIFY(!OscillogramLoaderFactory::createLoaderForFile(path));
        QString errorText;
        QVERIFY(EasyLibKorvane::open(path, errorText).isNull());
        QCOMPARE(errorText, QStringLiteral("Формат файла не поддерживается"));

        const Outcome compatible = load(path, true);
        QVERIFY2(compatible.record, qPrintable(compatible.message()));
        verifySetValues(*compatible.record, set);
        QCOMPARE(compatible.record->version().value(), 2013);
        QCOMPARE(compatible.record->filename(), path);
        QCOMPARE(compatible.record->headerFileContent(), QStringLiteral("Header of the test record\n"));
        QCOMPARE(compatible.record->readingNote(), notePrefix + QStringLiteral("файл в единой форме CFF"));

        ComtradeLoader::setDefaultCompatible(true);
        QVERIFY(OscillogramLoaderFactory::isWave(path));
        const auto opened = EasyLibKorvane::open(path, errorText).dynamicCast<ComtradeOscillogram>();
        QVERIFY(opened);
        verifySetValues(*opened, set);
    }

    void singleFileWithoutData()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("r.cff"));
        QVERIFY(writeFile(path, "--- file type: CFG ---\nS,R,2013\n"));
        QCOMPARE(load(path, true).message(), QStringLiteral("Файл CFF не содержит разделов CFG и DAT"));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList { QStringLiteral("r.cff") });
    }

    // Records separated by empty lines, as one recorder writes them.
    void emptyDataLinesAreSkipped()
    {
        QTemporaryDir dir;
        ComtradeSetDescription set = setOf(1999, QStringLiteral("ASCII"));
        set.lineEnd = "\n\n";
        const QString path = writeSet(dir, set, comtradeCfg(set).replace("\n\n", "\n"));
        QCOMPARE(load(path, false).message(),
            QStringLiteral("В строке 2 отсутствует необходимое количество значений"));
        const Outcome compatible = load(path, true);
        QVERIFY2(compatible.record, qPrintable(compatible.message()));
        verifySetValues(*compatible.record, set);
        QCOMPARE(compatible.record->readingNote(),
            notePrefix + QStringLiteral("пустые строки в файле данных пропущены"));
    }
};

QTEST_MAIN(TestComtradeCompatible)
#include "tst_comtradecompatible.moc"
