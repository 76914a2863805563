#pragma once

// What a picture of the time line shows. A negative start sample or scale stands for the view
// model's value.
struct TimeLineDrawInfo
{
    int startSample = -1;
    double xScale = -1.0;
    bool drawMeasures = true;
    bool drawMarkers = true;
};
