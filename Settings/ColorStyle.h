#pragma once

#include "korvane_export.h"

#include <QColor>
#include <QRgb>

namespace KV {
namespace Cfg {

// The colours of the record view, by role. The painters write the QRgb words straight into their
// pixel buffers; the widgets take the QColors. One instance is in force for the whole process.
class KORVANE_EXPORT ColorStyle
{
public:
    enum Style : int { Dark = 0, Standard = 1, BlackOnWhite = 2 };

    // Builds style 0, 1 or 2; any other number gives the default style 1.
    explicit ColorStyle(int style = Standard);

    // The style in force. It starts as style 1 and is changed by setCurrent.
    static const ColorStyle& current();
    static void setCurrent(int style);

    int number() const { return m_number; }

    // Colour of a trace by AnalogChannel::phaseNumber(): 0 no phase, 1 to 3 phases A to C; any
    // other number is drawn as no phase.
    QRgb phaseColor(int phaseNumber) const;
    // Colour of a trace of a Clc channel by data column: 0 phase B, 1 second component, 2 phase C;
    // any other column is drawn as phase B.
    QRgb componentColor(int dataColumn) const;

    QRgb background;
    QRgb discreteTrace;
    QRgb selectedTrace;
    QRgb phaseA;
    QRgb phaseB;
    QRgb phaseC;
    QRgb secondComponent;
    QRgb noPhase;
    QRgb failureLine;
    QRgb markerLine;
    QRgb markerBoxFill;
    QRgb markerBoxFrame;
    QRgb grid;
    QRgb currentSampleLine;
    QRgb savedMeasureStart;
    QRgb savedMeasureFinish;
    QRgb anomaly;

    // Interface colours.
    QColor selection;

private:
    int m_number;
};

} // namespace Cfg
} // namespace KV
