#pragma once

#include "Model/Oscillogram.h"

#include <QListWidgetItem>

// One channel of the merged record, and its row in the form's channel list: the source record,
// the source channel and the channel's number among the channels of its kind in that record.
class KORVANE_EXPORT MergeItem : public QListWidgetItem
{
public:
    MergeItem(
        const QSharedPointer<Oscillogram>& oscillogram, const QSharedPointer<Channel>& channel, int number);

    QSharedPointer<Oscillogram> oscillogram() const { return m_oscillogram; }
    QSharedPointer<Channel> channel() const { return m_channel; }
    int number() const { return m_number; }
    // The channel's column in the source's store.
    int column() const { return m_channel->dataOffset(); }
    bool isAnalog() const { return m_isAnalog; }

private:
    QSharedPointer<Oscillogram> m_oscillogram;
    QSharedPointer<Channel> m_channel;
    int m_number;
    bool m_isAnalog;
};
