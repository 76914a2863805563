// Writing a float32 .DAT of 1,000,000 samples x 32 analogue x 32 digital channels, against a
// plain fwrite of the same number of bytes in the same run. The counter "ratio" is the
// throughput of writeDat divided by that of fwrite.
#include "CalcLib/Comtrade.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {
constexpr uint32_t sampleCount = 1000000;
constexpr uint32_t analogCount = 32;
constexpr uint32_t digitalCount = 32;
constexpr size_t recordSize = 8 + analogCount * 4 + 2 * ((digitalCount + 15) / 16);

struct Target
{
    std::string dat;
    std::string plain;
};
const Target diskTarget { "/tmp/korvane_bench_writedat.DAT", "/tmp/korvane_bench_fwrite.bin" };

ComtradeDataBuffer makeBuffer()
{
    ComtradeDataBuffer buffer;
    if (buffer.init(1, sampleCount, analogCount, digitalCount, 3) != 0)
        std::abort();
    for (uint32_t s = 0; s < sampleCount; ++s) {
        ComtradeSample& sample = buffer.sample(0, s);
        for (uint32_t a = 0; a < analogCount; ++a)
            sample.setAnalogFromDouble(a, double(s % 1000) * 0.01 + a);
        for (uint32_t d = 0; d < digitalCount; ++d)
            sample.setDigital(d, uint8_t((s >> (d % 8)) & 1));
    }
    return buffer;
}

double secondsOf(const std::chrono::steady_clock::time_point& start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double plainWrite(const std::vector<unsigned char>& bytes, const std::string& path)
{
    const auto start = std::chrono::steady_clock::now();
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size())
        std::abort();
    std::fclose(file);
    return secondsOf(start);
}

void writeDatFloat32AgainstFwrite(benchmark::State& state, const Target& target)
{
    const ComtradeDataBuffer buffer = makeBuffer();
    const std::vector<unsigned char> bytes(size_t(sampleCount) * recordSize, 0x5A);
    COMTRADE comtrade;
    double plainSeconds = 0.0, datSeconds = 0.0;
    for (auto _ : state) {
        plainSeconds += plainWrite(bytes, target.plain);
        const auto start = std::chrono::steady_clock::now();
        if (comtrade.writeDat(buffer, target.dat, 0) != 0)
            std::abort();
        const double seconds = secondsOf(start);
        datSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    const double megabytes = double(bytes.size()) * double(state.iterations()) / 1e6;
    state.counters["fwrite_MB_per_s"] = megabytes / plainSeconds;
    state.counters["writeDat_MB_per_s"] = megabytes / datSeconds;
    state.counters["ratio"] = plainSeconds / datSeconds;
    std::remove(target.dat.c_str());
    std::remove(target.plain.c_str());
}
} // namespace

BENCHMARK_CAPTURE(writeDatFloat32AgainstFwrite, toDisk, diskTarget)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

BENCHMARK_MAIN();
