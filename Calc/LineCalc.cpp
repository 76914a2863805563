#include "Calc/LineCalc.h"
#include "CalcLib/NumericConstants.h"

#include <QCoreApplication>

#include <cmath>

namespace {
using NumericConstants::kDegreesPerRadian;
using NumericConstants::kThirdOfTurn;
constexpr double kSmallestCurrent = 1e-10;
constexpr double kEpsilon = 2.220446049250313e-16;

const char* const kSignalTexts[LineSignalCount] = { QT_TRANSLATE_NOOP("LineCalc", "3U0"),
    QT_TRANSLATE_NOOP("LineCalc", "U0"), QT_TRANSLATE_NOOP("LineCalc", "U1"),
    QT_TRANSLATE_NOOP("LineCalc", "U2"), QT_TRANSLATE_NOOP("LineCalc", "3I0"),
    QT_TRANSLATE_NOOP("LineCalc", "I0"), QT_TRANSLATE_NOOP("LineCalc", "I1"),
    QT_TRANSLATE_NOOP("LineCalc", "I2"), QT_TRANSLATE_NOOP("LineCalc", "Uab"),
    QT_TRANSLATE_NOOP("LineCalc", "Ubc"), QT_TRANSLATE_NOOP("LineCalc", "Uca"),
    QT_TRANSLATE_NOOP("LineCalc", "Iab"), QT_TRANSLATE_NOOP("LineCalc", "Ibc"),
    QT_TRANSLATE_NOOP("LineCalc", "Ica"), QT_TRANSLATE_NOOP("LineCalc", "R0"),
    QT_TRANSLATE_NOOP("LineCalc", "R1"), QT_TRANSLATE_NOOP("LineCalc", "R2"),
    QT_TRANSLATE_NOOP("LineCalc", "X0"), QT_TRANSLATE_NOOP("LineCalc", "X1"),
    QT_TRANSLATE_NOOP("LineCalc", "X2"), QT_TRANSLATE_NOOP("LineCalc", "Ra"),
    QT_TRANSLATE_NOOP("LineCalc", "Xa"), QT_TRANSLATE_NOOP("LineCalc", "Rb"),
    QT_TRANSLATE_NOOP("LineCalc", "Xb"), QT_TRANSLATE_NOOP("LineCalc", "Rc"),
    QT_TRANSLATE_NOOP("LineCalc", "Xc"), nullptr, nullptr, QT_TRANSLATE_NOOP("LineCalc", "Pa"),
    QT_TRANSLATE_NOOP("LineCalc", "Qa"), QT_TRANSLATE_NOOP("LineCalc", "Pb"),
    QT_TRANSLATE_NOOP("LineCalc", "Qb"), QT_TRANSLATE_NOOP("LineCalc", "Pc"),
    QT_TRANSLATE_NOOP("LineCalc", "Qc"), QT_TRANSLATE_NOOP("LineCalc", "P сумма фаз"),
    QT_TRANSLATE_NOOP("LineCalc", "Q сумма фаз"), QT_TRANSLATE_NOOP("LineCalc", "Za"),
    QT_TRANSLATE_NOOP("LineCalc", "Zb"), QT_TRANSLATE_NOOP("LineCalc", "Zc"),
    QT_TRANSLATE_NOOP("LineCalc", "Частота"), QT_TRANSLATE_NOOP("LineCalc", "Угол Ub-Ua"),
    QT_TRANSLATE_NOOP("LineCalc", "Угол Uc-Ua"), QT_TRANSLATE_NOOP("LineCalc", "Угол Ia-Ua"),
    QT_TRANSLATE_NOOP("LineCalc", "Угол Ib-Ua"), QT_TRANSLATE_NOOP("LineCalc", "Угол Ic-Ua") };

// The turns of the phases a, b and c for a sequence: none for the zero sequence, b forward and c
// backward for the positive one, the other way for the negative one.
std::array<double, 3> turnsOf(int sequence)
{
    switch (sequence) {
    case 1:
        return { 0.0, kThirdOfTurn, -kThirdOfTurn };
    case 2:
        return { 0.0, -kThirdOfTurn, kThirdOfTurn };
    default:
        return { 0.0, 0.0, 0.0 };
    }
}

struct Vector
{
    double re = 0.0;
    double im = 0.0;
};
} // namespace

QString LineCalc::signalText(int code)
{
    if (code < 0 || code >= LineSignalCount || !kSignalTexts[code])
        return QString();
    return QCoreApplication::translate("LineCalc", kSignalTexts[code]);
}

double LineCalc::convertToMode(double value, const AnalogChannel& channel, int modePS)
{
    const int side = channel.ps();
    if (side == AnalogChannel::Primary && modePS == SecondaryMode)
        return value * (channel.secondary() / channel.primary());
    if (side == AnalogChannel::Secondary && modePS == PrimaryMode)
        return value * (channel.primary() / channel.secondary());
    return value;
}

void LineCalc::startMeasurement(const PhasesPointers& phases, double z0, double z1)
{
    m_error = 0;
    m_z0 = z0;
    m_z1 = z1;
    m_voltages = phases.voltages;
    m_currents = phases.currents;
}

void LineCalc::setVoltage(int phase, double amplitude, double phaseRadians)
{
    m_voltageAmplitudes[phase] = amplitude;
    m_voltagePhases[phase] = phaseRadians;
}

void LineCalc::setCurrent(int phase, double amplitude, double phaseRadians)
{
    m_currentAmplitudes[phase] = amplitude;
    m_currentPhases[phase] = phaseRadians;
}

