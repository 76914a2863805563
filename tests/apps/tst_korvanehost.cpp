#include "ComtradeFixture.h"
#include "FixtureFiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {
struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

// The user's settings are looked for under configHome when it is given.
Run runHost(const QStringList& arguments, const QString& configHome = QString())
{
    QProcess process;
    if (!configHome.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
        process.setProcessEnvironment(environment);
    }
    process.start(QStringLiteral(KORVANE_HOST), arguments);
    process.waitForFinished(60000);
    return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError()) };
}
} // namespace

class TestKorvaneHost : public QObject
{
    Q_OBJECT
private slots:
    void summaryOfTheSampleRecordByDefault()
    {
        const Run run = runHost({ QStringLiteral("--summary") });
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.contains(QStringLiteral(KORVANE_SAMPLE_RECORD)));
        // The sample is a phase-A fault on a 110 kV line: three voltages and three currents at
        // 2 kHz over 0.6 s, two discrete signals, and the line and failure of its .INF.
        QVERIFY(run.out.contains(QStringLiteral("Analogue channels: 6, digital channels: 2")));
        QVERIFY(run.out.contains(QStringLiteral("Sample rate: 2000 Hz, samples: 1200")));
        QVERIFY(run.out.contains(QStringLiteral("Trigger: 14.06.2025 10:21:33.200000")));
        QVERIFY(run.out.contains(QStringLiteral("Line: ВЛ 110 кВ Северная")));
        QVERIFY(run.out.contains(QStringLiteral("Failure at sample 400: Однофазное КЗ фазы A")));
    }

    void refusesAnUnknownFormat()
    {
        const Run run = runHost({ QStringLiteral("--summary"), QStringLiteral("/nonexistent/notes.txt") });
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.err.contains(QStringLiteral("Формат файла не поддерживается")));
    }

    // A set of 1999 lines under the year 2000, which strict reading refuses.
    void readsCompatiblyUnlessTheSettingsSayOtherwise()
    {
        QTemporaryDir dir;
        KorvaneTest::ComtradeSetDescription set;
        set.year = 1999;
        QByteArray cfg = KorvaneTest::comtradeCfg(set);
        cfg = "Station,Recorder,2000" + cfg.mid(cfg.indexOf('\n'));
        const QString path = dir.filePath(QStringLiteral("r.cfg"));
        QVERIFY(KorvaneTest::writeFile(path, cfg));
        QVERIFY(KorvaneTest::writeFile(dir.filePath(QStringLiteral("r.dat")), KorvaneTest::comtradeDat(set)));

        const QString configHome = dir.filePath(QStringLiteral("config"));
        Run run = runHost({ QStringLiteral("--summary"), path }, configHome);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.out.contains(
            QStringLiteral("Прочитано в режиме совместимости: год ревизии \"2000\" прочитан как 1999\n")));

        QVERIFY(KorvaneTest::writeFile(
            configHome + QStringLiteral("/korvane/Korvane.ini"), "[Loading]\nCompatible=false\n"));
        run = runHost({ QStringLiteral("--summary"), path }, configHome);
        QCOMPARE(run.exitCode, 1);
    }

    void reportsAMissingSet()
    {
        const Run run = runHost({ QStringLiteral("--summary"), QStringLiteral("/nonexistent/record.cfg") });
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!run.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestKorvaneHost)
#include "tst_korvanehost.moc"
