// Converting a float32 COMTRADE set of 1,000,000 samples x 32 analogue x 32 digital channels into
// a zip with Converter::convertOsc, against a plain copy of the same bytes in the same run. A
// second case saves an already opened record, to show the saver apart from the loader, and a third
// opens the set alone.
// Counters: seconds of the copy and of the conversion (processor time of the one thread that
// does all the work, and wall time), their ratio, the peak of resident memory during the run
// above what was resident before it, the size of the store, and the limit the peak must stay
// under: the store, the 10 MiB block budget and 32 MiB.
#include "Loaders/ZipArchive.h"
#include "Model/EasyLibKorvane.h"
#include "Model/Oscillogram.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/Converter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "BenchMeasures.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <malloc.h>
#include <vector>

namespace {
constexpr int sampleCount = 1000000;
constexpr int analogCount = 32;
constexpr int digitalCount = 32;
constexpr double mebibyte = 1048576.0;

QByteArray configText()
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
    text += "01/02/2020,03:04:05.000000\n01/02/2020,03:04:05.100000\nFLOAT32\n1\n";
    return text;
}

// One record of the .DAT: number, time, the analogue floats, the discrete words.
void writeData(std::FILE* file)
{
    const int words = (digitalCount + 15) / 16;
    std::vector<char> record(size_t(8 + 4 * analogCount + 2 * words), '\0');
    for (int s = 0; s < sampleCount; ++s) {
        char* p = record.data();
        const qint32 number = s + 1;
        const quint32 stamp = quint32(s) * 250;
        std::memcpy(p, &number, 4);
        std::memcpy(p + 4, &stamp, 4);
        p += 8;
        for (int a = 0; a < analogCount; ++a, p += 4) {
            const float value = float(s % 1000) * 0.25f + float(a);
            std::memcpy(p, &value, 4);
        }
        for (int w = 0; w < words; ++w, p += 2) {
            quint16 word = 0;
            for (int b = 0; b < 16; ++b)
                word |= quint16(((s >> ((w * 16 + b) % 8)) & 1) << b);
            std::memcpy(p, &word, 2);
        }
        std::fwrite(record.data(), 1, record.size(), file);
    }
}

struct BenchSet
{
    QTemporaryDir dir;
    QString cfg;
    QString dat;
};

const BenchSet& benchSet()
{
    static BenchSet* set = [] {
        auto* made = new BenchSet;
        made->cfg = made->dir.filePath(QStringLiteral("bench.cfg"));
        made->dat = made->dir.filePath(QStringLiteral("bench.dat"));
        QFile cfg(made->cfg);
        if (!cfg.open(QIODevice::WriteOnly) || cfg.write(configText()) < 0)
            std::abort();
        std::FILE* dat = std::fopen(QFile::encodeName(made->dat).constData(), "wb");
        if (!dat)
            std::abort();
        writeData(dat);
        std::fclose(dat);
        return made;
    }();
    return *set;
}
double wallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The baseline: the bytes of the set read and written once more, in pieces of 1 MiB.
void plainCopy(const BenchSet& set, const QString& folder)
{
    QByteArray block(1 << 20, Qt::Uninitialized);
    for (const QString& path : { set.cfg, set.dat }) {
        QFile in(path);
        QFile out(folder + QStringLiteral("/copy.bin"));
        if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        qint64 read = 0;
        while ((read = in.read(block.data(), block.size())) > 0)
            out.write(block.constData(), read);
    }
}
double storeMebibytes()
{
    return (double(sampleCount) * analogCount * 4 + double(sampleCount) * digitalCount / 8) / mebibyte;
}

struct Timing
{
    double copyCpu = 0, copyWall = 0, workCpu = 0, workWall = 0, peak = 0;
};

