#pragma once

#include "CalcLib/CmrUserSettings.h"
#include "Model/Oscillogram.h"

#include <QMetaType>
#include <QSharedPointer>

// What a loader hands back: the saved view state, if the file carries one, and the record,
// null until a load has finished.
struct LoaderResult
{
    CMR_USER_SETTINGS userSettings;
    QSharedPointer<Oscillogram> oscillogram;
};
