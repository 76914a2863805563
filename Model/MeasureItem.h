#pragma once

#include "korvane_export.h"

#include <utility>

// A time measure: two samples whose distance the time line shows. Start and finish are not
// ordered; the finish may lie before the start.
class KORVANE_EXPORT MeasureItem
{
public:
    int startSampleNumber() const { return m_startSampleNumber; }
    void setStartSampleNumber(int sample) { m_startSampleNumber = sample; }
    int finishSampleNumber() const { return m_finishSampleNumber; }
    void setFinishSampleNumber(int sample) { m_finishSampleNumber = sample; }
    bool isComplete() const { return m_isComplete; }
    void setComplete(bool complete) { m_isComplete = complete; }
    bool isSaved() const { return m_isSaved; }
    void setSaved(bool saved) { m_isSaved = saved; }

    void swapSamples() { std::swap(m_startSampleNumber, m_finishSampleNumber); }

    bool operator==(const MeasureItem& other) const
    {
        return m_startSampleNumber == other.m_startSampleNumber
            && m_finishSampleNumber == other.m_finishSampleNumber && m_isComplete == other.m_isComplete
            && m_isSaved == other.m_isSaved;
    }
    bool operator!=(const MeasureItem& other) const { return !(*this == other); }

private:
    int m_startSampleNumber = 0;
    int m_finishSampleNumber = 0;
    bool m_isComplete = false;
    bool m_isSaved = false;
};
