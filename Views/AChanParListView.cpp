#include "Views/AChanParListView.h"

#include "Views/AChanParItem.h"
#include "Views/AChanParItemFrame.h"
#include "Views/AChanParModel.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowAndSplitter.h"
#include "Views/Splitter.h"

int AChanParListView::compactRowHeight(int panels)
{
    return panels * AChanParItemFrame::compactPanelHeight();
}

int AChanParListView::fullRowHeight(int panels)
{
    if (panels <= 0)
        return OscillogramViewModel::defaultRowHeight();
    return OscillogramViewModel::defaultRowHeight() + (panels - 1) * AChanParItemFrame::extraPanelHeight();
}

AChanParListView::AChanParListView(QWidget* parent) : BaseParView(parent)
{
    setObjectName(QStringLiteral("aChanParListView"));
    setListHelper(std::make_unique<AListHelper>(this, this));
}

QWidget* AChanParListView::createItem(int, int channel)
{
    auto* item = new AChanParItem(oscillogramViewModel(), channel);
    item->setCompact(oscillogramViewModel()->isCompactMode());
    auto* row = new AChanParAndSplitter(item);
    row->splitter()->setMinPanelHeight(oscillogramViewModel()->chanRowMinHeight(channel));
    connect(item, &AChanParItem::sigDropSignal, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDropSignal);
    connect(item, &AChanParItem::sigDragChannelSelected, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDragSelectedChannel);
    connect(item, &AChanParItem::sigSplit, this, [this, row] { slotSplitChannel(row); });
    connect(row->splitter(), &Splitter::moved, this,
        [this, item](int delta) { emit sigChannelHeight(item->channelNumber(), delta); });
    return row;
}

void AChanParListView::addSignalToItem(QWidget* item, int channel)
{
    static_cast<AChanParAndSplitter*>(item)->item()->addSignal(channel);
}

void AChanParListView::removeSignalFromItem(QWidget* item, int channel)
{
    static_cast<AChanParAndSplitter*>(item)->item()->removeSignal(channel);
}

void AChanParListView::updateItemSelection(QWidget* item, int, bool)
{
    static_cast<AChanParAndSplitter*>(item)->item()->updateSelection();
}

void AChanParListView::rowsChanged()
{
    slotUpdateAParModels();
}

AChanParItem* AChanParListView::chanParItemInOrder(int index) const
{
    auto* row = static_cast<AChanParAndSplitter*>(rowWidget(index));
    return row ? row->item() : nullptr;
}

int AChanParListView::countPanelsInChannel(int channel) const
{
    const int index = listHelper()->rowOf(channel);
    return index < 0 ? 0 : int(listHelper()->rows()[std::size_t(index)].size());
}

void AChanParListView::setCompactMode(int channel)
{
    if (AChanParItem* item = chanParItemInOrder(listHelper()->rowOf(channel)))
        item->setCompact(true);
}

void AChanParListView::setFullMode(int channel)
{
    if (AChanParItem* item = chanParItemInOrder(listHelper()->rowOf(channel)))
        item->setCompact(false);
}

void AChanParListView::updateMinHeightInSplitter(int channel, int minHeight)
{
    if (auto* row = static_cast<AChanParAndSplitter*>(itemAttachedToDescriptor(channel)))
        row->splitter()->setMinPanelHeight(minHeight);
}

QList<AChanParModel*> AChanParListView::prepareModelList() const
{
    QList<AChanParModel*> models;
    for (int i = 0; i < rowCount(); ++i) {
        for (const AChanParItemFrame* frame : chanParItemInOrder(i)->frames())
            models << frame->model();
    }
    return models;
}

AChanParModel* AChanParListView::aChanParModel(int channel) const
{
    const AChanParItem* item = chanParItemInOrder(listHelper()->rowOf(channel));
    const AChanParItemFrame* frame = item ? item->frame(channel) : nullptr;
    return frame ? frame->model() : nullptr;
}

AChanParModel* AChanParListView::aChanParModelInOrder(int index) const
{
    return prepareModelList().value(index);
}

QVariantList AChanParListView::getAnalogValues(int channel) const
{
    AChanParModel* model = aChanParModel(channel);
    return model ? model->parameterValues(oscillogramViewModel()->currentSample()) : QVariantList();
}

void AChanParListView::slotUpdateAParModels()
{
    oscillogramViewModel()->setAParModels(prepareModelList());
}

void AChanParListView::slotSplitChannel(AChanParAndSplitter* row)
{
    listHelper()->requestSplit(indexOfRow(row));
}

void AChanParListView::refreshValues()
{
    const int sample = oscillogramViewModel()->currentSample();
    // Hidden rows too, so that they show the right values when they come back.
    for (int i = 0; i < rowCount(); ++i)
        chanParItemInOrder(i)->refreshValues(sample);
}

void AChanParListView::refreshParameters()
{
    for (int i = 0; i < rowCount(); ++i)
        chanParItemInOrder(i)->refreshParameters();
}
