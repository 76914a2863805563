#include "Views/Print/PrintGeometry.h"

#include <QTest>

using namespace PrintGeometry;

// The page arithmetic, with every expected value worked out by hand from the rules of the layout.
class TestPrintGeometry : public QObject
{
    Q_OBJECT
private slots:
    void samplesAcrossAPage_data();
    void samplesAcrossAPage();
    void rowHeightFollowsThePageWidth_data();
    void rowHeightFollowsThePageWidth();
    void rowsLowerThanAPageHaveNoPageCount();
    void samplesPerPageShareTheWidthAmongPagesHigh();
    void pageLimitWarnsAt301NotAt300();
    void rowBreaksStartEachPageBelowItsHead();
    void rowTallerThanThePageIsCutAndStandsAlone();
    void automaticScaleTakesTheLargestWithinTheLimit();
    void scalePositions();
};

void TestPrintGeometry::samplesAcrossAPage_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("samples");
    // At or below 1.0 a pixel takes ceil(1/x - 0.5) samples.
    QTest::newRow("0.025: 40 samples a pixel") << 700 << 0.025 << 28000;
    QTest::newRow("0.05: 20 a pixel") << 700 << 0.05 << 14000;
    QTest::newRow("0.1: 10 a pixel") << 700 << 0.1 << 7000;
    QTest::newRow("0.25: 4 a pixel") << 700 << 0.25 << 2800;
    QTest::newRow("0.5: 2 a pixel") << 700 << 0.5 << 1400;
    QTest::newRow("1.0: one a pixel") << 700 << 1.0 << 700;
    // Above 1.0: trunc(W/x + 2).
    QTest::newRow("2.5: 700/2.5 + 2") << 700 << 2.5 << 282;
    QTest::newRow("5.0: 700/5 + 2") << 700 << 5.0 << 142;
    QTest::newRow("25: 701/25 + 2 = 30.04") << 701 << 25.0 << 30;
    QTest::newRow("50: 700/50 + 2") << 700 << 50.0 << 16;
}

void TestPrintGeometry::samplesAcrossAPage()
{
    QFETCH(int, width);
    QFETCH(double, scale);
    QFETCH(int, samples);
    QCOMPARE(samplesAcrossPage(width, scale), samples);
}

void TestPrintGeometry::rowHeightFollowsThePageWidth_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("listWidth");
    QTest::addColumn<bool>("analog");
    QTest::addColumn<int>("printed");
    // A page 1000 wide and 700 high.
    QTest::newRow("analogue 81 in 600: 81*1000/600 = 135") << 81 << 600 << true << 135;
    QTest::newRow("analogue 20 in 1000 raised to 50") << 20 << 1000 << true << 50;
    QTest::newRow("discrete 20 in 1000 raised to 25") << 20 << 1000 << false << 25;
    QTest::newRow("discrete 21 in 700: 30") << 21 << 700 << false << 30;
    QTest::newRow("analogue 500 in 500: 1000 cut to the page's 700") << 500 << 500 << true << 700;
}

void TestPrintGeometry::rowHeightFollowsThePageWidth()
{
    QFETCH(int, height);
    QFETCH(int, listWidth);
    QFETCH(bool, analog);
    QFETCH(int, printed);
    QCOMPARE(printedRowHeight(height, listWidth, 1000, 700, analog), printed);
}

void TestPrintGeometry::rowsLowerThanAPageHaveNoPageCount()
{
    // 3 rows of 200 on a page 700 high: v = floor(600/700) = 0.
    const QVector<int> rows { 200, 200, 200 };
    QCOMPARE(samplesPerPage(rows, 700, 700), 0);
    // Whatever the record's length, one page is counted and the limit never warns.
    QCOMPARE(estimatedPageCount(100000000, 0), 1);
    QVERIFY(!exceedsPageLimit(100000000, 0));
    // A page without height counts nothing either.
    QCOMPARE(samplesPerPage(rows, 0, 700), 0);
}

