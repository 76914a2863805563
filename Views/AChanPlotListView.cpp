#include "Views/AChanPlotListView.h"

#include "Model/AnalogChannel.h"
#include "Views/ChannelPlotView.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/RowAndSplitter.h"
#include "Views/Splitter.h"

#include <QDropEvent>

AChanPlotListView::AChanPlotListView(QWidget* parent) : BasePlotView(parent)
{
    setObjectName(QStringLiteral("aChanPlotListView"));
    setListHelper(std::make_unique<AListHelper>(this, this));
}

QWidget* AChanPlotListView::createItem(int index, int channel)
{
    return createAChanPlotAndSplitter(index, channel);
}

AChanPlotAndSplitter* AChanPlotListView::createAChanPlotAndSplitter(int, int channel)
{
    auto* plot = new ChannelPlotView(oscillogramViewModel(), channel);
    auto* row = new AChanPlotAndSplitter(plot);
    row->splitter()->setMinPanelHeight(oscillogramViewModel()->chanRowMinHeight(channel));
    connect(row->splitter(), &Splitter::moved, this,
        [this, plot](int delta) { emit sigChannelHeight(plot->getChannelNumber(), delta); });
    connect(plot, &ChannelPlotView::sigDropSignal, this, [this](QDropEvent* event, int target, DRAG_POS) {
        listHelper()->requestOverlay(target, ChannelMime::channel(event->mimeData()));
    });
    connect(plot, &ChannelPlotView::sigDragChannelSelected, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDragSelectedChannel);
    return row;
}

Splitter* AChanPlotListView::createSplitter(int channel, ChannelPlotView* plot)
{
    auto* row = qobject_cast<AChanPlotAndSplitter*>(plot->parentWidget());
    Splitter* splitter = row ? row->splitter() : nullptr;
    if (splitter)
        splitter->setMinPanelHeight(oscillogramViewModel()->chanRowMinHeight(channel));
    return splitter;
}

void AChanPlotListView::addSignalToItem(QWidget* item, int channel)
{
    slotAddSignalInChannelPlot(channel, item);
}

void AChanPlotListView::removeSignalFromItem(QWidget* item, int channel)
{
    slotRemoveSignalFromChannelPlot(channel, item);
}

void AChanPlotListView::slotAddSignalInChannelPlot(int channel, QWidget* item)
{
    static_cast<AChanPlotAndSplitter*>(item)->plot()->addSignal(channel);
}

void AChanPlotListView::slotRemoveSignalFromChannelPlot(int channel, QWidget* item)
{
    static_cast<AChanPlotAndSplitter*>(item)->plot()->removeSignal(channel);
}

ChannelPlotView* AChanPlotListView::fromLayoutIndexToPlot(int index) const
{
    auto* row = static_cast<AChanPlotAndSplitter*>(rowWidget(index));
    return row ? row->plot() : nullptr;
}

QColor AChanPlotListView::getChannelColor(int channel) const
{
    const auto record = oscillogramViewModel()->oscillogram();
    if (!record || !oscillogramViewModel()->isAnalogChannel(channel))
        return QColor();
    const auto analog = record->analogChannel(channel);
    if (const auto custom = analog->getCustomColor())
        return *custom;
    return QColor::fromRgba(KV::Cfg::ColorStyle::current().phaseColor(analog->phaseNumber()));
}

QList<int> AChanPlotListView::channelsInItem(int index) const
{
    const ChannelPlotView* plot = fromLayoutIndexToPlot(index);
    return plot ? plot->channels() : QList<int>();
}

void AChanPlotListView::updateMinHeightInSplitter(int channel, int minHeight)
{
    if (auto* row = static_cast<AChanPlotAndSplitter*>(itemAttachedToDescriptor(channel)))
        row->splitter()->setMinPanelHeight(minHeight);
}
