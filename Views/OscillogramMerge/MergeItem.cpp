#include "MergeItem.h"

MergeItem::MergeItem(
    const QSharedPointer<Oscillogram>& oscillogram, const QSharedPointer<Channel>& channel, int number)
    : QListWidgetItem(channel->name())
    , m_oscillogram(oscillogram)
    , m_channel(channel)
    , m_number(number)
    , m_isAnalog(!channel.dynamicCast<AnalogChannel>().isNull())
{
}
