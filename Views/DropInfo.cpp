#include "Views/DropInfo.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace ChannelMime {

QString type()
{
    return QStringLiteral("application/x-channel");
}

QString modelType()
{
    return QStringLiteral("application/x-model-channel");
}

QMimeData* make(int channel)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << channel;
    auto* data = new QMimeData;
    data->setData(type(), bytes);
    return data;
}

int channel(const QMimeData* data)
{
    if (!data || !data->hasFormat(type()))
        return -1;
    QDataStream stream(data->data(type()));
    int number = -1;
    stream >> number;
    return stream.status() == QDataStream::Ok ? number : -1;
}

DRAG_POS dragPos(int y, int height)
{
    return height / 2 <= y ? DRAG_POS_LOWER : DRAG_POS_UPPER;
}

} // namespace ChannelMime
