#include "Views/RowColors.h"

#include "Settings/ColorStyle.h"

RowColors RowColors::forStyle(int style)
{
    // The panels are light in every style: they are printed and dragged on white as they are shown.
    RowColors colors;
    colors.panelBackground = Qt::white;
    colors.selectedPanel = KV::Cfg::ColorStyle(style).selection;
    colors.nameText = Qt::black;
    colors.lineText = QColor(0, 70, 140);
    colors.positiveValue = QColor(0, 100, 0);
    colors.negativeValue = QColor(170, 0, 0);
    // The mark crosses the plots too, whose background is dark in the first two styles.
    colors.dragMark = style == KV::Cfg::ColorStyle::BlackOnWhite ? QColor(Qt::black) : QColor(255, 140, 0);
    colors.splitterHandle = QColor(200, 200, 200);
    return colors;
}

RowColors RowColors::current()
{
    return forStyle(KV::Cfg::ColorStyle::current().number());
}
