#pragma once

#include <QMetaType>

class QDropEvent;

// Where a dragged channel was dropped: the upper or the lower half of the target row.
enum DRAG_POS : int { DRAG_POS_UPPER = 0, DRAG_POS_LOWER = 1 };

struct DropInfo
{
    int draggedChannel = -1;
    int targetChannel = -1;
    DRAG_POS pos = DRAG_POS_UPPER;
    QDropEvent* event = nullptr;
};

Q_DECLARE_METATYPE(DropInfo)
