#include "CalcLib/CalcEngine.h"

namespace {
constexpr int32_t kOrdaSelected = 1;
constexpr int32_t kVeltSelected = 0;
} // namespace

CalcEngine::CalcEngine() = default;

CalcEngine::~CalcEngine() = default;

void CalcEngine::init(const DevConfig& config)
{
    m_input.buffer = SampleBuffer();
    m_config = config;
    // Each stateful calculator gets the variant it serves; these two values stay in the
    // engine's copy until the next setDevConfig.
    m_config.shapeType = ShapeSine;
    m_config.varType = kOrdaSelected;
    m_orda.init(m_config);
    m_config.shapeType = ShapeConst;
    m_config.varType = 0;
    m_velt.init(m_config);

    m_input.rows = config.rowCount;
    m_input.samples = config.windowSamples;
    m_input.buffer = SampleBuffer(config.rowCount, config.windowSamples);
    m_input.results.assign(config.rowCount > 0 ? size_t(config.rowCount) : 0, CalcResultRow());
}

void CalcEngine::calculate()
{
    if (m_config.shapeType == ShapeInstant)
        return;
    if (m_config.shapeType == ShapeConst) {
        if (m_config.constType != kVeltSelected) {
            m_talviConst.init(m_config);
            m_talviConst.calc(m_input);
        } else {
            m_velt.setConfig(m_config);
            m_velt.calc(m_input);
        }
    } else if (m_config.varType == kOrdaSelected) {
        m_orda.setConfig(m_config);
        m_orda.calc(m_input);
    } else {
        m_talviVar.init(m_config);
        m_talviVar.calc(m_input);
    }
    copyResults();
}

void CalcEngine::copyResults()
{
    if (m_input.results.empty())
        return;
    const CalcResultRow& row = m_input.results[0];
    m_parameters.rms = row.rms;
    m_parameters.firstHarmonic = row.firstHarmonic;
    m_parameters.frequency = row.frequency;
    m_parameters.phase = row.phase;
    m_parameters.nonSinus = row.nonSinus;
    m_parameters.dc = row.dc;
}
