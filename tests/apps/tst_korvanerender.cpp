#include "FixtureFiles.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {
// 100 samples at 1000 Hz, trigger at the first sample: an analogue channel of 0 for samples
// 0..49 and 128 after, and a discrete channel clear, then set, at the same moment.
void writeStepRecord(const QString& base, const QByteArray& year = "1999")
{
    const QByteArray cfg = "station,device," + year
        + "\r\n"
          "2,1A,1D\r\n"
          "1,U,,,V,1.0,0.0,0.0,-32767,32767,1,1,P\r\n"
          "1,D,,,0\r\n"
          "50\r\n"
          "1\r\n"
          "1000,100\r\n"
          "01/01/2024,10:00:00.000000\r\n"
          "01/01/2024,10:00:00.000000\r\n"
          "ASCII\r\n"
          "1.0\r\n";
    QByteArray dat;
    for (int s = 0; s < 100; ++s) {
        const bool after = s >= 50;
        dat += QByteArray::number(s + 1) + ',' + QByteArray::number(s * 1000) + ',' + (after ? "128" : "0")
            + ',' + (after ? "1" : "0") + "\r\n";
    }
    QVERIFY(KorvaneTest::writeFile(base + ".cfg", cfg));
    QVERIFY(KorvaneTest::writeFile(base + ".dat", dat));
}

int run(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(KORVANE_RENDER), arguments);
    if (!process.waitForFinished(60000))
        return -1;
    return process.exitCode();
}
} // namespace

class TestKorvaneRender : public QObject
{
    Q_OBJECT
private slots:
    void writesOneRowPerChannel();
    void defaultSize();
    void missingArgumentsAndFiles();
    void compatibleUnlessStrict();
};

void TestKorvaneRender::writesOneRowPerChannel()
{
    QTemporaryDir dir;
    writeStepRecord(dir.filePath(QStringLiteral("step")));
    const QString png = dir.filePath(QStringLiteral("step.png"));
    QCOMPARE(
        run({ dir.filePath(QStringLiteral("step.cfg")), png, QStringLiteral("200"), QStringLiteral("36") }),
        0);
    const QImage image(png);
    QCOMPARE(image.size(), QSize(200, 72));
    // Style 1. Analogue row: the fitting scale is 2 pixels a sample; range 0..128 into 36 rows
    // gives k = -1/4, d = -136: 0 on row 34 for x 1..98, 128 on row 2 for x 100..198.
    const QRgb trace = 0xFF00FFC0;
    const QRgb background = 0xFF212830;
    QCOMPARE(image.pixel(50, 34), trace);
    QCOMPARE(image.pixel(150, 2), trace);
    QCOMPARE(image.pixel(50, 2), background);
    QCOMPARE(image.pixel(150, 34), background);
    // Discrete row below (bar (36 - 10) / 2 = 13): sample 20 is a base line on row 23 of columns
    // 41 and 42, sample 70 a bar from row 13 on columns 141 and 142.
    const QRgb discrete = 0xFFFF8080;
    QCOMPARE(image.pixel(41, 36 + 23), discrete);
    QCOMPARE(image.pixel(41, 36 + 22), background);
    QCOMPARE(image.pixel(141, 36 + 13), discrete);
    QCOMPARE(image.pixel(141, 36 + 23), discrete);
    QCOMPARE(image.pixel(141, 36 + 12), background);
    // Trigger at the first sample: columns 0 and 1 in the trigger colour.
    QCOMPARE(image.pixel(0, 10), QRgb(0xFF0080FF));
    QCOMPARE(image.pixel(1, 50), QRgb(0xFF0080FF));
}

void TestKorvaneRender::defaultSize()
{
    QTemporaryDir dir;
    writeStepRecord(dir.filePath(QStringLiteral("step")));
    const QString png = dir.filePath(QStringLiteral("step.png"));
    QCOMPARE(run({ dir.filePath(QStringLiteral("step.cfg")), png }), 0);
    QCOMPARE(QImage(png).size(), QSize(1600, 160));
}

void TestKorvaneRender::missingArgumentsAndFiles()
{
    QTemporaryDir dir;
    QCOMPARE(run({}), 2);
    QCOMPARE(run({ dir.filePath(QStringLiteral("none.cfg")), dir.filePath(QStringLiteral("x.png")) }), 1);
    writeStepRecord(dir.filePath(QStringLiteral("step")));
    QCOMPARE(run({ dir.filePath(QStringLiteral("step.cfg")), dir.filePath(QStringLiteral("x.png")),
                 QStringLiteral("0") }),
        2);
}

// The year 2000 over lines of 1999: drawn in compatible reading, the default; refused by --strict.
void TestKorvaneRender::compatibleUnlessStrict()
{
    QTemporaryDir dir;
    writeStepRecord(dir.filePath(QStringLiteral("step")), "2000");
    const QString cfg = dir.filePath(QStringLiteral("step.cfg"));
    const QString png = dir.filePath(QStringLiteral("step.png"));
    QCOMPARE(run({ cfg, png }), 0);
    QCOMPARE(QImage(png).size(), QSize(1600, 160));
    QVERIFY(QFile::remove(png));
    QCOMPARE(run({ QStringLiteral("--strict"), cfg, png }), 1);
    QVERIFY(!QFile::exists(png));
}

QTEST_GUILESS_MAIN(TestKorvaneRender)
#include "tst_korvanerender.moc"
