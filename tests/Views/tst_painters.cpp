#include "Model/ClcAnalogChannel.h"
#include "Model/ComtradeChannels.h"
#include "Model/Wv2Channels.h"
#include "PlotRecords.h"
#include "Settings/ColorStyle.h"
#include "Views/Painters/AnalogPainter.h"
#include "Views/Painters/Decimation.h"
#include "Views/Painters/DigitalPainter.h"
#include "Views/Painters/DrawPrimitives.h"
#include "Views/Painters/TimeLayers.h"
#include "Views/Painters/ValuesPainter.h"

#include <QTest>

namespace {
constexpr QRgb blank = 0xFF000000;

void clear(PixelBuffer& buffer)
{
    BackgroundFill fill;
    fill.setColor(blank);
    fill.paint(buffer);
}

// Columns of row 0 that hold the colour.
QList<int> columnsWith(const PixelBuffer& buffer, QRgb color, int row = 0)
{
    QList<int> columns;
    for (int x = 0; x < buffer.width(); ++x) {
        if (buffer.pixel(x, row) == color)
            columns << x;
    }
    return columns;
}

// Rows of a column that hold the colour.
QList<int> rowsWith(const PixelBuffer& buffer, int x, QRgb color)
{
    QList<int> rows;
    for (int y = 0; y < buffer.height(); ++y) {
        if (buffer.pixel(x, y) == color)
            rows << y;
    }
    return rows;
}

QList<int> range(int from, int to)
{
    QList<int> values;
    for (int v = from; v <= to; ++v)
        values << v;
    return values;
}

const KV::Cfg::ColorStyle& style()
{
    return KV::Cfg::ColorStyle::current();
}

QSharedPointer<AnalogChannel> analog(const QSharedPointer<SimpleOscillogram>& record)
{
    return record->analogChannel(0);
}

// Samples of +100 and -100 in turn: every group of samples spans the whole range.
QVector<short> alternating(int samples)
{
    QVector<short> values;
    for (int s = 0; s < samples; ++s)
        values << short(s % 2 ? -100 : 100);
    return values;
}
} // namespace

class TestPainters : public QObject
{
    Q_OBJECT
private slots:
    void init() { KV::Cfg::ColorStyle::setCurrent(1); }

    void capacityIsTheNextPowerOfTwoAboveTheImage_data();
    void capacityIsTheNextPowerOfTwoAboveTheImage();
    void backgroundFillsTheWholeCapacity();
    void verticalLineThickness_data();
    void verticalLineThickness();
    void frameEdgeStandsLeftOfItsColumn();
    void segmentSkipsItsFirstPixel();
    void segmentWithoutLengthDrawsNothing();
    void segmentDropsPixelsOutsideTheImage();
    void decimationTakesExtremesWithStride();
    void decimationStopsAtTheEndOfTheBlock();

    void gridStep_data();
    void gridStep();
    void gridLinesAtScaleOne();
    void gridLinesAtScaleHundredth();
    void gridWithoutRecordDrawsNothing();
    void failureLineAtItsBlock();
    void triggerLineAndMergedParts();
    void triggerLineHiddenWhenCountsExceedTheRecord();
    void measureLines_data();
    void measureLines();
    void currentSampleAndCalculaterLine_data();
    void currentSampleAndCalculaterLine();
    void sampleBeyondTheWidthDrawsNothing();

    void channelRangeAndZero();
    void channelKindFromItsType();
    void unknownTypeAndEmptyRecordDrawNothing();
    void constantChannelIsAFlatLineInTheMiddle();
    void rampAtScaleTenIsSegments();
    void zeroLineAtThePhysicalZero();
    void clcChannelHasNoZeroLine();
    void scaleOfFiveHundredthsDecimates();
    void amplitudeTwoIsClampedWhenDecimated();
    void amplitudeTwoIsClippedInSegments();
    void invertedChannelIsFlippedButNotItsZeroLine();
    void traceColours();
    void anomalyFramesOnSegments();
    void anomalyColumnWhenDecimated();
    void clcColumnsStopOneSampleEarlierEach();

    void valuesShownFromScaleTwentyFive_data();
    void valuesShownFromScaleTwentyFive();
    void valueLabelInPrimaryOrSecondary();

    void discreteBar_data();
    void discreteBar();
    void discreteBitsAsBars();
    void discreteBitsDecimated();
    void discreteAtFiveHundredthsDecimates();
    void selectedDiscreteColour();
};

void TestPainters::capacityIsTheNextPowerOfTwoAboveTheImage_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<qint64>("capacity");
    QTest::newRow("10x10 is 400 bytes, 512") << 10 << 10 << qint64(512);
    QTest::newRow("16x16 is 1024 bytes exactly, 2048") << 16 << 16 << qint64(2048);
    QTest::newRow("1x1 is 4 bytes, 8") << 1 << 1 << qint64(8);
    QTest::newRow("empty width is 1") << 0 << 10 << qint64(1);
    QTest::newRow("empty height is 1") << 10 << 0 << qint64(1);
}

