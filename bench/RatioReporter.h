#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// The console table of Google Benchmark, keeping the time of each run, so that a benchmark can
// print its ratios against the baseline of the same run after the table.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            times[run.benchmark_name()] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> times;
};
