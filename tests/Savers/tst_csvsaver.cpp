#include "Calc/CalcModule.h"
#include "CsvFixture.h"
#include "FixtureFiles.h"
#include "SaverFixture.h"
#include "Savers/CsvSaver.h"
#include "Settings/KorvaneSettings.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>
#include <QThread>

#include <csignal>
#include <functional>
#include <sys/resource.h>

using namespace KorvaneTest;

namespace {
using Configure = std::function<void(CsvSaver&)>;

SaveRun save(const QSharedPointer<Oscillogram>& record, const QString& target,
    const Configure& configure = {}, bool onlySelected = false, bool useRange = false)
{
    CsvSaver saver(target, record, onlySelected, useRange);
    if (configure)
        configure(saver);
    SaveRun run;
    watchSaver(saver, run);
    saver.saveProcess();
    run.ok = saver.isOk();
    return run;
}

// Exact binary values: halves and quarters, an integer, a thousandth half, and values whose third
// decimal needs rounding.
TableRecordDescription plainTable()
{
    TableRecordDescription d;
    d.analogNames = QStringList { QStringLiteral("Ia"), QStringLiteral("Ub") };
    d.analogRaw = { { 1.5, 12.0, 1.0005, -2.4996 }, { 2.25, -3.0, 0.1, 1234.5678 } };
    d.digitalNames = QStringList { QStringLiteral("Пуск") };
    d.digitalBits = { { false, true, true, false } };
    d.triggerSample = 1;
    return d;
}

QByteArray encoded(const char* codec, const QString& text)
{
    return QTextCodec::codecForName(codec)->fromUnicode(text);
}

// Milliseconds below a second as seconds with a point and without trailing zeros: 20 is "0.02".
QString secondsText(int milliseconds)
{
    if (milliseconds == 0)
        return QStringLiteral("0");
    QString text = QStringLiteral("0.%1").arg(milliseconds, 3, 10, QLatin1Char('0'));
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    return text;
}

// The default calculator settings of an empty settings file: two periods, the Talvi calculators.
QSharedPointer<CalcModule> moduleFor(double rate)
{
    QTemporaryDir dir;
    QSettings ini(dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat);
    KorvaneSettings settings(&ini);
    auto module = QSharedPointer<CalcModule>::create();
    module->init(CalcModule::makeDevConfig(settings, rate));
    return module;
}
} // namespace

