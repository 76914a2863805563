#include "CalcLib/CalcRoutines.h"
#include "CalcLib/NumericConstants.h"

namespace {
using NumericConstants::kSqrt2;
using NumericConstants::kTwoPi;
constexpr double kTiny = 1e-40;

struct ToneSums
{
    double sum = 0.0;
    double re = 0.0;
    double im = 0.0;
    double square = 0.0;
};

// Cosine and sine of i w for i = -4 .. 3 by the two-term recurrence from the exact cos w and
// sin w, to start four interleaved recurrences of step 4w. Four chains instead of one keep the
// processor from waiting on each product in turn; the values agree with one chain to rounding.
struct Recurrence
{
    explicit Recurrence(double w)
    {
        double c[9];
        double s[9];
        c[4] = 1.0;
        s[4] = 0.0;
        c[5] = std::cos(w);
        s[5] = std::sin(w);
        c[3] = c[5];
        s[3] = -s[5];
        const double twoCosW = 2.0 * c[5];
        for (int k = 6; k <= 8; ++k) {
            c[k] = twoCosW * c[k - 1] - c[k - 2];
            s[k] = twoCosW * s[k - 1] - s[k - 2];
        }
        for (int k = 0; k < 3; ++k) {
            c[k] = c[8 - k];
            s[k] = -s[8 - k];
        }
        for (int k = 0; k < 4; ++k) {
            cosNow[k] = c[4 + k];
            sinNow[k] = s[4 + k];
            cosBefore[k] = c[k];
            sinBefore[k] = s[k];
        }
        // cos 4w by one more step of the recurrence.
        twoCos4W = 2.0 * (twoCosW * c[7] - c[6]);
    }
    void advance()
    {
        for (int k = 0; k < 4; ++k) {
            const double c = twoCos4W * cosNow[k] - cosBefore[k];
            const double s = twoCos4W * sinNow[k] - sinBefore[k];
            cosBefore[k] = cosNow[k];
            sinBefore[k] = sinNow[k];
            cosNow[k] = c;
            sinNow[k] = s;
        }
    }
    double cosNow[4];
    double sinNow[4];
    double cosBefore[4];
    double sinBefore[4];
    double twoCos4W = 0.0;
};

// Correlates n whole samples with the tone and adds sample n with the weight fraction.
ToneSums correlate(
    const double* x, int count, int n, double fraction, double w, double multiplier, double adder)
{
    ToneSums sums;
    Recurrence turn(w);
    double sum[4] = {}, re[4] = {}, im[4] = {}, square[4] = {};
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        for (int k = 0; k < 4; ++k) {
            const double y = (x[i + k] + adder) * multiplier;
            sum[k] += y;
            re[k] += y * turn.cosNow[k];
            im[k] -= y * turn.sinNow[k];
            square[k] += y * y;
        }
        turn.advance();
    }
    const int rest = n - i;
    for (int k = 0; k < rest; ++k) {
        const double y = (x[i + k] + adder) * multiplier;
        sum[k] += y;
        re[k] += y * turn.cosNow[k];
        im[k] -= y * turn.sinNow[k];
        square[k] += y * y;
    }
    sums.sum = (sum[0] + sum[1]) + (sum[2] + sum[3]);
    sums.re = (re[0] + re[1]) + (re[2] + re[3]);
    sums.im = (im[0] + im[1]) + (im[2] + im[3]);
    sums.square = (square[0] + square[1]) + (square[2] + square[3]);
    // The fractional last sample; when it lies beyond the window it can only matter with a
    // weight that rounding left over, and it reads as 0.
    if (fraction != 0.0 && n < count) {
        const double y = (x[n] + adder) * multiplier;
        sums.re += turn.cosNow[rest] * y * fraction;
        sums.im -= turn.sinNow[rest] * y * fraction;
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
