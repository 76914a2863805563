#include "CalcLib/CPhasor.h"

#include "CalcLib/CalcRoutines.h"
#include "CalcLib/ConsoleText.h"
#include "CalcLib/NumericConstants.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <new>

namespace {
using NumericConstants::kDegreesPerRadian;
using NumericConstants::kHalfPi;
using NumericConstants::kPi;
using NumericConstants::kSqrt2;
using NumericConstants::kTwoPi;
constexpr double kNominalFrequency = 50.0;
constexpr double kLowestFrequency = 40.0;
constexpr double kHighestFrequency = 60.0;
constexpr double kWeakPeak = 50.0;

// Shared by all phasors: written at setup, for the sample rate of the last setup.
LowPassCoefficients g_lowPass;

void computeLowPass(double sampleRate)
{
    const double t = 1.0 / std::tan(210.48670779051614 / sampleRate);
    const double d = t * t + 0.567143 * t + 0.743467;
    const double e = 0.12100404449761155 * t * t;
    g_lowPass.f1 = 2.0 * (0.743467 - t * t) / d;
    g_lowPass.f2 = (0.743467 + t * t - 0.567143 * t) / d;
    g_lowPass.g0 = 0.69 * (e + 0.743467) / d;
    g_lowPass.g2 = g_lowPass.g0;
    g_lowPass.g1 = 0.69 * 2.0 * (0.743467 - e) / d;
}

int32_t toInt(const std::string& text)
{
    const long value = std::strtol(text.c_str(), nullptr, 10);
    return static_cast<int32_t>(
        std::clamp<long>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

double toDouble(const std::string& text)
{
    return std::strtod(text.c_str(), nullptr);
}

// An added phase in degrees: whole turns removed from a large one, then into (-180, 180].
double addedPhaseRadians(double degrees)
{
    if (!std::isfinite(degrees))
        return 0.0;
    if (std::fabs(degrees) > 1000.0)
        degrees = std::fmod(degrees, 360.0);
    // At most 1000 degrees are left: a few turns.
    while (degrees > 180.0)
        degrees -= 360.0;
    while (degrees <= -180.0)
        degrees += 360.0;
    return degrees * kPi / 180.0;
}

int32_t ringSizeFor(double longPeriod, int periods, int window)
{
    const double size = std::trunc(longPeriod + 1.0) * (static_cast<double>(periods) + 1.0);
    double chosen = size < window ? window + 1.0 : size;
    if (chosen < 1.0)
        chosen = 1.0;
    if (!(chosen <= std::numeric_limits<int32_t>::max()))
        throw std::bad_alloc();
    return static_cast<int32_t>(chosen);
}
} // namespace

CPhasor::CPhasor() = default;

LowPassCoefficients CPhasor::lowPassCoefficients()
{
    return g_lowPass;
}

bool CPhasor::setup(const DescriptionSection* section, double sampleRate, double scale, int averaging,
    int periods, int window, int flag)
{
    m_sampleRate = sampleRate;
    m_averaging = averaging;
    m_periods = periods;
    m_window = window;
    m_flag = flag;
    m_frequency = kNominalFrequency;
    m_settleCount = truncateToInt(sampleRate * 4.0 / kNominalFrequency);
    m_deviation = 1.0;
    m_frequencyValid = false;
    m_riseCount = m_fallCount = m_averaged = 0;
    m_riseSeen = m_fallSeen = false;
    m_riseFraction = m_fallFraction = 0.0;
    m_frequencySquareSum = m_errorSquareSum = 0.0;
    m_peakInput = m_peakOutput = m_previousOutput = 0.0;
    m_filterState = m_filterState1 = m_filterState2 = 0.0;
    m_maxRaw = -32768;
    m_minRaw = 32767;
    m_longPeriod = sampleRate / kLowestFrequency + 2.0;
    m_shortPeriod = sampleRate / 60.0;
    m_ringSize = ringSizeFor(m_longPeriod, periods, window);
    m_ring.assign(size_t(m_ringSize), 0);
    m_workSize = m_ringSize;
    m_work.assign(size_t(m_workSize), 0.0);
    m_writeIndex = 0;
    computeLowPass(sampleRate);
    if (!section)
        return true;
    const std::string* id = section->find("id");
    const std::string* name = section->find("name");
    if (!id || !name)
        return false;
    describe(*section, scale);
    return true;
}

void CPhasor::describe(const DescriptionSection& section, double scale)
{
    m_id = toInt(*section.find("id"));
    m_name = *section.find("name");
    const std::string* value = section.find("linemask");
    m_linemask = value ? static_cast<uint16_t>(std::strtoul(value->c_str(), nullptr, 10)) : 0;
    value = section.find("type");
    const int32_t type = value ? toInt(*value) : 2;
    m_type = static_cast<uint8_t>(type < 0 || type >= 9 ? 2 : type);
    value = section.find("add_ph");
    m_addPhase = value ? addedPhaseRadians(toDouble(*value)) : 0.0;
    value = section.find("ktmul");
    m_ktmul = value ? toDouble(*value) : 1.0;
    value = section.find("ktdiv");
    m_ktdiv = value ? toDouble(*value) : 1.0;
    value = section.find("power10");
    m_power10factor = value ? std::pow(10.0, toDouble(*value)) : 1.0;
    value = section.find("sp_block");
    m_spBlock = value ? toDouble(*value) : 0.0;
    if (m_spBlock < 0.0)
        m_spBlock = 0.0;
    m_delay = m_id * scale;
    m_delayPhase = kNominalFrequency / m_sampleRate * m_delay * kTwoPi;
}

double CPhasor::filter(double u)
{
    m_filterState = u - g_lowPass.f1 * m_filterState1 - g_lowPass.f2 * m_filterState2;
    const double out
        = g_lowPass.g0 * m_filterState + g_lowPass.g1 * m_filterState1 + g_lowPass.g2 * m_filterState2;
    m_filterState2 = m_filterState1;
    m_filterState1 = m_filterState;
    return out;
}

void CPhasor::addSample(int16_t raw)
{
    m_ring[m_writeIndex] = raw;
    m_writeIndex = (m_writeIndex + 1) % m_ringSize;
    if (m_type == 0)
        return;
    const double u = raw + m_adder;
    const double y = filter(u);
    if (m_settleCount > 0) {
        --m_settleCount;
        m_previousOutput = y;
        return;
    }
    m_maxRaw = std::max(m_maxRaw, raw);
    m_minRaw = std::min(m_minRaw, raw);
    m_peakInput = std::max(m_peakInput, std::fabs(u));
    m_peakOutput = std::max(m_peakOutput, std::fabs(y));
    ++m_riseCount;
    ++m_fallCount;
    if (y >= 0.0 && m_previousOutput < 0.0) {
        onRise(y);
    } else if (y <= 0.0 && m_previousOutput > 0.0) {
        onFall(y);
    } else {
        // Crossings that fail to come: the frequency is out of range on that side.
        if (m_riseCount > m_longPeriod) {
            m_riseSeen = false;
            m_riseCount = 0;
            track(kLowestFrequency);
        }
        if (m_fallCount > m_longPeriod) {
            m_fallSeen = false;
            m_fallCount = 0;
            track(kHighestFrequency);
        }
    }
    m_previousOutput = y;
}

void CPhasor::onRise(double y)
{
    const double fraction = -m_previousOutput / (y - m_previousOutput);
    if (!m_riseSeen) {
        m_riseSeen = true;
        m_riseCount = 0;
        m_riseFraction = -fraction;
        m_peakInput = m_peakOutput = 0.0;
        return;
    }
    const double period = m_riseCount + fraction + m_riseFraction;
    if (period < m_shortPeriod)
        return;
    m_riseCount = 0;
    m_riseFraction = -fraction;
    track(m_sampleRate / period);
    m_lastMax = m_maxRaw;
    m_maxRaw = -32768;
}

void CPhasor::onFall(double y)
{
    const double fraction = -m_previousOutput / (y - m_previousOutput);
    if (!m_fallSeen) {
        m_fallSeen = true;
        m_fallCount = 0;
        m_fallFraction = -fraction;
        m_peakInput = m_peakOutput = 0.0;
        return;
    }
    const double period = m_fallCount + fraction + m_fallFraction;
    if (period < m_shortPeriod)
        return;
    m_fallCount = 0;
    m_fallFraction = -fraction;
    track(m_sampleRate / period);
    m_lastMin = m_minRaw;
    m_minRaw = 32767;
}

void CPhasor::track(double f)
{
    const double peak = std::max(m_peakInput, m_peakOutput);
    if (peak <= kWeakPeak || f < kLowestFrequency) {
        // Counted as the nominal frequency with a full error.
        m_errorSquareSum += 10000.0;
        m_frequencySquareSum += kNominalFrequency * kNominalFrequency;
    } else {
        const double error = std::fabs(m_peakOutput - m_peakInput) / peak;
        m_errorSquareSum += error * error;
        m_frequencySquareSum += f * f;
    }
    ++m_averaged;
    if (m_averaged >= m_averaging) {
        m_frequency = std::sqrt(m_frequencySquareSum / m_averaged);
        m_deviation = std::sqrt(m_errorSquareSum / m_averaged);
        m_frequencyValid = true;
        m_averaged = 0;
        m_frequencySquareSum = m_errorSquareSum = 0.0;
    }
    m_peakInput = m_peakOutput = 0.0;
}

void CPhasor::process(double f)
{
    if (f <= 0.0)
        f = m_frequency;
    if (m_type == 0)
        processConstant();
    else
        processVarying(f);
    m_scaledValue = m_ktdiv / m_ktmul * m_value * m_power10factor;
}

void CPhasor::processConstant()
{
    const int count = std::min(m_window, m_ringSize);
    m_amplitude = 0.0;
    m_phase = 0.0;
    if (count < 1) {
        m_value = 0.0;
        return;
    }
    double sum = 0.0;
    int16_t highest = -32768;
    int16_t lowest = 32767;
    for (int i = 0; i < count; ++i) {
        const int16_t raw = m_ring[(m_writeIndex - count + i + m_ringSize) % m_ringSize];
        sum += (raw + m_adder) * m_multiplier;
        highest = std::max(highest, raw);
        lowest = std::min(lowest, raw);
    }
    m_value = sum / count;
    m_lastMax = highest;
    m_lastMin = lowest;
}

void CPhasor::processVarying(double f)
{
    int count = truncateToInt(m_periods * m_sampleRate / f + 0.5);
    count = std::clamp(count, 0, m_workSize);
    for (int i = 0; i < count; ++i)
        m_work[i] = m_ring[(m_writeIndex - count + i + m_ringSize) % m_ringSize];
    const double normFrequency = f / m_sampleRate;
    const int whole = truncateToInt(normFrequency * 0.5 + m_periods);
    double amplitude = 0.0, phaseRadians = 0.0, rms = 0.0, mean = 0.0, nonSinus = 0.0;
    if (!analyzeToneOverPeriods(m_work.data(), count, whole, normFrequency, m_multiplier, m_adder, amplitude,
            phaseRadians, rms, mean, nonSinus)
        && m_id == 1)
        printConsole("! k=%d, fn=%f,  per=%d\n", whole, normFrequency, m_periods);
    m_phase = wrapDegrees(
        (m_addPhase + phaseRadians - f * kTwoPi * m_delay / m_sampleRate + kHalfPi) * kDegreesPerRadian);
    const double effective = amplitude / kSqrt2;
    m_value = effective;
    m_amplitude = amplitude;
    std::cout << "phase = " << m_phase << "; ud = " << effective << "; u0 = " << mean
              << "; Ampl = " << amplitude << "; Freq = " << f << "; nolinear = " << nonSinus << '\n';
    m_isZero = std::fabs(m_value) < m_spBlock;
}

void CPhasor::setScale(double multiplier, double adder, int type)
{
    if (type == 2) {
        m_multiplier = multiplier * m_ktmul / m_ktdiv / m_power10factor;
        m_adder = adder;
        return;
    }
    m_multiplier = multiplier;
    m_adder = adder;
    printConsole("CPhasor: WTF? id = %i, mul=%f, add=%f, type=%i\r\n", m_id, multiplier, adder, type);
}
