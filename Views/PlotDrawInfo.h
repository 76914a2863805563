#pragma once

#include "korvane_export.h"

// What a picture of channels is to show; negative values stand for the view model's own state.
struct KORVANE_EXPORT PlotDrawInfo
{
    int startSample = -1;
    double xScale = -1.0;
    // A QRgb in the low word, or negative for the background of the colour style.
    long long backgroundColor = -1;
    bool drawTimeGrid = true;
    bool drawFailures = true;
    bool drawTrigger = true;
    bool drawMarkers = true;
    bool drawMeasures = true;
    bool drawCurrentSample = true;
};