void TestPainters::capacityIsTheNextPowerOfTwoAboveTheImage()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(qint64, capacity);
    PixelBuffer buffer(width, height);
    QCOMPARE(buffer.capacity(), capacity);
    QCOMPARE(buffer.width(), width);
    QCOMPARE(buffer.height(), height);
    QVERIFY(buffer.data());
}

void TestPainters::backgroundFillsTheWholeCapacity()
{
    PixelBuffer buffer(7, 5);
    BackgroundFill fill;
    fill.setColor(0xFF123456);
    fill.paint(buffer);
    for (qint64 i = 0; i < buffer.pixelCapacity(); ++i)
        QCOMPARE(buffer.data()[i], QRgb(0xFF123456));
}

void TestPainters::verticalLineThickness_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("thickness");
    QTest::addColumn<QList<int>>("columns");
    QTest::newRow("one pixel") << 5 << 1 << QList<int> { 5 };
    QTest::newRow("three pixels around x") << 5 << 3 << QList<int> { 4, 5, 6 };
    QTest::newRow("two pixels start one left") << 5 << 2 << QList<int> { 4, 5 };
    QTest::newRow("negative column skipped") << 0 << 3 << QList<int> { 0, 1 };
    QTest::newRow("column past the width skipped") << 9 << 3 << QList<int> { 8, 9 };
    QTest::newRow("x outside the width draws nothing") << 10 << 3 << QList<int> {};
    QTest::newRow("negative x draws nothing") << -1 << 3 << QList<int> {};
}

void TestPainters::verticalLineThickness()
{
    QFETCH(int, x);
    QFETCH(int, thickness);
    QFETCH(QList<int>, columns);
    PixelBuffer buffer(10, 4);
    clear(buffer);
    PixelDraw::verticalLine(buffer, x, 1, 3, thickness, 0xFFFFFFFF);
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 1), columns);
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 2), columns);
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 0), QList<int> {});
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 3), QList<int> {});
}

void TestPainters::frameEdgeStandsLeftOfItsColumn()
{
    PixelBuffer buffer(10, 4);
    clear(buffer);
    PixelDraw::frameEdge(buffer, 5, 0, 4, 1, 0xFFFFFFFF);
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 0), QList<int> { 4 });
    clear(buffer);
    PixelDraw::frameEdge(buffer, 5, 0, 4, 2, 0xFFFFFFFF);
    QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, 3), (QList<int> { 3, 4 }));
}

void TestPainters::segmentSkipsItsFirstPixel()
{
    PixelBuffer buffer(10, 10);
    clear(buffer);
    PixelDraw::segment(buffer, 0, 0, 3, 3, 0xFFFFFFFF);
    QCOMPARE(buffer.pixel(0, 0), blank);
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(buffer.pixel(i, i), QRgb(0xFFFFFFFF));
    clear(buffer);
    PixelDraw::segment(buffer, 2, 8, 2, 4, 0xFFFFFFFF);
    QCOMPARE(rowsWith(buffer, 2, 0xFFFFFFFF), (QList<int> { 4, 5, 6, 7 }));
    clear(buffer);
    // A shallow segment has one pixel in each column after the first.
    PixelDraw::segment(buffer, 0, 0, 8, 2, 0xFFFFFFFF);
    for (int x = 1; x <= 8; ++x)
        QCOMPARE(rowsWith(buffer, x, 0xFFFFFFFF).size(), 1);
    QCOMPARE(rowsWith(buffer, 8, 0xFFFFFFFF), QList<int> { 2 });
}

void TestPainters::segmentWithoutLengthDrawsNothing()
{
    PixelBuffer buffer(4, 4);
    clear(buffer);
    PixelDraw::segment(buffer, 1, 1, 1, 1, 0xFFFFFFFF);
    for (int y = 0; y < 4; ++y)
        QCOMPARE(columnsWith(buffer, 0xFFFFFFFF, y), QList<int> {});
}

void TestPainters::segmentDropsPixelsOutsideTheImage()
{
    PixelBuffer buffer(4, 4);
    clear(buffer);
    PixelDraw::segment(buffer, 1, -10, 1, 10, 0xFFFFFFFF);
    QCOMPARE(rowsWith(buffer, 1, 0xFFFFFFFF), (QList<int> { 0, 1, 2, 3 }));
    // Nothing beyond the image: the spare room stays as it was.
    for (qint64 i = 16; i < buffer.pixelCapacity(); ++i)
        QCOMPARE(buffer.data()[i], blank);
}

void TestPainters::decimationTakesExtremesWithStride()
{
    // Two columns interleaved; the second column holds 10 * the sample number.
    const short values[] = { 1, 0, 5, 10, -3, 20, 7, 30, 2, 40 };
    const auto first = Decimation::columnExtremes(values, 10, 0, 2, 5);
    QCOMPARE(first.low, short(-3));
    QCOMPARE(first.high, short(7));
    const auto second = Decimation::columnExtremes(values, 10, 3, 2, 3);
    QCOMPARE(second.low, short(10));
    QCOMPARE(second.high, short(30));
    const auto contiguous = Decimation::columnExtremes(values, 10, 2, 1, 4);
    QCOMPARE(contiguous.low, short(-3));
    QCOMPARE(contiguous.high, short(20));
}

