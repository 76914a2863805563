#include "Calc/CalcModule.h"
#include "Model/SimpleOscillogram.h"
#include "Settings/ColorStyle.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramViewModel.h"
#include "Views/TimeMeasureMode.h"

#include <QFontMetrics>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {
// analogs int16 channels of a sine-free ramp and digitals channels of alternating bits, at 1000 Hz,
// trigger at sample pre.
QSharedPointer<SimpleOscillogram> makeRecord(int analogs, int digitals, int samples, int pre = 0)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analogs, digitals, samples);
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < analogs; ++c)
            builder.appendInt16Value(short((s % 200) - 100));
        for (int c = 0; c < digitals; ++c)
            builder.setDigitalChannelValue(s, c, (s / 10) % 2);
    }
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(1000.0);
    for (int c = 0; c < analogs; ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setName(QStringLiteral("A%1").arg(c));
        record->addAnalogChannel(channel);
    }
    QList<QSharedPointer<DigitalChannel>> list;
    for (int c = 0; c < digitals; ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setData(data);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        list << channel;
    }
    record->setDigitalChannels(list);
    record->setTriggerTime(PreciseDateTime(2024, 3, 1, 10, 0, 0, 0, 0));
    record->setCountOfPreFailureSamples(pre);
    record->setCountOfPostFailureSamples(samples - pre);
    return record;
}

QList<int> argumentsOf(const QSignalSpy& spy)
{
    QList<int> values;
    for (const auto& call : spy)
        values << call.at(0).toInt();
    return values;
}
} // namespace

class TestViewModel : public QObject
{
    Q_OBJECT
private slots:
    void init() { KV::Cfg::ColorStyle::setCurrent(1); }

    void xScaleLimitsAreIgnored_data();
    void xScaleLimitsAreIgnored();
    void xScaleStepsAndClamps();
    void scaleUpAtTheMaximumEmitsAgain();
    void initialState();
    void setOscillogramResetsTheView();
    void calculatorsFollowTheSettingsAndTheRecord();
    void sameRecordChangesNothing();
    void calculatedRecordReplacesAndResets();
    void mathRecordKeepsTheModifiedFlag();
    void startSampleOfARecordThatFits();
    void startSampleClampedToTheEnd();
    void currentSampleClampedAndEmittedOnChange();
    void fitScaleForWidth();
    void fitScaleOfAVeryLongRecordLeavesTheScale();
    void rowHeightAtLeastTheMinimum();
    void rowHeightIncreaseAndMinimum();
    void unknownRowsAndAmplitudes();
    void amplitudesOnlyForRowsWithHeights();
    void rowsFilter();
    void selection();
    void onlySelectedChannelsVisible();
    void measureSlots();
    void markerSlotsRepaint();
    void markerItemTimeText();
    void timePositionFromTrigger();
    void triggerTimeOnSimpleRecord();
    void anomalyReportTexts();
    void splitterMovedOnlyWithControl();
    void plotOptionsResolve();
    void drawMarkersOnlyForOneAnalogueRow();
    void plotOfAnEmptySizeIsNull();
    void plotLayers();
    void plotOfADiscreteRow();
};

void TestViewModel::xScaleLimitsAreIgnored_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("taken");
    QTest::newRow("maximum itself") << 50.0 << false;
    QTest::newRow("minimum itself") << 0.005 << false;
    QTest::newRow("above the maximum") << 60.0 << false;
    QTest::newRow("below the minimum") << 0.001 << false;
    QTest::newRow("inside") << 2.5 << true;
}

void TestViewModel::xScaleLimitsAreIgnored()
{
    QFETCH(double, value);
    QFETCH(bool, taken);
    XScale scale;
    QSignalSpy changed(&scale, &XScale::sigScaleChanged);
    scale.setValue(value);
    QCOMPARE(changed.count(), taken ? 1 : 0);
    QCOMPARE(scale.value(), taken ? value : 1.0);
}

