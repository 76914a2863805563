#include "CalcLib/TalviCalculator.h"

#include "CalcLib/CalcRoutines.h"
#include "CalcLib/NumericConstants.h"

namespace {
using NumericConstants::kDegreesPerRadian;
using NumericConstants::kHalfPi;
using NumericConstants::kSqrt2;
using NumericConstants::kTwoPi;
constexpr double kAssumedFrequency = 50.0;
constexpr double kMinFrequency = 40.0;
constexpr double kMaxFrequency = 70.0;
constexpr int kLevels = 4;
} // namespace

TalviCalculator::TalviCalculator() : TCalc("Talvi", "Talvi")
{
}

int TalviCalculator::init(const DevConfig& config)
{
    m_config = config;
    return 1;
}

int TalviCalculator::calc(CalcInput& input)
{
    const int count = input.samples;
    if (input.rows < 1 || input.results.empty() || count < 0 || input.buffer.rows() < input.rows
        || input.buffer.samples() < count)
        return 1;
    if (m_samples.size() < static_cast<size_t>(count))
        m_samples.resize(static_cast<size_t>(count));
    // With several rows the last one wins.
    int32_t* const* cells = input.buffer[input.rows - 1];
    for (int i = 0; i < count; ++i)
        m_samples[i] = *cells[i];

    const double a = m_config.multiplier;
    const double b = m_config.adder / m_config.multiplier;
    if (m_config.shapeType == ShapeConst)
        calcConstant(input.results[0], count, a, b);
    else
        calcVarying(input.results[0], count, a, b);
    return 1;
}

void TalviCalculator::calcConstant(CalcResultRow& row, int count, double a, double b)
{
    double mean = 0.0;
    scanMinMaxMean(m_samples.data(), count, a, b, mean, m_minimum, m_maximum);
    // The first harmonic, the non-sinusoid coefficient and the DC keep what was there before.
    row.rms = mean;
    row.phase = 0.0;
    row.frequency = kAssumedFrequency;
}

void TalviCalculator::calcVarying(CalcResultRow& row, int count, double a, double b)
{
    const double sampleRate = m_config.sampleRate;
    const int levelCount = m_config.windowSamples < count ? m_config.windowSamples : count;
    double frequency = kAssumedFrequency;
    if (!estimateFrequency(m_samples.data(), levelCount, kLevels, frequency, sampleRate, kMinFrequency,
            kMaxFrequency, m_meanAbs, m_acceptedRatio, &m_peakToPeak))
        frequency = kAssumedFrequency;

    double amplitude = 0.0, phaseRadians = 0.0, rms = 0.0, mean = 0.0, nonSinus = 0.0;
    analyzeTone(
        m_samples.data(), count, frequency / sampleRate, a, b, amplitude, phaseRadians, rms, mean, nonSinus);
    row.firstHarmonic = amplitude / kSqrt2;
    row.rms = rms;
    row.dc = mean;
    row.nonSinus = nonSinus;
    row.frequency = frequency;
    // +90 degrees turns the phase of a cosine into that of a sine; the converter delay is removed.
    const double delay = frequency * kTwoPi * m_config.adcDelay / sampleRate;
    row.phase = wrapDegrees((phaseRadians - delay + kHalfPi) * kDegreesPerRadian);
}
