#pragma once

#include "Views/Painters/PixelBuffer.h"
#include "korvane_export.h"

#include <cmath>

// Lines on raw pixels. Rows and columns outside the image are skipped as each function says;
// no write ever leaves the buffer's allocation.
namespace PixelDraw {

// Columns x - t/2 .. x - t/2 + t - 1, rows y0 .. y1 - 1; nothing when x is outside the width.
KORVANE_EXPORT void verticalLine(PixelBuffer& buffer, int x, int y0, int y1, int thickness, QRgb color);
// As the vertical line, but on the columns x - t .. x - 1: the left edge of a frame at x.
KORVANE_EXPORT void frameEdge(PixelBuffer& buffer, int x, int y0, int y1, int thickness, QRgb color);
// Rows y - t/2 .., columns x0 .. x1 - 1.
KORVANE_EXPORT void horizontalLine(PixelBuffer& buffer, int y, int x0, int x1, int thickness, QRgb color);
// Bresenham from (x0, y0) to (x1, y1) without its first pixel, which the previous segment of a
// trace has drawn; pixels outside the image are dropped.
KORVANE_EXPORT void segment(PixelBuffer& buffer, int x0, int y0, int x1, int y1, QRgb color);
// Fills rows from..to inclusive of column x, for from <= to.
KORVANE_EXPORT void columnSpan(PixelBuffer& buffer, int x, int from, int to, QRgb color);

// The pixel column of a sample in the time layers, or -1 when it is outside 0..width.
inline int sampleColumn(int sample, int startSample, double xScale, int width)
{
    const double position = (sample - startSample) * xScale;
    if (position < 0.0 || position > width)
        return -1;
    return int(position);
}

// Floor for the column of a sample, as the traces use it.
inline int floorColumn(double position)
{
    return int(std::floor(position));
}

} // namespace PixelDraw
