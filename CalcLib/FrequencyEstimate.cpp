#include "CalcLib/CalcRoutines.h"

#include <algorithm>

namespace {
// Crossings of one direction at one level: the first one only marks a start, each later one
// closes an interval with the last accepted crossing.
struct CrossingTrack
{
    bool seen = false;
    double last = 0.0;
};

struct IntervalStats
{
    double shortest = 0.0;
    double longest = 0.0;
    int intervals = 0;
    int accepted = 0;
    double sum = 0.0;
};

void addCrossing(CrossingTrack& track, double position, IntervalStats& stats)
{
    if (!track.seen) {
        track.seen = true;
        track.last = position;
        return;
    }
    ++stats.intervals;
    const double distance = position - track.last;
    // A crossing too close to the last one is noise around the level: the start stays.
    if (distance < stats.shortest)
        return;
    track.last = position;
    if (distance <= stats.longest) {
        stats.sum += distance;
        ++stats.accepted;
    }
}

// Levels are scanned together in one pass over the samples, a few at a time. Each level keeps
// its own crossings in their order; a pair of samples that lies wholly above or below all the
// levels, as most do, is passed over at the cost of two comparisons.
constexpr int kLevelBatch = 16;

void scanLevels(const double* x, int count, const double* levels, int levelCount, IntervalStats& stats)
{
    CrossingTrack up[kLevelBatch];
    CrossingTrack down[kLevelBatch];
    double lowest = levels[0];
    double highest = levels[0];
    for (int j = 1; j < levelCount; ++j) {
        lowest = std::min(lowest, levels[j]);
        highest = std::max(highest, levels[j]);
    }
    for (int i = 0; i + 1 < count; ++i) {
        const double a = x[i];
        const double b = x[i + 1];
        if ((a < lowest && b < lowest) || (a > highest && b > highest))
            continue;
        for (int j = 0; j < levelCount; ++j) {
            const double level = levels[j];
            if (a < level && b >= level)
                addCrossing(up[j], i + (level - a) / (b - a), stats);
            else if (a > level && b <= level)
                addCrossing(down[j], i + (level - a) / (b - a), stats);
        }
    }
}
} // namespace

int estimateFrequency(const double* samples, int count, int levels, double& frequency, double sampleRate,
    double minFrequency, double maxFrequency, double& meanAbs, double& acceptedRatio, double* peakToPeak)
{
    // The bounds start inside any real signal's range, so a signal entirely beyond one of them
    // leaves the opposite bound where it was.
    double maximum = -1000000.0;
    double minimum = 1000000.0;
    double sumAbs = 0.0;
    for (int i = 0; i < count; ++i) {
        const double x = samples[i];
        if (x > maximum)
            maximum = x;
        if (x < minimum)
            minimum = x;
        sumAbs += std::fabs(x);
    }
    meanAbs = count > 0 ? sumAbs / count : 0.0;
    if (peakToPeak)
        *peakToPeak = maximum - minimum;
    const double middle = (maximum + minimum) * 0.5;
    acceptedRatio = 0.0;
    if (count < 2)
        return 0;

    IntervalStats stats;
    stats.shortest = sampleRate / maxFrequency;
    stats.longest = sampleRate / minFrequency;
    const int levelCount = levels > 1 ? levels : 1;
    const double band = (maximum - minimum) * 0.05;
    const double levelStep = levels > 1 ? 2.0 * band / (levels - 1) : 0.0;
    for (int first = 0; first < levelCount; first += kLevelBatch) {
        double batch[kLevelBatch];
        const int batchSize = std::min(kLevelBatch, levelCount - first);
        for (int j = 0; j < batchSize; ++j)
            batch[j] = levels > 1 ? middle - band + (first + j) * levelStep : middle;
        scanLevels(samples, count, batch, batchSize, stats);
    }
    if (stats.accepted == 0)
        return 0;
    acceptedRatio = static_cast<double>(stats.accepted) / stats.intervals;
    frequency = sampleRate / (stats.sum / stats.accepted);
    return 1;
}
