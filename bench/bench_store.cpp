// The sample store: its memory against the raw size of the samples, and the cost of reading one
// channel's column through the channel against a plain strided loop over the same block.

#include "Model/AnalogChannel.h"
#include "Model/OscillogramData.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {
constexpr int samples = 2000000;
constexpr int analogChannels = 16;
constexpr int digitalChannels = 64;

size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

QSharedPointer<OscillogramData> buildStore()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analogChannels, digitalChannels, samples);
    QVector<short>& values = builder.int16AnalogValues();
    for (int s = 0; s < samples; ++s)
        for (int c = 0; c < analogChannels; ++c)
            values.append(static_cast<short>((s * 7 + c * 13) % 4096 - 2048));
    for (int s = 0; s < samples; s += 3)
        builder.setDigitalChannelValue(s, s % digitalChannels, true);
    return builder.build();
}

// Takes a copy, so that the running sum itself never has its address taken.
__attribute__((noinline)) void keepResult(double sum)
{
    benchmark::DoNotOptimize(sum);
}

const QSharedPointer<OscillogramData>& store()
{
    static const QSharedPointer<OscillogramData> data = buildStore();
    return data;
}

void StoreMemory(benchmark::State& state)
{
    double ratio = 0;
    for (auto _ : state) {
        const size_t before = heapInUse();
        auto data = buildStore();
        const size_t used = heapInUse() - before;
        const double raw = double(samples) * (analogChannels * sizeof(short) + digitalChannels / 8.0);
        ratio = used / raw;
        benchmark::DoNotOptimize(data);
    }
    state.counters["store/raw"] = ratio;
}
BENCHMARK(StoreMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

void PlainStridedLoop(benchmark::State& state)
{
    const QVector<short>& values = store()->int16AnalogValues();
    const short* block = values.constData();
    const int column = 5;
    for (auto _ : state) {
        double sum = 0;
        for (int s = 0; s < samples; ++s)
            sum += block[s * analogChannels + column];
        keepResult(sum);
    }
    state.SetItemsProcessed(state.iterations() * samples);
}
BENCHMARK(PlainStridedLoop)->Unit(benchmark::kMillisecond);

void ChannelGetValue(benchmark::State& state)
{
    // Held as records hold their channels.
    const auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(store());
    channel->setDataType(DT::Int16);
    channel->setDataOffset(5);
    for (auto _ : state) {
        double sum = 0;
        for (int s = 0; s < samples; ++s)
            sum += channel->getValue(s);
        keepResult(sum);
    }
    state.SetItemsProcessed(state.iterations() * samples);
}
BENCHMARK(ChannelGetValue)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    // Measured first, on a fresh heap, so the store's own allocation is what the counter sees.
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
