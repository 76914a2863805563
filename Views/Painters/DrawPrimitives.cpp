#include "Views/Painters/DrawPrimitives.h"

#include <cstdlib>

namespace PixelDraw {

namespace {
// Vertical run of one column. Columns beyond the width would wrap into the next row, so they are
// skipped like negative ones.
void column(PixelBuffer& buffer, int x, int y0, int y1, QRgb color)
{
    if (x < 0 || x >= buffer.width())
        return;
    for (int y = qMax(y0, 0); y < y1; ++y) {
        const qint64 index = qint64(y) * buffer.width() + x;
        if (!buffer.isInside(index))
            return;
        buffer.data()[index] = color;
    }
}
} // namespace

void verticalLine(PixelBuffer& buffer, int x, int y0, int y1, int thickness, QRgb color)
{
    if (x < 0 || x >= buffer.width())
        return;
    const int first = x - thickness / 2;
    for (int c = first; c < first + thickness; ++c)
        column(buffer, c, y0, y1, color);
}

void frameEdge(PixelBuffer& buffer, int x, int y0, int y1, int thickness, QRgb color)
{
    if (x < 0 || x >= buffer.width())
        return;
    for (int c = x - thickness; c < x; ++c)
        column(buffer, c, y0, y1, color);
}

void horizontalLine(PixelBuffer& buffer, int y, int x0, int x1, int thickness, QRgb color)
{
    // Row H, one past the last, is allowed like in the traces; it lies in the spare room.
    if (y < 0 || y > buffer.height())
        return;
    const int first = y - thickness / 2;
    for (int row = qMax(first, 0); row < first + thickness; ++row) {
        for (int x = qMax(x0, 0); x < x1 && x < buffer.width(); ++x) {
            const qint64 index = qint64(row) * buffer.width() + x;
            if (buffer.isInside(index))
                buffer.data()[index] = color;
        }
    }
}

void segment(PixelBuffer& buffer, int x0, int y0, int x1, int y1, QRgb color)
{
    const int dx = std::abs(x1 - x0);
    const int dy = std::abs(y1 - y0);
    const int sx = x1 >= x0 ? 1 : -1;
    const int sy = y1 >= y0 ? 1 : -1;
    const int width = buffer.width();
    const int height = buffer.height();
    auto plot = [&](int x, int y) {
        if (x >= 0 && x < width && y >= 0 && y < height)
            buffer.data()[qint64(y) * width + x] = color;
    };
    int x = x0;
    int y = y0;
    if (dx >= dy) {
        int error = 2 * dy - dx;
        for (int i = 0; i < dx; ++i) {
            if (error > 0) {
                y += sy;
                error -= 2 * dx;
            }
            error += 2 * dy;
            x += sx;
            plot(x, y);
        }
    } else {
        int error = 2 * dx - dy;
        for (int i = 0; i < dy; ++i) {
            if (error > 0) {
                x += sx;
                error -= 2 * dy;
            }
            error += 2 * dx;
            y += sy;
            plot(x, y);
        }
    }
}

void columnSpan(PixelBuffer& buffer, int x, int from, int to, QRgb color)
{
    if (x < 0 || x >= buffer.width())
        return;
    column(buffer, x, from, to + 1, color);
}

} // namespace PixelDraw
