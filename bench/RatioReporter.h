#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// The console table of Google Benchmark, keeping the time of each run by the benchmark's name
// without its arguments ("Scroll/min_time:1.000" is kept as "Scroll"), so that a benchmark can
// print its ratios against the baseline of the same run after the table.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            const std::string name = run.benchmark_name().substr(0, run.benchmark_name().find('/'));
            times[name] = run.GetAdjustedRealTime();
            cpuTimes[name] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> times;
    std::map<std::string, double> cpuTimes;
};
