#include "Views/TimeLineTexts.h"

#include <QPaintDevice>
#include <QPainter>

namespace {
// Enough for the labels of several rulers; a record scrolled through many scales starts afresh.
constexpr int maximumTexts = 4096;
} // namespace

void TimeLineTexts::prepareFor(const QPainter& painter)
{
    const QPaintDevice* device = painter.device();
    if (device->logicalDpiX() == m_dpiX && device->logicalDpiY() == m_dpiY && painter.font() == m_font
        && m_texts.size() < maximumTexts)
        return;
    m_texts.clear();
    m_font = painter.font();
    m_metrics = QFontMetrics(m_font, device);
    m_dpiX = device->logicalDpiX();
    m_dpiY = device->logicalDpiY();
}

const TimeLineTexts::Text& TimeLineTexts::laidOut(const QString& text)
{
    auto found = m_texts.find(text);
    if (found == m_texts.end()) {
        Text entry { QStaticText(text), m_metrics.horizontalAdvance(text) };
        entry.laid.setTextFormat(Qt::PlainText);
        entry.laid.prepare(QTransform(), m_font);
        found = m_texts.insert(text, entry);
    }
    return *found;
}

void TimeLineTexts::draw(QPainter& painter, const QRectF& rect, int flags, const QString& text)
{
    const QStaticText& laid = laidOut(text).laid;
    const QSizeF size = laid.size();
    double x = rect.left();
    if (flags & Qt::AlignRight)
        x = rect.right() - size.width();
    else if (flags & Qt::AlignHCenter)
        x = rect.left() + (rect.width() - size.width()) / 2;
    double y = rect.top();
    if (flags & Qt::AlignVCenter)
        y = rect.top() + (rect.height() - size.height()) / 2;
    const QRectF box(QPointF(x, y), size);
    const bool clip = !rect.contains(box);
    if (clip) {
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
    }
    painter.drawStaticText(box.topLeft(), laid);
    if (clip)
        painter.restore();
}
