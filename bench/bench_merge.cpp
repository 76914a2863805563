// Merging two records of 32 analogue channels × 1,000,000 samples by channels, against a plain
// copy of the same samples into a store of the same layout, measured in the same run; and the
// peak of resident memory during the merge against the result's store.

#include "BenchMeasures.h"
#include "RatioReporter.h"

#include "Model/SimpleOscillogram.h"
#include "Views/OscillogramMerge/OscillogramMergeTask.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>

namespace {
constexpr int samples = 1000000;
constexpr int channels = 32;

QSharedPointer<SimpleOscillogram> makeRecord(int id)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, channels, 0, samples);
    QVector<short>& values = builder.int16AnalogValues();
    for (int s = 0; s < samples; ++s)
        for (int c = 0; c < channels; ++c)
            values.append(short((s * 7 + c * 13 + id) % 4096 - 2048));
    const auto store = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(store);
    record->setSampleRate(1000.0);
    record->setTriggerTime(PreciseDateTime(2024, 5, 6, 12, 0, 0, 0, 0));
    record->setCountOfPostFailureSamples(samples);
    QList<QSharedPointer<AnalogChannel>> list;
    for (int c = 0; c < channels; ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setName(QStringLiteral("U%1_%2").arg(id).arg(c));
        channel->setData(store);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        list.append(channel);
    }
    record->setAnalogChannels(list);
    return record;
}

const QList<QSharedPointer<SimpleOscillogram>>& records()
{
    static const QList<QSharedPointer<SimpleOscillogram>> both { makeRecord(1), makeRecord(2) };
    return both;
}

// The same samples, row by row, into one store with the columns of both records side by side.
QSharedPointer<OscillogramData> plainCopy()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 2 * channels, 0, samples);
    QVector<short>& target = builder.int16AnalogValues();
    target.resize(2 * channels * samples);
    short* to = target.data();
    for (int s = 0; s < samples; ++s) {
        for (int r = 0; r < 2; ++r) {
            const short* from = records()[r]->data()->int16AnalogValues().constData() + qint64(s) * channels;
            std::memcpy(to + (qint64(s) * 2 + r) * channels, from, sizeof(short) * channels);
        }
    }
    return builder.build();
}

QSharedPointer<Oscillogram> mergeByChannels()
{
    OscillogramMergeTask task;
    task.setMergeType(OscillogramMergeTask::Vertical);
    task.setVerticalMergeMode(OscillogramMergeTask::FirstReport);
    task.setOscillogramName(QStringLiteral("merged"));
    for (const auto& record : records()) {
        task.addOscillogram(record);
        for (int c = 0; c < channels; ++c)
            task.addMergeItem(QSharedPointer<MergeItem>::create(record, record->analogChannel(c), c));
    }
    task.run();
    return task.result();
}

void PlainCopy(benchmark::State& state)
{
    records();
    for (auto _ : state)
        benchmark::DoNotOptimize(plainCopy());
}
BENCHMARK(PlainCopy)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void MergeByChannels(benchmark::State& state)
{
    records();
    for (auto _ : state) {
        const auto merged = mergeByChannels();
        if (!merged || merged->countOfSamples() != samples || merged->countOfAnalogChannels() != 2 * channels)
            state.SkipWithError("the merge gave no record of the expected size");
        benchmark::DoNotOptimize(merged);
    }
}
BENCHMARK(MergeByChannels)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// Resident memory that the merge adds at its peak, beyond the result's store.
void MergePeakMemory(benchmark::State& state)
{
    records();
    const double store = double(samples) * 2 * channels * sizeof(short);
    for (auto _ : state) {
        const long before = Bench::statusKilobytes("VmRSS:");
        Bench::resetPeakMemory();
        const auto merged = mergeByChannels();
        const long peak = Bench::statusKilobytes("VmHWM:");
        state.counters["store_MiB"] = store / 1048576.0;
        state.counters["extra_MiB"] = (double(peak - before) * 1024.0 - store) / 1048576.0;
        benchmark::DoNotOptimize(merged);
    }
}
BENCHMARK(MergePeakMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (reporter.times.count("PlainCopy") && reporter.times.count("MergeByChannels"))
        std::printf("merge / plain copy: %.2f (at most 1.5)\n",
            reporter.times["MergeByChannels"] / reporter.times["PlainCopy"]);
    benchmark::Shutdown();
    return 0;
}
