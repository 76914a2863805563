#include "Views/ParValueWidget.h"

#include <QPainter>

#include <cmath>

namespace {
constexpr int kDecimals = 3;
constexpr int kColumnGap = 6;
} // namespace

ParValueWidget::ParValueWidget(QWidget* parent) : QWidget(parent)
{
    setToolTip(tr("Отображаемое значение сигнала"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ParValueWidget::setParameters(const QStringList& names, const QStringList& units, int rowsPerColumn)
{
    m_names = names;
    m_units = units;
    m_rowsPerColumn = qMax(rowsPerColumn, 1);
    m_values.clear();
    m_colors.clear();
    updateGeometry();
    update();
}

void ParValueWidget::setValues(const QVariantList& values, const QList<QColor>& colors)
{
    m_values = values;
    m_colors = colors;
    update();
}

QString ParValueWidget::valueText(const QVariant& value)
{
    if (!value.isValid())
        return QStringLiteral("—");
    // Converter codes come as integers and are shown as such.
    if (value.type() != QVariant::Double)
        return value.toString();
    const double number = value.toDouble();
    if (!std::isfinite(number))
        return QStringLiteral("—");
    return QString::number(number, 'f', kDecimals);
}

QStringList ParValueWidget::texts() const
{
    QStringList rows;
    for (int i = 0; i < m_names.size(); ++i) {
        QString text = m_names[i] + QStringLiteral(" = ") + valueText(m_values.value(i));
        const QString unit = m_units.value(i);
        if (!unit.isEmpty() && m_values.value(i).isValid())
            text += (unit == QStringLiteral("°") ? QString() : QStringLiteral(" ")) + unit;
        rows << text;
    }
    return rows;
}

int ParValueWidget::columnCount() const
{
    return (m_names.size() + m_rowsPerColumn - 1) / m_rowsPerColumn;
}

QSize ParValueWidget::sizeHint() const
{
    return QSize(QWidget::sizeHint().width(), m_rowsPerColumn * fontMetrics().height());
}

void ParValueWidget::paintEvent(QPaintEvent*)
{
    const int columns = columnCount();
    if (columns == 0)
        return;
    QPainter painter(this);
    const int lineHeight = fontMetrics().height();
    const int columnWidth = width() / columns;
    const QStringList rows = texts();
    for (int i = 0; i < rows.size(); ++i) {
        const int column = i / m_rowsPerColumn;
        const QRect cell(
            column * columnWidth, (i % m_rowsPerColumn) * lineHeight, columnWidth - kColumnGap, lineHeight);
        if (cell.top() >= height())
            continue;
        painter.setPen(m_colors.value(i, palette().color(QPalette::WindowText)));
        painter.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter,
            fontMetrics().elidedText(rows[i], Qt::ElideRight, cell.width()));
    }
}
