#include "Settings/ColorStyle.h"

namespace KV {
namespace Cfg {

namespace {
ColorStyle& currentStyle()
{
    static ColorStyle style;
    return style;
}

bool isKnownStyle(int style)
{
    return style == ColorStyle::Dark || style == ColorStyle::Standard || style == ColorStyle::BlackOnWhite;
}

// One colour per style, in the order 0, 1, 2.
QRgb pick(int style, QRgb dark, QRgb standard, QRgb blackOnWhite)
{
    switch (style) {
    case ColorStyle::Dark:
        return dark;
    case ColorStyle::BlackOnWhite:
        return blackOnWhite;
    default:
        return standard;
    }
}
} // namespace

ColorStyle::ColorStyle(int style) : m_number(isKnownStyle(style) ? style : Standard)
{
    const int s = m_number;
    background = pick(s, 0xFF004000, 0xFF212830, 0xFFFFFFFF);
    discreteTrace = pick(s, 0xFFFF7070, 0xFFFF8080, 0xFF000000);
    selectedTrace = 0xFFB4E6FF;
    phaseA = pick(s, 0xFFFFFF00, 0xFFFFFF70, 0xFF000000);
    phaseB = pick(s, 0xFF00FF00, 0xFF70FF70, 0xFF000000);
    phaseC = pick(s, 0xFFFF6060, 0xFFFF8080, 0xFF000000);
    secondComponent = pick(s, 0xFF0000FF, 0xFF12A0FF, 0xFF000000);
    noPhase = pick(s, 0xFF00FFC0, 0xFF00FFC0, 0xFF000000);
    failureLine = pick(s, 0xFF0080FF, 0xFF0080FF, 0xFF000000);
    markerLine = 0xFF915695;
    markerBoxFill = 0xFFAAAA55;
    markerBoxFrame = 0xFFFFFF00;
    grid = pick(s, 0xFF306030, 0xFF626262, 0xFF626262);
    currentSampleLine = pick(s, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000);
    savedMeasureStart = pick(s, 0xFF408040, 0xFF408040, 0xFF000000);
    savedMeasureFinish = pick(s, 0xFFBF8040, 0xFFBF8040, 0xFF000000);
    anomaly = pick(s, 0xFFDEE2E6, 0xFFDEE2E6, 0xFFF50000);
    selection = QColor(180, 230, 255);
}

const ColorStyle& ColorStyle::current()
{
    return currentStyle();
}

void ColorStyle::setCurrent(int style)
{
    currentStyle() = ColorStyle(style);
}

QRgb ColorStyle::phaseColor(int phaseNumber) const
{
    switch (phaseNumber) {
    case 1:
        return phaseA;
    case 2:
        return phaseB;
    case 3:
        return phaseC;
    default:
        return noPhase;
    }
}

QRgb ColorStyle::componentColor(int dataColumn) const
{
    switch (dataColumn) {
    case 1:
        return secondComponent;
    case 2:
        return phaseC;
    default:
        return phaseB;
    }
}

} // namespace Cfg
} // namespace KV
