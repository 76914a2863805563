#include "CalcLib/CalcRoutines.h"

namespace {
constexpr double kTwoPi = 6.283185307179586;
constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kTiny = 1e-40;

struct ToneSums
{
    double sum = 0.0;
    double re = 0.0;
    double im = 0.0;
    double square = 0.0;
};

// Correlates n whole samples with the tone and adds sample n with the weight fraction. Cosine
// and sine of i w come from the two-term recurrence, started from the exact values of w.
ToneSums correlate(
    const double* x, int count, int n, double fraction, double w, double multiplier, double adder)
{
    ToneSums sums;
    const double cosW = std::cos(w);
    const double sinW = std::sin(w);
    const double twoCosW = 2.0 * cosW;
    double cPrev = cosW; // cos(-w)
    double sPrev = -sinW; // sin(-w)
    double c = 1.0;
    double s = 0.0;
    for (int i = 0; i < n; ++i) {
        const double y = (x[i] + adder) * multiplier;
        sums.sum += y;
        sums.re += y * c;
        sums.im -= y * s;
        sums.square += y * y;
        const double cNext = twoCosW * c - cPrev;
        const double sNext = twoCosW * s - sPrev;
        cPrev = c;
        sPrev = s;
        c = cNext;
        s = sNext;
    }
    // The fractional last sample; when it lies beyond the window it can only matter with a
    // weight that rounding left over, and it reads as 0.
    if (fraction != 0.0 && n < count) {
        const double y = (x[n] + adder) * multiplier;
        sums.re += c * y * fraction;
        sums.im -= s * y * fraction;
        sums.sum += fraction * y;
        sums.square += y * y * fraction;
    }
    return sums;
}
} // namespace

bool analyzeToneOverPeriods(const double* samples, int count, int periods, double normFrequency,
    double multiplier, double adder, double& amplitude, double& phaseRadians, double& rms, double& mean,
    double& nonSinus)
{
    const double length = periods / normFrequency;
    if (!(length > kTiny)) {
        amplitude = phaseRadians = rms = mean = nonSinus = 0.0;
        return false;
    }
    const int whole = truncateToInt(length);
    const int n = whole != 0 ? (whole < count ? whole : count) : count;
    const double fraction = length - whole;
    const ToneSums sums = correlate(samples, count, n, fraction, kTwoPi * normFrequency, multiplier, adder);

    rms = std::sqrt(sums.square / length);
    mean = sums.sum / length;
    if (std::fabs(sums.re) < kTiny && std::fabs(sums.im) < kTiny) {
        amplitude = phaseRadians = nonSinus = 0.0;
        return true;
    }
    amplitude = 2.0 * std::sqrt(sums.re * sums.re + sums.im * sums.im) / length;
    phaseRadians = std::atan2(sums.im, sums.re);
    const double effective = amplitude / kSqrt2;
    // The absolute value keeps rounding from asking for the root of a negative number.
    nonSinus = effective > kTiny
        ? std::sqrt(std::fabs(rms * rms - effective * effective - mean * mean)) * 100.0 / effective
        : 0.0;
    return true;
}

int analyzeTone(const double* samples, int count, double normFrequency, double multiplier, double adder,
    double& amplitude, double& phaseRadians, double& rms, double& mean, double& nonSinus)
{
    const int periods = truncateToInt(count * normFrequency);
    analyzeToneOverPeriods(samples, count, periods, normFrequency, multiplier, adder, amplitude, phaseRadians,
        rms, mean, nonSinus);
    return 0;
}
