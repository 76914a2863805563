#include "CalcLib/PhasorFilterBank.h"
#include "CalcLib/NumericConstants.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {
using NumericConstants::kPi;
using NumericConstants::kTwoPi;
constexpr double kNominalFrequency = 50.0;
constexpr double kCorrectionStep = 0.0001220703125; // 1 / 8192
constexpr double kFadeStep = 0.00048828125; // 1 / 2048
constexpr int kFadeLength = 2048;
constexpr double kMaxCorrection = 4.0;

// The Chebyshev polynomial of the given degree, continued beyond [-1, 1] by cosh.
double chebyshev(double degree, double x)
{
    if (std::fabs(x) <= 1.0)
        return std::cos(degree * std::acos(x));
    return std::cosh(degree * std::log(x + std::sqrt(x * x - 1.0)));
}
} // namespace

PhasorFilterBank::PhasorFilterBank(
    int32_t rows, int32_t periodSamples, int32_t blockSamples, int32_t blocks, double sideLobeRatio)
    : m_rows(rows)
    , m_blocks(blocks)
    , m_periodSamples(periodSamples)
    , m_blockSamples(blockSamples)
    , m_phaseCount(periodSamples / std::gcd(periodSamples, blockSamples))
    , m_accumulatorIndex(blocks - 1)
{
    buildCorrection(sideLobeRatio);
    buildWindow();
    buildCoefficients();
    m_accumulators.assign(size_t(m_rows) * m_blocks, Complex());
    m_previous.assign(size_t(m_rows), Complex());
}

void PhasorFilterBank::buildCorrection(double sideLobeRatio)
{
    // Undoes the amplitude loss of the Chebyshev response at a relative frequency deviation,
    // limited to a factor of 4 and fading to 1 over the outer quarters of the range.
    const double degree = double(m_blocks) * m_blockSamples - 1.0;
    const double x0 = std::cosh(std::acosh(1.0 / sideLobeRatio) / degree);
    const double atCentre = chebyshev(degree, x0);
    m_correction.resize(kCorrectionSize);
    for (int i = 0; i < kCorrectionSize; ++i) {
        const double deviation = i * kCorrectionStep - 0.5;
        const double r = chebyshev(degree, x0 * std::cos(kPi * deviation / m_periodSamples)) / atCentre;
        const double v = r < 0.25 ? kMaxCorrection : 1.0 / r;
        if (i < kFadeLength)
            m_correction[i] = (v - 1.0) * i * kFadeStep + 1.0;
        else if (i >= kCorrectionSize - kFadeLength)
            m_correction[i] = (v - 1.0) * (kCorrectionSize - i) * kFadeStep + 1.0;
        else
            m_correction[i] = v;
    }
}

void PhasorFilterBank::buildWindow()
{
    // Blackman-Nuttall. The correction above comes from the Chebyshev response all the same.
    const int length = m_blocks * m_blockSamples;
    m_window.resize(size_t(length));
    m_windowSum = 0.0;
    for (int i = 0; i < length; ++i) {
        const double theta = i * kTwoPi / length;
        m_window[i] = 0.3635819 - 0.4891775 * std::cos(theta) + 0.1365995 * std::cos(2.0 * theta)
            - 0.0106411 * std::cos(3.0 * theta);
        m_windowSum += m_window[i];
    }
}

void PhasorFilterBank::buildCoefficients()
{
    // The rotation follows the block's place in the period (p), the weight its place in the
    // window (j).
    m_coefficients.resize(size_t(m_phaseCount) * m_blocks * m_blockSamples);
    for (int p = 0; p < m_phaseCount; ++p) {
        for (int j = 0; j < m_blocks; ++j) {
            for (int i = 0; i < m_blockSamples; ++i) {
                const double alpha = (double(p) * m_blockSamples + i) * kTwoPi / m_periodSamples;
                const double weight = 2.0 * m_window[size_t(j) * m_blockSamples + i] / m_windowSum;
                m_coefficients[coefficientIndex(p, j, i)]
                    = Complex(std::cos(alpha) * weight, std::sin(alpha) * weight);
            }
        }
    }
    m_rotated.resize(size_t(m_phaseCount) * m_blocks * m_blocks);
    for (int p = 0; p < m_phaseCount; ++p) {
        for (int b = 0; b < m_blocks; ++b) {
            for (int k = 0; k < m_blocks; ++k)
                m_rotated[(size_t(p) * m_blocks + b) * m_blocks + k]
                    = &m_coefficients[coefficientIndex(p, (b + k) % m_blocks, 0)];
        }
    }
}