void TestViewModel::xScaleStepsAndClamps()
{
    XScale scale;
    scale.up();
    QVERIFY(qAbs(scale.value() - 1.1) < 1e-12);
    scale.down();
    QVERIFY(qAbs(scale.value() - 1.0) < 1e-12);
    scale.setValue(0.0052);
    QSignalSpy changed(&scale, &XScale::sigScaleChanged);
    scale.down();
    QCOMPARE(scale.value(), 0.005);
    QVERIFY(scale.isMinimum());
    scale.down();
    QCOMPARE(changed.count(), 2);
    scale.setToMaximum();
    QVERIFY(scale.isMaximum());
    scale.reset();
    QCOMPARE(scale.value(), 1.0);
    scale.setToMinimum();
    QCOMPARE(scale.value(), 0.005);
}

void TestViewModel::scaleUpAtTheMaximumEmitsAgain()
{
    OscillogramViewModel model;
    model.xScaleObject()->setToMaximum();
    QSignalSpy changed(&model, &OscillogramViewModel::xScaleChanged);
    model.scaleUp();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toDouble(), 50.0);
    model.xScaleObject()->setValue(50.0);
    QCOMPARE(changed.count(), 1);
}

void TestViewModel::initialState()
{
    OscillogramViewModel model;
    QVERIFY(!model.isModified());
    QVERIFY(model.oscillogram().isNull());
    QCOMPARE(model.currentSample(), 0);
    QCOMPARE(model.startSampleNumber(), 0);
    QCOMPARE(model.xScale(), 1.0);
    QVERIFY(!model.hasFocus());
    QCOMPARE(model.plotWidth(), 0);
    QCOMPARE(model.primSecMode(), 0);
    QVERIFY(model.anomalyPaint());
    QVERIFY(!model.isCompactMode());
    QVERIFY(model.markers());
    QVERIFY(model.calcModule().isNull());
    QVERIFY(model.channelRowsFilter().isEmpty());
}

void TestViewModel::setOscillogramResetsTheView()
{
    OscillogramViewModel model;
    model.setPlotWidth(100);
    model.setAnalogVerticalScrollValue(30);
    model.scaleUp();
    auto record = makeRecord(2, 3, 1000);
    record->digitalChannel(1)->setIsSelected(true);
    model.startTimeMeasure();
    model.finishTimeMeasure();
    QSignalSpy wave(&model, &OscillogramViewModel::sigWaveChanged);
    QSignalSpy scroll(&model, &OscillogramViewModel::analogVerticalScrollValueChanged);
    QSignalSpy scale(&model, &OscillogramViewModel::xScaleChanged);
    QSignalSpy heights(&model, &OscillogramViewModel::channelRowHeightChanged);
    QSignalSpy filter(&model, &OscillogramViewModel::channelRowsFilterChanged);
    QSignalSpy all(&model, &OscillogramViewModel::sigDisplayAllSignals);
    model.setOscillogram(record);
    QCOMPARE(wave.count(), 1);
    QCOMPARE(argumentsOf(scroll), QList<int> { 0 });
    QCOMPARE(scale.count(), 1);
    QCOMPARE(model.xScale(), 1.0);
    QCOMPARE(heights.count(), 2);
    QCOMPARE(model.chanRowHeight(0), OscillogramViewModel::defaultRowHeight());
    QCOMPARE(model.chanRowHeight(1), OscillogramViewModel::defaultRowHeight());
    QCOMPARE(model.chanRowMinHeight(0), OscillogramViewModel::defaultRowMinHeight());
    QCOMPARE(model.channelRowsFilter(), QVector<bool>(5, true));
    QCOMPARE(filter.count(), 1);
    QCOMPARE(all.count(), 1);
    QVERIFY(!model.isChannelSelected(3));
    QVERIFY(!model.isModified());
    const int h = QFontMetrics(QFont()).height();
    QCOMPARE(OscillogramViewModel::defaultRowHeight(), 5 * h + 1);
    QCOMPARE(OscillogramViewModel::defaultRowMinHeight(), 2 * h + 1);
    // Measures survive a new record.
    QCOMPARE(model.getTimeMeasures().size(), 0);
}

