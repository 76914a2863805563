#include "FixtureFiles.h"
#include "SaverFixture.h"
#include "ZipFixture.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace KorvaneTest;

namespace {
struct Run
{
    int exitCode = -1;
    QProcess::ExitStatus status = QProcess::CrashExit;
    QString out;
    QString err;
};

Run runConvert(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(KORVANE_CONVERT), arguments);
    process.waitForFinished(60000);
    return { process.exitCode(), process.exitStatus(), QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError()) };
}
} // namespace

class TestKorvaneConvert : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_source;

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_source = writeSmallComtradeSet(m_dir.path(), QStringLiteral("source"));
    }

    void convertsAndExitsWithZero()
    {
        const QString target = m_dir.filePath(QStringLiteral("запись.zip"));
        const Run run = runConvert({ m_source, target });
        QCOMPARE(run.status, QProcess::NormalExit);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.err.isEmpty());
        const QList<ZipEntryInfo> entries = readZip(target);
        QCOMPARE(entries.size(), 4);
        QCOMPARE(entries[2].rawName, cp866(QStringLiteral("запись.CFG")));
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        QCOMPARE(loaded.record->countOfSamples(), smallSetSamples);
        for (int s = 0; s < smallSetSamples; ++s)
            QCOMPARE(loaded.record->analogChannel(1)->Channel::getValue(s, 1), smallSetRaw(s, 1));
    }

    // A 1991 set whose digital line has the five fields of later years: compatible reading, the
    // host's default, converts it; --strict refuses it, wherever the option stands.
    void compatibleUnlessStrict()
    {
        const QString cfg = m_dir.filePath(QStringLiteral("wide.cfg"));
        QVERIFY(writeFile(cfg,
            "S,R\n2,1A,1D\n1,Ia,A,,A,0.5,0,0,-1000,1000\n1,Trip,A,Breaker,0\n50\n1\n1000,2\n"
            "01/02/2020,03:04:05.000000\n01/02/2020,03:04:05.001000\nASCII\n"));
        QVERIFY(writeFile(m_dir.filePath(QStringLiteral("wide.dat")), "1,0,10,1\n2,1000,20,0\n"));
        const QString target = m_dir.filePath(QStringLiteral("wide.zip"));
        QCOMPARE(runConvert({ cfg, target }).exitCode, 0);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        QCOMPARE(loaded.record->digitalChannel(0)->name(), QStringLiteral("Trip"));
        // Raw 20 at a multiplier of 0.5.
        QCOMPARE(loaded.record->analogChannel(0)->getRealValue(loaded.record->analogChannel(0)->getValue(1)),
            10.0);
        QVERIFY(QFile::remove(target));

        for (const QStringList& args : { QStringList { QStringLiteral("--strict"), cfg, target },
                 QStringList { cfg, target, QStringLiteral("--strict") } }) {
            const Run run = runConvert(args);
            QCOMPARE(run.exitCode, 1);
            QCOMPARE(run.err, QStringLiteral("Невозможно открыть файл wide.cfg\n"));
            QVERIFY(!QFileInfo::exists(target));
        }
    }

    // --store keeps the samples uncompressed (method 0 in the central directory); without it
    // every member is deflated (method 8). The record reads back the same either way.
    void storeOption_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("samplesMethod");
        QTest::newRow("default") << QStringList() << 8;
        QTest::newRow("--store") << QStringList { "--store" } << 0;
    }
    void storeOption()
    {
        QFETCH(QStringList, options);
        QFETCH(int, samplesMethod);
        const QString target = m_dir.filePath(QStringLiteral("store-%1.zip").arg(samplesMethod));
        const Run run = runConvert(options + QStringList { m_source, target });
        QCOMPARE(run.status, QProcess::NormalExit);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.err.isEmpty());
        const QList<ZipDirectoryEntry> directory = zipDirectory(target);
        QCOMPARE(directory.size(), 4);
        QCOMPARE(directory[3].rawName, cp866(QStringLiteral("store-%1.DAT").arg(samplesMethod)));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(directory[i].method, 8);
        QCOMPARE(directory[3].method, samplesMethod);
        const LoadedRecord loaded = loadComtrade(target);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        QCOMPARE(loaded.record->countOfSamples(), smallSetSamples);
        for (int s = 0; s < smallSetSamples; ++s)
            QCOMPARE(loaded.record->analogChannel(1)->Channel::getValue(s, 1), smallSetRaw(s, 1));
    }

    void refusals_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("message");
        QTest::newRow("no arguments") << QStringList() << "Неверное количество аргументов";
        QTest::newRow("three arguments")
            << QStringList { "@source", "@a.zip", "@b.zip" } << "Неверное количество аргументов";
        QTest::newRow("missing source")
            << QStringList { "@missing.cfg", "@a.zip" } << "Не существует осциллограммы missing.cfg";
        QTest::newRow("missing destination folder") << QStringList { "@source", "/nonexistent/a.zip" }
                                                    << "Не существует такого пути /nonexistent/a.zip";
        QTest::newRow("unsupported destination")
            << QStringList { "@source", "@a.cfg" } << "Невозможно конвертировать в данный формат cfg";
        QTest::newRow("unknown source format")
            << QStringList { "@notes.txt", "@a.zip" } << "Формат файла не поддерживается";
        QTest::newRow("source that does not load")
            << QStringList { "@broken.cfg", "@a.zip" } << "Невозможно открыть файл broken.cfg";
        QTest::newRow("destination that can't be written")
            << QStringList { "@source", "@taken.zip" } << "Ошибка конвертации";
    }
    void refusals()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        writeFile(m_dir.filePath(QStringLiteral("notes.txt")), "text");
        writeFile(m_dir.filePath(QStringLiteral("broken.cfg")), "not,a\nconfiguration\n");
        writeFile(m_dir.filePath(QStringLiteral("broken.dat")), "");
        QDir().mkpath(m_dir.filePath(QStringLiteral("taken.zip")));
        for (QString& arg : args) {
            if (arg == QLatin1String("@source"))
                arg = m_source;
            else if (arg.startsWith(QLatin1Char('@')))
                arg = m_dir.filePath(arg.mid(1));
        }
        const Run run = runConvert(args);
        QCOMPARE(run.status, QProcess::NormalExit);
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.err, message + QLatin1Char('\n'));
        QVERIFY(!QFileInfo::exists(m_dir.filePath(QStringLiteral("a.zip"))));
    }
};

QTEST_GUILESS_MAIN(TestKorvaneConvert)
#include "tst_korvaneconvert.moc"
