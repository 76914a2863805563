#include "Views/Painters/PixelBuffer.h"

#include <cstdlib>

PixelBuffer::PixelBuffer(int width, int height)
    : m_capacity(capacityFor(width, height)), m_height(height), m_width(width)
{
    // Never less than one pixel, so that the pointer is always a real allocation.
    const size_t bytes = size_t(qMax<qint64>(m_capacity, qint64(sizeof(QRgb))));
    m_data = static_cast<QRgb*>(std::calloc(bytes, 1));
}

PixelBuffer::~PixelBuffer()
{
    std::free(m_data);
}

qint64 PixelBuffer::capacityFor(int width, int height)
{
    const qint64 bytes = qint64(width) * height * 4;
    if (bytes <= 0)
        return 1;
    qint64 capacity = 1;
    while (capacity <= bytes)
        capacity <<= 1;
    return capacity;
}

QRgb* PixelBuffer::release()
{
    QRgb* data = m_data;
    m_data = nullptr;
    m_capacity = 0;
    return data;
}
