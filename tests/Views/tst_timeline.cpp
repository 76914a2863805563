#include "Model/ComtradeOscillogram.h"
#include "PlotRecords.h"
#include "Settings/KorvaneSettings.h"
#include "Views/CurrentTimePositionView.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/TimeLine.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {
using PlotRecords::measure;

// The ruler's own colours and geometry.
const QRgb rulerBackground = qRgb(192, 220, 243);
const QRgb ink = qRgb(0, 0, 0);
const QRgb red = qRgb(255, 0, 0);
const QRgb unsavedMeasure = qRgb(230, 118, 119);
constexpr int width = 800;
constexpr int height = 40;
// The strip: from H - 12 to H - 1, middle H - 6.5.
constexpr double yTop = height - 12.0;
constexpr double yBottom = height - 1.0;
constexpr double yMid = (yTop + yBottom) / 2;

QFont rulerFont()
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(8);
    return font;
}

// A model showing a 1000 Hz record of the given length with the trigger at sample pre, at
// 10:00:00 UTC on the given day, unless another trigger time is given.
struct Ruler
{
    explicit Ruler(
        int samples, int pre, const PreciseDateTime& trigger = PreciseDateTime(2024, 3, 1, 10, 0, 0, 0, 0))
        : record(PlotRecords::makeRecord(1, 0, samples, pre))
        , model(QSharedPointer<OscillogramViewModel>::create())
        , settings(QSharedPointer<KorvaneSettings>::create())
    {
        record->setTriggerTime(trigger);
        settings->setTimeDisplayMode(KorvaneSettings::UtcTime);
        model->setAllSettings(settings);
        model->setPlotWidth(width);
        model->setOscillogram(record);
        line.setOscillogramViewModel(model);
    }

    QImage draw(const TimeLineDrawInfo& info = TimeLineDrawInfo()) const
    {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        line.drawTimeLine(&image, info);
        return image;
    }

    QSharedPointer<SimpleOscillogram> record;
    QSharedPointer<OscillogramViewModel> model;
    QSharedPointer<KorvaneSettings> settings;
    TimeLine line;
};

// The ruler's background with one text drawn as the ruler draws its labels.
QImage labelAlone(
    const QRectF& rect, int flags, const QString& text, QRgb color = ink, QRgb background = rulerBackground)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(background);
    QPainter painter(&image);
    painter.setFont(rulerFont());
    painter.setPen(QColor::fromRgb(color));
    painter.drawText(rect, flags, text);
    return image;
}

// Whether the columns from x0 to x1 hold the same pixels in both pictures, in the rows from y0 to y1.
bool sameColumns(
    const QImage& actual, const QImage& expected, int x0, int x1, int y0 = 0, int y1 = height - 1)
{
    for (int x = qMax(x0, 0); x <= qMin(x1, width - 1); ++x) {
        for (int y = y0; y <= y1; ++y) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                return false;
        }
    }
    return true;
}

// Whether the columns show the text where QPainter::drawText places it in the rectangle with the
// flags, and nothing else.
bool labelShown(const QImage& image, const QRectF& rect, int flags, const QString& text, QRgb color, int x0,
    int x1, int y0 = 0, int y1 = height - 1, QRgb background = rulerBackground)
{
    return sameColumns(image, labelAlone(rect, flags, text, color, background), x0, x1, y0, y1);
}

// The tick label of a tick at column c stands right-aligned in the rectangle from c - 103, of
// width 99; its text ends 4 pixels left of the tick. Compares the 60 columns before that end,
// which hold the text and nothing else.
bool tickLabelIs(const QImage& image, double c, const QString& text)
{
    return labelShown(image, QRectF(c - 103.0, yMid - 5.0, 99.0, 9.0), Qt::AlignRight | Qt::AlignVCenter,
        text, ink, int(c) - 64, int(c) - 4);
}

// Columns of the bottom row in the tick colour: the tick lines, which reach the bottom of the
// strip, where no text is.
QList<int> tickColumns(const QImage& image)
{
    QList<int> columns;
    for (int x = 0; x < width; ++x) {
        if (image.pixel(x, int(yBottom)) == ink)
            columns << x;
    }
    return columns;
}

