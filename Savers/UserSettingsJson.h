#pragma once

#include "CalcLib/CmrUserSettings.h"
#include "Model/MeasureItem.h"
#include "korvane_export.h"

#include <QList>

#include <vector>

// The saved state of a record view as the .inf carries it: version 1, each piece compact JSON.
struct KORVANE_EXPORT UserSettingsJson
{
    // The view's pieces: channel ids of each analogue plot, ids of the discrete list, a flag per
    // channel, a colour per channel (empty or red, green, blue, alpha), time measures, markers.
    QList<QList<int>> analogSignalOrder;
    QList<int> discreteSignalOrder;
    std::vector<bool> selectedSignals;
    std::vector<std::vector<unsigned short>> customColors;
    QList<MeasureItem> measures;
    QList<int> markers;

    CMR_USER_SETTINGS toSettings() const;
    // Pieces that are missing or not JSON of the expected shape come back empty.
    static UserSettingsJson fromSettings(const CMR_USER_SETTINGS& settings);
};
