#pragma once

#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"

// An analogue channel as a COMTRADE configuration describes it.
class KORVANE_EXPORT ComtradeAnalogChannel : public AnalogChannel
{
public:
    int index() const { return m_index; }
    void setIndex(int index) { m_index = index; }
    QString phaseIdentification() const { return m_phaseIdentification; }
    // A number from 1 to 3 is the phase; another number gives 0; a text gives the phase of its
    // first letter a, b or c (so "AB" is phase 1).
    void setPhaseIdentification(const QString& text);
    QString ccbm() const { return m_ccbm; }
    void setCcbm(const QString& ccbm) { m_ccbm = ccbm; }
    void setUnits(const QString& units) { setUnit(units); }
    double skew() const { return m_skew; }
    void setSkew(double skew) { m_skew = skew; }
    double lowerLimit() const { return m_lowerLimit; }
    void setLowerLimit(double limit) { m_lowerLimit = limit; }
    double upperLimit() const { return m_upperLimit; }
    void setUpperLimit(double limit) { m_upperLimit = limit; }
    void setComtradeName(const QString& name) { setName(name); }

private:
    int m_index = -1;
    QString m_phaseIdentification;
    QString m_ccbm;
    double m_skew = 0.0;
    double m_lowerLimit = -1.0;
    double m_upperLimit = 1.0;
};

// A status channel as a COMTRADE configuration describes it; y is the file's normal state.
class KORVANE_EXPORT ComtradeDigitalChannel : public DigitalChannel
{
public:
    int index() const { return m_index; }
    void setIndex(int index) { m_index = index; }
    QString phaseIdentification() const { return m_phaseIdentification; }
    void setPhaseIdentification(const QString& text) { m_phaseIdentification = text; }
    QString ccbm() const { return m_ccbm; }
    void setCcbm(const QString& ccbm) { m_ccbm = ccbm; }
    bool y() const { return normalState(); }
    void setY(bool y) { setNormalState(y); }

private:
    int m_index = -1;
    QString m_phaseIdentification;
    QString m_ccbm;
};
