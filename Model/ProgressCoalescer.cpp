#include "ProgressCoalescer.h"

#include <cmath>

bool ProgressCoalescer::passes(const QString& stage, double percent)
{
    const bool pass = !m_passedAny || stage != m_stage || std::fabs(percent - m_percent) >= smallestStep
        || (percent != m_percent && m_sinceLastPass.elapsed() >= longestSilenceMs);
    if (!pass) {
        m_holding = true;
        m_heldStage = stage;
        m_heldPercent = percent;
        return false;
    }
    m_holding = false;
    m_passedAny = true;
    m_stage = stage;
    m_percent = percent;
    m_sinceLastPass.start();
    return true;
}

bool ProgressCoalescer::takeHeld(QString& stage, double& percent)
{
    if (!m_holding)
        return false;
    m_holding = false;
    stage = m_heldStage;
    percent = m_heldPercent;
    return true;
}
