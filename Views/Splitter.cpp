#include "Views/Splitter.h"

#include "Views/RowColors.h"

#include <QMouseEvent>
#include <QPainter>

Splitter::Splitter(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(handleHeight);
    setCursor(Qt::SizeVerCursor);
}

int Splitter::panelHeight() const
{
    return parentWidget() ? parentWidget()->height() : height();
}

void Splitter::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), RowColors::current().splitterHandle);
}

void Splitter::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_pressed = true;
    m_lastY = event->globalPos().y();
}

void Splitter::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed)
        return;
    const int y = event->globalPos().y();
    // The handle stops where the row would get lower than its minimum; the pointer may go on.
    const int delta = qMax(y - m_lastY, m_minPanelHeight - panelHeight());
    if (delta == 0)
        return;
    m_lastY += delta;
    emit moved(delta);
}

void Splitter::mouseReleaseEvent(QMouseEvent*)
{
    m_pressed = false;
}