void TestPainters::decimationStopsAtTheEndOfTheBlock()
{
    const double values[] = { 4.0, -1.0, 9.0 };
    const auto extremes = Decimation::columnExtremes(values, 3, 1, 1, 100);
    QCOMPARE(extremes.low, -1.0);
    QCOMPARE(extremes.high, 9.0);
    const auto strided = Decimation::columnExtremes(values, 3, 0, 2, 100);
    QCOMPARE(strided.low, 4.0);
    QCOMPARE(strided.high, 9.0);
}

void TestPainters::gridStep_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("xScale");
    QTest::addColumn<double>("step");
    QTest::newRow("1000 Hz at 1.0: least 50 ms, step 100") << 1000.0 << 1.0 << 100.0;
    QTest::newRow("1000 Hz at 0.01: least 5000 ms, step 10000") << 1000.0 << 0.01 << 10000.0;
    QTest::newRow("1000 Hz at 50.0: least 1 ms, step 2") << 1000.0 << 50.0 << 2.0;
    QTest::newRow("1000 Hz at 2.0: least 25 ms, strictly greater 50") << 1000.0 << 2.0 << 50.0;
    QTest::newRow("beyond the ladder keeps the last step") << 1.0 << 0.000001 << 15000000.0;
}

void TestPainters::gridStep()
{
    QFETCH(double, rate);
    QFETCH(double, xScale);
    QFETCH(double, step);
    QCOMPARE(TimeGrid::stepFor(rate, xScale), step);
}

void TestPainters::gridLinesAtScaleOne()
{
    // 1000 samples at 1000 Hz, trigger at 200: lines every 100 samples from the trigger outward,
    // none at the trigger, none at the right edge itself.
    auto record = PlotRecords::record({}, QVector<bool>(1000));
    record->setCountOfPreFailureSamples(200);
    record->setCountOfPostFailureSamples(800);
    PixelBuffer buffer(1000, 2);
    clear(buffer);
    TimeGrid grid;
    grid.setOscillogram(record);
    grid.setXScale(1.0);
    grid.setStartSample(0);
    grid.paint(buffer);
    QCOMPARE(columnsWith(buffer, style().grid), (QList<int> { 0, 100, 300, 400, 500, 600, 700, 800, 900 }));
    QCOMPARE(columnsWith(buffer, style().grid, 1), columnsWith(buffer, style().grid, 0));

    clear(buffer);
    grid.setStartSample(50);
    grid.paint(buffer);
    QCOMPARE(columnsWith(buffer, style().grid), (QList<int> { 50, 250, 350, 450, 550, 650, 750, 850, 950 }));
}

void TestPainters::gridLinesAtScaleHundredth()
{
    // 1,000,000 samples at 1000 Hz, trigger at 300,000: at 0.01 the step is 10 s, 100 pixels.
    auto record = PlotRecords::record({}, QVector<bool>(1000000));
    record->setCountOfPreFailureSamples(300000);
    record->setCountOfPostFailureSamples(700000);
    PixelBuffer buffer(5000, 1);
    clear(buffer);
    TimeGrid grid;
    grid.setOscillogram(record);
    grid.setXScale(0.01);
    grid.paint(buffer);
    QList<int> expected;
    for (int x = 0; x < 5000; x += 100) {
        if (x != 3000)
            expected << x;
    }
    QCOMPARE(columnsWith(buffer, style().grid), expected);
}

void TestPainters::gridWithoutRecordDrawsNothing()
{
    PixelBuffer buffer(10, 2);
    clear(buffer);
    TimeGrid grid;
    grid.paint(buffer);
    QCOMPARE(columnsWith(buffer, blank).size(), 10);
}

void TestPainters::failureLineAtItsBlock()
{
    PixelBuffer buffer(20, 3);
    clear(buffer);
    FailureLines lines;
    QList<QSharedPointer<Failure>> failures;
    failures.append(QSharedPointer<Failure>(new Failure(QStringLiteral("Пуск"), 7)));
    failures.append(QSharedPointer<Failure>(new Failure(QStringLiteral("Пуск"), 40)));
    lines.setFailures(failures);
    lines.setStartSample(2);
    lines.setXScale(2.0);
    lines.paint(buffer);
    QCOMPARE(columnsWith(buffer, style().failureLine, 2), QList<int> { 10 });
}

void TestPainters::triggerLineAndMergedParts()
{
    auto record = PlotRecords::record({}, QVector<bool>(20));
    record->setCountOfPreFailureSamples(5);
    record->setCountOfPostFailureSamples(15);
    MergedWave part;
    part.sampleOffset = 12;
    record->setMergedWaves({ part });
    PixelBuffer buffer(20, 2);
    clear(buffer);
    TriggerLine trigger;
    trigger.setOscillogram(record);
    trigger.setXScale(1.0);
    trigger.paint(buffer);
    QCOMPARE(columnsWith(buffer, style().failureLine), (QList<int> { 4, 5, 6 }));
    QCOMPARE(columnsWith(buffer, style().phaseB), QList<int> { 12 });
}

