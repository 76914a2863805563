// The time line of a 1600-pixel ruler with 100 time measures and 100 markers, all in view (limit
// 1 ms a call), against the same ruler drawn without its measures and markers, in the same run.

#include "BenchMeasures.h"
#include "Model/SimpleOscillogram.h"
#include "Views/OscillogramViewModel.h"
#include "Views/TimeLine.h"

#include <QApplication>
#include <QImage>

#include <benchmark/benchmark.h>

namespace {
constexpr int width = 1600;
constexpr int height = 30;
constexpr int samples = 20000;
constexpr int items = 100;

QSharedPointer<SimpleOscillogram> buildRecord()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 1, 0, samples);
    for (int s = 0; s < samples; ++s)
        builder.appendInt16Value(short(s % 100));
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(1000.0);
    record->setTriggerTime(PreciseDateTime(2024, 3, 1, 10, 0, 0, 0, 0));
    record->setCountOfPreFailureSamples(400);
    record->setCountOfPostFailureSamples(samples - 400);
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(data);
    channel->setDataType(DT::Int16);
    channel->setDataCount(1);
    record->addAnalogChannel(channel);
    return record;
}

// A model at 1.0 pixel per sample with 100 saved measures of 10 samples and 100 markers, one every
// 16 pixels across the ruler.
QSharedPointer<OscillogramViewModel> buildModel()
{
    auto model = QSharedPointer<OscillogramViewModel>::create();
    model->setPlotWidth(width);
    model->setOscillogram(buildRecord());
    QList<MeasureItem> measures;
    for (int i = 0; i < items; ++i) {
        MeasureItem measure;
        measure.setStartSampleNumber(i * 16);
        measure.setFinishSampleNumber(i * 16 + 10);
        measure.setComplete(true);
        measure.setSaved(true);
        measures << measure;
        model->appendMarker(model->makeMarkerItem(i * 16 + 5));
    }
    model->setTimeMeasures(measures);
    return model;
}

double secondsPerCall(const TimeLine& line, QImage& image, const TimeLineDrawInfo& info, int calls)
{
    const double start = Bench::threadSeconds();
    for (int i = 0; i < calls; ++i)
        line.drawTimeLine(&image, info);
    return (Bench::threadSeconds() - start) / calls;
}

void TimeLineFull(benchmark::State& state)
{
    const auto model = buildModel();
    TimeLine line;
    line.setOscillogramViewModel(model);
    QImage image(width, height, QImage::Format_ARGB32);
    for (auto _ : state) {
        line.drawTimeLine(&image, TimeLineDrawInfo());
        benchmark::DoNotOptimize(image.constBits());
    }
    TimeLineDrawInfo plain;
    plain.drawMeasures = false;
    plain.drawMarkers = false;
    const double full = secondsPerCall(line, image, TimeLineDrawInfo(), 200);
    const double ticksOnly = secondsPerCall(line, image, plain, 200);
    // Processor time of this thread: the machine may be shared.
    state.counters["ms_per_call"] = full * 1000.0;
    state.counters["vs_plain_ruler"] = full / ticksOnly;
}
BENCHMARK(TimeLineFull)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
