#include "Views/RowColors.h"

#include "Settings/ColorStyle.h"

RowColors RowColors::forStyle(int style)
{
    RowColors colors;
    colors.selectedPanel = KV::Cfg::ColorStyle(style).selection;
    if (style == KV::Cfg::ColorStyle::Dark) {
        colors.panelBackground = QColor(43, 43, 43);
        colors.nameText = QColor(235, 235, 235);
        colors.lineText = QColor(150, 190, 230);
        colors.positiveValue = QColor(120, 220, 120);
        colors.negativeValue = QColor(255, 130, 110);
        colors.dragMark = QColor(255, 200, 0);
        colors.splitterHandle = QColor(70, 70, 70);
        colors.selectedPanel = QColor(40, 80, 110);
        return colors;
    }
    colors.panelBackground = Qt::white;
    colors.nameText = Qt::black;
    colors.lineText = QColor(0, 70, 140);
    colors.positiveValue = QColor(0, 100, 0);
    colors.negativeValue = QColor(170, 0, 0);
    colors.dragMark = style == KV::Cfg::ColorStyle::BlackOnWhite ? QColor(Qt::black) : QColor(255, 140, 0);
    colors.splitterHandle = QColor(200, 200, 200);
    return colors;
}

RowColors RowColors::current()
{
    return forStyle(KV::Cfg::ColorStyle::current().number());
}
