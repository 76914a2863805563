#pragma once

#include "korvane_export.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

// The numeric routines of the calculators, on plain arrays of doubles. Samples are scaled as
// (x + adder) * multiplier, so callers pass the channel's offset divided by its scale.

// Truncation toward zero, as every double-to-integer step of the calculators does. A value
// outside the range of int saturates and NaN gives 0, so that a damaged window cannot turn
// into undefined behaviour.
inline int32_t truncateToInt(double value)
{
    if (!(value == value))
        return 0;
    if (value >= 2147483647.0)
        return std::numeric_limits<int32_t>::max();
    if (value <= -2147483648.0)
        return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}

// Frequency by level crossings with linear interpolation. Result 1 if a frequency was found,
// else 0 and frequency keeps its value. peakToPeak may be null.
KORVANE_EXPORT int estimateFrequency(const double* samples, int count, int levels, double& frequency,
    double sampleRate, double minFrequency, double maxFrequency, double& meanAbs, double& acceptedRatio,
    double* peakToPeak = nullptr);

// Single-tone analysis over the whole periods that fit in count samples; the window is made
// exact for a period of a non-integer length by weighting the last sample with the fraction.
// phaseRadians is the phase of a cosine at the first sample. Result always 0.
KORVANE_EXPORT int analyzeTone(const double* samples, int count, double normFrequency, double multiplier,
    double adder, double& amplitude, double& phaseRadians, double& rms, double& mean, double& nonSinus);

// The same analysis with the number of whole periods given. Returns false when the window comes
// to nothing (less than one sample long), in which case every output is 0. Samples beyond
// count read as 0.
KORVANE_EXPORT bool analyzeToneOverPeriods(const double* samples, int count, int periods,
    double normFrequency, double multiplier, double adder, double& amplitude, double& phaseRadians,
    double& rms, double& mean, double& nonSinus);

// Least-squares fit of the harmonics -m..m at the normalised frequency. amplitudes and phases
// (degrees) get m + 1 entries, entry 0 the signed DC term. Result 0, or the solver's status.
KORVANE_EXPORT int analyzeHarmonics(const double* samples, int count, double normFrequency,
    std::vector<double>& amplitudes, std::vector<double>& phases, int harmonics, double& kni);

// The normal equations of that fit: the generating column of the Hermitian Toeplitz matrix
// (element (r, c) is toeplitz[r - c] for r >= c and its conjugate toeplitz[c - r] above the
// diagonal) and the right-hand side, all of length 2m + 1, the harmonic k at index m + k.
KORVANE_EXPORT void buildHarmonicSystem(const double* samples, int count, double normFrequency, int harmonics,
    double* toeplitzRe, double* toeplitzIm, double* fitRe, double* fitIm);

// Levinson recursion for that Hermitian positive-definite Toeplitz system of the given order;
// the solution overwrites the right-hand side. Result 0, -1 if toeplitzRe[0] is 0 or a
// prediction error is not positive, -2 if the work arrays cannot be had.
KORVANE_EXPORT int solveToeplitz(
    int order, const double* toeplitzRe, const double* toeplitzIm, double* re, double* im);

// Harmonics up to the 40th of the oldest samples of the window that span the given periods.
// Result 0, -1 when the window does not allow a spectrum, -2 on memory exhaustion.
KORVANE_EXPORT int measureSpectrum(const double* samples, int count, double sampleRate, int periods,
    double multiplier, double adder, double frequency, int& maxHarmonic, std::vector<double>& amplitudes,
    std::vector<double>& phases, double& kni);

KORVANE_EXPORT void scanMinMaxMean(const double* samples, int count, double multiplier, double adder,
    double& mean, double& min, double& max);

// Brings an angle in degrees into (-180, 180]; below -720 the formula can give -180 itself.
KORVANE_EXPORT double wrapDegrees(double value);
