// Mouse input goes through the window system, so that moves carry the held buttons.
#define QTEST_QPA_MOUSE_HANDLING

#include "PlotRecords.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsProvider.h"
#include "Views/MouseEventsToSignals.h"
#include "Views/OscillogramViewModel.h"
#include "Views/PlotGestures.h"
#include "Views/TimeMeasureMode.h"

#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

namespace {
// A row inside the plot area that counts the context menus it was asked for.
class MenuRow : public QWidget
{
public:
    using QWidget::QWidget;
    int menus = 0;

protected:
    void contextMenuEvent(QContextMenuEvent*) override { ++menus; }
};

// A plot area of this width in pixels, over a record of this many samples.
constexpr int areaWidth = 400;
constexpr int recordSamples = 10000;
} // namespace

class TestPlotGestures : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QFile::remove(SettingsProvider::fileName());
    }
    void init();
    void cleanup();

    void leftPressPlacesTheCurrentSample();
    void leftDragFollowsAndMayDrawAMeasure_data();
    void leftDragFollowsAndMayDrawAMeasure();
    void rightDragOfNinePixelsDoesNothing();
    void rightDragOfElevenPixelsScalesOnce_data();
    void rightDragOfElevenPixelsScalesOnce();
    void rightReleaseTellsWhetherItScaled();
    void dragStepComesFromTheSettings();
    void middleDragPans();
    void arrowKeysMoveByPixels_data();
    void arrowKeysMoveByPixels();
    void upAndDownScrollTheRows();
    void scrollBarAndStartSampleAreTied();
    void zoomKeepsTheCurrentSampleInTheMiddle();
    void wholeRecordInViewLeavesNoScrolling();
    void contextMenuOpensAfterAClickButNotAfterAZoom();

private:
    void press(Qt::MouseButton button, int x) { QTest::mousePress(m_area, button, {}, QPoint(x, 20)); }
    void move(int x) { QTest::mouseMove(m_area, QPoint(x, 20)); }
    void release(Qt::MouseButton button, int x) { QTest::mouseRelease(m_area, button, {}, QPoint(x, 20)); }
    void makeGestures();

    QScopedPointer<QWidget> m_window;
    QWidget* m_area = nullptr;
    QScrollBar* m_horizontal = nullptr;
    QScrollBar* m_vertical = nullptr;
    PlotGestures* m_gestures = nullptr;
    QSharedPointer<KorvaneSettings> m_settings;
    QSharedPointer<OscillogramViewModel> m_model;
};

void TestPlotGestures::init()
{
    m_window.reset(new QWidget);
    auto* layout = new QVBoxLayout(m_window.data());
    layout->setContentsMargins(0, 0, 0, 0);
    m_area = new QWidget;
    m_area->setFixedSize(areaWidth, 100);
    m_horizontal = new QScrollBar(Qt::Horizontal);
    m_vertical = new QScrollBar(Qt::Vertical);
    m_vertical->setRange(0, 1000);
    m_vertical->setSingleStep(20);
    layout->addWidget(m_area);
    layout->addWidget(m_horizontal);
    layout->addWidget(m_vertical);
    m_settings = QSharedPointer<KorvaneSettings>::create(SettingsProvider::settings());
    m_model = QSharedPointer<OscillogramViewModel>::create();
    m_model->setAllSettings(m_settings);
    m_model->setOscillogram(PlotRecords::makeRecord(1, 0, recordSamples));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
    makeGestures();
}

void TestPlotGestures::makeGestures()
{
    delete m_gestures;
    m_gestures = new PlotGestures(m_area, m_horizontal, m_vertical, m_window.data());
    m_gestures->setOscillogramViewModel(m_model);
}

void TestPlotGestures::cleanup()
{
    m_gestures = nullptr;
    m_window.reset();
    m_model.reset();
    SettingsProvider::settings()->clear();
}

void TestPlotGestures::leftPressPlacesTheCurrentSample()
{
    m_model->setStartSampleNumber(1000);
    // At 1 pixel per sample, x 150 is sample 1000 + 150.
    press(Qt::LeftButton, 150);
    release(Qt::LeftButton, 150);
    QCOMPARE(m_model->currentSample(), 1150);
    m_model->scaleDown(); // 1/1.1 pixels per sample: x 33 is 36.3 samples in, rounded to 36
    m_model->setStartSampleNumber(0);
    press(Qt::LeftButton, 33);
    release(Qt::LeftButton, 33);
    QCOMPARE(m_model->currentSample(), 36);
}

