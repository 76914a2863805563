#include "Views/DragDropSignalWidget.h"

#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace {
constexpr int kDropMarkInset = 10;
constexpr int kDropMarkWidth = 2;
} // namespace

DragDropSignalWidget::DragDropSignalWidget(const QSharedPointer<OscillogramViewModel>& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_mark(new QWidget(this))
{
    setAcceptDrops(true);
    m_mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_mark->setAutoFillBackground(true);
    m_mark->hide();
}

void DragDropSignalWidget::mousePressEvent(QMouseEvent* event)
{
    // Taken, so that the move and the release that may follow come here.
    m_pressPos = event->pos();
    event->accept();
}

void DragDropSignalWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton)
        || (event->pos() - m_pressPos).manhattanLength() < QApplication::startDragDistance()) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    m_pressPos = event->pos();
    dragEvent(plot());
}

void DragDropSignalWidget::dragEvent(const QPixmap& pixmap)
{
    // The drop may remove this row: nothing of it is touched once the drag ends.
    const auto model = m_model;
    auto* drag = new QDrag(window());
    drag->setMimeData(ChannelMime::make(channelNumber()));
    drag->setPixmap(pixmap);
    drag->setHotSpot(QPoint(0, pixmap.height() / 2));
    drag->exec(Qt::MoveAction);
    emit model->sigDragFinish();
}

bool DragDropSignalWidget::acceptsDrag(const QMimeData* data) const
{
    const int dragged = ChannelMime::channel(data);
    if (dragged < 0 || dragged == channelNumber())
        return false;
    return m_model->isAnalogChannel(dragged) == m_model->isAnalogChannel(channelNumber());
}

void DragDropSignalWidget::setDragSelected(bool selected)
{
    m_dragSelected = selected;
    if (!selected) {
        m_mark->hide();
        return;
    }
    QPalette palette = m_mark->palette();
    palette.setColor(QPalette::Window, RowColors::current().dragMark);
    m_mark->setPalette(palette);
    const int y = m_dragPos == DRAG_POS_UPPER ? kDropMarkInset : height() - kDropMarkInset;
    m_mark->setGeometry(0, y - kDropMarkWidth / 2, width(), kDropMarkWidth);
    m_mark->raise();
    m_mark->show();
}

void DragDropSignalWidget::trackDrag(QDragMoveEvent* event)
{
    if (!acceptsDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    m_dragPos = ChannelMime::dragPos(event->pos().y(), height());
    setDragSelected(true);
    emit sigDragChannelSelected(channelNumber(), true, m_dragPos);
}

void DragDropSignalWidget::dragEnterEvent(QDragEnterEvent* event)
{
    trackDrag(event);
}

void DragDropSignalWidget::dragMoveEvent(QDragMoveEvent* event)
{
    trackDrag(event);
}

void DragDropSignalWidget::dragLeaveEvent(QDragLeaveEvent* event)
{
    setDragSelected(false);
    emit sigDragChannelSelected(channelNumber(), false, m_dragPos);
    event->accept();
}

void DragDropSignalWidget::dropEvent(QDropEvent* event)
{
    const int dragged = ChannelMime::channel(event->mimeData());
    if (!acceptsDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const DRAG_POS pos = ChannelMime::dragPos(event->pos().y(), height());
    setDragSelected(false);
    emit sigDragChannelSelected(channelNumber(), false, pos);
    emit sigDropSignal(DropInfo { dragged, channelNumber(), pos, event });
}
