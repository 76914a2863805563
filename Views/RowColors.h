#pragma once

#include "korvane_export.h"

#include <QColor>

// Colours of the row widgets beside the plots, by the colour style in force. The painters' colours
// are in KV::Cfg::ColorStyle; these are the ones only the rows use.
struct KORVANE_EXPORT RowColors
{
    QColor panelBackground;
    QColor selectedPanel;
    QColor nameText;
    QColor lineText;
    QColor positiveValue;
    QColor negativeValue;
    QColor dragMark;
    QColor splitterHandle;

    static RowColors forStyle(int style);
    static RowColors current();
};
