#pragma once

#include "korvane_export.h"

#include <QList>
#include <QPointer>
#include <QVector>

class DragDropSignalWidget;
class Oscillogram;
class OscillogramView;

// One row of the view as it goes to paper: its channels drawn in one plot, its height on screen in
// a list of that width, and the panel whose names stand left of the plot.
struct KORVANE_EXPORT PrintRow
{
    QList<int> channels;
    bool analog = true;
    int height = 0;
    int listWidth = 0;
    QPointer<DragDropSignalWidget> panel;
};

namespace PrintRows {
// The visible rows of the view in their order on screen, the analogue ones first.
KORVANE_EXPORT QVector<PrintRow> collect(const OscillogramView& view);
// The width of the name column: the widest "number. name - unit" of the rows' channels in bold,
// with room to spare.
KORVANE_EXPORT int nameColumnWidth(const QVector<PrintRow>& rows, const Oscillogram& record);
// The text that names a channel in that column.
KORVANE_EXPORT QString channelLine(const Oscillogram& record, int channel);
} // namespace PrintRows