void TestViewModel::sameRecordChangesNothing()
{
    OscillogramViewModel model;
    auto record = makeRecord(1, 0, 10);
    model.setOscillogram(record);
    QSignalSpy wave(&model, &OscillogramViewModel::sigWaveChanged);
    model.setOscillogram(record);
    QCOMPARE(wave.count(), 0);
}

void TestViewModel::calculatedRecordReplacesAndResets()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 1, 100));
    model.setCurrentSample(30);
    model.startTimeMeasure();
    Markers::Item marker;
    marker.sampleNumber = 5;
    model.appendMarker(marker);
    QSignalSpy wave(&model, &OscillogramViewModel::sigWaveChanged);
    QSignalSpy added(&model, &OscillogramViewModel::sigRepopulateCalculatedWave);
    model.setCalcOscillogram({});
    QCOMPARE(wave.count(), 0);
    auto calculated = makeRecord(3, 1, 100);
    model.setCalcOscillogram(calculated);
    QCOMPARE(wave.count(), 1);
    QCOMPARE(argumentsOf(added), QList<int> { 2 });
    QCOMPARE(model.oscillogram(), QSharedPointer<Oscillogram>(calculated));
    QVERIFY(model.isModified());
    QCOMPARE(model.currentSample(), 0);
    QVERIFY(model.getTimeMeasures().isEmpty());
    QVERIFY(model.markers()->items().isEmpty());
    QCOMPARE(model.channelRowsFilter().size(), 4);
    QCOMPARE(model.chanRowHeight(2), OscillogramViewModel::defaultRowHeight());
}

void TestViewModel::mathRecordKeepsTheModifiedFlag()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 100));
    QSignalSpy added(&model, &OscillogramViewModel::sigRepopulateCalculatedWave);
    model.setMathOscillogram(makeRecord(2, 0, 100));
    QCOMPARE(argumentsOf(added), QList<int> { 1 });
    QVERIFY(!model.isModified());
    QCOMPARE(model.chanMag(1), 1.0);
}

void TestViewModel::startSampleOfARecordThatFits()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 50));
    model.setPlotWidth(800);
    QSignalSpy start(&model, &OscillogramViewModel::startSampleNumberChanged);
    model.setStartSampleNumber(100);
    QCOMPARE(argumentsOf(start), QList<int> { 0 });
    QCOMPARE(model.startSampleNumber(), 0);
}

void TestViewModel::startSampleClampedToTheEnd()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 1000));
    model.setPlotWidth(100);
    QSignalSpy start(&model, &OscillogramViewModel::startSampleNumberChanged);
    model.setStartSampleNumber(950);
    model.setStartSampleNumber(-5);
    model.setStartSampleNumber(300);
    QCOMPARE(argumentsOf(start), (QList<int> { 900, 0, 300 }));
}

void TestViewModel::currentSampleClampedAndEmittedOnChange()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 100));
    QSignalSpy current(&model, &OscillogramViewModel::currentSampleChanged);
    model.setCurrentSample(150);
    model.setCurrentSample(-3);
    model.setCurrentSample(0);
    model.setCurrentSample(42);
    QCOMPARE(argumentsOf(current), (QList<int> { 99, 0, 42 }));
    model.resetCurrentSample();
    QCOMPARE(model.currentSample(), 0);
}

void TestViewModel::fitScaleForWidth()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 1000));
    model.setFitXScaleForWidth(800);
    // The first 50 / 1.1^k below 0.8: k = floor(ln 62.5 / ln 1.1) + 1 = 44.
    QVERIFY(qAbs(model.xScale() - 50.0 / std::pow(1.1, 44)) < 1e-9);
    QVERIFY(model.xScale() < 0.8);
    QVERIFY(model.xScale() * 1.1 >= 0.8);
}