void TestPrintGeometry::samplesPerPageShareTheWidthAmongPagesHigh()
{
    // R = 1500 on pages 700 high: v = 2, so 7000 samples across count 3500 a page.
    QCOMPARE(samplesPerPage({ 500, 500, 500 }, 700, 7000), 3500);
    // R = 1050: v = 1 (a page and a half counts one).
    QCOMPARE(samplesPerPage({ 350, 350, 350 }, 700, 7000), 7000);
    QCOMPARE(estimatedPageCount(35000, 3500), 10);
    // Whole pages only: 34999 / 3500 = 9.99 counts 9.
    QCOMPARE(estimatedPageCount(34999, 3500), 9);
}

void TestPrintGeometry::pageLimitWarnsAt301NotAt300()
{
    QCOMPARE(pageLimit, 300);
    QCOMPARE(estimatedPageCount(30100, 100), 301);
    QVERIFY(exceedsPageLimit(30100, 100));
    QCOMPARE(estimatedPageCount(30099, 100), 300);
    QVERIFY(!exceedsPageLimit(30099, 100));
    QVERIFY(!exceedsPageLimit(30000, 100));
}

void TestPrintGeometry::rowBreaksStartEachPageBelowItsHead()
{
    // Page 700 high, head 25: six rows of 100 end at 625; the seventh would end at 725.
    const QVector<int> rows(14, 100);
    QCOMPARE(rowBreaks(rows, 700), (QVector<ushort> { 6, 12 }));
    // Rows of 50 and 25 mixed: 25 + 50*9 = 475, + 25*8 = 675, the next 25 ends at 700 and
    // still fits; the one after does not.
    QVector<int> mixed(9, 50);
    mixed += QVector<int>(10, 25);
    QCOMPARE(rowBreaks(mixed, 700), (QVector<ushort> { 18 }));
    // Everything on one page: no break.
    QCOMPARE(rowBreaks({ 100, 100 }, 700), QVector<ushort>());
}

void TestPrintGeometry::rowTallerThanThePageIsCutAndStandsAlone()
{
    const int cut = printedRowHeight(2000, 500, 500, 700, true);
    QCOMPARE(cut, 700);
    // The cut row cannot fit below the head anywhere: it gets a page of its own, the first row
    // included, and the rows after it go on the next page.
    QCOMPARE(rowBreaks({ cut, 100 }, 700), (QVector<ushort> { 1 }));
    QCOMPARE(rowBreaks({ 100, cut, 100 }, 700), (QVector<ushort> { 1, 2 }));
}

void TestPrintGeometry::automaticScaleTakesTheLargestWithinTheLimit()
{
    // Rows 1400 high on pages 700 high: v = 2. Plot 700 wide.
    const QVector<int> rows { 700, 700 };
    // At 1.0: 700 samples across, 350 a page; 105000 samples make 300 pages: 1.0 stays.
    QCOMPARE(automaticScalePosition(rows, 700, 700, 105000), 5);
    // 105350 samples make 301 pages at 1.0; at 0.5 (1400 across, 700 a page) 150: 0.5.
    QCOMPARE(automaticScalePosition(rows, 700, 700, 105350), 4);
    // At 0.025: 28000 across, 14000 a page; 4.2e6 samples make 300 pages, 0.05 gives 600.
    QCOMPARE(automaticScalePosition(rows, 700, 700, 4200000), 0);
    // Beyond even that the smallest scale is all there is.
    QCOMPARE(automaticScalePosition(rows, 700, 700, 100000000), 0);
    // Rows lower than a page: 1.0 whatever the length.
    QCOMPARE(automaticScalePosition({ 100 }, 700, 700, 100000000), 5);
}

void TestPrintGeometry::scalePositions()
{
    QCOMPARE(scalePositionCount, 10);
    QCOMPARE(scaleAt(startScalePosition), 1.0);
    QCOMPARE(scaleAt(0), 0.025);
    QCOMPARE(scaleAt(9), 50.0);
}

QTEST_GUILESS_MAIN(TestPrintGeometry)
#include "tst_printgeometry.moc"