void PhasorFilterBank::clearAccumulators()
{
    std::fill(m_accumulators.begin(), m_accumulators.end(), Complex());
    std::fill(m_previous.begin(), m_previous.end(), Complex());
}

void PhasorFilterBank::accumulate(int row, const int16_t* samples)
{
    Complex* accumulators = &m_accumulators[size_t(row) * m_blocks];
    for (int k = 0; k < m_blocks; ++k) {
        const Complex* c = rotated(m_phaseIndex, m_blockIndex, k);
        double re = 0.0;
        double im = 0.0;
        for (int i = 0; i < m_blockSamples; ++i) {
            re += c[i].real() * samples[i];
            im += c[i].imag() * samples[i];
        }
        accumulators[k] += Complex(re, im);
    }
}

double PhasorFilterBank::phaseAdvance(const Complex& previous, const Complex& current) const
{
    const double dot = previous.real() * current.real() + previous.imag() * current.imag();
    const double cross = current.real() * previous.imag() - current.imag() * previous.real();
    return m_periodSamples * std::atan2(cross, dot) / m_blockSamples / kTwoPi;
}

double PhasorFilterBank::correctionFor(double advance) const
{
    // Negative positions wrap to huge unsigned ones, which fall out of the table to entry 0.
    const double position = (advance + 0.5) * kCorrectionSize;
    if (!(position >= 0.0 && position < kCorrectionSize))
        return m_correction[0];
    return m_correction[static_cast<unsigned>(position)];
}

void PhasorFilterBank::rebuildBlock(int row, const Complex& z, double advance, double* out) const
{
    const double magnitude = std::abs(z);
    const int m = m_blockSamples;
    if (magnitude == 0.0 && m_previousMagnitude == 0.0) {
        std::fill(out, out + m, 0.0);
        return;
    }
    const double w = (advance + 1.0) * kTwoPi / m_periodSamples;
    const double d = -kTwoPi * m / m_periodSamples;
    if (magnitude <= m_previousMagnitude) {
        // Fading from the previous phasor forwards.
        const double k = (m_previousMagnitude - magnitude) / m / m_previousMagnitude;
        Complex turning = m_previous[row] * std::polar(1.0, (m_phaseIndex - 1) * d);
        const Complex turn = std::polar(1.0, -w);
        for (int i = 0; i < m; ++i) {
            out[i] = (1.0 - i * k) * turning.real();
            turning *= turn;
        }
        return;
    }
    // Growing towards the new phasor, written backwards from the block's end.
    const double k = (magnitude - m_previousMagnitude) / m / magnitude;
    Complex turning = z * std::polar(1.0, m_phaseIndex * d);
    const Complex turn = std::polar(1.0, w);
    for (int i = 1; i <= m; ++i) {
        turning *= turn;
        out[m - i] = (1.0 - i * k) * turning.real();
    }
}

void PhasorFilterBank::step(const int16_t* const* samples, Output* outputs, double* const* rebuilt)
{
    for (int row = 0; row < m_rows; ++row) {
        accumulate(row, samples[row]);
        // This accumulator has just seen the last block of its window.
        Complex& done = m_accumulators[size_t(row) * m_blocks + m_accumulatorIndex];
        Complex z = done;
        const double advance = phaseAdvance(m_previous[row], z);
        z *= correctionFor(advance);
        outputs[row] = { z.real(), z.imag(), kNominalFrequency + advance * kNominalFrequency };
        done = Complex();
        if (rebuilt)
            rebuildBlock(row, z, advance, rebuilt[row]);
        m_previousMagnitude = std::abs(z);
        m_previous[row] = z;
    }
    m_blockIndex = (m_blockIndex + 1) % m_blocks;
    m_phaseIndex = (m_phaseIndex + 1) % m_phaseCount;
    m_accumulatorIndex = m_accumulatorIndex == 0 ? m_blocks - 1 : m_accumulatorIndex - 1;
    m_position = (m_position + m_blockSamples) % m_periodSamples;
}
