#pragma once

#include "CalcLib/CalcInput.h"
#include "CalcLib/DevConfig.h"
#include "CalcLib/OrdaCalculator.h"
#include "CalcLib/TalviCalculator.h"
#include "CalcLib/VeltCalculator.h"
#include "korvane_export.h"

// The calculators, the sample buffer and the last results of one calculation module. Not
// thread-safe: the buffer is shared by all calculators.
class KORVANE_EXPORT CalcEngine
{
public:
    CalcEngine();
    ~CalcEngine();
    CalcEngine(const CalcEngine&) = delete;
    CalcEngine& operator=(const CalcEngine&) = delete;

    // Builds the stateful calculators for the block structure of the configuration and a
    // zeroed buffer of rowCount x windowSamples cells.
    void init(const DevConfig& config);
    // Calculates the buffer with the calculator that the configuration's shape and choices
    // select, and copies row 0 of the results into the parameters.
    void calculate();

    // Takes a configuration without touching the calculators.
    void setDevConfig(const DevConfig& config) { m_config = config; }
    const DevConfig& devConfig() const { return m_config; }
    const CalcParameters& parameters() const { return m_parameters; }
    SampleBuffer& buffer() { return m_input.buffer; }
    const SampleBuffer& buffer() const { return m_input.buffer; }
    const CalcInput& input() const { return m_input; }

    const OrdaCalculator& orda() const { return m_orda; }
    const TalviCalculator& talviVar() const { return m_talviVar; }
    const TalviCalculator& talviConst() const { return m_talviConst; }
    const VeltCalculator& velt() const { return m_velt; }

private:
    void copyResults();

    OrdaCalculator m_orda;
    TalviCalculator m_talviVar;
    TalviCalculator m_talviConst;
    VeltCalculator m_velt;
    DevConfig m_config;
    CalcInput m_input;
    CalcParameters m_parameters;
};
