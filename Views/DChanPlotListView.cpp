#include "Views/DChanPlotListView.h"

#include "Views/ChannelPlotView.h"
#include "Views/OscillogramViewModel.h"

#include <QDropEvent>

DChanPlotListView::DChanPlotListView(QWidget* parent) : BasePlotView(parent)
{
    setObjectName(QStringLiteral("dChanPlotListView"));
    setListHelper(std::make_unique<DListHelper>(this, this));
}

QWidget* DChanPlotListView::createItem(int, int channel)
{
    auto* plot = new ChannelPlotView(oscillogramViewModel(), channel);
    connect(plot, &ChannelPlotView::sigDropSignal, this, [this](QDropEvent* event, int target, DRAG_POS pos) {
        addChannel(DropInfo { ChannelMime::channel(event->mimeData()), target, pos, event });
    });
    connect(plot, &ChannelPlotView::sigDragChannelSelected, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDragSelectedChannel);
    return plot;
}

ChannelPlotView* DChanPlotListView::fromLayoutIndexToPlot(int index) const
{
    return static_cast<ChannelPlotView*>(rowWidget(index));
}
