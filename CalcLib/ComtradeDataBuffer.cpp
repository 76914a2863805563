#include "CalcLib/ComtradeDataBuffer.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace {
constexpr size_t alignment = alignof(std::max_align_t);

size_t alignUp(size_t size)
{
    return (size + alignment - 1) / alignment * alignment;
}

// a * b + sum, or false when it does not fit in size_t.
bool multiplyAdd(size_t a, size_t b, size_t& sum)
{
    if (b != 0 && a > (std::numeric_limits<size_t>::max() - sum) / b)
        return false;
    sum += a * b;
    return true;
}

// Truncation toward zero into 64 bits, saturated, so that the low bits of any value are defined.
int64_t truncateToInt64(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= 9223372036854775807.0)
        return std::numeric_limits<int64_t>::max();
    if (value <= -9223372036854775808.0)
        return std::numeric_limits<int64_t>::min();
    return static_cast<int64_t>(value);
}

template<typename T> T loadValue(const void* values, uint32_t index)
{
    T value;
    std::memcpy(&value, static_cast<const unsigned char*>(values) + size_t(index) * sizeof(T), sizeof(T));
    return value;
}

float narrowToFloat(double value)
{
    if (value > std::numeric_limits<float>::max())
        return std::numeric_limits<float>::infinity();
    if (value < -std::numeric_limits<float>::max())
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

// The representation of each format, from an integer or from a floating value. Toward integers a
// floating value is truncated toward zero and keeps its low bits; toward float32 what is too large
// becomes infinite.
struct AsDouble
{
    using Out = double;
    static double of(int32_t value) { return value; }
    static double of(double value) { return value; }
};
struct AsInt16
{
    using Out = int16_t;
    static int16_t of(int32_t value) { return static_cast<int16_t>(static_cast<uint16_t>(value)); }
    static int16_t of(double value)
    {
        return static_cast<int16_t>(static_cast<uint16_t>(truncateToInt64(value)));
    }
};
struct AsInt32
{
    using Out = int32_t;
    static int32_t of(int32_t value) { return value; }
    static int32_t of(double value)
    {
        return static_cast<int32_t>(static_cast<uint32_t>(truncateToInt64(value)));
    }
};
struct AsFloat
{
    using Out = float;
    static float of(int32_t value) { return static_cast<float>(value); }
    static float of(double value) { return narrowToFloat(value); }
};

// Integers stay integers on the way, floating values become doubles.
int32_t widened(int16_t value)
{
    return value;
}
int32_t widened(int32_t value)
{
    return value;
}
double widened(float value)
{
    return value;
}
double widened(double value)
{
    return value;
}

template<typename Format, typename T> void storeRun(void* values, uint32_t first, const T* in, uint32_t count)
{
    using Out = typename Format::Out;
    Out* out = static_cast<Out*>(values) + first;
    for (uint32_t i = 0; i < count; ++i) {
        const Out value = Format::of(widened(in[i]));
        std::memcpy(out + i, &value, sizeof(Out));
    }
}

template<typename T> void storeRunIn(int format, void* values, uint32_t first, const T* in, uint32_t count)
{
    switch (format) {
    case 0:
        storeRun<AsDouble>(values, first, in, count);
        break;
    case 1:
        storeRun<AsInt16>(values, first, in, count);
        break;
    case 2:
        storeRun<AsInt32>(values, first, in, count);
        break;
    default:
        storeRun<AsFloat>(values, first, in, count);
        break;
    }
}
} // namespace

void ComtradeSample::setAnalogFromDouble(uint32_t index, double value)
{
    storeRunIn(format, analogValues, index, &value, 1);
}

void ComtradeSample::setAnalogFromInt(uint32_t index, int32_t value)
{
    storeRunIn(format, analogValues, index, &value, 1);
}

void ComtradeSample::setAnalogs(uint32_t first, const int16_t* values, uint32_t count)
{
    storeRunIn(format, analogValues, first, values, count);
}

void ComtradeSample::setAnalogs(uint32_t first, const int32_t* values, uint32_t count)
{
    storeRunIn(format, analogValues, first, values, count);
}

void ComtradeSample::setAnalogs(uint32_t first, const float* values, uint32_t count)
{
    storeRunIn(format, analogValues, first, values, count);
}

