#pragma once

#include <QtGlobal>

// Maps raw values of an analogue channel to rows of a plot of height H: at amplitude 1.0 the
// minimum lands on row H - 2 and the maximum on row 2; the amplitude zooms around the middle of
// the range and the offset shifts it.
struct VerticalMapping
{
    double k = 0.0;
    double d = 0.0;

    VerticalMapping(double minValue, double maxValue, double amplitude, double offset, int height)
    {
        const double centre = (maxValue + minValue) / 2.0;
        const double half = (maxValue - minValue) / 2.0 / amplitude;
        const double low = centre - half;
        const double high = centre + half;
        k = (height - 4) / (low - high);
        d = (offset - low) + (height - 2) / k;
    }

    // Truncated toward zero; values that do not fit an int (a zero amplitude) are held at a
    // distance that every clamp and clip still handles.
    int row(double value) const { return toRow((value + d) * k); }

    static int toRow(double y)
    {
        if (!(y == y))
            return 0;
        return int(qBound(-1.0e9, y, 1.0e9));
    }
};
