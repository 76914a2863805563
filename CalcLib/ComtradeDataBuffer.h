#pragma once

#include "korvane_export.h"

#include <cstddef>
#include <cstdint>
#include <memory>

// One sample of a .DAT block. The pointers lead into the memory of the owning buffer.
struct KORVANE_EXPORT ComtradeSample
{
    void* analogValues = nullptr;
    uint32_t analogCount = 0;
    uint32_t valueWidth = 0;
    int32_t format = 3;
    uint8_t* digitalValues = nullptr;
    uint32_t digitalCount = 0;

    // Stores a value in the representation of the format; toward integers it is truncated toward
    // zero, and what does not fit keeps its low bits.
    void setAnalogFromDouble(uint32_t index, double value);
    // Stores an integer; 16-bit formats keep its low half.
    void setAnalogFromInt(uint32_t index, int32_t value);
    // The same for count values from index first on, the format looked at once for the run:
    // integers as setAnalogFromInt, floating values as setAnalogFromDouble.
    void setAnalogs(uint32_t first, const int16_t* values, uint32_t count);
    void setAnalogs(uint32_t first, const int32_t* values, uint32_t count);
    void setAnalogs(uint32_t first, const float* values, uint32_t count);
    void setAnalogs(uint32_t first, const double* values, uint32_t count);
    double analogAsDouble(uint32_t index) const;
    void setDigital(uint32_t index, uint8_t value) { digitalValues[index] = value; }
};

struct ComtradeDataBlock
{
    ComtradeSample* samples = nullptr;
    uint32_t sampleCount = 0;
};

// The samples that one writeDat call takes, in a single allocation laid out as block headers,
// sample headers, analogue values, digital values.
class KORVANE_EXPORT ComtradeDataBuffer
{
public:
    ComtradeDataBuffer() = default;
    ComtradeDataBuffer(const ComtradeDataBuffer&) = delete;
    ComtradeDataBuffer& operator=(const ComtradeDataBuffer&) = delete;
    ComtradeDataBuffer(ComtradeDataBuffer&& other) noexcept;
    ComtradeDataBuffer& operator=(ComtradeDataBuffer&& other) noexcept;
    ~ComtradeDataBuffer() = default;

    // 0 on success; -1 when the sizes overflow or the memory can't be had, the buffer is then empty.
    int init(
        uint32_t blocks, uint32_t samplesPerBlock, uint32_t analogCount, uint32_t digitalCount, int format);
    void clear();

    bool isEmpty() const { return sampleCount() == 0; }
    uint32_t blockCount() const { return m_blockCount; }
    uint32_t samplesPerBlock() const { return m_samplesPerBlock; }
    uint64_t sampleCount() const { return uint64_t(m_blockCount) * m_samplesPerBlock; }
    uint32_t analogCount() const { return m_analogCount; }
    uint32_t digitalCount() const { return m_digitalCount; }
    int format() const { return m_format; }
    const ComtradeDataBlock& block(uint32_t index) const { return m_blocks[index]; }
    ComtradeSample& sample(uint32_t blockIndex, uint32_t sampleIndex)
    {
        return m_blocks[blockIndex].samples[sampleIndex];
    }
    const ComtradeSample& sample(uint32_t blockIndex, uint32_t sampleIndex) const
    {
        return m_blocks[blockIndex].samples[sampleIndex];
    }
    // Start of the single allocation, for callers that check the layout.
    const unsigned char* memory() const { return m_memory.get(); }

    // Bytes of one analogue value in a format: 8 for ASCII (doubles), 2, 4, 4; float32's 4 for
    // any unknown format, which is written as float32.
    static uint32_t valueWidth(int format);

private:
    std::unique_ptr<unsigned char[]> m_memory;
    ComtradeDataBlock* m_blocks = nullptr;
    uint32_t m_blockCount = 0;
    uint32_t m_samplesPerBlock = 0;
    uint32_t m_analogCount = 0;
    uint32_t m_digitalCount = 0;
    int m_format = 3;
};