void TestPlotGestures::leftDragFollowsAndMayDrawAMeasure_data()
{
    QTest::addColumn<bool>("drawMeasures");
    QTest::newRow("measures off") << false;
    QTest::newRow("measures on") << true;
}

void TestPlotGestures::leftDragFollowsAndMayDrawAMeasure()
{
    QFETCH(bool, drawMeasures);
    m_settings->setDrawMouseMeasures(drawMeasures);
    press(Qt::LeftButton, 100);
    move(130);
    QCOMPARE(m_model->currentSample(), 130);
    QCOMPARE(m_model->startMeasureSample(), drawMeasures ? 100 : -1);
    move(180);
    release(Qt::LeftButton, 180);
    QCOMPARE(m_model->currentSample(), 180);
    // The measure is finished at the release: from 100 to 180.
    const auto measures = m_model->timeMeasureMode()->measures();
    QCOMPARE(measures.size(), drawMeasures ? 1 : 0);
    if (drawMeasures) {
        QCOMPARE(measures.first().startSampleNumber(), 100);
        QCOMPARE(measures.first().finishSampleNumber(), 180);
        QVERIFY(measures.first().isComplete());
    }
}

void TestPlotGestures::rightDragOfNinePixelsDoesNothing()
{
    QSignalSpy scale(m_model.data(), &OscillogramViewModel::xScaleChanged);
    press(Qt::RightButton, 200);
    move(209);
    move(191);
    release(Qt::RightButton, 191);
    QCOMPARE(scale.count(), 0);
    QCOMPARE(m_model->xScale(), 1.0);
}

void TestPlotGestures::rightDragOfElevenPixelsScalesOnce_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<double>("scale");
    // Dragging to the left asks for more pixels per sample, to the right for fewer.
    QTest::newRow("11 px to the left") << -11 << 1.1;
    QTest::newRow("11 px to the right") << 11 << 1.0 / 1.1;
}

void TestPlotGestures::rightDragOfElevenPixelsScalesOnce()
{
    QFETCH(int, distance);
    QFETCH(double, scale);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::xScaleChanged);
    press(Qt::RightButton, 200);
    move(200 + distance);
    release(Qt::RightButton, 200 + distance);
    QCOMPARE(spy.count(), 1);
    QVERIFY(qAbs(m_model->xScale() - scale) < 1e-12);
}

void TestPlotGestures::rightReleaseTellsWhetherItScaled()
{
    QSignalSpy scaled(m_gestures, &PlotGestures::sigScaledChanged);
    press(Qt::RightButton, 200);
    move(225); // two steps of 11 would need 22 pixels, but each step starts from where the last one was made
    release(Qt::RightButton, 225);
    press(Qt::RightButton, 200);
    release(Qt::RightButton, 200);
    QCOMPARE(scaled.count(), 2);
    QCOMPARE(scaled.at(0).at(0).toBool(), true);
    QCOMPARE(scaled.at(1).at(0).toBool(), false);
}

void TestPlotGestures::dragStepComesFromTheSettings()
{
    SettingsProvider::settings()->setValue(QStringLiteral("ui/dragPixelsPerScaleStep"), 3);
    makeGestures();
    QCOMPARE(m_gestures->dragPixelsPerScaleStep(), 3);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::xScaleChanged);
    press(Qt::RightButton, 200);
    move(197);
    move(193); // beyond 3 pixels from 200
    move(189); // beyond 3 pixels from 193
    release(Qt::RightButton, 189);
    QCOMPARE(spy.count(), 2);
    QVERIFY(qAbs(m_model->xScale() - 1.21) < 1e-12);
}

void TestPlotGestures::middleDragPans()
{
    m_model->setStartSampleNumber(5000);
    m_model->scaleUp(); // 1.1 pixels per sample
    const int start = m_model->startSampleNumber();
    press(Qt::MiddleButton, 300);
    move(289); // 11 pixels to the left are 10 samples later
    QCOMPARE(m_model->startSampleNumber(), start + 10);
    QCOMPARE(m_horizontal->value(), start + 10);
    move(300); // back by 11 pixels: floor(11 / 1.1) = 10 samples earlier
    release(Qt::MiddleButton, 300);
    QCOMPARE(m_model->startSampleNumber(), start);
}