void ComtradeSample::setAnalogs(uint32_t first, const double* values, uint32_t count)
{
    storeRunIn(format, analogValues, first, values, count);
}

double ComtradeSample::analogAsDouble(uint32_t index) const
{
    switch (format) {
    case 0:
        return loadValue<double>(analogValues, index);
    case 1:
        return loadValue<int16_t>(analogValues, index);
    case 2:
        return loadValue<int32_t>(analogValues, index);
    default:
        return loadValue<float>(analogValues, index);
    }
}

ComtradeDataBuffer::ComtradeDataBuffer(ComtradeDataBuffer&& other) noexcept
{
    *this = std::move(other);
}

ComtradeDataBuffer& ComtradeDataBuffer::operator=(ComtradeDataBuffer&& other) noexcept
{
    if (this != &other) {
        m_memory = std::move(other.m_memory);
        m_blocks = std::exchange(other.m_blocks, nullptr);
        m_blockCount = std::exchange(other.m_blockCount, 0);
        m_samplesPerBlock = std::exchange(other.m_samplesPerBlock, 0);
        m_analogCount = std::exchange(other.m_analogCount, 0);
        m_digitalCount = std::exchange(other.m_digitalCount, 0);
        m_format = std::exchange(other.m_format, 3);
    }
    return *this;
}

uint32_t ComtradeDataBuffer::valueWidth(int format)
{
    switch (format) {
    case 0:
        return 8;
    case 1:
        return 2;
    default:
        return 4;
    }
}

void ComtradeDataBuffer::clear()
{
    m_memory.reset();
    m_blocks = nullptr;
    m_blockCount = 0;
    m_samplesPerBlock = 0;
    m_analogCount = 0;
    m_digitalCount = 0;
    m_format = 3;
}

int ComtradeDataBuffer::init(
    uint32_t blocks, uint32_t samplesPerBlock, uint32_t analogCount, uint32_t digitalCount, int format)
{
    clear();
    const uint32_t width = valueWidth(format);
    const size_t samples = size_t(blocks) * samplesPerBlock;
    size_t blockBytes = 0, sampleBytes = 0, analogBytes = 0, digitalBytes = 0;
    if (!multiplyAdd(blocks, sizeof(ComtradeDataBlock), blockBytes)
        || !multiplyAdd(samples, sizeof(ComtradeSample), sampleBytes)
        || !multiplyAdd(samples, size_t(analogCount) * width, analogBytes)
        || !multiplyAdd(samples, digitalCount, digitalBytes))
        return -1;
    const size_t sampleStart = alignUp(blockBytes);
    const size_t analogStart = sampleStart + alignUp(sampleBytes);
    const size_t digitalStart = analogStart + alignUp(analogBytes);
    const size_t total = digitalStart + digitalBytes;
    if (sampleStart < blockBytes || analogStart < sampleStart || digitalStart < analogStart
        || total < digitalStart)
        return -1;
    if (total == 0) {
        m_format = format;
        return 0;
    }

    m_memory.reset(new (std::nothrow) unsigned char[total]());
    if (!m_memory)
        return -1;
    unsigned char* base = m_memory.get();
    m_blocks = reinterpret_cast<ComtradeDataBlock*>(base);
    auto* sampleHeaders = reinterpret_cast<ComtradeSample*>(base + sampleStart);
    unsigned char* analogs = base + analogStart;
    uint8_t* digitals = base + digitalStart;
    for (uint32_t b = 0; b < blocks; ++b)
        new (&m_blocks[b]) ComtradeDataBlock { sampleHeaders + size_t(b) * samplesPerBlock, samplesPerBlock };
    for (size_t s = 0; s < samples; ++s) {
        ComtradeSample* sample = new (&sampleHeaders[s]) ComtradeSample;
        sample->analogValues = analogs + s * analogCount * width;
        sample->analogCount = analogCount;
        sample->valueWidth = width;
        sample->format = format;
        sample->digitalValues = digitals + s * digitalCount;
        sample->digitalCount = digitalCount;
    }
    m_blockCount = blocks;
    m_samplesPerBlock = samplesPerBlock;
    m_analogCount = analogCount;
    m_digitalCount = digitalCount;
    m_format = format;
    return 0;
}