template<typename Work> void measure(benchmark::State& state, Work work)
{
    const BenchSet& set = benchSet();
    QTemporaryDir out;
    Timing t;
    for (auto _ : state) {
        double cpu = Bench::threadSeconds(), wall = wallSeconds();
        plainCopy(set, out.path());
        t.copyCpu += Bench::threadSeconds() - cpu;
        t.copyWall += wallSeconds() - wall;

        const long before = Bench::statusKilobytes("VmRSS:");
        Bench::resetPeakMemory();
        cpu = Bench::threadSeconds();
        wall = wallSeconds();
        work(set, out.path() + QStringLiteral("/converted.zip"));
        const double seconds = Bench::threadSeconds() - cpu;
        t.workCpu += seconds;
        t.workWall += wallSeconds() - wall;
        t.peak = std::max(t.peak, double(Bench::statusKilobytes("VmHWM:") - before) / 1024.0);
        state.SetIterationTime(seconds);
    }
    const double n = double(state.iterations());
    state.counters["copy_cpu_s"] = t.copyCpu / n;
    state.counters["copy_wall_s"] = t.copyWall / n;
    state.counters["work_cpu_s"] = t.workCpu / n;
    state.counters["work_wall_s"] = t.workWall / n;
    state.counters["ratio_cpu"] = t.workCpu / t.copyCpu;
    state.counters["ratio_wall"] = t.workWall / t.copyWall;
    state.counters["peak_MiB"] = t.peak;
    state.counters["store_MiB"] = storeMebibytes();
    state.counters["limit_MiB"] = storeMebibytes() + 10.0 + 32.0;
}

// Argument 0: every member deflated, as by default; 1: the .DAT stored (korvane-convert --store).
void convertFloat32Set(benchmark::State& state)
{
    const bool storeSamples = state.range(0) != 0;
    const qint64 datBytes = QFileInfo(benchSet().dat).size();
    double zipped = 0;
    measure(state, [storeSamples, &zipped](const BenchSet& set, const QString& target) {
        QString error;
        if (!Converter::convertOsc({ set.cfg, target }, error, storeSamples))
            std::abort();
        zipped = double(QFileInfo(target).size());
    });
    state.counters["size_ratio"] = zipped / double(datBytes);
    state.counters["MiB_per_cpu_s"] = double(datBytes) / mebibyte / state.counters["work_cpu_s"];
}

// The record is opened outside the measured part; its store is then already resident, so the
// peak counts the saver alone and its limit is the block budget plus 32 MiB.
void saveOpenedRecord(benchmark::State& state)
{
    QString error;
    const QSharedPointer<Oscillogram> record = EasyLibKorvane::open(benchSet().cfg, error);
    if (!record)
        std::abort();
    measure(state, [&record](const BenchSet&, const QString& target) {
        ComtradeSaver saver(target, record, false, false);
        saver.setCodec(QStringLiteral("UTF-8"));
        saver.saveProcess();
        if (!saver.isOk())
            std::abort();
    });
}
// The loading half of a conversion alone, to tell its peak from the saver's.
void openFloat32Set(benchmark::State& state)
{
    measure(state, [](const BenchSet& set, const QString&) {
        QString error;
        if (!EasyLibKorvane::open(set.cfg, error))
            std::abort();
    });
}

// The packing step alone, at each deflate level that the saver could use (0 stores): the .DAT of
// the set into a zip, with the archive's size beside the processor time, so that the level is
// chosen on measured figures. Baseline: the plain copy of the same bytes.
void zipLevel(benchmark::State& state)
{
    const int level = int(state.range(0));
    const qint64 datBytes = QFileInfo(benchSet().dat).size();
    double zipped = 0;
    measure(state, [level, &zipped](const BenchSet& set, const QString& target) {
        {
            ZipArchive archive(target);
            archive.setCompressionLevel(level);
            const auto method = level == 0 ? ZipArchive::Method::Store : ZipArchive::Method::Deflate;
            if (!archive.open(ZipArchive::WriteOnly)
                || !archive.addFile(QStringLiteral("bench.dat"), set.dat, method))
                std::abort();
        }
        zipped = double(QFileInfo(target).size());
    });
    state.counters["zip_MiB"] = zipped / mebibyte;
    state.counters["size_ratio"] = zipped / double(datBytes);
    state.counters["MiB_per_cpu_s"] = double(datBytes) / mebibyte / state.counters["work_cpu_s"];
}
} // namespace

BENCHMARK(zipLevel)
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Arg(3)
    ->Arg(6)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK(openFloat32Set)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(convertFloat32Set)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(saveOpenedRecord)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char** argv)
{
    // Large blocks always come from and go back to the system, so that the peak of one run is
    // not hidden in memory the allocator kept from the run before.
    mallopt(M_MMAP_THRESHOLD, 4 << 20);
    mallopt(M_TRIM_THRESHOLD, 4 << 20);
    QCoreApplication app(argc, argv);
    EasyLibKorvane::initialize();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
