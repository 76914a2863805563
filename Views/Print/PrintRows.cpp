#include "Views/Print/PrintRows.h"

#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"
#include "Model/Oscillogram.h"
#include "Views/AChanParItem.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/ChanParItem.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/OscillogramView.h"
#include "Views/RowAndSplitter.h"

#include <QFont>
#include <QFontMetrics>

namespace {
// Room beside the widest name, so that the text never touches the column's edge.
constexpr int nameColumnSpare = 10;

DragDropSignalWidget* panelOf(QWidget* row)
{
    if (auto* analog = qobject_cast<AChanParAndSplitter*>(row))
        return analog->item();
    return qobject_cast<DragDropSignalWidget*>(row);
}

void collectList(const ScrollArea& panels, const ScrollArea& plots, bool analog, QVector<PrintRow>& rows)
{
    const AListHelper::Rows& channels = panels.listHelper()->rows();
    const int listWidth = plots.viewport()->width();
    for (int index = 0; index < panels.rowCount() && index < int(channels.size()); ++index) {
        if (!panels.isRowVisible(index))
            continue;
        PrintRow row;
        for (int channel : channels.at(index))
            row.channels << channel;
        row.analog = analog;
        row.height = panels.rowHeight(index);
        row.listWidth = listWidth;
        row.panel = panelOf(panels.rowWidget(index));
        rows << row;
    }
}
} // namespace

namespace PrintRows {

QVector<PrintRow> collect(const OscillogramView& view)
{
    QVector<PrintRow> rows;
    collectList(*view.aChanParList(), *view.aChanPlotList(), true, rows);
    collectList(*view.dChanParList(), *view.dChanPlotList(), false, rows);
    return rows;
}

QString channelLine(const Oscillogram& record, int channel)
{
    const int analogCount = record.countOfAnalogChannels();
    if (channel < analogCount) {
        const auto analog = record.analogChannel(channel);
        QString line = QStringLiteral("%1. ").arg(analog->physNum()) + analog->name();
        if (!analog->unit().isEmpty())
            line += QStringLiteral(" - %1").arg(analog->unit());
        return line;
    }
    const auto digital = record.digitalChannel(channel - analogCount);
    return QStringLiteral("%1. ").arg(digital->physNum()) + digital->name();
}

int nameColumnWidth(const QVector<PrintRow>& rows, const Oscillogram& record)
{
    QFont font;
    font.setWeight(QFont::Bold);
    const QFontMetrics metrics(font);
    int widest = 0;
    for (const PrintRow& row : rows) {
        for (int channel : row.channels)
            widest = qMax(widest, metrics.horizontalAdvance(channelLine(record, channel)));
    }
    return widest + nameColumnSpare;
}

} // namespace PrintRows
