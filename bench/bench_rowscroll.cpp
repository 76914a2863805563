// Scrolling the rows of a record of 64 analogue and 64 discrete channels of 1,000,000 samples by one
// row step, in a window of 1600 x 1000 pixels, with six values in each parameter panel: the
// repaint of the visible rows after the step, at scale 1.0 and at the smallest scale the view
// allows (0.005 pixels a sample; the whole record would need a smaller one). The baseline is the
// rendering alone of the same visible plots through channelPlot, without widgets.

#include "BenchRecords.h"
#include "Model/SimpleOscillogram.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/OscillogramViewModel.h"

#include <QApplication>
#include <QGridLayout>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <map>

namespace {
constexpr int kSamples = 1000000;
constexpr int kAnalogs = 64;
constexpr int kDigitals = 64;
constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr double kSmallestScale = 0.005;

QSharedPointer<SimpleOscillogram> buildRecord()
{
    return BenchRecords::sineRecord(kAnalogs, kDigitals, kSamples);
}

// The rows of the record view without its tool bar and time line: parameter lists on the left,
// plot lists on the right, seven tenths of the height analogue.
struct Window
{
    Window()
        : settings(QSharedPointer<KorvaneSettings>::create(&file))
        , model(QSharedPointer<OscillogramViewModel>::create())
    {
        model->setAllSettings(settings);
        auto* grid = new QGridLayout(&widget);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setSpacing(0);
        grid->addWidget(&aPar, 0, 0);
        grid->addWidget(&aPlot, 0, 1);
        grid->addWidget(&dPar, 1, 0);
        grid->addWidget(&dPlot, 1, 1);
        grid->setRowStretch(0, 7);
        grid->setRowStretch(1, 3);
        grid->setColumnStretch(1, 1);
        const int panel = model->splitterSize();
        aPar.setFixedWidth(panel);
        dPar.setFixedWidth(panel);
        aPar.setOscillogramViewModel(model);
        aPlot.setOscillogramViewModel(model);
        dPar.setOscillogramViewModel(model);
        dPlot.setOscillogramViewModel(model);
        widget.resize(kWidth, kHeight);
        widget.show();
        model->setPlotWidth(kWidth - panel);
        model->setOscillogram(buildRecord());
        QApplication::processEvents();
        model->setCurrentSample(kSamples / 2);
        QApplication::processEvents();
    }

    QTemporaryDir dir;
    QSettings file { dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat };
    QSharedPointer<KorvaneSettings> settings;
    QSharedPointer<OscillogramViewModel> model;
    QWidget widget;
    AChanParListView aPar;
    AChanPlotListView aPlot;
    DChanParListView dPar;
    DChanPlotListView dPlot;
};

Window& window()
{
    static Window* w = new Window;
    return *w;
}

void setScale(double scale)
{
    Window& w = window();
    if (scale == 1.0)
        w.model->resetXScale();
    else
        w.model->xScaleObject()->setToMinimum();
    w.model->setStartSampleNumber(kSamples / 4);
    QApplication::processEvents();
}

// One row step down, or back up at the end of the list, then the repaint it causes.
void scrollStep(BasePlotView& list)
{
    QScrollBar* bar = list.verticalScrollBar();
    bar->triggerAction(bar->value() >= bar->maximum() ? QAbstractSlider::SliderToMinimum
                                                      : QAbstractSlider::SliderSingleStepAdd);
}

void repaintAfterStep(benchmark::State& state, double scale)
{
    setScale(scale);
    Window& w = window();
    for (auto _ : state) {
        scrollStep(w.aPlot);
        scrollStep(w.dPlot);
        w.widget.repaint();
    }
}

// What the rows' paints ask of the view model: the pictures of the visible plots.
void renderVisiblePlots(benchmark::State& state, double scale)
{
    setScale(scale);
    Window& w = window();
    for (auto _ : state) {
        for (BasePlotView* list :
            { static_cast<BasePlotView*>(&w.aPlot), static_cast<BasePlotView*>(&w.dPlot) }) {
            for (int i = 0; i < list->rowCount(); ++i) {
                const QRect row = list->rowWidget(i)->geometry();
                if (row.bottom() < 0 || row.top() >= list->viewport()->height())
                    continue;
                const auto& channels = list->listHelper()->rows()[std::size_t(i)];
                const QImage image = w.model->channelPlot(
                    QList<int>(channels.begin(), channels.end()), row.width(), row.height());
                benchmark::DoNotOptimize(image.constBits());
            }
        }
    }
}

void ScrollScaleOne(benchmark::State& state)
{
    repaintAfterStep(state, 1.0);
}
BENCHMARK(ScrollScaleOne)->Unit(benchmark::kMillisecond);

void ScrollSmallestScale(benchmark::State& state)
{
    repaintAfterStep(state, kSmallestScale);
}
BENCHMARK(ScrollSmallestScale)->Unit(benchmark::kMillisecond);

void RenderScaleOne(benchmark::State& state)
{
    renderVisiblePlots(state, 1.0);
}
BENCHMARK(RenderScaleOne)->Unit(benchmark::kMillisecond);

void RenderSmallestScale(benchmark::State& state)
{
    renderVisiblePlots(state, kSmallestScale);
}
BENCHMARK(RenderSmallestScale)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    window();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    for (const char* scale : { "ScaleOne", "SmallestScale" }) {
        const double scroll = reporter.times[std::string("Scroll") + scale];
        const double render = reporter.times[std::string("Render") + scale];
        if (scroll > 0.0 && render > 0.0)
            std::printf("%s: one row step %.2f ms (limit 16 ms), %.2f times the plots' rendering alone\n",
                scale, scroll, scroll / render);
    }
    return 0;
}
