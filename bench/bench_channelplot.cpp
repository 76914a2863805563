// The picture of one 16-bit channel of 10,000,000 samples into 1600 x 200 pixels: at the scale that
// fits the whole record, against a plain scan for the least and the greatest of the same samples,
// and at scale 1.0, where only 1600 samples are visible. The store's summary, which the first
// picture builds, then takes a small part of the samples' memory.

#include "Model/SampleSummary.h"
#include "Model/SimpleOscillogram.h"
#include "Views/OscillogramViewModel.h"

#include <QGuiApplication>

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <map>

namespace {
constexpr int samples = 10000000;
constexpr int width = 1600;
constexpr int height = 200;

QSharedPointer<SimpleOscillogram> buildRecord()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 1, 0, samples);
    QVector<short>& values = builder.int16AnalogValues();
    for (int s = 0; s < samples; ++s)
        values.append(short(std::lround(20000.0 * std::sin(s * 0.0314159) + (s % 97) - 48)));
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(1000.0);
    record->setCountOfPreFailureSamples(samples / 4);
    record->setCountOfPostFailureSamples(samples - samples / 4);
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(data);
    channel->setDataType(DT::Int16);
    channel->setDataCount(1);
    record->addAnalogChannel(channel);
    return record;
}

const QSharedPointer<SimpleOscillogram>& record()
{
    static const QSharedPointer<SimpleOscillogram> osc = buildRecord();
    return osc;
}

OscillogramViewModel& model()
{
    static OscillogramViewModel* viewModel = [] {
        auto* m = new OscillogramViewModel;
        m->setPlotWidth(width);
        m->setOscillogram(record());
        return m;
    }();
    return *viewModel;
}

void MinMaxScan(benchmark::State& state)
{
    const QVector<short>& values = record()->data()->int16AnalogValues();
    const short* block = values.constData();
    for (auto _ : state) {
        short low = block[0];
        short high = block[0];
        for (int s = 1; s < samples; ++s) {
            low = block[s] < low ? block[s] : low;
            high = block[s] > high ? block[s] : high;
        }
        benchmark::DoNotOptimize(low);
        benchmark::DoNotOptimize(high);
    }
}
BENCHMARK(MinMaxScan)->Unit(benchmark::kMillisecond);

void ChannelPlotFitted(benchmark::State& state)
{
    PlotDrawInfo info;
    info.startSample = 0;
    info.xScale = double(width) / samples;
    for (auto _ : state) {
        QImage image = model().channelPlot({ 0 }, width, height, info);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(ChannelPlotFitted)->Unit(benchmark::kMillisecond);

void ChannelPlotScaleOne(benchmark::State& state)
{
    PlotDrawInfo info;
    info.startSample = samples / 2;
    info.xScale = 1.0;
    for (auto _ : state) {
        QImage image = model().channelPlot({ 0 }, width, height, info);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK(ChannelPlotScaleOne)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    record();
    model();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    const double scan = reporter.times["MinMaxScan"];
    const double fitted = reporter.times["ChannelPlotFitted"];
    const double one = reporter.times["ChannelPlotScaleOne"];
    if (scan > 0.0 && fitted > 0.0) {
        std::printf("channelPlot at the fitting scale / min-max scan: %.3f (limit 0.10)\n", fitted / scan);
        std::printf("channelPlot at scale 1.0: %.3f ms (limit 2 ms)\n", one);
        // On a loaded machine the processor time of the two runs is the steadier figure.
        const double scanCpu = reporter.cpuTimes["MinMaxScan"];
        if (scanCpu > 0.0)
            std::printf(
                "the same in processor time: %.3f\n", reporter.cpuTimes["ChannelPlotFitted"] / scanCpu);
    }
    // The summary that the pictures at small scales read, against the samples it stands for.
    const double summary = double(record()->data()->summaries().memoryBytes());
    std::printf("summary memory / channel samples: %.4f (limit 0.125)\n",
        summary / (double(samples) * sizeof(short)));
    return 0;
}
