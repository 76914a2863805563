#include "Views/DChanParListView.h"

#include "Views/ChanParItem.h"
#include "Views/OscillogramViewModel.h"

DChanParListView::DChanParListView(QWidget* parent) : BaseParView(parent)
{
    setObjectName(QStringLiteral("dChanParListView"));
    setListHelper(std::make_unique<DListHelper>(this, this));
}

QWidget* DChanParListView::createItem(int, int channel)
{
    auto* item = new ChanParItem(oscillogramViewModel(), channel);
    connect(item, &ChanParItem::sigDropSignal, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDropSignal);
    connect(item, &ChanParItem::sigDragChannelSelected, oscillogramViewModel().data(),
        &OscillogramViewModel::sigDragSelectedChannel);
    return item;
}

void DChanParListView::updateItemSelection(QWidget* item, int, bool)
{
    static_cast<ChanParItem*>(item)->updateSelection();
}

ChanParItem* DChanParListView::chanParItemInOrder(int index) const
{
    return static_cast<ChanParItem*>(rowWidget(index));
}
