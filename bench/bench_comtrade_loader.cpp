// Opening a COMTRADE set of 1,000,000 samples x 32 analogue x 32 digital channels, float32 and
// ASCII, against a plain read of the same files in the same run. Counters: MB/s of the plain
// read and of the open, their ratio, the peak of resident memory during the open above what was
// resident before it, and the size of the sample store. The modal flow runs the same load on
// the pool with its progress dialog in a nested event loop.
#include "Model/AnalogChannel.h"
#include "Model/EasyLibKorvane.h"
#include "Model/Oscillogram.h"
#include "Model/Oscillograms.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "BenchMeasures.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

namespace {
constexpr int sampleCount = 1000000;
constexpr int analogCount = 32;
constexpr int digitalCount = 32;

QByteArray configText(const char* format)
{
    QByteArray text = "Bench station,Bench recorder,1999\n";
    text += QByteArray::number(analogCount + digitalCount) + "," + QByteArray::number(analogCount) + "A,"
        + QByteArray::number(digitalCount) + "D\n";
    for (int a = 0; a < analogCount; ++a)
        text += QByteArray::number(a + 1) + ",U" + QByteArray::number(a + 1)
            + ",A,,kV,0.001,0,0,-100000,100000,110,0.1,P\n";
    for (int d = 0; d < digitalCount; ++d)
        text += QByteArray::number(d + 1) + ",D" + QByteArray::number(d + 1) + ",,,0\n";
    text += "50\n1\n4000," + QByteArray::number(sampleCount) + "\n";
    text += "01/02/2020,03:04:05.000000\n01/02/2020,03:04:05.100000\n";
    text += QByteArray(format) + "\n1\n";
    return text;
}

float analogValue(int sample, int channel)
{
    return float(sample % 1000) * 0.25f + float(channel);
}

bool digitalValue(int sample, int channel)
{
    return (sample >> (channel % 8)) & 1;
}

void writeFloat32Data(std::FILE* file)
{
    std::vector<char> record(8 + 4 * analogCount + 2 * ((digitalCount + 15) / 16), '\0');
    for (int s = 0; s < sampleCount; ++s) {
        char* p = record.data();
        const qint32 number = s + 1;
        const quint32 stamp = quint32(s) * 250;
        std::memcpy(p, &number, 4);
        std::memcpy(p + 4, &stamp, 4);
        p += 8;
        for (int a = 0; a < analogCount; ++a, p += 4) {
            const float value = analogValue(s, a);
            std::memcpy(p, &value, 4);
        }
        for (int w = 0; w < (digitalCount + 15) / 16; ++w, p += 2) {
            quint16 word = 0;
            for (int b = 0; b < 16 && w * 16 + b < digitalCount; ++b)
                word |= quint16(digitalValue(s, w * 16 + b) ? 1u << b : 0u);
            std::memcpy(p, &word, 2);
        }
        std::fwrite(record.data(), 1, record.size(), file);
    }
}

void writeAsciiData(std::FILE* file)
{
    for (int s = 0; s < sampleCount; ++s) {
        std::fprintf(file, "%d,%u", s + 1, unsigned(s) * 250u);
        for (int a = 0; a < analogCount; ++a)
            std::fprintf(file, ",%.2f", double(analogValue(s, a)));
        for (int d = 0; d < digitalCount; ++d)
            std::fprintf(file, ",%d", digitalValue(s, d) ? 1 : 0);
        std::fputc('\n', file);
    }
}

// One set per format, written once for the whole run.
struct BenchSet
{
    QString cfg;
    QString dat;
};

BenchSet makeSet(const QTemporaryDir& dir, const char* format)
{
    const QString base = dir.filePath(QString::fromLatin1(format));
    BenchSet set { base + QStringLiteral(".cfg"), base + QStringLiteral(".dat") };
    QFile cfg(set.cfg);
    if (!cfg.open(QIODevice::WriteOnly) || cfg.write(configText(format)) < 0)
        std::abort();
    std::FILE* dat = std::fopen(QFile::encodeName(set.dat).constData(), "wb");
    if (!dat)
        std::abort();
    if (std::strcmp(format, "ASCII") == 0)
        writeAsciiData(dat);
    else
        writeFloat32Data(dat);
    std::fclose(dat);
    return set;
}

const QTemporaryDir& benchDir()
{
    static const QTemporaryDir dir;
    return dir;
}

const BenchSet& float32Set()
{
    static const BenchSet set = makeSet(benchDir(), "FLOAT32");
    return set;
}

const BenchSet& asciiSet()
{
    static const BenchSet set = makeSet(benchDir(), "ASCII");
    return set;
}

// The floor under any reader that builds the store: allocating memory of the store's size and
// touching every page of it once.
double touchStoreSizedMemory(double mebibytes)
{
    const double start = Bench::threadSeconds();
    std::vector<char> memory(size_t(mebibytes * 1048576.0), '\1');
    benchmark::DoNotOptimize(memory.data());
    return Bench::threadSeconds() - start;
}

double secondsSince(const std::chrono::steady_clock::time_point& start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double plainRead(const BenchSet& set)
{
    const double start = Bench::threadSeconds();
    QByteArray block(1 << 20, Qt::Uninitialized);
    for (const QString& path : { set.cfg, set.dat }) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            std::abort();
        while (file.read(block.data(), block.size()) > 0) { }
    }
    return Bench::threadSeconds() - start;
}

double storeMegabytes(const Oscillogram& record)
{
    // Float32 keeps 4 bytes a value, ASCII 8 (doubles); one bit a digital value.
    const bool ascii = record.analogChannel(0)->dataType() == DT::Double;
    return (double(sampleCount) * analogCount * (ascii ? 8 : 4) + double(sampleCount) * digitalCount / 8)
        / 1048576.0;
}

void openAgainstPlainRead(benchmark::State& state, const BenchSet& (*setOf)())
{
    const BenchSet& set = setOf();
    const double megabytes = double(QFileInfo(set.cfg).size() + QFileInfo(set.dat).size()) / 1e6;
    double plainSeconds = 0.0;
    double openSeconds = 0.0;
    double openCpuSeconds = 0.0;
    double touchSeconds = 0.0;
    double peakMiB = 0.0;
    double storeMiB = 0.0;
    for (auto _ : state) {
        plainSeconds += plainRead(set);
        Bench::resetPeakMemory();
        const long before = Bench::statusKilobytes("VmRSS:");
        const double cpuStart = Bench::threadSeconds();
        const auto start = std::chrono::steady_clock::now();
        QString errorText;
        QSharedPointer<Oscillogram> record = EasyLibKorvane::open(set.cfg, errorText);
        const double seconds = secondsSince(start);
        openCpuSeconds += Bench::threadSeconds() - cpuStart;
        if (!record || record->countOfSamples() != sampleCount)
            std::abort();
        peakMiB = std::max(peakMiB, double(Bench::statusKilobytes("VmHWM:") - before) / 1024.0);
        storeMiB = storeMegabytes(*record);
        record.reset();
        touchSeconds += touchStoreSizedMemory(storeMiB);
        openSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    const double total = megabytes * double(state.iterations());
    state.counters["plain_cpu_MB_per_s"] = total / plainSeconds;
    state.counters["open_wall_MB_per_s"] = total / openSeconds;
    state.counters["open_cpu_MB_per_s"] = total / openCpuSeconds;
    state.counters["ratio_cpu"] = plainSeconds / openCpuSeconds;
    state.counters["store_touch_floor_MB_per_s"] = total / touchSeconds;
    state.counters["peak_MiB"] = peakMiB;
    state.counters["store_MiB"] = storeMiB;
    state.counters["peak_above_store_MiB"] = peakMiB - storeMiB;
}

// The modal open: the loader on the pool, its progress queued to the dialog in a nested event
// loop. Compared with the synchronous open of the same set, measured in the same run.
void modalOpenAgainstSynchronous(benchmark::State& state, const BenchSet& (*setOf)())
{
    const BenchSet& set = setOf();
    const double megabytes = double(QFileInfo(set.cfg).size() + QFileInfo(set.dat).size()) / 1e6;
    double syncSeconds = 0.0;
    double modalSeconds = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        QString errorText;
        if (!EasyLibKorvane::open(set.cfg, errorText)) {
            state.SkipWithError("the synchronous open gave no record");
            break;
        }
        syncSeconds += secondsSince(start);
        start = std::chrono::steady_clock::now();
        QSharedPointer<Oscillogram> record;
        const bool opened = EasyLibKorvane::open(
            set.cfg, nullptr, [&record](LoaderResult& result) { record = result.oscillogram; });
        const double seconds = secondsSince(start);
        if (!opened || !record || record->countOfSamples() != sampleCount) {
            state.SkipWithError(
                !opened ? "the modal open returned false" : "the modal open gave no full record");
            break;
        }
        // The registry keeps every record opened this way; the run needs the memory back.
        Oscillograms::instance()->remove(record);
        modalSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    const double total = megabytes * double(state.iterations());
    state.counters["sync_MB_per_s"] = total / syncSeconds;
    state.counters["modal_MB_per_s"] = total / modalSeconds;
    state.counters["modal_extra_percent"] = 100.0 * (modalSeconds - syncSeconds) / syncSeconds;
    // The goal: at most 1.25 times the synchronous open.
    state.counters["modal_to_sync_ratio"] = modalSeconds / syncSeconds;
}
} // namespace

BENCHMARK_CAPTURE(openAgainstPlainRead, float32, float32Set)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openAgainstPlainRead, ascii, asciiSet)
    ->Iterations(2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(modalOpenAgainstSynchronous, float32, float32Set)
    ->Iterations(2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(modalOpenAgainstSynchronous, ascii, asciiSet)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    EasyLibKorvane::initialize();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
