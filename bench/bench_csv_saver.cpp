// A plain CSV table of a record of 32 analogue channels x 1,000,000 samples (16-bit raw sines with
// a scale of 0.01, so that values carry two decimals) and 8 discrete channels, written by CsvSaver
// in the default Russian number format, against the baseline of writing the same count of bytes
// from memory to a file of the same folder in the same run.
// Counters: megabytes of text a second (the bar is 50), seconds of the table and of the baseline
// (processor time of the one thread that does the work, and wall time), and their ratio.
#include "Model/OscillogramData.h"
#include "Model/SimpleOscillogram.h"
#include "Savers/CsvSaver.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtMath>

#include "BenchMeasures.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

namespace {
constexpr int sampleCount = 1000000;
constexpr int analogCount = 32;
constexpr int digitalCount = 8;
constexpr double rate = 4000.0;
constexpr double megabyte = 1e6;

QSharedPointer<SimpleOscillogram> makeRecord()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analogCount, digitalCount, sampleCount);
    for (int s = 0; s < sampleCount; ++s) {
        for (int a = 0; a < analogCount; ++a)
            builder.appendInt16Value(
                short(qRound((3000.0 + 700.0 * a) * qSin(2.0 * M_PI * 50.0 * s / rate + a))));
    }
    builder.setCountOfSamples(sampleCount);
    builder.digitalValues().resize(sampleCount * digitalCount);
    for (int s = 0; s < sampleCount; ++s) {
        for (int d = 0; d < digitalCount; ++d)
            builder.setDigitalChannelValue(s, d, ((s >> (d + 6)) & 1) != 0);
    }
    const QSharedPointer<OscillogramData> store = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(store);
    record->setSampleRate(rate);
    QList<QSharedPointer<AnalogChannel>> analogs;
    for (int a = 0; a < analogCount; ++a) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setName(QStringLiteral("U%1").arg(a + 1));
        channel->setData(store);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(a);
        channel->setMultiplier(0.01);
        analogs.append(channel);
    }
    record->setAnalogChannels(analogs);
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int d = 0; d < digitalCount; ++d) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setName(QStringLiteral("D%1").arg(d + 1));
        channel->setData(store);
        channel->setDataType(DT::Digital);
        channel->setDataOffset(d);
        digitals.append(channel);
    }
    record->setDigitalChannels(digitals);
    record->setCountOfPreFailureSamples(sampleCount / 10);
    record->setCountOfPostFailureSamples(sampleCount - sampleCount / 10);
    record->setTriggerTime(PreciseDateTime(2024, 3, 15, 10, 20, 30, 0, 3 * 3600));
    return record;
}

double wallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The baseline: as many bytes as the table, written from memory in pieces of 1 MiB.
void plainWrite(const QString& path, qint64 bytes)
{
    const QByteArray block(1 << 20, 'x');
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    for (qint64 written = 0; written < bytes; written += block.size())
        out.write(block.constData(), qMin<qint64>(block.size(), bytes - written));
}

void plainCsvTable(benchmark::State& state)
{
    const QSharedPointer<SimpleOscillogram> record = makeRecord();
    QTemporaryDir out;
    const QString table = out.filePath(QStringLiteral("table.csv"));
    double csvCpu = 0, csvWall = 0, baseCpu = 0, baseWall = 0, bytes = 0;
    for (auto _ : state) {
        double cpu = Bench::threadSeconds(), wall = wallSeconds();
        CsvSaver saver(table, record, false, false);
        saver.saveProcess();
        if (!saver.isOk())
            std::abort();
        const double seconds = Bench::threadSeconds() - cpu;
        csvCpu += seconds;
        csvWall += wallSeconds() - wall;
        state.SetIterationTime(seconds);
        bytes += double(QFileInfo(table).size());

        cpu = Bench::threadSeconds();
        wall = wallSeconds();
        plainWrite(out.filePath(QStringLiteral("plain.bin")), QFileInfo(table).size());
        baseCpu += Bench::threadSeconds() - cpu;
        baseWall += wallSeconds() - wall;
    }
    const double n = double(state.iterations());
    state.counters["text_MB"] = bytes / n / megabyte;
    state.counters["MB_per_s_cpu"] = bytes / csvCpu / megabyte;
    state.counters["MB_per_s_wall"] = bytes / csvWall / megabyte;
    state.counters["csv_cpu_s"] = csvCpu / n;
    state.counters["csv_wall_s"] = csvWall / n;
    state.counters["plain_cpu_s"] = baseCpu / n;
    state.counters["plain_wall_s"] = baseWall / n;
    state.counters["ratio_cpu"] = csvCpu / baseCpu;
    state.counters["ratio_wall"] = csvWall / baseWall;
}
} // namespace

BENCHMARK(plainCsvTable)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

BENCHMARK_MAIN();
