#include "Views/ScrollArea.h"

#include "Views/OscillogramViewModel.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

ScrollArea::ScrollArea(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // One wheel notch or arrow press moves by one row of the default height.
    verticalScrollBar()->setSingleStep(OscillogramViewModel::defaultRowHeight());
}

void ScrollArea::insertRow(int index, QWidget* row)
{
    index = qBound(0, index, m_rows.size());
    row->setParent(viewport());
    m_rows.insert(index, row);
    m_heights.insert(index, 0);
    m_visible.insert(index, true);
    row->show();
}

void ScrollArea::deleteRow(int index)
{
    if (index < 0 || index >= m_rows.size())
        return;
    // Later: the row may be the source of the drag whose drop removes it.
    QWidget* row = m_rows.takeAt(index);
    row->hide();
    row->deleteLater();
    m_heights.removeAt(index);
    m_visible.removeAt(index);
}

void ScrollArea::deleteAllRows()
{
    for (QWidget* row : qAsConst(m_rows)) {
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    m_heights.clear();
    m_visible.clear();
}

void ScrollArea::setRowHeight(int index, int height)
{
    if (index >= 0 && index < m_heights.size())
        m_heights[index] = qMax(height, 0);
}

int ScrollArea::rowHeight(int index) const
{
    return m_heights.value(index);
}

void ScrollArea::setRowVisible(int index, bool visible)
{
    if (index < 0 || index >= m_visible.size())
        return;
    m_visible[index] = visible;
    m_rows[index]->setVisible(visible);
}

bool ScrollArea::isRowVisible(int index) const
{
    return m_visible.value(index);
}

int ScrollArea::contentHeight() const
{
    int height = 0;
    for (int i = 0; i < m_rows.size(); ++i)
        height += m_visible[i] ? m_heights[i] : 0;
    return height;
}

void ScrollArea::relayout()
{
    QScrollBar* bar = verticalScrollBar();
    const int viewportHeight = viewport()->height();
    m_placing = true;
    bar->setPageStep(viewportHeight);
    bar->setRange(0, qMax(contentHeight() - viewportHeight, 0));
    m_placing = false;
    placeRows();
}

void ScrollArea::placeRows()
{
    const int width = viewport()->width();
    int y = -verticalScrollBar()->value();
    for (int i = 0; i < m_rows.size(); ++i) {
        if (!m_visible[i])
            continue;
        m_rows[i]->setGeometry(0, y, width, m_heights[i]);
        y += m_heights[i];
    }
}

void ScrollArea::paintEvent(QPaintEvent*)
{
    QPainter(viewport()).fillRect(viewport()->rect(), viewportColor());
}

void ScrollArea::scrollContentsBy(int, int)
{
    if (!m_placing)
        placeRows();
}

void ScrollArea::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    relayout();
}

QSize ScrollArea::viewportSizeHint() const
{
    return QSize(viewport()->width(), contentHeight());
}

void ScrollArea::setListHelper(std::unique_ptr<AListHelper> helper)
{
    m_helper = std::move(helper);
}

void ScrollArea::repopulate(const std::optional<std::vector<int>>& order)
{
    m_helper->repopulate(order);
}

void ScrollArea::repopulateWithOverlays(const AListHelper::Rows& rows)
{
    m_helper->repopulateWithOverlays(rows);
}

std::vector<int> ScrollArea::containedChannelIds() const
{
    return m_helper->containedChannelIds();
}

int ScrollArea::findInsertIndex(const DropInfo& drop) const
{
    return m_helper->findInsertIndex(drop);
}

QWidget* ScrollArea::itemAttachedToDescriptor(int channel) const
{
    return m_helper->itemAttachedToDescriptor(channel);
}

void ScrollArea::addChannel(const DropInfo& drop)
{
    m_helper->requestMove(drop);
}

void ScrollArea::setUndoStack(QUndoStack* stack)
{
    m_helper->setUndoStack(stack);
}

void ScrollArea::updateChannelVisible(const QVector<bool>& filter)
{
    m_helper->updateChannelVisible(filter);
}

void ScrollArea::updateChannelRowHeight(int channel, int height)
{
    m_helper->updateChannelRowHeight(channel, height);
}

void ScrollArea::updateChannelSelection(int channel, bool isSelected)
{
    m_helper->updateChannelSelection(channel, isSelected);
}

void ScrollArea::updateHeight(int channel, int height)
{
    m_helper->updateChannelRowHeight(channel, height);
}