void TestPlotGestures::arrowKeysMoveByPixels_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("moved");
    // Pixels 1, 5, 25 and 100 by modifier, turned into samples at the scale in pixels per sample.
    QTest::newRow("Right at 1.0") << 1.0 << int(Qt::Key_Right) << 0 << 1;
    QTest::newRow("Shift+Right at 1.0") << 1.0 << int(Qt::Key_Right) << int(Qt::ShiftModifier) << 5;
    QTest::newRow("Ctrl+Left at 1.0") << 1.0 << int(Qt::Key_Left) << int(Qt::ControlModifier) << -25;
    QTest::newRow("Ctrl+Shift+Right at 0.5")
        << 0.5 << int(Qt::Key_Right) << int(Qt::ControlModifier | Qt::ShiftModifier) << 200;
    QTest::newRow("Shift+Left at 0.3")
        << 0.3 << int(Qt::Key_Left) << int(Qt::ShiftModifier) << -16; // floor(16.7)
    QTest::newRow("Right at 2.0, one sample at least") << 2.0 << int(Qt::Key_Right) << 0 << 1;
}

void TestPlotGestures::arrowKeysMoveByPixels()
{
    QFETCH(double, scale);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, moved);
    m_model->xScaleObject()->setValue(scale);
    m_model->setCurrentSample(5000);
    QTest::keyClick(m_area, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_model->currentSample(), 5000 + moved);
}

void TestPlotGestures::upAndDownScrollTheRows()
{
    m_vertical->setValue(100);
    QTest::keyClick(m_area, Qt::Key_Down);
    QCOMPARE(m_vertical->value(), 120);
    QTest::keyClick(m_area, Qt::Key_Up);
    QTest::keyClick(m_area, Qt::Key_Up);
    QCOMPARE(m_vertical->value(), 80);
}

void TestPlotGestures::scrollBarAndStartSampleAreTied()
{
    // 10000 samples at 1 pixel per sample in 400 pixels: the last start that fills the plot is 9600.
    QCOMPARE(m_horizontal->maximum(), recordSamples - areaWidth);
    m_horizontal->setValue(2500);
    QCOMPARE(m_model->startSampleNumber(), 2500);
    m_model->setStartSampleNumber(700);
    QCOMPARE(m_horizontal->value(), 700);
}

void TestPlotGestures::zoomKeepsTheCurrentSampleInTheMiddle()
{
    m_model->setCurrentSample(6000);
    m_model->scaleUp();
    // Half of 400 pixels at 1.1 pixels per sample is 181.8 samples: start trunc(6000 - 181.8).
    QCOMPARE(m_model->startSampleNumber(), 5818);
    QCOMPARE(m_horizontal->value(), 5818);
    m_model->setCurrentSample(100); // 110 pixels, left of the middle: the plot starts at 0
    m_model->scaleDown();
    QCOMPARE(m_model->startSampleNumber(), 0);
}

void TestPlotGestures::wholeRecordInViewLeavesNoScrolling()
{
    m_model->setCurrentSample(9000);
    m_model->setFitXScaleForWidth(areaWidth);
    QVERIFY(m_model->xScale() * recordSamples <= areaWidth);
    QCOMPARE(m_horizontal->maximum(), 0);
    QCOMPARE(m_model->startSampleNumber(), 0);
}

void TestPlotGestures::contextMenuOpensAfterAClickButNotAfterAZoom()
{
    auto* row = new MenuRow(m_area);
    row->setGeometry(0, 0, areaWidth, 50);
    row->show();
    // A right click asks the row for its menu once, whether the platform asks on press or release.
    QTest::mouseClick(row, Qt::RightButton, {}, QPoint(100, 20));
    QCOMPARE(row->menus, 1);
    // A right drag that zooms asks for none.
    QTest::mousePress(row, Qt::RightButton, {}, QPoint(100, 20));
    QTest::mouseMove(row, QPoint(120, 20));
    QTest::mouseRelease(row, Qt::RightButton, {}, QPoint(120, 20));
    QCOMPARE(m_model->xScale(), 1.0 / 1.1);
    QCOMPARE(row->menus, 1);
}

QTEST_MAIN(TestPlotGestures)
#include "tst_plotgestures.moc"