// Whether column x holds the colour over the rows from y0 to y1.
bool verticalLine(const QImage& image, int x, int y0, int y1, QRgb color)
{
    for (int y = y0; y <= y1; ++y) {
        if (image.pixel(x, y) != color)
            return false;
    }
    return true;
}

// The space the length label of a complete measure needs: its text's width and 10 pixels.
double lengthSpace(const QString& text)
{
    return QFontMetrics(rulerFont()).horizontalAdvance(text) + 10.0;
}

// The rows of the labels above the strip, clear of the arrows of the measures.
constexpr int labelRows = 20;

} // namespace

class TestTimeLine : public QObject
{
    Q_OBJECT
private slots:
    void init() { KV::Cfg::ColorStyle::setCurrent(1); }

    void optionsTakeTheModelsValueWhenNegative();
    void withoutRecordOnlyTheBackground();
    void ticksEvery100msAtRate1000();
    void noLabelAtTheTrigger();
    void ticksStopAtTheLastSampleOnTheRight();
    void scrolledRulerMovesTheTicks();
    void stepFollowsTheScale_data();
    void stepFollowsTheScale();
    void bottomOfTheLadder();
    void topOfTheLadderAndBeyond();
    void labelsAcrossASecondBoundary();
    void endTimeInEachDisplayMode_data();
    void endTimeInEachDisplayMode();
    void endMarkIsPlacedFromColumnZero();
    void triggerOutsideTheRecordHasNoTriangle();
    void eventTriggeredComtradeUsesFixedRate();
    void mergedRecordsGetNumberedFlags();
    void measureInProgressShowsItsStart();
    void measureLengthInsideTheArrow();
    void measureLengthOutsideWhenTextIsWider_data();
    void measureLengthOutsideWhenTextIsWider();
    void measureFinishedBeforeItsStart();
    void savedMeasureIsBlack();
    void markerLineAndTime();
    void drawInfoHidesMeasuresAndMarkers();
    void doubleClickSetsTheTrigger();
    void modelSignalsRepaint();
    void currentTimePosition();
    void currentTimePositionInDeviceZone();
};

void TestTimeLine::optionsTakeTheModelsValueWhenNegative()
{
    Ruler ruler(3000, 300);
    ruler.model->setStartSampleNumber(40);
    ruler.model->scaleUp();
    QCOMPARE(ruler.line.startSampleNumber(-1), 40);
    QCOMPARE(ruler.line.startSampleNumber(7), 7);
    QCOMPARE(ruler.line.xScale(-1.0), 1.1);
    QCOMPARE(ruler.line.xScale(0.25), 0.25);
    QCOMPARE(ruler.line.sampleRate(), 1000.0);
    // 250 samples at 1000 Hz.
    QCOMPARE(ruler.line.timeForSample(300, 50), -250.0);
    QCOMPARE(ruler.line.lengthMeasure(300, 550), 250.0);
}

void TestTimeLine::withoutRecordOnlyTheBackground()
{
    TimeLine line;
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    line.drawTimeLine(&image, TimeLineDrawInfo());
    QCOMPARE(line.sampleRate(), 0.0);
    QCOMPARE(line.timeForSample(0, 10), 0.0);
    QCOMPARE(line.lengthMeasure(0, 10), 0.0);
    QCOMPARE(image.pixel(0, 0), rulerBackground);
    QCOMPARE(image.pixel(width - 1, height - 1), rulerBackground);

    Ruler empty(0, 0);
    const QImage drawn = empty.draw();
    for (int x = 0; x < width; x += 7)
        QCOMPARE(drawn.pixel(x, int(yBottom)), rulerBackground);
}

