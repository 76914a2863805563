#include "Views/ImageView.h"

#include <QPainter>
#include <QResizeEvent>

ImageSource::~ImageSource() = default;

ImageView::ImageView(QWidget* parent) : QWidget(parent)
{
    // The picture covers the whole widget, so Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ImageView::paintEvent(QPaintEvent*)
{
    if (!m_source)
        return;
    QPainter painter(this);
    painter.drawImage(0, 0, m_source->image());
}

void ImageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    emit sizeChanged(event->size());
}
