#pragma once

#include <string>

// The saved state of a record view, carried in the .inf section "Tessara UserSettings".
// Each string is compact JSON text written by the view.
struct CMR_USER_SETTINGS
{
    int version = 0;
    std::string analogSignalOrder;
    std::string discreteSignalOrder;
    std::string selectedSignals;
    std::string customColors;
    std::string measures;
    std::string markers;
};