void TestTimeLine::ticksEvery100msAtRate1000()
{
    // At 1000 Hz and 1.0 pixel per sample the least step of 50 pixels is 50 ms, so the step is the
    // next one of the ladder, 100 ms: a tick every 100 pixels from the trigger at column 300.
    Ruler ruler(3000, 300);
    const QImage image = ruler.draw();
    QCOMPARE(tickColumns(image), QList<int>({ 0, 100, 200, 400, 500, 600, 700 }));
    QVERIFY(verticalLine(image, 200, int(yTop) + 1, int(yBottom), ink));
    QCOMPARE(image.pixel(200, int(yTop) - 2), rulerBackground);
    QVERIFY(tickLabelIs(image, 200, QStringLiteral("-100")));
    QVERIFY(tickLabelIs(image, 100, QStringLiteral("-200")));
    QVERIFY(tickLabelIs(image, 400, QStringLiteral("100")));
    QVERIFY(tickLabelIs(image, 500, QStringLiteral("200")));
    QVERIFY(!tickLabelIs(image, 500, QStringLiteral("-200")));
}

void TestTimeLine::noLabelAtTheTrigger()
{
    Ruler ruler(3000, 300);
    const QImage image = ruler.draw();
    // No text left of the trigger's column, where a label of 0 would stand.
    QVERIFY(sameColumns(image, labelAlone({}, 0, QString()), 240, 294));
    // The red triangle: its tip at the bottom of the strip, 10 pixels wide at its top.
    QCOMPARE(image.pixel(300, int(yTop) + 3), red);
    QCOMPARE(image.pixel(296, int(yTop) + 1), red);
    QCOMPARE(image.pixel(303, int(yTop) + 1), red);
    QCOMPARE(image.pixel(294, int(yTop) + 3), rulerBackground);
}

void TestTimeLine::ticksStopAtTheLastSampleOnTheRight()
{
    // 550 samples: the ticks at 400 and 500 are inside, 600 and 700 lie beyond the last sample.
    Ruler ruler(550, 300);
    const QImage image = ruler.draw();
    QCOMPARE(tickColumns(image), QList<int>({ 0, 100, 200, 400, 500 }));
    // The end of the record in red at column (N - 1) * x.
    QVERIFY(verticalLine(image, 549, int(yTop) + 1, int(yBottom), red));
}

void TestTimeLine::scrolledRulerMovesTheTicks()
{
    Ruler ruler(3000, 300);
    TimeLineDrawInfo info;
    info.startSample = 150;
    const QImage image = ruler.draw(info);
    // The trigger at column 150; the left tick at 50, right ones from 250 on.
    QCOMPARE(tickColumns(image), QList<int>({ 50, 250, 350, 450, 550, 650, 750 }));
    QVERIFY(tickLabelIs(image, 250, QStringLiteral("100")));
    QCOMPARE(image.pixel(150, int(yTop) + 3), red);
}

void TestTimeLine::stepFollowsTheScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QList<int>>("ticks");
    QTest::addColumn<int>("labelledTick");
    QTest::addColumn<QString>("label");
    // Least step 50 / x ms at 1000 Hz; the step is the next greater value of the ladder.
    QTest::newRow("x 0.5: least 100 ms, step 250 ms, 125 pixels")
        << 0.5 << QList<int>({ 25, 275, 400, 525, 650, 775 }) << 400 << QStringLiteral("500");
    QTest::newRow("x 2.0: least 25 ms, step 50 ms, 100 pixels")
        << 2.0 << QList<int>({ 0, 100, 200, 300, 400, 500, 700 }) << 100 << QStringLiteral("-250");
    QTest::newRow("x 0.01: least 5000 ms, step 10000 ms, 100 pixels")
        << 0.01 << QList<int>({ 103, 203 }) << 203 << QStringLiteral("20000");
}

void TestTimeLine::stepFollowsTheScale()
{
    QFETCH(double, scale);
    QFETCH(QList<int>, ticks);
    QFETCH(int, labelledTick);
    QFETCH(QString, label);
    // 30000 samples with the trigger at 300, so that the 0.01 row has room for three steps.
    Ruler ruler(30000, 300);
    TimeLineDrawInfo info;
    info.xScale = scale;
    const QImage image = ruler.draw(info);
    QList<int> found = tickColumns(image);
    // The trigger triangle's tip is red, the end mark red: only ticks are ink.
    QCOMPARE(found, ticks);
    QVERIFY(tickLabelIs(image, labelledTick, label));
}

