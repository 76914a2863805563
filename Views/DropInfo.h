#pragma once

#include "korvane_export.h"

#include <QMetaType>
#include <QString>

class QDropEvent;
class QMimeData;

// Where a dragged channel was dropped: the upper or the lower half of the target row.
enum DRAG_POS : int { DRAG_POS_UPPER = 0, DRAG_POS_LOWER = 1 };

// A channel dropped on a row: which one, onto which row, and into which half of it.
struct DropInfo
{
    int draggedChannel = -1;
    int targetChannel = -1;
    DRAG_POS pos = DRAG_POS_UPPER;
    QDropEvent* event = nullptr;
};

Q_DECLARE_METATYPE(DropInfo)
Q_DECLARE_METATYPE(DRAG_POS)

// The drag payload of a row: one channel number in a data stream.
namespace ChannelMime {
KORVANE_EXPORT QString type();
// The type of the channel selection tables' drags.
KORVANE_EXPORT QString modelType();
// Owned by the caller, as QDrag expects.
KORVANE_EXPORT QMimeData* make(int channel);
// The channel number, or -1 when the data is not a row drag.
KORVANE_EXPORT int channel(const QMimeData* data);
// The half of a row of that height that y falls in.
KORVANE_EXPORT DRAG_POS dragPos(int y, int height);
} // namespace ChannelMime