void TestViewModel::fitScaleOfAVeryLongRecordLeavesTheScale()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(0, 1, 10000000));
    model.scaleUp();
    const double before = model.xScale();
    QSignalSpy changed(&model, &OscillogramViewModel::xScaleChanged);
    model.setFitXScaleForWidth(800);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(model.xScale(), before);
}

void TestViewModel::rowHeightAtLeastTheMinimum()
{
    OscillogramViewModel model;
    QSignalSpy heights(&model, &OscillogramViewModel::channelRowHeightChanged);
    model.setChanRowHeight(4, 1);
    QCOMPARE(model.chanRowHeight(4), OscillogramViewModel::defaultRowMinHeight());
    QCOMPARE(heights.count(), 1);
    QCOMPARE(heights.first().at(0).toInt(), 4);
    QCOMPARE(heights.first().at(1).toInt(), OscillogramViewModel::defaultRowMinHeight());
}

void TestViewModel::rowHeightIncreaseAndMinimum()
{
    OscillogramViewModel model;
    QSignalSpy heights(&model, &OscillogramViewModel::channelRowHeightChanged);
    model.setChanRowMinHeight(2, 10);
    QCOMPARE(heights.count(), 0);
    QCOMPARE(model.chanRowMinHeight(2), 10);
    QCOMPARE(model.chanRowHeight(2), 0);
    model.setChanRowHeight(2, 40);
    model.increaseChannelRowHeightByValue(2, 15);
    QCOMPARE(model.chanRowHeight(2), 55);
    model.increaseChannelRowHeightByValue(2, -100);
    QCOMPARE(model.chanRowHeight(2), 10);
    model.deleteRowHeight(2);
    QCOMPARE(model.chanRowHeight(2), 0);
    QVERIFY(model.channelRowHeights().isEmpty());
}

void TestViewModel::unknownRowsAndAmplitudes()
{
    OscillogramViewModel model;
    QCOMPARE(model.chanRowHeight(7), 0);
    QCOMPARE(model.chanRowMinHeight(7), 0);
    QCOMPARE(model.chanMag(-1), 0.0);
    QCOMPARE(model.chanMag(3), 0.0);
    QVERIFY(!model.isChannelVisible(0));
}

void TestViewModel::amplitudesOnlyForRowsWithHeights()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(2, 2, 10));
    QCOMPARE(model.chanMag(0), 1.0);
    QCOMPARE(model.chanMag(1), 1.0);
    // Discrete rows have no height entry, so they keep 0.0.
    QCOMPARE(model.chanMag(2), 0.0);
    QCOMPARE(model.chanMag(3), 0.0);
    QSignalSpy mag(&model, &OscillogramViewModel::chanMagChanged);
    model.setChanMag(1, 2.0);
    model.setChanMag(1, 2.0);
    model.setChanMag(-1, 2.0);
    model.setChanMag(4, 2.0);
    QCOMPARE(mag.count(), 1);
    QCOMPARE(model.chanMag(1), 2.0);
    model.resetChannel(1);
    QCOMPARE(model.chanMag(1), 1.0);
}

void TestViewModel::rowsFilter()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 2, 10));
    QSignalSpy filter(&model, &OscillogramViewModel::channelRowsFilterChanged);
    model.setChannelVisible(1, false);
    model.setChannelVisible(1, false);
    model.setChannelVisible(5, false);
    QCOMPARE(filter.count(), 1);
    QVERIFY(!model.isChannelVisible(1));
    model.setChannelRowsFilter({ true, false, true });
    QCOMPARE(filter.count(), 1);
    model.setChannelRowsFilter({ false, false, false });
    QCOMPARE(filter.count(), 2);
}