void TestTimeLine::bottomOfTheLadder()
{
    // 100 kHz at 1.0 pixel per sample: the least step is 0.5 ms, so the step is 1 ms, the first
    // value of the ladder, 100 samples.
    Ruler ruler(2000, 300);
    ruler.record->setSampleRate(100000.0);
    const QImage image = ruler.draw();
    QCOMPARE(tickColumns(image), QList<int>({ 0, 100, 200, 400, 500, 600, 700 }));
    QVERIFY(tickLabelIs(image, 200, QStringLiteral("-1")));
    QVERIFY(tickLabelIs(image, 600, QStringLiteral("3")));
}

void TestTimeLine::topOfTheLadderAndBeyond()
{
    // 0.4 Hz at 0.0125 pixels per sample: the least step is 10,000,000 ms, so the step is the top
    // of the ladder, 15,000,000 ms: 6000 samples, 75 pixels. n = floor(30000 / 0.0004 / 15000000
    // + 0.5) = 5 steps, all right of the trigger at sample 0, the last at the record's width.
    Ruler ruler(30000, 0);
    ruler.record->setSampleRate(0.4);
    TimeLineDrawInfo info;
    info.xScale = 0.0125;
    QImage image = ruler.draw(info);
    QCOMPARE(tickColumns(image), QList<int>({ 75, 150, 225, 300, 375 }));
    QVERIFY(tickLabelIs(image, 150, QStringLiteral("30000000")));

    // At 0.005 pixels per sample the least step, 25,000,000 ms, lies beyond the ladder: its last
    // value stays, 30 pixels apart.
    info.xScale = 0.005;
    image = ruler.draw(info);
    QCOMPARE(tickColumns(image), QList<int>({ 30, 60, 90, 120, 150 }));
}

void TestTimeLine::labelsAcrossASecondBoundary()
{
    // The trigger 50 ms before a new second and a new day: the labels count from the trigger.
    Ruler ruler(3000, 300, PreciseDateTime(2024, 12, 31, 23, 59, 59, 950000, 0));
    const QImage image = ruler.draw();
    QVERIFY(tickLabelIs(image, 400, QStringLiteral("100")));
    QVERIFY(tickLabelIs(image, 700, QStringLiteral("400")));
    QVERIFY(tickLabelIs(image, 200, QStringLiteral("-100")));
}

void TestTimeLine::endTimeInEachDisplayMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("localCode");
    QTest::addColumn<int>("customZone");
    QTest::addColumn<QString>("endTime");
    // 500 samples, trigger at 300 on 23:59:59.900 UTC: the end is sample 499, 199 ms later, on
    // 00:00:00.099 of the next day in UTC.
    QTest::newRow("UTC") << 0 << 5 << 3 << QStringLiteral("00:00:00.099000");
    QTest::newRow("device local time, code 5") << 1 << 5 << 3 << QStringLiteral("05:00:00.099000");
    QTest::newRow("custom zone -2") << 2 << 5 << -2 << QStringLiteral("22:00:00.099000");
}

void TestTimeLine::endTimeInEachDisplayMode()
{
    QFETCH(int, mode);
    QFETCH(int, localCode);
    QFETCH(int, customZone);
    QFETCH(QString, endTime);
    Ruler ruler(500, 300, PreciseDateTime(2024, 12, 31, 23, 59, 59, 900000, 0));
    ruler.record->setLocalCode(localCode);
    ruler.settings->setTimeDisplayMode(KorvaneSettings::TimeDisplayMode(mode));
    ruler.settings->setCustomTimeZone(customZone);
    const QImage image = ruler.draw();
    // The end time right of column N * x + 1, in a box 9 pixels wider than the text.
    const double textWidth = QFontMetrics(rulerFont()).horizontalAdvance(endTime) + 9.0;
    QVERIFY(labelShown(image, QRectF(501.0, yMid - 5.0, textWidth, 9.0), Qt::AlignRight | Qt::AlignVCenter,
        endTime, ink, 501, width - 1));
    // The millisecond labels stay as they are in every mode.
    QVERIFY(tickLabelIs(image, 400, QStringLiteral("100")));
    QVERIFY(tickLabelIs(image, 200, QStringLiteral("-100")));
}

