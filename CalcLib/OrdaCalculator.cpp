#include "CalcLib/OrdaCalculator.h"

#include "CalcLib/CalcRoutines.h"
#include "CalcLib/NumericConstants.h"

#include <cmath>

namespace {
using NumericConstants::kPi;
using NumericConstants::kSqrt2;
using NumericConstants::kTwoPi;
constexpr double kNominalFrequency = 50.0;
constexpr double kNominalPeriodMs = 20.0;
// The side-lobe ratio as the single-precision value the bank was designed with.
constexpr double kSideLobeRatio = static_cast<double>(5e-5f);

// The phase of a cosine from the phasor of the positive-exponent correlation, in (-pi, pi].
double cosinePhase(double re, double im)
{
    double q = std::fmod(-std::atan2(im, re), kTwoPi);
    if (q > kPi)
        q -= kTwoPi;
    else if (q <= -kPi)
        q += kTwoPi;
    return q;
}
} // namespace

OrdaCalculator::OrdaCalculator() : TCalc("ORDA", "Обычный ОРДА")
{
}

OrdaCalculator::~OrdaCalculator() = default;

int OrdaCalculator::init(const DevConfig& config)
{
    m_config = config;
    m_bank.reset();
    m_rebuilt.clear();
    m_outputs.clear();
    m_blocks.clear();
    m_blockPointers.clear();
    m_rebuiltPointers.clear();

    const double sampleRate = config.sampleRate;
    const int32_t periodSamples = truncateToInt(sampleRate / kNominalFrequency);
    const int32_t periods = truncateToInt(config.intervalMs / kNominalPeriodMs);
    int32_t blockSamples = truncateToInt(config.stepMs * sampleRate / 1000.0);
    double blockMs = 0.0;
    if (blockSamples == 0) {
        blockSamples = 1;
        blockMs = 1000.0 / sampleRate;
    } else {
        blockMs = 1000.0 * blockSamples / sampleRate;
    }
    const int32_t blocks = truncateToInt(periods * kNominalPeriodMs / blockMs);
    m_blockSamples = blockSamples;
    const int32_t rows = config.rowCount;
    if (periodSamples < 1 || blockSamples < 1 || blocks < 1 || rows < 1)
        return 0;

    m_bank = std::make_unique<PhasorFilterBank>(rows, periodSamples, blockSamples, blocks, kSideLobeRatio);
    m_rebuilt.assign(size_t(rows), std::vector<double>(size_t(blockSamples), 0.0));
    m_outputs.assign(size_t(rows), PhasorFilterBank::Output());
    m_blocks.assign(size_t(rows), std::vector<int16_t>(size_t(blockSamples), 0));
    for (int row = 0; row < rows; ++row) {
        m_blockPointers.push_back(m_blocks[row].data());
        m_rebuiltPointers.push_back(m_rebuilt[row].data());
    }
    return 0;
}

void OrdaCalculator::loadBlock(const CalcInput& input, int firstCell)
{
    // Cells outside the window (a window shorter than the bank's blocks) read as 0.
    const int rows = m_bank->rows() < input.rows ? m_bank->rows() : input.rows;
    for (int row = 0; row < rows; ++row) {
        int32_t* const* cells = input.buffer[row];
        for (int i = 0; i < m_blockSamples; ++i) {
            const int cell = firstCell + i;
            m_blocks[row][i] = cell >= 0 && cell < input.samples ? lowWord(*cells[cell]) : 0;
        }
    }
}

int OrdaCalculator::calc(CalcInput& input)
{
    if (!m_bank || input.buffer.rows() < input.rows || input.buffer.samples() < input.samples)
        return 0;
    // The running indices of the bank are not reset here: the block position goes on.
    for (auto& output : m_outputs)
        output = PhasorFilterBank::Output();
    m_bank->clearAccumulators();

    const int window = input.samples;
    for (int s = m_bank->blocks(); s >= 1; --s) {
        loadBlock(input, window - s * m_blockSamples);
        m_bank->step(m_blockPointers.data(), m_outputs.data(), m_rebuiltPointers.data());
    }
    m_lastRe = m_outputs[0].re;
    m_lastIm = m_outputs[0].im;
    m_lastFrequency = m_outputs[0].frequency;
    writeResults(input);
    return 0;
}

void OrdaCalculator::writeResults(CalcInput& input) const
{
    // No adder, the phase of a cosine, and neither the non-sinusoid coefficient nor the DC.
    const size_t rows = input.results.size() < m_outputs.size() ? input.results.size() : m_outputs.size();
    for (size_t row = 0; row < rows; ++row) {
        const PhasorFilterBank::Output& out = m_outputs[row];
        CalcResultRow& result = input.results[row];
        result.amplitude = std::hypot(out.re, out.im) * m_config.multiplier;
        result.rms = result.amplitude / kSqrt2;
        result.firstHarmonic = result.rms;
        result.frequency = out.frequency;
        result.phase = cosinePhase(out.re, out.im) * 180.0 / kPi
            - out.frequency * 360.0 * m_config.adcDelay / m_config.sampleRate;
    }
}