void TestViewModel::selection()
{
    OscillogramViewModel model;
    auto record = makeRecord(1, 1, 10);
    model.setOscillogram(record);
    QSignalSpy selected(&model, &OscillogramViewModel::channelSelectionChanged);
    model.setChannelSelected(-1, true);
    model.setChannelSelected(0, false);
    QCOMPARE(selected.count(), 0);
    model.toggleChannelSelection(1);
    QVERIFY(record->digitalChannel(0)->isSelected());
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.first().at(1).toBool(), true);
    model.selectAllChannels();
    QVERIFY(model.isChannelSelected(0));
    model.resetAllChannelSelections();
    QVERIFY(!model.isChannelSelected(0));
    QVERIFY(!model.isChannelSelected(1));
}

void TestViewModel::onlySelectedChannelsVisible()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(3, 2, 10));
    model.setChannelSelected(1, true);
    QSignalSpy each(&model, &OscillogramViewModel::sigSelectionChanVisible);
    QSignalSpy filter(&model, &OscillogramViewModel::channelRowsFilterChanged);
    model.makeOnlySelectedChannelsVisible();
    QCOMPARE(model.channelRowsFilter(), (QVector<bool> { false, true, false, true, true }));
    QCOMPARE(each.count(), 5);
    QCOMPARE(filter.count(), 1);
}

void TestViewModel::measureSlots()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 100));
    model.setCurrentSample(20);
    QSignalSpy measures(&model, &OscillogramViewModel::measuresChanged);
    QSignalSpy started(&model, &OscillogramViewModel::sigStartTimeMeasureChanged);
    model.startTimeMeasure();
    QCOMPARE(argumentsOf(started), QList<int> { 20 });
    QCOMPARE(model.startMeasureSample(), 20);
    model.setCurrentSample(35);
    model.finishTimeMeasure();
    model.saveLatestTimeMeasure();
    QCOMPARE(measures.count(), 3);
    QCOMPARE(model.getTimeMeasures().size(), 1);
    QVERIFY(model.getTimeMeasures().first().isSaved());
    QCOMPARE(model.getTimeMeasures().first().finishSampleNumber(), 35);
    model.removeLatestTimeMeasure();
    QVERIFY(model.getTimeMeasures().isEmpty());
    model.setTimeMeasures({ MeasureItem() });
    model.removeAllTimeMeasures();
    QVERIFY(model.getTimeMeasures().isEmpty());
}

void TestViewModel::markerSlotsRepaint()
{
    OscillogramViewModel model;
    QSignalSpy repaint(&model, &OscillogramViewModel::repaintWave);
    Markers::Item a;
    a.sampleNumber = 30;
    Markers::Item b;
    b.sampleNumber = 10;
    model.appendMarker(a);
    model.appendMarker(b);
    QCOMPARE(model.markers()->items().first().sampleNumber, 10);
    model.removeMarker(b);
    model.setMarkers({ b, a });
    model.clearMarkers();
    QVERIFY(model.markers()->items().isEmpty());
    QCOMPARE(repaint.count(), 5);
}

void TestViewModel::markerItemTimeText()
{
    OscillogramViewModel model;
    auto record = makeRecord(1, 0, 100, 40);
    model.setOscillogram(record);
    QCOMPARE(model.makeMarkerItem(45).time, QStringLiteral("5.00"));
    QCOMPARE(model.makeMarkerItem(30).time, QStringLiteral("-10.00"));
    model.setCurrentSample(41);
    QCOMPARE(model.makeMarkerItem().sampleNumber, 41);
    QCOMPARE(model.makeMarkerItem().time, QStringLiteral("1.00"));
}

void TestViewModel::timePositionFromTrigger()
{
    OscillogramViewModel model;
    auto record = makeRecord(1, 0, 100);
    record->setTriggerTime(30);
    model.setOscillogram(record);
    QCOMPARE(model.getTimePosition(30), QStringLiteral("0.000"));
    QCOMPARE(model.getTimePosition(42), QStringLiteral("12.000"));
    QCOMPARE(model.getTimePosition(25), QStringLiteral("-5.000"));
}

