#include "CalcLib/CalcRoutines.h"

void scanMinMaxMean(
    const double* samples, int count, double multiplier, double adder, double& mean, double& min, double& max)
{
    max = -1e10;
    min = 1e10;
    double sum = 0.0;
    for (int i = 0; i < count; ++i) {
        const double y = (samples[i] + adder) * multiplier;
        sum += y;
        if (y > max)
            max = y;
        if (y < min)
            min = y;
    }
    // With no samples this is 0 / count, not a made-up 0: the caller sees that nothing was there.
    mean = sum / count;
}

double wrapDegrees(double value)
{
    double r = std::fmod(720.0 + value, 360.0);
    if (r < -180.0)
        r += 360.0;
    if (r > 180.0)
        r -= 360.0;
    return r;
}
