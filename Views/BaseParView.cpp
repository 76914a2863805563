#include "Views/BaseParView.h"

#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

#include <QDropEvent>
#include <QMimeData>

BaseParView::BaseParView(QWidget* parent) : ScrollArea(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAcceptDrops(true);
}

void BaseParView::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    m_model = model;
    OscillogramViewModel* m = model.data();
    connect(m, &OscillogramViewModel::currentSampleChanged, this, &BaseParView::refreshValues);
    connect(m, &OscillogramViewModel::sigPrimSecModeChanged, this, &BaseParView::refreshParameters);
    connect(m, &OscillogramViewModel::sigPanelParametersWidthChanged, this, &BaseParView::refreshParameters);
    connect(
        m, &OscillogramViewModel::sigDropSignal, this, [this](const DropInfo& drop) { addChannel(drop); });
    listHelper()->setModel(model, this);
}

void BaseParView::refreshValues()
{
}

void BaseParView::refreshParameters()
{
}

bool BaseParView::acceptsDrag(const QMimeData* data) const
{
    return m_model && listHelper()->isOwnChannel(ChannelMime::channel(data));
}

void BaseParView::dragEnterEvent(QDragEnterEvent* event)
{
    if (acceptsDrag(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void BaseParView::dragMoveEvent(QDragMoveEvent* event)
{
    if (acceptsDrag(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void BaseParView::dropEvent(QDropEvent* event)
{
    dropSignalInPanelList(event);
}

void BaseParView::dropSignalInPanelList(QDropEvent* event)
{
    const int dragged = ChannelMime::channel(event->mimeData());
    const auto& rows = listHelper()->rows();
    if (!acceptsDrag(event->mimeData()) || rows.empty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    // The last row is the target; its lower half is the end of the list.
    emit m_model->sigDropSignal(DropInfo { dragged, rows.back().front(), DRAG_POS_LOWER, event });
}

QColor BaseParView::viewportColor() const
{
    return RowColors::current().panelBackground;
}