void TestPainters::triggerLineHiddenWhenCountsExceedTheRecord()
{
    auto record = PlotRecords::record({}, QVector<bool>(20));
    record->setCountOfPreFailureSamples(5);
    record->setCountOfPostFailureSamples(25);
    PixelBuffer buffer(20, 2);
    clear(buffer);
    TriggerLine trigger;
    trigger.setOscillogram(record);
    trigger.paint(buffer);
    QCOMPARE(columnsWith(buffer, style().failureLine), QList<int> {});
}

void TestPainters::measureLines_data()
{
    QTest::addColumn<bool>("saved");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QRgb>("startColor");
    QTest::addColumn<QRgb>("finishColor");
    const auto& s = KV::Cfg::ColorStyle(1);
    QTest::newRow("unsaved complete") << false << true << s.phaseB << s.phaseA;
    QTest::newRow("saved complete") << true << true << s.savedMeasureStart << s.savedMeasureFinish;
    QTest::newRow("unfinished has no finish line") << false << false << s.phaseB << QRgb(0);
}

void TestPainters::measureLines()
{
    QFETCH(bool, saved);
    QFETCH(bool, complete);
    QFETCH(QRgb, startColor);
    QFETCH(QRgb, finishColor);
    MeasureItem item;
    item.setStartSampleNumber(12);
    item.setFinishSampleNumber(4);
    item.setComplete(complete);
    item.setSaved(saved);
    PixelBuffer buffer(20, 2);
    clear(buffer);
    TimeMeasurePainter painter({ item });
    painter.setStartSample(2);
    painter.paint(buffer);
    QCOMPARE(columnsWith(buffer, startColor), QList<int> { 10 });
    if (complete)
        QCOMPARE(columnsWith(buffer, finishColor), QList<int> { 2 });
    else
        QCOMPARE(columnsWith(buffer, blank).size(), 19);
}

void TestPainters::currentSampleAndCalculaterLine_data()
{
    QTest::addColumn<bool>("focus");
    QTest::addColumn<QRgb>("lineColor");
    QTest::addColumn<QRgb>("calculaterColor");
    QTest::newRow("with focus") << true << QRgb(0xFFFFFFFF) << QRgb(0xFFFF0000);
    QTest::newRow("without focus") << false << QRgb(0xFF999999) << QRgb(0xFF990000);
}

void TestPainters::currentSampleAndCalculaterLine()
{
    QFETCH(bool, focus);
    QFETCH(QRgb, lineColor);
    QFETCH(QRgb, calculaterColor);
    PixelBuffer buffer(30, 2);
    clear(buffer);
    CurrentSampleLine line;
    line.setHasFocus(focus);
    line.setCurrentSample(10);
    line.setStartSample(0);
    line.setXScale(2.0);
    line.setWindowInSamples(4);
    line.setCalculaterLineVisible(true);
    line.paint(buffer);
    QCOMPARE(columnsWith(buffer, lineColor), (QList<int> { 19, 20, 21 }));
    QCOMPARE(columnsWith(buffer, calculaterColor), QList<int> { 12 });
    clear(buffer);
    line.setCalculaterLineVisible(false);
    line.paint(buffer);
    QCOMPARE(columnsWith(buffer, calculaterColor), QList<int> {});
}

void TestPainters::sampleBeyondTheWidthDrawsNothing()
{
    PixelBuffer buffer(10, 2);
    clear(buffer);
    CurrentSampleLine line;
    line.setHasFocus(true);
    line.setCurrentSample(10);
    line.paint(buffer);
    line.setCurrentSample(-1);
    line.paint(buffer);
    QCOMPARE(columnsWith(buffer, blank).size(), 10);
}

void TestPainters::channelRangeAndZero()
{
    auto record = PlotRecords::record({ -50, 20, 70, 10 }, {});
    auto channel = analog(record);
    channel->setMultiplier(0.5);
    channel->setOffsetAdder(-5.0);
    AnalogPainter painter;
    QCOMPARE(painter.minValue(), -1.0);
    QCOMPARE(painter.maxValue(), 1.0);
    QCOMPARE(painter.zeroValue(), 0.0);
    QCOMPARE(painter.xScale(), 1.0);
    QCOMPARE(painter.amplitude(), 1.0);
    QCOMPARE(painter.offset(), 0.0);
    QCOMPARE(painter.startSample(), 0);
    painter.setChannel(channel);
    QCOMPARE(painter.minValue(), -50.0);
    QCOMPARE(painter.maxValue(), 70.0);
    QCOMPARE(painter.zeroValue(), 10.0);
    QVERIFY(!painter.isClc());
    QVERIFY(!painter.isComtrade());
    QVERIFY(!painter.isWv2());
    painter.setChannel({});
    QCOMPARE(painter.minValue(), -1.0);
    QCOMPARE(painter.maxValue(), 1.0);
    QCOMPARE(painter.zeroValue(), 0.0);
    // The colour tables follow the style in force when the painter is made.
    const auto& s = style();
    QCOMPARE(painter.phaseColors(), (QVector<QRgb> { s.noPhase, s.phaseA, s.phaseB, s.phaseC }));
    QCOMPARE(painter.componentColors(), (QVector<QRgb> { s.phaseB, s.secondComponent, s.phaseC }));
}

