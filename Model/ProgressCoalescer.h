#pragma once

#include "korvane_export.h"

#include <QElapsedTimer>
#include <QString>

// Decides which of a task's progress reports are worth passing to a display. Loaders report
// after every row or block, up to millions of times a load; a display needs a report only when
// the stage changes, when the value moved by at least a thousandth (a tenth of the bar's
// percent), or when some time has passed since the last one passed. Used on one thread only.
class KORVANE_EXPORT ProgressCoalescer
{
public:
    static constexpr double smallestStep = 0.001;
    static constexpr qint64 longestSilenceMs = 50;

    bool passes(const QString& stage, double percent);
    // The last report held back since the last one passed, if any; it is then forgotten. A
    // task passes it on when it ends, so that a display always shows the final value.
    bool takeHeld(QString& stage, double& percent);

private:
    QString m_stage;
    double m_percent = 0.0;
    bool m_passedAny = false;
    bool m_holding = false;
    QString m_heldStage;
    double m_heldPercent = 0.0;
    QElapsedTimer m_sinceLastPass;
};
