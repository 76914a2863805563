// The viewer's window with the sample record, as the screen would show it: where the time line and
// the rows stand, and the colours of a few pixels whose meaning is known.

#include "MainWindow.h"

#include "Model/EasyLibKorvane.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/ChannelPlotView.h"
#include "Views/DChanPlotListView.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/TimeLine.h"

#include <QImage>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTest>

namespace {
// The ruler's background, the same in every colour style.
const QRgb rulerBackground = qRgb(192, 220, 243);

QRect geometryIn(const QWidget* widget, const QWidget* window)
{
    return QRect(widget->mapTo(window, QPoint(0, 0)), widget->size());
}

// How many pixels of the rectangle have the colour.
int countColour(const QImage& image, const QRect& rect, QRgb colour)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += (image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF) ? 1 : 0;
    return count;
}
} // namespace

class TestKorvaneScreenshot : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void timeLineStandsAboveThePlots();
    void firstRowShowsItsTraceOnTheBackground();
    void failureLineCrossesTheRowsAtItsSample();

private:
    QScopedPointer<MainWindow> m_window;
    OscillogramView* m_view = nullptr;
    QImage m_picture;
};

void TestKorvaneScreenshot::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    qRegisterMetaType<OscillogramView*>();
    EasyLibKorvane::initialize();
    auto settings = QSharedPointer<KorvaneSettings>::create();
    m_window.reset(new MainWindow(settings));
    m_window->resize(1280, 800);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
    QSignalSpy opened(m_window.data(), &MainWindow::recordOpened);
    m_window->openRecord(QStringLiteral(KORVANE_SAMPLE_RECORD));
    QVERIFY(opened.wait(20000));
    m_view = m_window->viewAt(0);
    QTest::qWait(200);
    m_picture = m_window->grab().toImage();
    QCOMPARE(m_picture.size(), QSize(1280, 800));
}

void TestKorvaneScreenshot::timeLineStandsAboveThePlots()
{
    const QRect ruler = geometryIn(m_view->timeLine(), m_window.data());
    const QRect plots = geometryIn(m_view->aChanPlotList()->viewport(), m_window.data());
    const QRect panels = geometryIn(m_view->aChanParList(), m_window.data());
    // Right of the panels, above the plots, as wide as the plots.
    QVERIFY(ruler.left() >= panels.right());
    QCOMPARE(ruler.bottom() + 1, plots.top());
    QCOMPARE(ruler.left(), plots.left());
    // Its top line is its background but for the tick marks and texts.
    const QRect topLine(ruler.left(), ruler.top() + 1, ruler.width(), 1);
    QVERIFY(countColour(m_picture, topLine, rulerBackground) > ruler.width() * 8 / 10);
}

void TestKorvaneScreenshot::firstRowShowsItsTraceOnTheBackground()
{
    const auto* list = m_view->aChanPlotList();
    QVERIFY(list->rowCount() >= 6);
    const QRect row = geometryIn(list->rowWidget(0), m_window.data());
    QVERIFY(row.height() > 20);
    const KV::Cfg::ColorStyle& style = KV::Cfg::ColorStyle::current();
    // Most of the plot is background; the first channel of the sample is phase A's voltage.
    QVERIFY(countColour(m_picture, row, style.background) > row.width() * row.height() / 2);
    QVERIFY(countColour(m_picture, row, style.phaseA) > row.width() / 2);
    const QRect second = geometryIn(list->rowWidget(1), m_window.data());
    QVERIFY(second.top() > row.bottom());
    QVERIFY(countColour(m_picture, second, style.phaseB) > second.width() / 2);
}

void TestKorvaneScreenshot::failureLineCrossesTheRowsAtItsSample()
{
    // The sample record's failure is at sample 400; at one pixel a sample from sample 0 it is the
    // 401st column of the plots.
    const auto model = m_view->oscillogramViewModel();
    QCOMPARE(model->xScale(), 1.0);
    QCOMPARE(model->startSampleNumber(), 0);
    const QRect row = geometryIn(m_view->aChanPlotList()->rowWidget(0), m_window.data());
    const QRect column(row.left() + 400, row.top(), 1, row.height());
    const QRect before(row.left() + 390, row.top(), 1, row.height());
    const QRgb failure = KV::Cfg::ColorStyle::current().failureLine;
    QVERIFY(countColour(m_picture, column, failure) > row.height() / 3);
    QCOMPARE(countColour(m_picture, before, failure), 0);
}

QTEST_MAIN(TestKorvaneScreenshot)
#include "tst_korvanescreenshot.moc"
