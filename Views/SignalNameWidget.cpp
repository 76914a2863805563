#include "Views/SignalNameWidget.h"

#include "Model/AnalogChannel.h"

namespace {
// Ids beyond this are made up by the loaders and mean nothing to the user.
constexpr int kLargestShownId = 1000;
} // namespace

SignalNameWidget::SignalNameWidget(QWidget* parent) : QLabel(parent)
{
    QFont bold = font();
    bold.setWeight(QFont::Bold);
    setFont(bold);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SignalNameWidget::setChannel(const Channel& channel, bool isAnalog)
{
    const QString text = nameText(channel, isAnalog);
    setText(text);
    setToolTip(text);
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
