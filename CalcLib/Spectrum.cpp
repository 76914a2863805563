#include "CalcLib/CalcRoutines.h"

#include <new>

namespace {
// The short constant of the spectrum's phases.
constexpr double kDegreesPerRadianShort = 57.29578;
constexpr int kMaxHarmonic = 40;
constexpr double kMinFrequency = 10.0;
constexpr double kMaxFrequency = 100.0;

void readHarmonics(const std::vector<double>& fitRe, const std::vector<double>& fitIm, int m,
    std::vector<double>& amplitudes, std::vector<double>& phases)
{
    amplitudes[0] = fitRe[m];
    phases[0] = 0.0;
    for (int k = 1; k <= m; ++k) {
        const double re = fitRe[m + k];
        const double im = fitIm[m + k];
        if (re == 0.0 && im == 0.0) {
            amplitudes[k] = phases[k] = 0.0;
            continue;
        }
        amplitudes[k] = 2.0 * std::sqrt(re * re + im * im);
        phases[k] = std::atan2(im, re) * kDegreesPerRadianShort;
    }
}

double totalHarmonicFigure(const std::vector<double>& amplitudes, int m)
{
    if (m < 1)
        return 0.0;
    double squares = 0.0;
    for (int k = 2; k <= m; ++k)
        squares += amplitudes[k] * amplitudes[k];
    return 100.0 / amplitudes[1] * std::sqrt(squares);
}

// The window length for the periods, and the number of harmonics it and the sample rate allow;
// false when there is no spectrum. maxHarmonic is written where the caller reports it.
bool planSpectrum(
    int count, double sampleRate, int periods, double frequency, int& length, int& m, int& maxHarmonic)
{
    if (!(frequency >= kMinFrequency && frequency <= kMaxFrequency))
        return false;
    length = truncateToInt(periods * sampleRate / frequency + 0.5);
    if (periods == 1)
        ++length;
    if (length > count)
        return false;
    m = (length - 5) / 2;
    if (m < 2) {
        maxHarmonic = m;
        return false;
    }
    const int nyquist = truncateToInt(sampleRate / frequency * 0.5);
    const int limit = nyquist - 1;
    if (m >= limit) {
        if (limit <= 1) {
            maxHarmonic = limit;
            return false;
        }
        m = limit;
    }
    if (m >= kMaxHarmonic)
        m = kMaxHarmonic;
    maxHarmonic = m;
    return true;
}
} // namespace

int analyzeHarmonics(const double* samples, int count, double normFrequency, std::vector<double>& amplitudes,
    std::vector<double>& phases, int harmonics, double& kni)
{
    if (harmonics < 0)
        return -1;
    const size_t order = 2 * static_cast<size_t>(harmonics) + 1;
    std::vector<double> toeplitzRe, toeplitzIm, fitRe, fitIm;
    try {
        toeplitzRe.resize(order);
        toeplitzIm.resize(order);
        fitRe.resize(order);
        fitIm.resize(order);
        amplitudes.assign(static_cast<size_t>(harmonics) + 1, 0.0);
        phases.assign(static_cast<size_t>(harmonics) + 1, 0.0);
    } catch (const std::bad_alloc&) {
        return -2;
    }
    buildHarmonicSystem(samples, count, normFrequency, harmonics, toeplitzRe.data(), toeplitzIm.data(),
        fitRe.data(), fitIm.data());
    const int status = solveToeplitz(
        static_cast<int>(order), toeplitzRe.data(), toeplitzIm.data(), fitRe.data(), fitIm.data());
    if (status != 0)
        return status;
    readHarmonics(fitRe, fitIm, harmonics, amplitudes, phases);
    kni = totalHarmonicFigure(amplitudes, harmonics);
    return 0;
}

int measureSpectrum(const double* samples, int count, double sampleRate, int periods, double multiplier,
    double adder, double frequency, int& maxHarmonic, std::vector<double>& amplitudes,
    std::vector<double>& phases, double& kni)
{
    int length = 0;
    int m = 0;
    if (!planSpectrum(count, sampleRate, periods, frequency, length, m, maxHarmonic))
        return -1;
    // The oldest samples of the window that span the periods.
    std::vector<double> scaled;
    try {
        scaled.resize(static_cast<size_t>(length));
    } catch (const std::bad_alloc&) {
        return -2;
    }
    for (int i = 0; i < length; ++i)
        scaled[i] = (samples[i] + adder) * multiplier;
    const int status
        = analyzeHarmonics(scaled.data(), length, frequency / sampleRate, amplitudes, phases, m, kni);
    if (status != 0) {
        amplitudes.clear();
        phases.clear();
    }
    return status;
}