void TestTimeLine::endMarkIsPlacedFromColumnZero()
{
    // Kept as it stands: the end mark stays at (N - 1) * x whatever the start sample.
    Ruler ruler(500, 300);
    TimeLineDrawInfo info;
    info.startSample = 100;
    const QImage image = ruler.draw(info);
    QVERIFY(verticalLine(image, 499, int(yTop) + 1, int(yBottom), red));
    QCOMPARE(image.pixel(399, int(yBottom)), rulerBackground);
}

void TestTimeLine::triggerOutsideTheRecordHasNoTriangle()
{
    // Fewer samples than the count before the trigger: the origin of the ticks is the end.
    Ruler ruler(500, 300);
    ruler.record->setCountOfPreFailureSamples(600);
    const QImage image = ruler.draw();
    QCOMPARE(tickColumns(image), QList<int>({ 0, 100, 200, 300, 400 }));
    // No triangle around the end, where the origin is; only the end mark at column 499 is red.
    for (int x = 494; x <= 506; ++x)
        QVERIFY(x == 499 || image.pixel(x, int(yTop) + 1) != red);
}

void TestTimeLine::eventTriggeredComtradeUsesFixedRate()
{
    auto record = QSharedPointer<ComtradeOscillogram>::create();
    record->setIsEventTriggeredOsc(true);
    auto model = QSharedPointer<OscillogramViewModel>::create();
    model->setOscillogram(record);
    TimeLine line;
    line.setOscillogramViewModel(model);
    QCOMPARE(line.sampleRate(), 2.0);
    record->setIsEventTriggeredOsc(false);
    record->setSampleRate(4000.0);
    QCOMPARE(line.sampleRate(), 4000.0);
}

void TestTimeLine::mergedRecordsGetNumberedFlags()
{
    Ruler ruler(3000, 300);
    MergedWave first;
    first.beginTime = ruler.record->beginTime();
    MergedWave second;
    second.sampleOffset = 450;
    second.beginTime = ruler.record->dateTime(450);
    ruler.record->setMergedWaves({ first, second });
    const QImage image = ruler.draw();
    // A green flag 11 pixels wide from the top down to the strip, its pole down to the bottom.
    const QRgb green = qRgb(0, 255, 0);
    QCOMPARE(image.pixel(455, 3), green);
    QCOMPARE(image.pixel(5, 3), green);
    QCOMPARE(image.pixel(458, int(yTop) + 3), rulerBackground);
    QCOMPARE(image.pixel(450, int(yTop) + 3), ink);
    // The number 2 in the second flag, right-aligned in 8 pixels.
    QVERIFY(labelShown(image, QRectF(450.0, 2.0, 8.0, yTop - 1.0 - 2.0), Qt::AlignRight | Qt::AlignVCenter,
        QStringLiteral("2"), ink, 451, 457, 2, int(yTop) - 2, green));
}

void TestTimeLine::measureInProgressShowsItsStart()
{
    Ruler ruler(3000, 300);
    ruler.model->setTimeMeasures({ measure(450, 0, false, false) });
    const QImage image = ruler.draw();
    QVERIFY(verticalLine(image, 450, 0, int(yBottom), unsavedMeasure));
    // 150 samples after the trigger, three decimals, from 2 pixels right of the line.
    QVERIFY(labelShown(image, QRectF(452.0, 2.0, 99.0, yTop - 3.0), Qt::AlignLeft | Qt::AlignTop,
        QStringLiteral("150.000"), unsavedMeasure, 452, 540, 0, labelRows));
}

