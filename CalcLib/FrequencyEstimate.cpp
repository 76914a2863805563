#include "CalcLib/CalcRoutines.h"

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

void scanLevel(const double* x, int count, double level, IntervalStats& stats)
{
    CrossingTrack up;
    CrossingTrack down;
    for (int i = 0; i + 1 < count; ++i) {
        const double a = x[i];
        const double b = x[i + 1];
        if (a < level && b >= level)
            addCrossing(up, i + (level - a) / (b - a), stats);
        else if (a > level && b <= level)
            addCrossing(down, i + (level - a) / (b - a), stats);
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
    if (levels > 1) {
        const double band = (maximum - minimum) * 0.05;
        const double levelStep = 2.0 * band / (levels - 1);
        for (int j = 0; j < levels; ++j)
            scanLevel(samples, count, middle - band + j * levelStep, stats);
    } else {
        scanLevel(samples, count, middle, stats);
    }
    if (stats.accepted == 0)
        return 0;
    acceptedRatio = static_cast<double>(stats.accepted) / stats.intervals;
    frequency = sampleRate / (stats.sum / stats.accepted);
    return 1;
}
