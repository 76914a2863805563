#pragma once

#include "CalcFixtures.h"
#include "StreamCapture.h"

#include <cmath>
#include <vector>

// Test signals built from their mathematical definition.
namespace SignalMaker {
constexpr double kPi = 3.14159265358979323846;

// dc + amplitude * cos(2 pi f i / rate + phase) for i = 0 .. count - 1.
inline std::vector<double> cosine(
    int count, double rate, double frequency, double amplitude, double phase, double dc = 0.0)
{
    std::vector<double> x(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        x[i] = dc + amplitude * std::cos(2.0 * kPi * frequency * i / rate + phase);
    return x;
}

// A sine that starts from zero at the first sample.
inline std::vector<double> sine(int count, double rate, double frequency, double amplitude, double dc = 0.0)
{
    return cosine(count, rate, frequency, amplitude, -kPi / 2.0, dc);
}

inline double degrees(double radians)
{
    return radians * 180.0 / kPi;
}

} // namespace SignalMaker