void TestTimeLine::measureLengthInsideTheArrow()
{
    // From 100 to 350 ms after the trigger at 1.0 pixel per sample: 250 pixels, wide enough.
    Ruler ruler(3000, 300);
    ruler.model->setTimeMeasures({ measure(400, 650, true, false) });
    const QImage image = ruler.draw();
    QVERIFY(verticalLine(image, 400, 0, int(yBottom), unsavedMeasure));
    QVERIFY(verticalLine(image, 650, 0, int(yBottom), unsavedMeasure));
    // The shaft of the double arrow at yTop - 2, and the heads.
    const int y = int(yTop) - 2;
    QCOMPARE(image.pixel(525, y), unsavedMeasure);
    QCOMPARE(image.pixel(402, y - 2), unsavedMeasure);
    QCOMPARE(image.pixel(648, y + 2), unsavedMeasure);
    // The text centred between the lines.
    QVERIFY(labelShown(image, QRectF(400.0, 2.0, 249.0, yTop - 3.0), Qt::AlignHCenter | Qt::AlignTop,
        QStringLiteral("250.000"), unsavedMeasure, 480, 570, 0, labelRows));
}

void TestTimeLine::measureLengthOutsideWhenTextIsWider_data()
{
    QTest::addColumn<int>("distance");
    // The text needs its width and 10 pixels; two-digit lengths are all as wide as "10.000".
    const int space = int(lengthSpace(QStringLiteral("10.000")));
    QVERIFY(space > 10 && space < 99);
    QTest::newRow("3 ms, far too narrow") << 3;
    QTest::newRow("as wide as the text needs: outside") << space;
    QTest::newRow("one pixel wider than the text needs: inside") << space + 1;
    QTest::newRow("from 100 to 150 ms") << 50;
}

void TestTimeLine::measureLengthOutsideWhenTextIsWider()
{
    QFETCH(int, distance);
    Ruler ruler(3000, 300);
    const int finish = 400 + distance;
    ruler.model->setTimeMeasures({ measure(400, finish, true, true) });
    const QImage image = ruler.draw();
    const QString text = QString::number(distance, 'f', 3);
    // 1 pixel per sample at 1000 Hz: the distance in pixels is the length in ms. Outside, the text
    // stands beyond the right line, 10 pixels on: the record's 2699 ms after the trigger leave room.
    const QImage nothing = labelAlone({}, 0, QString());
    if (distance <= lengthSpace(text)) {
        QVERIFY(labelShown(image, QRectF(finish + 10.0, 2.0, 99.0, yTop - 3.0), Qt::AlignLeft | Qt::AlignTop,
            text, ink, finish + 10, finish + 100, 0, labelRows));
        QVERIFY(sameColumns(image, nothing, finish + 1, finish + 8, 0, labelRows));
    } else {
        QVERIFY(labelShown(image, QRectF(400.0, 2.0, distance - 1.0, yTop - 3.0),
            Qt::AlignHCenter | Qt::AlignTop, text, ink, 401, finish - 1, 0, labelRows));
        QVERIFY(sameColumns(image, nothing, finish + 1, finish + 100, 0, labelRows));
    }
}

void TestTimeLine::measureFinishedBeforeItsStart()
{
    // Finish left of the start; the length is the absolute value. The record is only 420 ms long
    // after the trigger, so the text, which would pass that many pixels, goes left of the arrow.
    Ruler ruler(720, 300);
    ruler.model->setTimeMeasures({ measure(410, 400, true, true) });
    const QImage image = ruler.draw();
    const QString text = QStringLiteral("10.000");
    const double space = lengthSpace(text);
    QVERIFY(410 + space > 419.0);
    QVERIFY(labelShown(image, QRectF(400.0 - space + 10.0, 2.0, 99.0, yTop - 3.0),
        Qt::AlignLeft | Qt::AlignTop, text, ink, int(400.0 - space + 10.0), 398, 0, labelRows));
}

void TestTimeLine::savedMeasureIsBlack()
{
    Ruler ruler(3000, 300);
    ruler.model->setTimeMeasures({ measure(450, 0, false, true) });
    const QImage image = ruler.draw();
    QVERIFY(verticalLine(image, 450, 0, int(yBottom), ink));
}

void TestTimeLine::markerLineAndTime()
{
    Ruler ruler(3000, 300);
    ruler.model->appendMarker(ruler.model->makeMarkerItem(520));
    const QImage image = ruler.draw();
    const QRgb markerLine = KV::Cfg::ColorStyle::current().markerLine;
    QCOMPARE(markerLine, 0xFF915695u);
    QVERIFY(verticalLine(image, 520, 0, int(yBottom), markerLine));
    // The marker's time: 220 ms after the trigger, two decimals.
    QVERIFY(labelShown(image, QRectF(522.0, 2.0, 99.0, yTop - 3.0), Qt::AlignLeft | Qt::AlignTop,
        QStringLiteral("220.00"), markerLine, 522, 595, 0, labelRows));
}

