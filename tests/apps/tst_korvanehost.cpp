#include <QProcess>
#include <QTest>

namespace {
struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

Run runHost(const QStringList& arguments)
{
    QProcess process;
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

    void reportsAMissingSet()
    {
        const Run run = runHost({ QStringLiteral("--summary"), QStringLiteral("/nonexistent/record.cfg") });
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!run.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestKorvaneHost)
#include "tst_korvanehost.moc"
