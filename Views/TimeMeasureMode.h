#pragma once

#include "Model/MeasureItem.h"
#include "korvane_export.h"

#include <QList>
#include <QObject>

// Time measures and the two states of taking one: idle and in progress. The current measure is
// always the last of the list, and at most one unsaved measure exists.
class KORVANE_EXPORT TimeMeasureMode : public QObject
{
    Q_OBJECT
public:
    explicit TimeMeasureMode(QObject* parent = nullptr);

    QList<MeasureItem> measures() const { return m_measures; }
    void setMeasures(const QList<MeasureItem>& measures);
    void resetMeasures();
    bool inProgress() const { return m_inProgress; }

    void startMeasure(int sample);
    void finishMeasure(int sample);
    void saveLastMeasure();
    void removeLastMeasure();

signals:
    void updated();

private:
    bool m_inProgress = false;
    QList<MeasureItem> m_measures;
};
