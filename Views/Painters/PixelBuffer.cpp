#include "Views/Painters/PixelBuffer.h"

#include <atomic>
#include <cstdlib>

namespace {
// An allocation starts with its capacity; the pixels follow at a cache-line boundary.
constexpr size_t headerSize = 64;

struct BlockHeader
{
    qint64 capacity;
};

std::atomic<void*> spareBlock { nullptr };

void* takeBlock(qint64 capacity)
{
    void* block = spareBlock.exchange(nullptr);
    if (block && static_cast<BlockHeader*>(block)->capacity == capacity)
        return block;
    std::free(block);
    block = std::calloc(headerSize + size_t(capacity), 1);
    if (block)
        static_cast<BlockHeader*>(block)->capacity = capacity;
    return block;
}
} // namespace

PixelBuffer::PixelBuffer(int width, int height)
    : m_capacity(capacityFor(width, height)), m_height(height), m_width(width)
{
    // Never less than one pixel, so that the pointer is always a real allocation.
    m_block = takeBlock(qMax<qint64>(m_capacity, qint64(sizeof(QRgb))));
    if (m_block)
        m_data = reinterpret_cast<QRgb*>(static_cast<char*>(m_block) + headerSize);
    else
        m_capacity = 0;
}

PixelBuffer::~PixelBuffer()
{
    if (m_data)
        recycle(m_block);
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

void PixelBuffer::recycle(void* block)
{
    std::free(spareBlock.exchange(block));
}
