#pragma once

#include "Model/Channel.h"

// An analogue signal: scaling to physical values, unit, phase and type.
class KORVANE_EXPORT AnalogChannel : public Channel
{
public:
    // 0: the samples are primary values, 1: secondary.
    enum PrimaryOrSecondary : int { Primary = 0, Secondary = 1 };

    AnalogChannel() = default;
    AnalogChannel(const AnalogChannel& other) = default;

    QString unit() const { return m_unit; }
    void setUnit(const QString& unit) { m_unit = unit; }
    int phaseNumber() const { return m_phaseNumber; }
    void setPhaseNumber(int phase) { m_phaseNumber = phase; }
    int chanType() const { return m_chanType; }
    void setChanType(int type) { m_chanType = type; }
    QString chanTypeName() const;
    int cmrChanType() const { return m_cmrChanType; }
    // The channel type of the .inf: 0 other, 1 current, 2 voltage; derives chanType.
    void setCMRChanType(int type);
    double multiplier() const { return m_multiplier; }
    void setMultiplier(double multiplier) { m_multiplier = multiplier; }
    double offsetAdder() const { return m_offsetAdder; }
    void setOffsetAdder(double offsetAdder) { m_offsetAdder = offsetAdder; }
    double primary() const { return m_primary; }
    void setPrimary(double primary) { m_primary = primary; }
    double secondary() const { return m_secondary; }
    void setSecondary(double secondary) { m_secondary = secondary; }
    PrimaryOrSecondary ps() const { return m_ps; }
    void setPs(PrimaryOrSecondary ps) { m_ps = ps; }
    char psChar() const { return m_ps == Secondary ? 'S' : 'P'; }
    short normalState() const { return m_normalState; }
    void setNormalState(short state) { m_normalState = state; }
    double adcDelay() const { return m_adcDelay; }
    void setAdcDelay(double delay) { m_adcDelay = delay; }

    // The raw value, mirrored within the channel's own range when the channel is inverted.
    double getValue(int sample, int column) const
    {
        const double value = Channel::getValue(sample, column);
        return isInverted() ? minValue() + maxValue() - value : value;
    }
    double getValue(int sample) const { return getValue(sample, dataOffset()); }
    double minValue() const { return extremeValue(false); }
    double maxValue() const { return extremeValue(true); }
    double getRealValue(double raw) const { return raw * m_multiplier + m_offsetAdder; }

    void definePhase();
    void findTypeByName();

private:
    // Inline, like getValue: a call in a column loop would keep the compiler from hoisting the
    // store's pointers out of it.
    Q_ALWAYS_INLINE double extremeValue(bool maximum) const
    {
        const OscillogramData& store = *data();
        const int column = dataOffset();
        switch (dataType()) {
        case DT::Int16:
            return maximum ? store.int16MaxValue(column) : store.int16MinValue(column);
        case DT::Int32:
            return maximum ? store.int32MaxValue(column) : store.int32MinValue(column);
        case DT::Float:
            return maximum ? store.floatMaxValue(column) : store.floatMinValue(column);
        case DT::Double:
            return maximum ? store.doubleMaxValue(column) : store.doubleMinValue(column);
        default:
            return 0.0;
        }
    }

    QString m_unit;
    int m_phaseNumber = 0;
    int m_chanType = 0;
    int m_cmrChanType = 0;
    double m_multiplier = 1.0;
    double m_offsetAdder = 0.0;
    double m_primary = 1.0;
    double m_secondary = 1.0;
    PrimaryOrSecondary m_ps = Primary;
    short m_normalState = 0;
    double m_adcDelay = 0.0;
};
