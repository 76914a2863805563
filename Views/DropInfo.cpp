#include "Views/DropInfo.h"

#include "Views/OscillogramViewModel.h"

#include <QByteArray>
#include <QDataStream>
#include <QDropEvent>
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

bool accepts(const OscillogramViewModel& model, const QMimeData* data, int targetChannel)
{
    const int dragged = channel(data);
    if (dragged < 0 || dragged == targetChannel)
        return false;
    return model.isAnalogChannel(dragged) == model.isAnalogChannel(targetChannel);
}

bool take(const OscillogramViewModel& model, QDropEvent* event, int targetChannel)
{
    if (!accepts(model, event->mimeData(), targetChannel)) {
        event->ignore();
        return false;
    }
    event->acceptProposedAction();
    return true;
}

} // namespace ChannelMime