void TestPainters::channelKindFromItsType()
{
    auto record = PlotRecords::record({ 1, 2 }, {});
    const auto data = record->data();
    auto clc = QSharedPointer<ClcAnalogChannel>::create();
    auto comtrade = QSharedPointer<ComtradeAnalogChannel>::create();
    auto wv2 = QSharedPointer<Wv2AnalogChannel>::create();
    for (const QSharedPointer<AnalogChannel>& channel :
        QList<QSharedPointer<AnalogChannel>> { clc, comtrade, wv2 }) {
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataCount(1);
    }
    AnalogPainter painter;
    painter.setChannel(clc);
    QVERIFY(painter.isClc() && !painter.isComtrade() && !painter.isWv2());
    painter.setChannel(comtrade);
    QVERIFY(!painter.isClc() && painter.isComtrade() && !painter.isWv2());
    painter.setChannel(wv2);
    QVERIFY(!painter.isClc() && !painter.isComtrade() && painter.isWv2());
}

void TestPainters::unknownTypeAndEmptyRecordDrawNothing()
{
    auto record = PlotRecords::record({ 1, 2, 3 }, {});
    auto channel = analog(record);
    channel->setDataType(DT::None);
    AnalogPainter painter;
    painter.setChannel(channel);
    PixelBuffer buffer(10, 12);
    clear(buffer);
    painter.paintTrace(buffer);
    for (int y = 0; y < 12; ++y)
        QCOMPARE(columnsWith(buffer, blank, y).size(), 10);

    auto empty = PlotRecords::record({}, QVector<bool>(0));
    TimeGrid grid;
    grid.setOscillogram(empty);
    TriggerLine trigger;
    trigger.setOscillogram(empty);
    grid.paint(buffer);
    trigger.paint(buffer);
    QCOMPARE(columnsWith(buffer, blank, 5).size(), 10);
}

