#include "Views/DigitalChannelNameItem.h"

#include "Model/DigitalChannel.h"
#include "Views/ListHelpers.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

#include <QContextMenuEvent>
#include <QIcon>
#include <QMenu>
#include <QPainter>

namespace {
// Ids above this are numbers the loaders made up; -1 is no id at all.
constexpr int kLargestShownId = 9999;
constexpr int kTextMargin = 3;
} // namespace

DigitalChannelNameItem::DigitalChannelNameItem(
    const QSharedPointer<OscillogramViewModel>& model, QWidget* parent)
    : QWidget(parent), m_model(model)
{
}

void DigitalChannelNameItem::setChannel(const QSharedPointer<DigitalChannel>& channel, int channelNumber)
{
    m_channel = channel;
    m_channelNumber = channelNumber;
    setName(*channel);
}

void DigitalChannelNameItem::setName(const DigitalChannel& channel)
{
    // The brackets stay even without line names: the name always starts at the same place.
    m_name = QStringLiteral("(%1) ").arg(channel.lineNames().join(QStringLiteral(", ")));
    const int id = channel.physNum();
    if (id != -1 && id <= kLargestShownId)
        m_name += QString::number(id) + QStringLiteral(". ");
    m_name += channel.name();
    setToolTip(m_name);
    update();
}

QString DigitalChannelNameItem::stateMark() const
{
    if (!m_channel)
        return QString();
    return m_channel->normalState() ? tr("Н.З.") : tr("Н.О.");
}

void DigitalChannelNameItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const RowColors colors = RowColors::current();
    painter.setPen(colors.nameText);
    const QString mark = stateMark();
    const int markWidth = fontMetrics().horizontalAdvance(mark) + 2 * kTextMargin;
    const QRect nameRect = rect().adjusted(kTextMargin, 0, -markWidth, 0);
    painter.drawText(nameRect, Qt::AlignLeft | Qt::AlignVCenter,
        fontMetrics().elidedText(m_name, Qt::ElideRight, nameRect.width()));
    painter.setPen(colors.lineText);
    painter.drawText(rect().adjusted(0, 0, -kTextMargin, 0), Qt::AlignRight | Qt::AlignVCenter, mark);
}

QMenu* DigitalChannelNameItem::makeContextMenu()
{
    auto* menu = new QMenu(this);
    QAction* invert = menu->addAction(QIcon(QStringLiteral(":/icons/ic_digital_invert.svg")),
        tr("Инвертировать сигнал"), this, &DigitalChannelNameItem::slotInvert);
    invert->setCheckable(true);
    invert->setChecked(m_channel && m_channel->isInverted());
    return menu;
}

void DigitalChannelNameItem::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = makeContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void DigitalChannelNameItem::slotInvert()
{
    if (!m_channel)
        return;
    AListHelper::setChannelInverted(*m_model, m_channelNumber, !m_channel->isInverted());
}
