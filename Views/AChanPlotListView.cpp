#include "Views/AChanPlotListView.h"

#include "Model/AnalogChannel.h"
#include "Views/AnalogToolBar.h"
#include "Views/ChannelPlotView.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/RowAndSplitter.h"
#include "Views/Splitter.h"

#include <QDropEvent>
#include <QEvent>

AChanPlotListView::AChanPlotListView(QWidget* parent) : BasePlotView(parent)
{
    setObjectName(QStringLiteral("aChanPlotListView"));
    setListHelper(std::make_unique<AListHelper>(this, this));
}

void AChanPlotListView::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    BasePlotView::setOscillogramViewModel(model);
    connect(model.data(), &OscillogramViewModel::sigSetVisibleToolBar, this,
        &AChanPlotListView::slotSetVisibleToolBar);
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
    plot->installEventFilter(this);
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

AnalogToolBar* AChanPlotListView::toolBar(int channel) const
{
    const auto* row = static_cast<AChanPlotAndSplitter*>(itemAttachedToDescriptor(channel));
    return row ? row->plot()->findChild<AnalogToolBar*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

AnalogToolBar* AChanPlotListView::createToolBar(ChannelPlotView* plot)
{
    auto* bar = new AnalogToolBar(plot);
    // The buttons act on the channel that names the row when they are pressed.
    const auto forward = [this, plot, bar](void (AnalogToolBar::*from)(), void (ScrollArea::*to)(int)) {
        connect(bar, from, this, [this, plot, to] { emit(this->*to)(plot->getChannelNumber()); });
    };
    forward(&AnalogToolBar::sigIncMag, &ScrollArea::sigIncMag);
    forward(&AnalogToolBar::sigDecMag, &ScrollArea::sigDecMag);
    forward(&AnalogToolBar::sigIncH, &ScrollArea::sigIncH);
    forward(&AnalogToolBar::sigDecH, &ScrollArea::sigDecH);
    forward(&AnalogToolBar::sigFitMag, &ScrollArea::sigFitMag);
    forward(&AnalogToolBar::sigReset, &ScrollArea::sigReset);
    forward(&AnalogToolBar::sigHide, &ScrollArea::sigHide);
    connect(bar, &AnalogToolBar::sigInvert, this, [this, plot](bool inverted) {
        AListHelper::setChannelInverted(*oscillogramViewModel(), plot->getChannelNumber(), inverted);
        emit sigInvert(plot->getChannelNumber(), inverted);
    });
    return bar;
}

void AChanPlotListView::placeToolBar(AnalogToolBar* bar, ChannelPlotView* plot) const
{
    bar->fitToWidth(plot->width());
    bar->adjustSize();
    bar->move(qMax(plot->width() - bar->width() - 2, 0), 2);
}

void AChanPlotListView::slotSetVisibleToolBar(bool isVisible, int channel)
{
    if (!listHelper()->isOwnChannel(channel))
        return;
    auto* row = static_cast<AChanPlotAndSplitter*>(itemAttachedToDescriptor(channel));
    if (!row)
        return;
    ChannelPlotView* plot = row->plot();
    AnalogToolBar* bar = toolBar(channel);
    if (!isVisible) {
        if (bar)
            bar->hide();
        return;
    }
    if (!bar)
        bar = createToolBar(plot);
    const auto record = oscillogramViewModel()->oscillogram();
    bar->slotInvertChannel(record->analogChannel(plot->getChannelNumber())->isInverted());
    placeToolBar(bar, plot);
    bar->show();
    bar->raise();
}

bool AChanPlotListView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        if (auto* bar = watched->findChild<AnalogToolBar*>(QString(), Qt::FindDirectChildrenOnly))
            bar->hide();
    }
    return BasePlotView::eventFilter(watched, event);
}
