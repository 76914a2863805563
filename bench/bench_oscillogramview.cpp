// The whole record view (tool bar, time line, parameter panels and plots) of a record of 32
// analogue and 32 discrete channels of 10,000,000 samples in a window of 1600 x 1000 pixels: the
// repaint after a horizontal scroll of half a plot, at scale 1.0 and at the fitting scale. The
// baseline is the same repaint without a scroll, which paints the same widgets over unchanged data.

#include "BenchRecords.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <map>

namespace {
constexpr int kSamples = 10000000;
constexpr int kAnalogs = 32;
constexpr int kDigitals = 32;
constexpr int kWidth = 1600;
constexpr int kHeight = 1000;

struct Window
{
    Window() : settings(QSharedPointer<KorvaneSettings>::create(&file)), view(settings)
    {
        view.showToolbar();
        view.resize(kWidth, kHeight);
        view.show();
        QApplication::processEvents();
        view.setOscillogram(BenchRecords::sineRecord(kAnalogs, kDigitals, kSamples));
        view.initByDefault();
        QApplication::processEvents();
        view.oscillogramViewModel()->setCurrentSample(kSamples / 2);
        QApplication::processEvents();
    }

    QTemporaryDir dir;
    QSettings file { dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat };
    QSharedPointer<KorvaneSettings> settings;
    OscillogramView view;
};

Window& window()
{
    static Window* w = new Window;
    return *w;
}

void setScale(bool fitting)
{
    const auto model = window().view.oscillogramViewModel();
    if (fitting)
        model->setFitXScaleForWidth(model->plotWidth());
    else
        model->resetXScale();
    model->setStartSampleNumber(kSamples / 4);
    QApplication::processEvents();
}

// Half a plot to the right, or back to the start near the end of the record.
void scrollHalfAPlot()
{
    const auto model = window().view.oscillogramViewModel();
    const int step = qMax(1, int(model->plotWidth() / 2 / model->xScale()));
    const int next = model->startSampleNumber() + step;
    model->setStartSampleNumber(next + step > kSamples ? 0 : next);
}

void repaint(benchmark::State& state, bool fitting, bool scroll)
{
    setScale(fitting);
    for (auto _ : state) {
        if (scroll)
            scrollHalfAPlot();
        window().view.repaint();
    }
}

void ScrollScaleOne(benchmark::State& state)
{
    repaint(state, false, true);
}
BENCHMARK(ScrollScaleOne)->Unit(benchmark::kMillisecond)->MinTime(1.0);

void StillScaleOne(benchmark::State& state)
{
    repaint(state, false, false);
}
BENCHMARK(StillScaleOne)->Unit(benchmark::kMillisecond)->MinTime(1.0);

void ScrollFittingScale(benchmark::State& state)
{
    repaint(state, true, true);
}
BENCHMARK(ScrollFittingScale)->Unit(benchmark::kMillisecond)->MinTime(1.0);

void StillFittingScale(benchmark::State& state)
{
    repaint(state, true, false);
}
BENCHMARK(StillFittingScale)->Unit(benchmark::kMillisecond)->MinTime(1.0);

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
    const std::pair<const char*, double> scales[] = { { "ScaleOne", 16.0 }, { "FittingScale", 50.0 } };
    for (const auto& [scale, limit] : scales) {
        const double scroll = reporter.times[std::string("Scroll") + scale];
        const double still = reporter.times[std::string("Still") + scale];
        if (scroll > 0.0 && still > 0.0)
            std::printf(
                "%s: repaint after a scroll %.2f ms (limit %.0f ms), %.2f times the repaint without one\n",
                scale, scroll, limit, scroll / still);
    }
    return 0;
}
