#pragma once

#include "korvane_export.h"

#include <QRgb>

#include <cstdint>

// The raw ARGB32 pixels of one plot, row-major, y = 0 at the top. A new buffer holds no defined
// picture: the background layer fills all of it first. The allocation is the next power
// of two strictly above the image size: traces clamp rows to the height itself, one row past the
// last, and such writes must land inside the allocation. The pixels end up in a QImage that frees
// them, so the buffer can give up its pointer.
class KORVANE_EXPORT PixelBuffer
{
public:
    PixelBuffer(int width, int height);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    // Capacity in bytes for an image of the size.
    static qint64 capacityFor(int width, int height);

    QRgb* data() const { return m_data; }
    qint64 capacity() const { return m_capacity; }
    // Number of whole pixels inside the capacity.
    qint64 pixelCapacity() const { return m_capacity / qint64(sizeof(QRgb)); }
    int width() const { return m_width; }
    int height() const { return m_height; }

    bool isInside(qint64 index) const { return index >= 0 && index < pixelCapacity(); }
    void setPixel(int x, int y, QRgb color)
    {
        const qint64 index = qint64(y) * m_width + x;
        if (isInside(index))
            m_data[index] = color;
    }
    QRgb pixel(int x, int y) const { return m_data[qint64(y) * m_width + x]; }

    // Hands the pixels over. The owner gives them back with recycle(block), the block being
    // what releasedBlock() answered before the release.
    QRgb* release();
    void* releasedBlock() const { return m_block; }
    // Takes back the allocation of a released buffer, keeping one for the next plot: a plot is
    // drawn on each paint, and a fresh allocation of that size costs more in page faults than
    // painting it. Safe from any thread; fits QImage's clean-up function.
    static void recycle(void* block);

private:
    void* m_block = nullptr;
    QRgb* m_data = nullptr;
    qint64 m_capacity = 0;
    int m_height = 0;
    int m_width = 0;
};