void TestPainters::constantChannelIsAFlatLineInTheMiddle()
{
    auto record = PlotRecords::record({ 7, 7, 7, 7, 7 }, {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    QCOMPARE(painter.minValue(), 6.0);
    QCOMPARE(painter.maxValue(), 8.0);
    painter.setXScale(5.0);
    PixelBuffer buffer(20, 12);
    clear(buffer);
    painter.paintTrace(buffer);
    // Range 6..8 into a row of 12: k = -4, d = -8.5, so 7 lands on row 6 = H/2.
    QCOMPARE(columnsWith(buffer, style().noPhase, 6), range(1, 19));
    for (int y = 0; y < 12; ++y) {
        if (y != 6)
            QCOMPARE(columnsWith(buffer, style().noPhase, y), QList<int> {});
    }
}

void TestPainters::rampAtScaleTenIsSegments()
{
    // 0..4 into a row of 12: k = -8/4 = -2, d = 10/k = -5, rows (v - 5)(-2) = 10, 8, 6, 4, 2.
    auto record = PlotRecords::record({ 0, 1, 2, 3, 4 }, {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(10.0);
    PixelBuffer buffer(50, 12);
    clear(buffer);
    painter.paintTrace(buffer);
    const QRgb trace = style().noPhase;
    QCOMPARE(buffer.pixel(0, 10), blank);
    QCOMPARE(rowsWith(buffer, 10, trace), QList<int> { 8 });
    QCOMPARE(rowsWith(buffer, 20, trace), QList<int> { 6 });
    QCOMPARE(rowsWith(buffer, 30, trace), QList<int> { 4 });
    QCOMPARE(rowsWith(buffer, 40, trace), QList<int> { 2 });
    // Slope 2 in 10 columns: Bresenham steps a row after every fifth column.
    QCOMPARE(rowsWith(buffer, 1, trace), QList<int> { 10 });
    QCOMPARE(rowsWith(buffer, 5, trace), QList<int> { 9 });
    QCOMPARE(rowsWith(buffer, 6, trace), QList<int> { 9 });
    for (int x = 1; x <= 40; ++x)
        QCOMPARE(rowsWith(buffer, x, trace).size(), 1);
    for (int x = 41; x < 50; ++x)
        QCOMPARE(rowsWith(buffer, x, trace).size(), 0);
}

void TestPainters::zeroLineAtThePhysicalZero()
{
    auto record = PlotRecords::record({ 0, 1, 2, 3 }, {});
    auto channel = analog(record);
    channel->setOffsetAdder(-1.5);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setAmplitude(3.0);
    painter.setOffset(1.0);
    PixelBuffer buffer(40, 24);
    clear(buffer);
    painter.paintZeroLine(buffer);
    // Row H * (1 - (1.5 - 0) / 3), whatever the amplitude and offset.
    QCOMPARE(columnsWith(buffer, style().grid, 12), range(0, 39));
    QCOMPARE(columnsWith(buffer, style().grid, 11), QList<int> {});
}

void TestPainters::clcChannelHasNoZeroLine()
{
    auto record = PlotRecords::record({ 0, 1, 2, 3 }, {});
    auto channel = analog(record);
    channel->setOffsetAdder(-1.5);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setIsClc(true);
    PixelBuffer buffer(40, 24);
    clear(buffer);
    painter.paintZeroLine(buffer);
    QCOMPARE(columnsWith(buffer, style().grid, 12), QList<int> {});
}

void TestPainters::scaleOfFiveHundredthsDecimates()
{
    // 200 samples at 0.05: 20 samples a column, floor(200 / 20) - 1 = 9 columns, so the tenth
    // column stays empty, which segments would have filled.
    auto record = PlotRecords::record(alternating(200), {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(0.05);
    PixelBuffer buffer(10, 24);
    clear(buffer);
    painter.paintTrace(buffer);
    for (int x = 0; x < 9; ++x)
        QCOMPARE(rowsWith(buffer, x, style().noPhase), range(2, 22));
    QCOMPARE(rowsWith(buffer, 9, style().noPhase), QList<int> {});
}

void TestPainters::amplitudeTwoIsClampedWhenDecimated()
{
    // Range -100..100 at amplitude 2 maps the peaks to rows 32 and -8, clamped to H and 0.
    auto record = PlotRecords::record(alternating(1000), {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(0.01);
    painter.setAmplitude(2.0);
    PixelBuffer buffer(8, 24);
    clear(buffer);
    painter.paintTrace(buffer);
    for (int x = 0; x < 8; ++x)
        QCOMPARE(rowsWith(buffer, x, style().noPhase), range(0, 23));
    // Row H lies in the spare room of the buffer.
    QCOMPARE(buffer.data()[24 * 8 + 3], style().noPhase);
}

void TestPainters::amplitudeTwoIsClippedInSegments()
{
    auto record = PlotRecords::record(alternating(10), {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(4.0);
    painter.setAmplitude(2.0);
    PixelBuffer buffer(36, 24);
    clear(buffer);
    painter.paintTrace(buffer);
    int drawn = 0;
    for (int x = 0; x < 36; ++x)
        drawn += rowsWith(buffer, x, style().noPhase).size();
    // Each segment crosses the whole row and is cut at its edges.
    QVERIFY(drawn >= 24 * 9);
    for (qint64 i = 36 * 24; i < buffer.pixelCapacity(); ++i)
        QCOMPARE(buffer.data()[i], blank);
}

void TestPainters::invertedChannelIsFlippedButNotItsZeroLine()
{
    // +100 for the first 500 samples, -100 after: at 0.01 the first columns sit on row 2.
    QVector<short> values(1000, 100);
    for (int s = 500; s < 1000; ++s)
        values[s] = -100;
    auto record = PlotRecords::record(values, {});
    auto channel = analog(record);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setXScale(0.01);
    PixelBuffer buffer(8, 24);
    clear(buffer);
    painter.paint(buffer);
    QCOMPARE(rowsWith(buffer, 0, style().noPhase), QList<int> { 2 });
    QCOMPARE(rowsWith(buffer, 4, style().noPhase), range(2, 22));
    QCOMPARE(rowsWith(buffer, 6, style().noPhase), QList<int> { 22 });
    // The trace of column 4 crosses the zero line.
    const QList<int> zeroLine { 0, 1, 2, 3, 5, 6, 7 };
    QCOMPARE(columnsWith(buffer, style().grid, 12), zeroLine);

    channel->setIsInverted(true);
    clear(buffer);
    painter.paint(buffer);
    QCOMPARE(rowsWith(buffer, 0, style().noPhase), QList<int> { 22 });
    QCOMPARE(rowsWith(buffer, 4, style().noPhase), range(2, 22));
    QCOMPARE(rowsWith(buffer, 6, style().noPhase), QList<int> { 2 });
    QCOMPARE(columnsWith(buffer, style().grid, 12), zeroLine);
}

void TestPainters::traceColours()
{
    auto record = PlotRecords::record({ 0, 3 }, {});
    auto channel = analog(record);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setXScale(4.0);
    PixelBuffer buffer(8, 24);
    auto traceAt = [&]() {
        clear(buffer);
        painter.paintTrace(buffer);
        return buffer.pixel(4, 2);
    };
    QCOMPARE(traceAt(), style().noPhase);
    channel->setPhaseNumber(2);
    QCOMPARE(traceAt(), style().phaseB);
    channel->setPhaseNumber(7);
    QCOMPARE(traceAt(), style().noPhase);
    painter.setIsClc(true);
    QCOMPARE(traceAt(), style().phaseB);
    painter.setIsClc(false);
    channel->setCustomColor(QColor(10, 20, 30));
    QCOMPARE(traceAt(), qRgb(10, 20, 30));
    channel->setIsSelected(true);
    QCOMPARE(traceAt(), style().selectedTrace);
}

void TestPainters::anomalyFramesOnSegments()
{
    // The ramp 0..4 into a row of 12 (rows 10, 8, 6, 4, 2), sample 2 found anomalous.
    auto record = PlotRecords::record({ 0, 1, 2, 3, 4 }, {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(10.0);
    painter.setAnomalySpans({ AnomalyData(2, 2) });
    PixelBuffer buffer(50, 12);
    clear(buffer);
    painter.paintTrace(buffer);
    // Without the flag the spans are not drawn.
    QCOMPARE(buffer.pixel(20, 6), style().noPhase);
    QCOMPARE(buffer.pixel(9, 5), blank);

    painter.setAnomalyPaint(true);
    clear(buffer);
    painter.paintTrace(buffer);
    const QRgb anomaly = style().anomaly;
    // Sample 2 ends the segment from x 10 to 20: edges left of 10 and of 20 on rows 3..H-4,
    // horizontal lines on rows 3 and H-3 from 10 to 19, and the segment in the anomaly colour.
    QCOMPARE(rowsWith(buffer, 9, anomaly), range(3, 8));
    QCOMPARE(rowsWith(buffer, 19, anomaly).mid(0, 1), QList<int> { 3 });
    QVERIFY(rowsWith(buffer, 19, anomaly).contains(8));
    QCOMPARE(columnsWith(buffer, anomaly, 3), range(9, 19));
    QCOMPARE(columnsWith(buffer, anomaly, 9), range(10, 19));
    QCOMPARE(buffer.pixel(20, 6), anomaly);
    QCOMPARE(buffer.pixel(11, 8), anomaly);
    QCOMPARE(buffer.pixel(10, 8), style().noPhase);
    QCOMPARE(buffer.pixel(30, 4), style().noPhase);
}

void TestPainters::anomalyColumnWhenDecimated()
{
    // A flat trace on row 6 (range -128..128 into a row of 12: k = -1/32, d = -192) and the span
    // 250..350 at 100 samples a column.
    QVector<short> values(1000, 0);
    values[998] = -128;
    values[999] = 128;
    auto record = PlotRecords::record(values, {});
    AnalogPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(0.01);
    painter.setAnomalyPaint(true);
    painter.setAnomalySpans({ AnomalyData(250, 350) });
    PixelBuffer buffer(8, 12);
    clear(buffer);
    painter.paintTrace(buffer);
    const QRgb anomaly = style().anomaly;
    const QRgb trace = style().noPhase;
    QCOMPARE(rowsWith(buffer, 0, anomaly), QList<int> {});
    QCOMPARE(rowsWith(buffer, 0, trace), QList<int> { 6 });
    // Column 2 scans 200..300: 250 draws the edge left of 2, the samples inside the top and
    // bottom lines; its first sample 200 is outside, so its trace keeps its colour.
    QCOMPARE(rowsWith(buffer, 1, anomaly), range(3, 8));
    QCOMPARE(rowsWith(buffer, 2, anomaly), (QList<int> { 3, 9 }));
    QCOMPARE(rowsWith(buffer, 2, trace), QList<int> { 6 });
    // Column 3 begins inside the span and scans its last sample 350: edge left of 4.
    QCOMPARE(rowsWith(buffer, 3, anomaly), range(3, 9));
    QCOMPARE(rowsWith(buffer, 4, anomaly), QList<int> {});
    QCOMPARE(rowsWith(buffer, 4, trace), QList<int> { 6 });
}

void TestPainters::clcColumnsStopOneSampleEarlierEach()
{
    // Two data columns of one channel, 12 samples of 0 and 100 in turn, at 0.5 pixel a sample.
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 2, 0, 12);
    for (int s = 0; s < 12; ++s) {
        builder.appendInt16Value(short(s % 2 ? 100 : 0));
        builder.appendInt16Value(short(s % 2 ? 100 : 0));
    }
    const auto data = builder.build();
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(data);
    channel->setDataType(DT::Int16);
    channel->setDataCount(2);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setIsClc(true);
    painter.setXScale(0.05);
    PixelBuffer buffer(20, 24);
    clear(buffer);
    painter.paintTrace(buffer);
    // Every pair of samples lands in column 0 and spans the range, drawn in the colour of the
    // last column painted: the second data column (second component) ends one sample earlier,
    // but still reaches column 0.
    QCOMPARE(rowsWith(buffer, 0, style().secondComponent), range(2, 22));
    QCOMPARE(rowsWith(buffer, 1, style().secondComponent), QList<int> {});
}

void TestPainters::valuesShownFromScaleTwentyFive_data()
{
    QTest::addColumn<double>("xScale");
    QTest::addColumn<bool>("shown");
    QTest::newRow("25.0 shows") << 25.0 << true;
    QTest::newRow("24.9 does not") << 24.9 << false;
}

void TestPainters::valuesShownFromScaleTwentyFive()
{
    QFETCH(double, xScale);
    QFETCH(bool, shown);
    auto record = PlotRecords::record({ 0, 4, 0 }, {});
    ValuesPainter painter;
    painter.setChannel(analog(record));
    painter.setXScale(xScale);
    PixelBuffer buffer(60, 36);
    clear(buffer);
    painter.paint(buffer);
    // 0..4 into a row of 36: k = -8, d = -4.25; sample 1 (value 4) on row 2 at x = 25. The
    // middle stroke covers rows y-2..y+3, the side ones y-1..y+2; its label begins on row 2.
    const int x = int(std::floor(xScale));
    const QRgb grey = ValuesPainter::pointColor;
    QCOMPARE(buffer.pixel(x, 0) == grey, shown);
    QCOMPARE(buffer.pixel(x - 1, 1) == grey, shown);
    QCOMPARE(buffer.pixel(x + 1, 1) == grey, shown);
    // Sample 0 (value 0, row 34, below the middle): the label stands above it in white.
    bool white = false;
    for (int y = 14; y < 34; ++y) {
        for (int c = 0; c < 20; ++c)
            white = white || qGray(buffer.pixel(c, y)) > 128;
    }
    QCOMPARE(white, shown);
}

void TestPainters::valueLabelInPrimaryOrSecondary()
{
    auto record = PlotRecords::record({ 0, 3 }, {});
    auto channel = analog(record);
    channel->setMultiplier(2.0);
    channel->setOffsetAdder(1.0);
    channel->setPrimary(100.0);
    channel->setSecondary(10.0);
    channel->setPs(AnalogChannel::Primary);
    ValuesPainter painter;
    painter.setChannel(channel);
    painter.setPrimSecMode(AnalogChannel::Primary);
    QCOMPARE(painter.label(3.0), QStringLiteral("7.0"));
    painter.setPrimSecMode(AnalogChannel::Secondary);
    QCOMPARE(painter.label(3.0), QStringLiteral("0.7"));
    channel->setPs(AnalogChannel::Secondary);
    painter.setPrimSecMode(AnalogChannel::Primary);
    QCOMPARE(painter.label(3.0), QStringLiteral("70.0"));
}

void TestPainters::discreteBar_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("bar");
    QTest::newRow("height 8 uses 2") << 8 << 2;
    QTest::newRow("height 10 uses 2") << 10 << 2;
    QTest::newRow("height 13 uses at least 2") << 13 << 2;
    QTest::newRow("height 30 uses 10") << 30 << 10;
}

void TestPainters::discreteBar()
{
    QFETCH(int, height);
    QFETCH(int, bar);
    QCOMPARE(DigitalPainter::barFor(height), bar);
}

void TestPainters::discreteBitsAsBars()
{
    // Bits 1, 0, 1, 1 at 2 pixels a sample into a row of 30 (bar 10): each sample fills the two
    // columns right of its own; the last sample is not drawn.
    auto record = PlotRecords::record({}, { true, false, true, true });
    DigitalPainter painter;
    painter.setChannel(record->digitalChannel(0));
    painter.setXScale(2.0);
    PixelBuffer buffer(8, 30);
    clear(buffer);
    painter.paint(buffer);
    const QRgb trace = style().discreteTrace;
    QCOMPARE(rowsWith(buffer, 0, trace), QList<int> {});
    QCOMPARE(rowsWith(buffer, 1, trace), range(10, 20));
    QCOMPARE(rowsWith(buffer, 2, trace), range(10, 20));
    QCOMPARE(rowsWith(buffer, 3, trace), QList<int> { 20 });
    QCOMPARE(rowsWith(buffer, 4, trace), QList<int> { 20 });
    QCOMPARE(rowsWith(buffer, 5, trace), range(10, 20));
    QCOMPARE(rowsWith(buffer, 6, trace), range(10, 20));
    QCOMPARE(rowsWith(buffer, 7, trace), QList<int> {});

    // A row of 8 uses bar 2: the set bit fills rows 2..6.
    PixelBuffer small(8, 8);
    clear(small);
    painter.paint(small);
    QCOMPARE(rowsWith(small, 1, trace), range(2, 6));
    QCOMPARE(rowsWith(small, 3, trace), QList<int> { 6 });
}

void TestPainters::discreteBitsDecimated()
{
    // 500 samples at 0.01: 100 a column, floor(500 / 100) - 1 = 4 columns. One set bit at 150.
    QVector<bool> bits(500);
    bits[150] = true;
    auto record = PlotRecords::record({}, bits);
    DigitalPainter painter;
    painter.setChannel(record->digitalChannel(0));
    painter.setXScale(0.01);
    PixelBuffer buffer(6, 30);
    clear(buffer);
    painter.paint(buffer);
    const QRgb trace = style().discreteTrace;
    QCOMPARE(rowsWith(buffer, 0, trace), QList<int> { 15 });
    QCOMPARE(rowsWith(buffer, 1, trace), range(10, 20));
    QCOMPARE(rowsWith(buffer, 2, trace), QList<int> { 15 });
    QCOMPARE(rowsWith(buffer, 3, trace), QList<int> { 15 });
    QCOMPARE(rowsWith(buffer, 4, trace), QList<int> {});
}

void TestPainters::discreteAtFiveHundredthsDecimates()
{
    auto record = PlotRecords::record({}, QVector<bool>(200));
    DigitalPainter painter;
    painter.setChannel(record->digitalChannel(0));
    painter.setXScale(0.05);
    PixelBuffer buffer(4, 30);
    clear(buffer);
    painter.paint(buffer);
    // The base line of this mode is the middle row, not H - bar.
    QCOMPARE(rowsWith(buffer, 0, style().discreteTrace), QList<int> { 15 });
}

void TestPainters::selectedDiscreteColour()
{
    auto record = PlotRecords::record({}, { true, true, true });
    record->digitalChannel(0)->setIsSelected(true);
    DigitalPainter painter;
    painter.setChannel(record->digitalChannel(0));
    painter.setXScale(1.0);
    PixelBuffer buffer(4, 8);
    clear(buffer);
    painter.paint(buffer);
    QCOMPARE(rowsWith(buffer, 1, style().selectedTrace), range(2, 6));
}

QTEST_MAIN(TestPainters)
#include "tst_painters.moc"
