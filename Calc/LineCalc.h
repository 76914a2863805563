#pragma once

#include "Model/AnalogChannel.h"
#include "korvane_export.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <array>

// The channels of one line, phases A, B and C in that order. An entry may be null.
struct KORVANE_EXPORT PhasesPointers
{
    QList<QSharedPointer<AnalogChannel>> voltages;
    QList<QSharedPointer<AnalogChannel>> currents;
};

// The codes of the line signals.
enum LineSignal : int {
    Signal3U0 = 0,
    SignalU0,
    SignalU1,
    SignalU2,
    Signal3I0,
    SignalI0,
    SignalI1,
    SignalI2,
    SignalUab,
    SignalUbc,
    SignalUca,
    SignalIab,
    SignalIbc,
    SignalIca,
    SignalR0,
    SignalR1,
    SignalR2,
    SignalX0,
    SignalX1,
    SignalX2,
    SignalRa,
    SignalXa,
    SignalRb,
    SignalXb,
    SignalRc,
    SignalXc,
    SignalVacant26,
    SignalVacant27,
    SignalPa,
    SignalQa,
    SignalPb,
    SignalQb,
    SignalPc,
    SignalQc,
    SignalPSum,
    SignalQSum,
    SignalZa,
    SignalZb,
    SignalZc,
    SignalFrequency,
    SignalAngleUbUa,
    SignalAngleUcUa,
    SignalAngleIaUa,
    SignalAngleIbUa,
    SignalAngleIcUa,
    LineSignalCount
};

// The measured phasors of a line at one sample and the line quantities made of them. Amplitudes are
// peak values on the side that modePS asks for; phases are radians of a cosine at the first sample
// of the window, so that they turn with the position.
class KORVANE_EXPORT LineCalc
{
public:
    enum ModePS : int { PrimaryMode = 0, SecondaryMode = 1 };

    // The display text of a code; empty for the vacant codes and outside 0 to 44.
    static QString signalText(int code);
    // A value held on the channel's side brought to the side that modePS asks for.
    static double convertToMode(double value, const AnalogChannel& channel, int modePS);

    // Clears the error flag and takes the line's channels and parameters for a new measurement.
    void startMeasurement(const PhasesPointers& phases, double z0, double z1);
    void setVoltage(int phase, double amplitude, double phaseRadians);
    void setCurrent(int phase, double amplitude, double phaseRadians);
    void setFrequency(double frequency) { m_frequency = frequency; }

    // The value of a code from the stored phasors; 0.0 for a vacant or unknown code. Not const:
    // the phase resistances keep a vanishing current off zero in the stored values, and the
    // compensated impedances raise the error flag.
    double value(int code);

    QList<QSharedPointer<AnalogChannel>> voltages() const { return m_voltages; }
    QList<QSharedPointer<AnalogChannel>> currents() const { return m_currents; }
    double voltageAmplitude(int phase) const { return m_voltageAmplitudes[phase]; }
    double voltagePhase(int phase) const { return m_voltagePhases[phase]; }
    double currentAmplitude(int phase) const { return m_currentAmplitudes[phase]; }
    double currentPhase(int phase) const { return m_currentPhases[phase]; }
    double frequency() const { return m_frequency; }
    double z0() const { return m_z0; }
    double z1() const { return m_z1; }
    int modePS() const { return m_modePS; }
    void setModePS(int modePS) { m_modePS = modePS; }
    int error() const { return m_error; }
    bool isError() const { return m_error != 0; }

private:
    using Triple = std::array<double, 3>;

    // Sum of k * cos(phase + turn) over the phases, the turns of b and c given.
    static double projectedSum(const Triple& amplitudes, const Triple& phases, double turnB, double turnC);
    double sequenceValue(int code) const;
    double sequenceImpedance(int sequence, bool reactance) const;
    double phaseImpedance(int phase, bool reactance);
    double phasePower(int phase, bool reactive) const;
    double compensatedImpedance(int phase);
    double angleToVoltageA(double phaseRadians) const;

    QList<QSharedPointer<AnalogChannel>> m_voltages;
    QList<QSharedPointer<AnalogChannel>> m_currents;
    Triple m_voltageAmplitudes {};
    Triple m_voltagePhases {};
    Triple m_currentAmplitudes {};
    Triple m_currentPhases {};
    double m_frequency = 0.0;
    double m_z0 = 0.0;
    double m_z1 = 0.0;
    int m_modePS = PrimaryMode;
    int m_error = 0;
};