class TestCsvSaver : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString target(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void defaultsOfTheSaver()
    {
        CsvSaver saver(target(QStringLiteral("d.csv")), makeTableRecord(plainTable()), false, false);
        QCOMPARE(saver.mode(), 0);
        QCOMPARE(saver.rowStep(), 1);
        QCOMPARE(saver.primSecMode(), 0);
        QCOMPARE(saver.separator(), QChar(';'));
        QCOMPARE(saver.numberLocale().decimalPoint(), QChar(','));
        QVERIFY(saver.numberLocale().numberOptions() & QLocale::OmitGroupSeparator);
        QVERIFY(!saver.calcModule());
    }

    void separatorAndDecimalChoices()
    {
        CsvSaver saver(target(QStringLiteral("d.csv")), makeTableRecord(plainTable()), false, false);
        saver.setSeparator(1);
        QCOMPARE(saver.separator(), QChar(','));
        saver.setSeparator(7);
        QCOMPARE(saver.separator(), QChar(';'));
        saver.setDecimalPoint(1);
        QCOMPARE(saver.numberLocale().language(), QLocale::C);
        QVERIFY(saver.numberLocale().numberOptions() & QLocale::OmitGroupSeparator);
        saver.setDecimalPoint(0);
        QCOMPARE(saver.numberLocale().language(), QLocale::Russian);
        QVERIFY(saver.numberLocale().numberOptions() & QLocale::OmitGroupSeparator);
    }

    // 1,5;2,25 with the defaults; 12 without decimals; 1.0005 to 1,001; -2.4996 to -2,5 (halves
    // upward); 1234.5678 rounded to 1234.568 and written with six digits. Times from the trigger at
    // sample 1, one millisecond a sample.
    void plainTableByteForByte_data()
    {
        QTest::addColumn<int>("separator");
        QTest::addColumn<int>("decimal");
        QTest::addColumn<QString>("expected");
        QTest::newRow("defaults: semicolon and Russian comma") << 0 << 0
                                                               << QStringLiteral("step;time;Ia;Ub;Пуск\n"
                                                                                 "0;-0,001;1,5;2,25;0\n"
                                                                                 "1;0;12;-3;1\n"
                                                                                 "2;0,001;1,001;0,1;1\n"
                                                                                 "3;0,002;-2,5;1234,57;0\n");
        QTest::newRow("semicolon and point") << 0 << 1
                                             << QStringLiteral("step;time;Ia;Ub;Пуск\n"
                                                               "0;-0.001;1.5;2.25;0\n"
                                                               "1;0;12;-3;1\n"
                                                               "2;0.001;1.001;0.1;1\n"
                                                               "3;0.002;-2.5;1234.57;0\n");
        QTest::newRow("comma and point") << 1 << 1
                                         << QStringLiteral("step,time,Ia,Ub,Пуск\n"
                                                           "0,-0.001,1.5,2.25,0\n"
                                                           "1,0,12,-3,1\n"
                                                           "2,0.001,1.001,0.1,1\n"
                                                           "3,0.002,-2.5,1234.57,0\n");
        // The saver itself does not refuse a comma in both places; only the dialog does.
        QTest::newRow("comma in both places") << 1 << 0
                                              << QStringLiteral("step,time,Ia,Ub,Пуск\n"
                                                                "0,-0,001,1,5,2,25,0\n"
                                                                "1,0,12,-3,1\n"
                                                                "2,0,001,1,001,0,1,1\n"
                                                                "3,0,002,-2,5,1234,57,0\n");
    }
    void plainTableByteForByte()
    {
        QFETCH(int, separator);
        QFETCH(int, decimal);
        QFETCH(QString, expected);
        const QString path = target(QStringLiteral("plain.csv"));
        const SaveRun run = save(makeTableRecord(plainTable()), path, [=](CsvSaver& saver) {
            saver.setSeparator(separator);
            saver.setDecimalPoint(decimal);
        });
        QVERIFY(run.ok);
        QCOMPARE(run.finished, 1);
        QCOMPARE(run.writeErrors + run.cancels, 0);
        // A saver writes CP1251 unless told otherwise.
        QCOMPARE(readFile(path), encoded("CP1251", expected));
    }

    void codecOfTheText()
    {
        const QString path = target(QStringLiteral("utf8.csv"));
        QVERIFY(save(makeTableRecord(plainTable()), path, [](CsvSaver& saver) {
            saver.setCodec(QStringLiteral("UTF-8"));
        }).ok);
        QVERIFY(readFile(path).startsWith(QStringLiteral("step;time;Ia;Ub;Пуск\n").toUtf8()));
    }

    // A codec that is not ASCII-compatible gets the rows through the stream too.
    void rowsInATwoByteCodec()
    {
        const QString path = target(QStringLiteral("utf16.csv"));
        QVERIFY(save(makeTableRecord(plainTable()), path, [](CsvSaver& saver) {
            saver.setCodec(QStringLiteral("UTF-16LE"));
        }).ok);
        // The codec's own conversion puts a byte order mark first; the stream writes none.
        QCOMPARE(readFile(path),
            encoded("UTF-16LE",
                QStringLiteral("step;time;Ia;Ub;Пуск\n0;-0,001;1,5;2,25;0\n1;0;12;-3;1\n2;0,001;1,001;0,1;1\n"
                               "3;0,002;-2,5;1234,57;0\n"))
                .mid(2));
    }

    // Primary 1000, secondary 100: a primary channel shown secondary is divided by ten, a
    // secondary one shown primary multiplied by ten; the side it is held in stays as it is.
    void primaryAndSecondaryValues_data()
    {
        QTest::addColumn<int>("primSecMode");
        QTest::addColumn<QString>("expected");
        QTest::newRow("primary") << 0 << QStringLiteral("step;time;P;S\n0;0;25;2,5\n1;0,001;-7,5;-0,04\n");
        QTest::newRow("secondary") << 1
                                   << QStringLiteral("step;time;P;S\n0;0;2,5;0,25\n1;0,001;-0,75;-0,004\n");
    }
    void primaryAndSecondaryValues()
    {
        QFETCH(int, primSecMode);
        QFETCH(QString, expected);
        TableRecordDescription d;
        d.analogNames = QStringList { QStringLiteral("P"), QStringLiteral("S") };
        d.analogRaw = { { 25.0, -7.5 }, { 0.25, -0.004 } };
        const auto record = makeTableRecord(d);
        for (int c = 0; c < 2; ++c) {
            record->analogChannel(c)->setPrimary(1000.0);
            record->analogChannel(c)->setSecondary(100.0);
        }
        record->analogChannel(1)->setPs(AnalogChannel::Secondary);
        const QString path = target(QStringLiteral("ps.csv"));
        QVERIFY(save(record, path, [=](CsvSaver& saver) { saver.setPrimSecMode(primSecMode); }).ok);
        QCOMPARE(readFile(path), encoded("CP1251", expected));
    }

    // Physical value = raw × multiplier + offset: 10 × 0.5 + 1 = 6, -3 × 0.5 + 1 = -0.5.
    void scaleAndOffsetOfTheChannel()
    {
        TableRecordDescription d;
        d.analogNames = QStringList { QStringLiteral("I") };
        d.analogRaw = { { 10.0, -3.0 } };
        const auto record = makeTableRecord(d);
        record->analogChannel(0)->setMultiplier(0.5);
        record->analogChannel(0)->setOffsetAdder(1.0);
        const QString path = target(QStringLiteral("scale.csv"));
        QVERIFY(save(record, path).ok);
        QCOMPARE(readFile(path), QByteArray("step;time;I\n0;0;6\n1;0,001;-0,5\n"));
    }

    void onlySelectedChannels()
    {
        const auto record = makeTableRecord(plainTable());
        record->analogChannel(1)->setIsSelected(true);
        record->digitalChannel(0)->setIsSelected(true);
        const QString path = target(QStringLiteral("selected.csv"));
        QVERIFY(save(record, path, {}, true).ok);
        QCOMPARE(readFile(path),
            encoded("CP1251",
                QStringLiteral(
                    "step;time;Ub;Пуск\n0;-0,001;2,25;0\n1;0;-3;1\n2;0,001;0,1;1\n3;0,002;1234,57;0\n")));
    }

    void nothingSelectedLeavesStepAndTime()
    {
        const QString path = target(QStringLiteral("none.csv"));
        QVERIFY(save(makeTableRecord(plainTable()), path, {}, true).ok);
        QCOMPARE(readFile(path), QByteArray("step;time\n0;-0,001\n1;0\n2;0,001\n3;0,002\n"));
    }

    // A reversed range of samples 3 to 1 writes samples 1 and 2: the finish is not written, rows
    // count from 0, and times stay measured from the trigger.
    void timeRange()
    {
        const QString path = target(QStringLiteral("range.csv"));
        QVERIFY(save(
            makeTableRecord(plainTable()), path,
            [](CsvSaver& saver) { saver.setTimeRange(sampleRange(3, 1)); }, false, true)
                    .ok);
        QCOMPARE(readFile(path),
            encoded("CP1251", QStringLiteral("step;time;Ia;Ub;Пуск\n0;0;12;-3;1\n1;0,001;1,001;0,1;1\n")));
    }

    // A range that excludes the trigger still counts times from it.
    void timeRangeAfterTheTrigger()
    {
        TableRecordDescription d;
        d.analogRaw = { QVector<double>(30, 1.0) };
        d.triggerSample = 2;
        d.rate = 4000.0;
        const QString path = target(QStringLiteral("late.csv"));
        QVERIFY(save(
            makeTableRecord(d), path, [](CsvSaver& saver) { saver.setTimeRange(sampleRange(20, 22)); }, false,
            true)
                    .ok);
        // Samples 20 and 21 lie 18 and 19 quarter milliseconds after the trigger.
        QCOMPARE(readFile(path), QByteArray("step;time;A1\n0;0,0045;1\n1;0,00475;1\n"));
    }

    // Times below 0.0001 s take the locale's exponent form, as six significant digits ask.
    void smallTimesTakeTheExponentForm()
    {
        TableRecordDescription d;
        d.analogRaw = { QVector<double>(3, 0.0) };
        d.rate = 20000.0;
        d.triggerSample = 1;
        const QString path = target(QStringLiteral("exp.csv"));
        QVERIFY(save(makeTableRecord(d), path).ok);
        QCOMPARE(readFile(path), QByteArray("step;time;A1\n0;-5e-05;0\n1;0;0\n2;5e-05;0\n"));
    }

    // A name with the separator in it is quoted, with its quotes doubled, so the header keeps one
    // column a channel.
    void namesWithTheSeparatorAreQuoted()
    {
        TableRecordDescription d;
        d.analogNames = QStringList { QStringLiteral("Ia; фидер \"1\""), QStringLiteral("Ub,2") };
        d.analogRaw = { { 1.0 }, { 2.0 } };
        const QString path = target(QStringLiteral("names.csv"));
        QVERIFY(save(makeTableRecord(d), path, [](CsvSaver& saver) {
            saver.setCodec(QStringLiteral("UTF-8"));
        }).ok);
        QCOMPARE(QString::fromUtf8(readFile(path)),
            QStringLiteral("step;time;\"Ia; фидер \"\"1\"\"\";Ub,2\n0;0;1;2\n"));
        QCOMPARE(readCsvTable(QString::fromUtf8(readFile(path)), QLatin1Char(';')).header,
            QStringList({ "step", "time", "Ia; фидер \"1\"", "Ub,2" }));
    }

    void progressRisesFromZeroToOne()
    {
        TableRecordDescription d;
        d.analogRaw = { QVector<double>(5000, 1.0) };
        const SaveRun run = save(makeTableRecord(d), target(QStringLiteral("progress.csv")));
        QVERIFY(run.progress.size() > 100);
        QCOMPARE(run.progress.first(), qMakePair(QStringLiteral("Сохранение..."), 0.0));
        QCOMPARE(run.progress.last(), qMakePair(QStringLiteral("Сохранение..."), 1.0));
        for (int i = 1; i < run.progress.size(); ++i) {
            QCOMPARE(run.progress.at(i).first, QStringLiteral("Сохранение..."));
            QVERIFY(run.progress.at(i).second > run.progress.at(i - 1).second);
        }
    }

    // Mode 1 without a calculation module falls back to the plain table with a step of one.
    void calculationModeWithoutModuleIsPlain()
    {
        const QString path = target(QStringLiteral("fallback.csv"));
        CsvSaver saver(path, makeTableRecord(plainTable()), false, false);
        saver.setMode(1);
        saver.saveProcess();
        QVERIFY(saver.isOk());
        QCOMPARE(saver.mode(), 0);
        QCOMPARE(saver.rowStep(), 1);
        QCOMPARE(readFile(path),
            encoded("CP1251",
                QStringLiteral("step;time;Ia;Ub;Пуск\n0;-0,001;1,5;2,25;0\n1;0;12;-3;1\n2;0,001;1,001;0,1;1\n"
                               "3;0,002;-2,5;1234,57;0\n")));
    }

    // Mode 1 steps 8 ms and asks for calculator 1; mode 2 steps 4 ms with calculator 2; mode 0 one
    // sample. 1250 Hz: 10 and 5 samples.
    void rowStepsAndCalculatorsOfTheModes_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("rate");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("calcType");
        QTest::newRow("plain") << 0 << 1250.0 << 1 << 2;
        QTest::newRow("protection automation at 1250 Hz") << 1 << 1250.0 << 10 << 1;
        QTest::newRow("Talvi at 1250 Hz") << 2 << 1250.0 << 5 << 2;
        QTest::newRow("Talvi at 2500 Hz") << 2 << 2500.0 << 10 << 2;
        QTest::newRow("protection automation at 1000 Hz truncates nothing") << 1 << 1000.0 << 8 << 1;
        QTest::newRow("protection automation at 1100 Hz truncates 8.8") << 1 << 1100.0 << 8 << 1;
    }
    void rowStepsAndCalculatorsOfTheModes()
    {
        QFETCH(int, mode);
        QFETCH(double, rate);
        QFETCH(int, step);
        QFETCH(int, calcType);
        CsvSaver saver(target(QStringLiteral("m.csv")), makeTableRecord(plainTable()), false, false);
        const auto module = moduleFor(rate);
        saver.setCalcModule(module);
        saver.setMode(mode);
        saver.prepareCalcModule();
        QCOMPARE(saver.mode(), mode);
        QCOMPARE(saver.rowStep(), step);
        QCOMPARE(module->devConfig().varType, calcType);
    }

    // Two sines of 50 Hz at 1250 Hz, effective values 100 and 20 (peaks 100√2 and 20√2), and a
    // channel of instant shape that the calculation modes leave out. The Talvi calculator measures
    // a pure sine to far better than the printed thousandth, so each row reads 100 and 20. Rows
    // every 5 samples (4 ms), times from the trigger at sample 0.
    void talviModeOfKnownSines()
    {
        constexpr double rate = 1250.0;
        constexpr int samples = 100;
        TableRecordDescription d;
        d.analogNames = QStringList { QStringLiteral("Ua"), QStringLiteral("Ia"), QStringLiteral("Мгн") };
        d.analogRaw = { sineSamples(100000.0 * M_SQRT2, 50.0, 30.0, rate, samples),
            sineSamples(20000.0 * M_SQRT2, 50.0, -60.0, rate, samples), QVector<double>(samples, 5.0) };
        d.digitalNames = QStringList { QStringLiteral("Пуск") };
        d.digitalBits = { QVector<bool>(samples, true) };
        d.rate = rate;
        const auto record = makeTableRecord(d);
        // Raw samples are rounded to integers by the calculator: a fine scale keeps that small.
        record->analogChannel(0)->setMultiplier(0.001);
        record->analogChannel(1)->setMultiplier(0.001);
        record->analogChannel(2)->setNormalState(4);
        const QString path = target(QStringLiteral("talvi.csv"));
        QVERIFY(save(record, path, [&](CsvSaver& saver) {
            saver.setCalcModule(moduleFor(rate));
            saver.setMode(2);
            saver.setDecimalPoint(1);
        }).ok);
        QString expected = QStringLiteral("step;time;Ua;Ia;Пуск\n");
        for (int row = 0; row < samples / 5; ++row)
            expected += QStringLiteral("%1;%2;100;20;1\n").arg(row).arg(secondsText(row * 4));
        QCOMPARE(QTextCodec::codecForName("CP1251")->toUnicode(readFile(path)), expected);
    }

    // The same in protection-automation mode, read back with a tolerance: the effective value of
    // each row against 100 and 20, within the printed thousandth and what the block calculator
    // settles to once its window is full.
    void protectionAutomationModeOfKnownSines()
    {
        constexpr double rate = 1250.0;
        constexpr int samples = 200;
        TableRecordDescription d;
        d.analogNames = QStringList { QStringLiteral("Ua"), QStringLiteral("Ia") };
        // The block calculator keeps its samples in 16 bits: raw peaks stay below 32768.
        d.analogRaw = { sineSamples(10000.0 * M_SQRT2, 50.0, 30.0, rate, samples),
            sineSamples(2000.0 * M_SQRT2, 50.0, -60.0, rate, samples) };
        d.rate = rate;
        const auto record = makeTableRecord(d);
        record->analogChannel(0)->setMultiplier(0.01);
        record->analogChannel(1)->setMultiplier(0.01);
        const QString path = target(QStringLiteral("pa.csv"));
        QVERIFY(save(record, path, [&](CsvSaver& saver) {
            saver.setCalcModule(moduleFor(rate));
            saver.setMode(1);
        }).ok);
        const CsvTable table = readCsvTable(QString::fromLatin1(readFile(path)), QLatin1Char(';'));
        QCOMPARE(table.header, QStringList({ "step", "time", "Ua", "Ia" }));
        QCOMPARE(table.rows.size(), samples / 10);
        for (int row = 0; row < table.rows.size(); ++row) {
            const QStringList& fields = table.rows.at(row);
            QCOMPARE(fields.at(0), QString::number(row));
            QCOMPARE(csvNumber(fields.at(1), QLatin1Char(',')), row * 0.008);
            // The window of two periods (50 samples) is full from sample 50 on.
            if (row * 10 < 50)
                continue;
            QVERIFY2(
                qAbs(csvNumber(fields.at(2), QLatin1Char(',')) - 100.0) < 0.01, qPrintable(fields.join(';')));
            QVERIFY2(
                qAbs(csvNumber(fields.at(3), QLatin1Char(',')) - 20.0) < 0.01, qPrintable(fields.join(';')));
        }
    }

    // An independent reader gets the record's values back within the printed precision: three
    // decimals, or six significant digits where those are fewer.
    void readBackGivesTheRecordsValues()
    {
        constexpr int samples = 400;
        TableRecordDescription d;
        d.analogRaw = { sineSamples(1234.5, 50.0, 10.0, 1000.0, samples),
            sineSamples(0.75, 150.0, 0.0, 1000.0, samples),
            sineSamples(98765.4, 50.0, -90.0, 1000.0, samples) };
        d.digitalBits = { QVector<bool>(samples) };
        for (int s = 0; s < samples; ++s)
            d.digitalBits[0][s] = (s / 7) % 2 == 1;
        d.triggerSample = 123;
        const auto record = makeTableRecord(d);
        const QString path = target(QStringLiteral("readback.csv"));
        QVERIFY(save(record, path).ok);
        const CsvTable table = readCsvTable(QString::fromLatin1(readFile(path)), QLatin1Char(';'));
        QCOMPARE(table.header, QStringList({ "step", "time", "A1", "A2", "A3", "D1" }));
        QCOMPARE(table.rows.size(), samples);
        for (int s = 0; s < samples; ++s) {
            const QStringList& fields = table.rows.at(s);
            QCOMPARE(fields.size(), 6);
            bool ok = false;
            QCOMPARE(csvNumber(fields.at(0), QLatin1Char(','), &ok), double(s));
            QVERIFY(ok);
            QVERIFY(qAbs(csvNumber(fields.at(1), QLatin1Char(','), &ok) - (s - 123) / 1000.0) < 1e-12);
            QVERIFY(ok);
            for (int c = 0; c < 3; ++c) {
                const double value = d.analogRaw.at(c).at(s);
                const double tolerance = qMax(0.0005, qAbs(value) * 5e-6) + 1e-12;
                QVERIFY2(qAbs(csvNumber(fields.at(2 + c), QLatin1Char(','), &ok) - value) <= tolerance,
                    qPrintable(fields.at(2 + c)));
                QVERIFY(ok);
            }
            QCOMPARE(fields.at(5), d.digitalBits.at(0).at(s) ? QStringLiteral("1") : QStringLiteral("0"));
        }
    }

    void unwritableTargetGivesWriteError()
    {
        const SaveRun run
            = save(makeTableRecord(plainTable()), target(QStringLiteral("no/such/folder/x.csv")));
        QVERIFY(!run.ok);
        QCOMPARE(run.writeErrors, 1);
        QCOMPARE(run.finished + run.cancels, 0);
    }

    // Writes beyond a file size limit fail: the table cannot be completed, the earlier file at the
    // target stays as it was and nothing else is left in the folder.
    void writeFailureLeavesTheTargetUntouched()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("kept.csv"));
        QVERIFY(writeFile(path, "earlier table\n"));
        TableRecordDescription d;
        d.analogRaw = { sineSamples(1000.0, 50.0, 0.0, 1000.0, 20000) };
        const auto record = makeTableRecord(d);

        rlimit previous {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &previous), 0);
        rlimit small = previous;
        small.rlim_cur = 4096;
        const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        const SaveRun run = save(record, path);
        setrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, previousHandler);

        QVERIFY(!run.ok);
        QCOMPARE(run.writeErrors, 1);
        QCOMPARE(run.finished + run.cancels, 0);
        QCOMPARE(readFile(path), QByteArray("earlier table\n"));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList({ "kept.csv" }));
    }

    // Cancelled on the saver's own thread once the first rows are out.
    void cancelLeavesTheTargetUntouched()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("kept.csv"));
        QVERIFY(writeFile(path, "earlier table\n"));
        TableRecordDescription d;
        d.analogRaw = { QVector<double>(20000, 1.5) };
        CsvSaver saver(path, makeTableRecord(d), false, false);
        SaveRun run;
        watchSaver(saver, run);
        QObject::connect(
            &saver, &WaveSaver::updateProgress, &saver,
            [](const QString&, double fraction) {
                if (fraction > 0.1)
                    QThread::currentThread()->requestInterruption();
            },
            Qt::DirectConnection);
        std::unique_ptr<QThread> thread(QThread::create([&saver] { saver.saveProcess(); }));
        thread->start();
        QVERIFY(thread->wait(60000));
        QCOMPARE(run.cancels, 1);
        QCOMPARE(run.finished + run.writeErrors, 0);
        QVERIFY(!saver.isOk());
        QVERIFY(run.progress.last().second < 0.2);
        QCOMPARE(readFile(path), QByteArray("earlier table\n"));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList({ "kept.csv" }));
    }
};

QTEST_GUILESS_MAIN(TestCsvSaver)
#include "tst_csvsaver.moc"
