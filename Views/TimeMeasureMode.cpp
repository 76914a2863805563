#include "Views/TimeMeasureMode.h"

TimeMeasureMode::TimeMeasureMode(QObject* parent) : QObject(parent)
{
}

void TimeMeasureMode::setMeasures(const QList<MeasureItem>& measures)
{
    m_measures = measures;
    emit updated();
}

void TimeMeasureMode::resetMeasures()
{
    m_measures.clear();
    emit updated();
}

void TimeMeasureMode::startMeasure(int sample)
{
    if (m_inProgress)
        return;
    if (!m_measures.isEmpty() && !m_measures.last().isSaved())
        m_measures.removeLast();
    MeasureItem item;
    item.setStartSampleNumber(sample);
    m_measures.append(item);
    m_inProgress = true;
    emit updated();
}

void TimeMeasureMode::finishMeasure(int sample)
{
    if (!m_inProgress)
        return;
    m_inProgress = false;
    if (!m_measures.isEmpty()) {
        MeasureItem& item = m_measures.last();
        item.setFinishSampleNumber(sample);
        item.setComplete(true);
        if (item.startSampleNumber() == item.finishSampleNumber())
            m_measures.removeLast();
    }
    emit updated();
}

void TimeMeasureMode::saveLastMeasure()
{
    if (!m_measures.isEmpty())
        m_measures.last().setSaved(true);
    emit updated();
}

void TimeMeasureMode::removeLastMeasure()
{
    if (m_measures.isEmpty())
        return;
    m_measures.removeLast();
    m_inProgress = false;
    emit updated();
}
