#include "Views/SignalNameWidget.h"

#include "Model/AnalogChannel.h"
#include "Views/RowColors.h"

#include <QPainter>

namespace {
// Ids beyond this are made up by the loaders and mean nothing to the user.
constexpr int kLargestShownId = 1000;
} // namespace

SignalNameWidget::SignalNameWidget(QWidget* parent) : QWidget(parent)
{
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    setFont(bold);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SignalNameWidget::setChannel(const Channel& channel, bool isAnalog)
{
    m_text = nameText(channel, isAnalog);
    setToolTip(m_text);
    update();
}

QSize SignalNameWidget::sizeHint() const
{
    return QSize(fontMetrics().horizontalAdvance(m_text), fontMetrics().height());
}

QSize SignalNameWidget::minimumSizeHint() const
{
    return QSize(0, fontMetrics().height());
}

void SignalNameWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(RowColors::current().nameText);
    painter.drawText(
        rect(), Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(m_text, Qt::ElideRight, width()));
}

QString SignalNameWidget::nameText(const Channel& channel, bool isAnalog)
{
    QString text;
    if (!channel.lineNames().isEmpty())
        text = channel.lineNames().join(QStringLiteral(", ")) + QLatin1Char(' ');
    const int id = channel.physNum();
    if (id >= 0 && id <= kLargestShownId)
        text += QString::number(id) + QStringLiteral(". ");
    text += channel.name();
    if (isAnalog)
        text += QStringLiteral(" - %1").arg(static_cast<const AnalogChannel&>(channel).unit());
    return text;
}
