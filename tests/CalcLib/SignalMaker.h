#pragma once

#include <cmath>
#include <iostream>
#include <sstream>
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

// The difference of two angles in degrees, brought into [-180, 180).
inline double angleDifference(double a, double b)
{
    double d = std::fmod(a - b, 360.0);
    if (d < -180.0)
        d += 360.0;
    if (d >= 180.0)
        d -= 360.0;
    return d;
}

// Catches what goes to std::cout while it lives.
class CoutCapture
{
public:
    CoutCapture() : m_old(std::cout.rdbuf(m_text.rdbuf())) { }
    ~CoutCapture() { std::cout.rdbuf(m_old); }
    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_old;
};
} // namespace SignalMaker
