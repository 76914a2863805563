#include "Views/Painters/Markers.h"

#include "Settings/ColorStyle.h"
#include "Views/Painters/DrawPrimitives.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

Markers::Markers() : m_metrics(m_font)
{
}

bool Markers::contains(int sample) const
{
    for (const Item& item : m_items) {
        if (item.sampleNumber == sample)
            return true;
    }
    return false;
}

void Markers::append(const Item& item)
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i].sampleNumber > item.sampleNumber) {
            m_items.insert(i, item);
            return;
        }
    }
    m_items.append(item);
}

void Markers::remove(const Item& item)
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i].sampleNumber == item.sampleNumber) {
            m_items.removeAt(i);
            return;
        }
    }
}

void Markers::setItems(const QList<Item>& items)
{
    m_items = items;
}

void Markers::clear()
{
    m_items.clear();
    m_titles.clear();
    m_tableChannels.clear();
    m_shortNames.clear();
    m_longNames.clear();
    m_parameterCounts.clear();
}

QString Markers::valueText(const QVariant& value)
{
    if (value.type() == QVariant::Double)
        return QString::number(value.toDouble(), 'f', 3);
    return value.toString();
}

QStringList Markers::boxRows(int channel, const Item& item) const
{
    QStringList rows;
    const QVariantList values = item.values.value(channel);
    const QStringList names = m_shortNames.value(channel);
    for (int i = 0; i < values.size(); ++i)
        rows << names.value(i) + QStringLiteral(" = ") + valueText(values[i]);
    return rows;
}

void Markers::paint(PixelBuffer& buffer)
{
    if (m_items.isEmpty())
        return;
    const auto& style = KV::Cfg::ColorStyle::current();
    QImage image(
        reinterpret_cast<uchar*>(buffer.data()), buffer.width(), buffer.height(), QImage::Format_ARGB32);
    QPainter painter(&image);
    painter.setFont(m_font);
    const int h = m_metrics.height();
    for (const Item& item : m_items) {
        const double x = (item.sampleNumber - m_startSample) * m_xScale;
        if (x < 0.0 || x > buffer.width())
            continue;
        PixelDraw::verticalLine(buffer, int(x), 0, buffer.height(), 1, style.markerLine);
        if (m_channel < 0)
            continue;
        const QStringList rows = boxRows(m_channel, item);
        if (rows.isEmpty())
            continue;
        int w = 0;
        for (const QString& row : rows)
            w = qMax(w, m_metrics.horizontalAdvance(row));
        const int n = rows.size();
        const int left = int(x + 6.0);
        painter.setPen(QColor::fromRgba(style.markerBoxFrame));
        painter.setBrush(QColor::fromRgba(style.markerBoxFrame));
        painter.drawRoundedRect(QRect(left - 1, 4, w + 4, n * h + 2), 5.0, 5.0);
        painter.setPen(QColor::fromRgba(style.markerBoxFill));
        painter.setBrush(QColor::fromRgba(style.markerBoxFill));
        painter.drawRoundedRect(QRect(left, 5, w + 2, n * h), 5.0, 5.0);
        painter.setPen(Qt::black);
        for (int i = 0; i < n; ++i)
            painter.drawText(QRect(left + 1, 5 + i * h, w + 1, h), Qt::AlignLeft | Qt::AlignTop, rows[i]);
    }
}