double LineCalc::value(int code)
{
    if (code >= Signal3U0 && code <= SignalIca)
        return sequenceValue(code);
    switch (code) {
    case SignalR0:
    case SignalR1:
    case SignalR2:
        return sequenceImpedance(code - SignalR0, false);
    case SignalX0:
    case SignalX1:
    case SignalX2:
        return sequenceImpedance(code - SignalX0, true);
    case SignalRa:
    case SignalXa:
    case SignalRb:
    case SignalXb:
    case SignalRc:
    case SignalXc:
        return phaseImpedance((code - SignalRa) / 2, (code - SignalRa) % 2 == 1);
    case SignalPa:
    case SignalQa:
    case SignalPb:
    case SignalQb:
    case SignalPc:
    case SignalQc:
        return phasePower((code - SignalPa) / 2, (code - SignalPa) % 2 == 1);
    case SignalPSum:
        return phasePower(0, false) + phasePower(1, false) + phasePower(2, false);
    case SignalQSum:
        return phasePower(0, true) + phasePower(1, true) + phasePower(2, true);
    case SignalZa:
    case SignalZb:
    case SignalZc:
        return compensatedImpedance(code - SignalZa);
    case SignalFrequency:
        return m_frequency;
    case SignalAngleUbUa:
    case SignalAngleUcUa:
        return angleToVoltageA(m_voltagePhases[code - SignalAngleUbUa + 1]);
    case SignalAngleIaUa:
    case SignalAngleIbUa:
    case SignalAngleIcUa:
        return angleToVoltageA(m_currentPhases[code - SignalAngleIaUa]);
    default:
        return 0.0;
    }
}

double LineCalc::projectedSum(const Triple& amplitudes, const Triple& phases, double turnB, double turnC)
{
    return amplitudes[0] * std::cos(phases[0]) + amplitudes[1] * std::cos(phases[1] + turnB)
        + amplitudes[2] * std::cos(phases[2] + turnC);
}

double LineCalc::sequenceValue(int code) const
{
    const bool current = (code >= Signal3I0 && code <= SignalI2) || code >= SignalIab;
    const Triple& amplitudes = current ? m_currentAmplitudes : m_voltageAmplitudes;
    const Triple& phases = current ? m_currentPhases : m_voltagePhases;
    if (code >= SignalUab) {
        const int first = (code - SignalUab) % 3;
        const int second = (first + 1) % 3;
        return amplitudes[first] * std::cos(phases[first]) - amplitudes[second] * std::cos(phases[second]);
    }
    switch (code % 4) {
    case 0:
        return projectedSum(amplitudes, phases, 0.0, 0.0);
    case 1:
        return projectedSum(amplitudes, phases, 0.0, 0.0) / 3;
    case 2:
        return projectedSum(amplitudes, phases, kThirdOfTurn, -kThirdOfTurn) / 3;
    default:
        return projectedSum(amplitudes, phases, -kThirdOfTurn, kThirdOfTurn) / 3;
    }
}

double LineCalc::sequenceImpedance(int sequence, bool reactance) const
{
    const std::array<double, 3> turnOf = turnsOf(sequence);
    Vector u;
    Vector i;
    for (int k = 0; k < 3; ++k) {
        u.re += m_voltageAmplitudes[k] * std::cos(m_voltagePhases[k] + turnOf[k]);
        u.im += m_voltageAmplitudes[k] * std::sin(m_voltagePhases[k] + turnOf[k]);
        i.re += m_currentAmplitudes[k] * std::cos(m_currentPhases[k] + turnOf[k]);
        i.im += m_currentAmplitudes[k] * std::sin(m_currentPhases[k] + turnOf[k]);
    }
    const double uLength = std::sqrt(u.re * u.re + u.im * u.im);
    const double iLength = std::sqrt(i.re * i.re + i.im * i.im);
    const double ratio = uLength / iLength;
    if (reactance)
        return ratio * (u.im / uLength * i.re / iLength - u.re / uLength * i.im / iLength);
    return ratio * (u.re / uLength * i.re / iLength + u.im / uLength * i.im / iLength);
}

double LineCalc::phaseImpedance(int phase, bool reactance)
{
    double& current = m_currentAmplitudes[phase];
    if (current >= 0.0 && current < kSmallestCurrent)
        current = kSmallestCurrent;
    else if (current > -kSmallestCurrent && current < 0.0)
        current = -kSmallestCurrent;
    const double shift = m_voltagePhases[phase] - m_currentPhases[phase];
    const double projection = reactance ? std::sin(shift) : std::cos(shift);
    return m_voltageAmplitudes[phase] * projection / current;
}

double LineCalc::phasePower(int phase, bool reactive) const
{
    const double shift = m_voltagePhases[phase] - m_currentPhases[phase];
    const double projection = reactive ? std::sin(shift) : std::cos(shift);
    return m_voltageAmplitudes[phase] * m_currentAmplitudes[phase] * projection * 0.5;
}

double LineCalc::compensatedImpedance(int phase)
{
    if (std::fabs(m_z1) < kEpsilon)
        m_error = 1;
    const double compensation = (m_z0 - m_z1) / (3 * m_z1);
    const double currentSum = projectedSum(m_currentAmplitudes, m_currentPhases, 0.0, 0.0);
    const double denominator = m_currentAmplitudes[phase] + compensation * currentSum;
    if (std::fabs(denominator) < kEpsilon)
        m_error = 1;
    return m_voltageAmplitudes[phase] / denominator;
}

double LineCalc::angleToVoltageA(double phaseRadians) const
{
    double angle = std::fmod((phaseRadians - m_voltagePhases[0]) * kDegreesPerRadian + 720.0, 360.0);
    if (angle > 180.0)
        angle -= 360.0;
    return angle;
}