void TestTimeLine::drawInfoHidesMeasuresAndMarkers()
{
    Ruler ruler(3000, 300);
    ruler.model->appendMarker(ruler.model->makeMarkerItem(520));
    ruler.model->setTimeMeasures({ measure(450, 0, false, false) });
    TimeLineDrawInfo info;
    info.drawMarkers = false;
    info.drawMeasures = false;
    const QImage image = ruler.draw(info);
    QCOMPARE(image.pixel(520, 5), rulerBackground);
    QCOMPARE(image.pixel(450, 5), rulerBackground);
}

void TestTimeLine::doubleClickSetsTheTrigger()
{
    Ruler ruler(3000, 300);
    ruler.model->setStartSampleNumber(100);
    ruler.model->scaleUp();
    ruler.model->scaleUp();
    ruler.line.resize(width, height);
    QSignalSpy spy(&ruler.line, &TimeLine::sigSetTrigger);
    // 100 + 121 / 1.21 = 200.
    QTest::mouseDClick(&ruler.line, Qt::LeftButton, Qt::NoModifier, QPoint(121, 10));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toInt(), 200);
    // Cut to the count of samples at most.
    ruler.model->setStartSampleNumber(3000);
    ruler.line.resize(width * 4, height);
    QTest::mouseDClick(&ruler.line, Qt::LeftButton, Qt::NoModifier, QPoint(3000, 10));
    QCOMPARE(spy.last().at(0).toInt(), 3000);
}

namespace {
// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }
};
} // namespace

void TestTimeLine::modelSignalsRepaint()
{
    Ruler ruler(3000, 300);
    ruler.line.resize(width, height);
    ruler.line.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ruler.line));
    PaintCounter paints;
    ruler.line.installEventFilter(&paints);
    const QList<std::function<void()>> changes { [&] { emit ruler.model->repaintWave(); },
        [&] { ruler.model->scaleUp(); }, [&] { ruler.model->setStartSampleNumber(20); },
        [&] { ruler.model->startTimeMeasure(); }, [&] { ruler.model->setTriggerTime(10); },
        [&] { ruler.model->setOscillogram(PlotRecords::makeRecord(1, 0, 100, 5)); } };
    for (int i = 0; i < changes.size(); ++i) {
        QCoreApplication::processEvents();
        paints.count = 0;
        changes[i]();
        QTRY_VERIFY2(paints.count > 0, qPrintable(QString::number(i)));
    }
}

void TestTimeLine::currentTimePosition()
{
    Ruler ruler(3000, 300, PreciseDateTime(2024, 12, 31, 23, 59, 59, 950000, 0));
    CurrentTimePositionView view;
    view.setOscillogramViewModel(ruler.model);
    // Sample 0 is 300 ms before the trigger.
    QCOMPARE(view.text(), QStringLiteral("31.12.2024 23:59:59.650000\n-300.000мс"));
    ruler.model->setCurrentSample(375);
    QCOMPARE(view.text(), QStringLiteral("01.01.2025 00:00:00.025000\n75.000мс"));
    ruler.model->setTriggerTime(400);
    QCOMPARE(view.text(), QStringLiteral("01.01.2025 00:00:00.025000\n-25.000мс"));
}

void TestTimeLine::currentTimePositionInDeviceZone()
{
    Ruler ruler(3000, 300);
    ruler.record->setLocalCode(5);
    ruler.settings->setTimeDisplayMode(KorvaneSettings::DeviceLocalTime);
    CurrentTimePositionView view;
    view.setOscillogramViewModel(ruler.model);
    ruler.model->setCurrentSample(1300);
    QCOMPARE(view.text(), QStringLiteral("01.03.2024 15:00:01.000000\n1000.000мс"));
}

QTEST_MAIN(TestTimeLine)
#include "tst_timeline.moc"