void TestViewModel::triggerTimeOnSimpleRecord()
{
    OscillogramViewModel model;
    auto record = makeRecord(1, 0, 100);
    model.setOscillogram(record);
    QSignalSpy trigger(&model, &OscillogramViewModel::triggerTimeChanged);
    model.setTriggerTime(60);
    QCOMPARE(trigger.count(), 1);
    QCOMPARE(record->countOfPreFailureSamples(), 60);
}

void TestViewModel::anomalyReportTexts()
{
    OscillogramViewModel model;
    auto record = makeRecord(2, 0, 100);
    record->setTriggerTime(10);
    record->analogChannel(1)->setLineNames({ QStringLiteral("ВЛ 1"), QStringLiteral("ВЛ 2") });
    model.setOscillogram(record);
    QCOMPARE(model.makeAnomalyReportHead(0), QStringLiteral("Канал: 0. A0\n"));
    QCOMPARE(model.makeAnomalyReportHead(1), QStringLiteral("Линия: ВЛ 1, ВЛ 2\nКанал: 1. A1\n"));
    QCOMPARE(model.makeAnomalyReportData(10, 30, QStringLiteral("скачок")),
        QStringLiteral("Временной отрезок: 0.000 ─ 20.000 мс\nскачок\n"));
    QSignalSpy report(&model, &OscillogramViewModel::sigAnomalyReport);
    model.slotAnomalyReport(QStringLiteral("отчёт"));
    QCOMPARE(report.count(), 1);
    QSignalSpy repaint(&model, &OscillogramViewModel::repaintWave);
    model.setAnomalyChannels({ { 0, Anomaly() } });
    QVERIFY(model.getAnomalyHash().contains(0));
    QCOMPARE(repaint.count(), 1);
}

void TestViewModel::splitterMovedOnlyWithControl()
{
    OscillogramViewModel model;
    QSignalSpy moved(&model, &OscillogramViewModel::sigSplitterMoved);
    model.slotSplitterMoved(10, 2);
    QCOMPARE(moved.count(), 0);
}

void TestViewModel::plotOptionsResolve()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 1000));
    model.setPlotWidth(100);
    model.setStartSampleNumber(17);
    model.scaleUp();
    QCOMPARE(model.startSampleNumberOption(-1), 17);
    QCOMPARE(model.startSampleNumberOption(3), 3);
    QCOMPARE(model.xScaleOption(-1.0), model.xScale());
    QCOMPARE(model.xScaleOption(0.5), 0.5);
    QCOMPARE(model.backgroundColorOption(-1), KV::Cfg::ColorStyle::current().background);
    QCOMPARE(model.backgroundColorOption(0xFF102030LL), QRgb(0xFF102030));
}

void TestViewModel::drawMarkersOnlyForOneAnalogueRow()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(2, 1, 10));
    PlotDrawInfo info;
    QVERIFY(model.isDrawMarkers(info, { 1 }));
    QVERIFY(!model.isDrawMarkers(info, { 0, 1 }));
    QVERIFY(!model.isDrawMarkers(info, { 2 }));
    info.drawMarkers = false;
    QVERIFY(!model.isDrawMarkers(info, { 1 }));
}

void TestViewModel::plotOfAnEmptySizeIsNull()
{
    OscillogramViewModel model;
    model.setOscillogram(makeRecord(1, 0, 10));
    QVERIFY(model.channelPlot({ 0 }, 0, 10).isNull());
}

