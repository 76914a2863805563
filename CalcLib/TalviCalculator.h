#pragma once

#include "CalcLib/TCalc.h"

#include <vector>

// Frequency by level crossings, then one single-tone analysis of the window; for a constant
// signal only the mean.
class KORVANE_EXPORT TalviCalculator : public TCalc
{
public:
    TalviCalculator();

    int init(const DevConfig& config) override;
    int calc(CalcInput& input) override;

    // What the last calculation saw on the way, kept for inspection only.
    double meanAbs() const { return m_meanAbs; }
    double acceptedRatio() const { return m_acceptedRatio; }
    double peakToPeak() const { return m_peakToPeak; }
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }

private:
    void calcConstant(CalcResultRow& row, int count, double a, double b);
    void calcVarying(CalcResultRow& row, int count, double a, double b);

    double m_meanAbs = 0.0;
    double m_acceptedRatio = 0.0;
    double m_peakToPeak = 0.0;
    double m_minimum = 0.0;
    double m_maximum = 0.0;
    // The window as doubles; it grows to the largest window seen and is then reused.
    std::vector<double> m_samples;
};
