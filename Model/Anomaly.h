#pragma once

#include "korvane_export.h"

#include <QList>
#include <QString>

// One interval of a channel where the analyser found something.
class KORVANE_EXPORT AnomalyData
{
public:
    AnomalyData() = default;
    AnomalyData(int startSample, int endSample);

    int startSample() const { return m_startSample; }
    int endSample() const { return m_endSample; }

private:
    int m_startSample = 0;
    int m_endSample = 0;
    int m_reserved = 0;
};

// The intervals found on one channel, with the analyser's text.
class KORVANE_EXPORT Anomaly
{
public:
    QList<AnomalyData>& getAnomalyData() { return m_data; }
    const QList<AnomalyData>& getAnomalyData() const { return m_data; }
    QString& getAnomalyText() { return m_text; }
    const QString& getAnomlyText() const { return m_text; }
    void setMaxStartValue(int value) { m_maxStartValue = value; }
    double getMaxStartValue() const { return m_maxStartValue; }

private:
    QList<AnomalyData> m_data;
    QString m_text;
    int m_maxStartValue = 0;
};