void TestViewModel::plotLayers()
{
    const auto& style = KV::Cfg::ColorStyle::current();
    OscillogramViewModel model;
    // 400 samples, trigger at 100; the ramp -100..99 repeats every 200 samples.
    model.setOscillogram(makeRecord(1, 0, 400, 100));
    model.setHasFocus(true);
    model.setCurrentSample(250);
    PlotDrawInfo info;
    info.xScale = 0.5;
    const QImage image = model.channelPlot({ 0 }, 200, 40, info);
    QCOMPARE(image.size(), QSize(200, 40));
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    // Trigger at x = 50, three pixels; current sample at 125, three pixels, in white with focus.
    QCOMPARE(image.pixel(49, 0), style.failureLine);
    QCOMPARE(image.pixel(51, 39), style.failureLine);
    QCOMPARE(image.pixel(124, 0), style.currentSampleLine);
    QCOMPARE(image.pixel(126, 39), style.currentSampleLine);
    // Grid: 1000 Hz at 0.5 needs more than 100 ms, so 250 ms or 125 pixels from the trigger:
    // only the line right of it is in the record.
    QCOMPARE(image.pixel(175, 0), style.grid);
    QCOMPARE(image.pixel(174, 0), style.background);
    QCOMPARE(image.pixel(0, 0), style.background);
    // The ramp from -100 to 99 over 200 samples: the trace reaches row 2 and row H-2.
    bool top = false;
    bool bottom = false;
    for (int x = 0; x < 200; ++x) {
        top = top || image.pixel(x, 2) == style.noPhase;
        bottom = bottom || image.pixel(x, 38) == style.noPhase;
    }
    QVERIFY(top);
    QVERIFY(bottom);

    PlotDrawInfo bare = info;
    bare.drawTimeGrid = false;
    bare.drawTrigger = false;
    bare.drawCurrentSample = false;
    bare.backgroundColor = 0xFF000000;
    const QImage plain = model.channelPlot({}, 200, 40, bare);
    for (int x = 0; x < 200; ++x)
        QCOMPARE(plain.pixel(x, 0), QRgb(0xFF000000));
}

void TestViewModel::plotOfADiscreteRow()
{
    const auto& style = KV::Cfg::ColorStyle::current();
    OscillogramViewModel model;
    // Bits change every 10 samples: clear for 0..9, set for 10..19.
    model.setOscillogram(makeRecord(0, 1, 40));
    PlotDrawInfo info;
    info.xScale = 1.0;
    info.drawTimeGrid = false;
    info.drawTrigger = false;
    info.drawCurrentSample = false;
    const QImage image = model.channelPlot({ 0 }, 40, 30, info);
    // Bar 10: sample 3 fills column 4 on row 20 only, sample 12 column 13 from row 10.
    QCOMPARE(image.pixel(4, 20), style.discreteTrace);
    QCOMPARE(image.pixel(4, 19), style.background);
    QCOMPARE(image.pixel(13, 10), style.discreteTrace);
    QCOMPARE(image.pixel(13, 9), style.background);
}

QTEST_MAIN(TestViewModel)
#include "tst_viewmodel.moc"

void TestViewModel::calculatorsFollowTheSettingsAndTheRecord()
{
    QTemporaryDir dir;
    QSettings file(dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat);
    auto settings = QSharedPointer<KorvaneSettings>::create(&file);
    settings->setCalcDuration(3);
    OscillogramViewModel model;
    model.setAllSettings(settings);
    auto record = makeRecord(1, 0, 50);
    record->setSampleRate(2000.0);
    model.setOscillogram(record);
    QVERIFY(model.calcModule());
    // Three periods of 20 ms at 2 kHz: a window of 60 ms, 120 samples, stepped every 8 ms.
    const DevConfig config = model.calcModule()->devConfig();
    QCOMPARE(config.sampleRate, 2000.0);
    QCOMPARE(config.intervalMs, 60);
    QCOMPARE(config.windowSamples, 120);
    QCOMPARE(config.stepMs, 8);
    const auto first = model.calcModule();
    model.setOscillogram(makeRecord(1, 0, 50));
    QVERIFY(model.calcModule() != first);
}
