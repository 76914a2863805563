#pragma once

#include "Model/Oscillogram.h"
#include "Model/MeasureItem.h"

#include <QSharedPointer>

#include <optional>

class CalcModule;

// What a save dialog works on: the record, the calculation module and the side of values that
// the view shows, and the time range marked on the view, if there is one.
struct SaveSource
{
    QSharedPointer<Oscillogram> record;
    QSharedPointer<CalcModule> calcModule;
    int primSecMode = 0;
    std::optional<MeasureItem> timeRange;
};
