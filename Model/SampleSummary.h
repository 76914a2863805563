#pragma once

#include "Model/DataType.h"
#include "korvane_export.h"

#include <algorithm>
#include <memory>
#include <vector>

class OscillogramData;

// The least and the greatest of a stretch of samples.
template<typename T> struct SampleExtremes
{
    T low;
    T high;

    void take(T value)
    {
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    void take(const SampleExtremes& other)
    {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

// Least and greatest samples of one column of a store at several resolutions: level 0 holds one
// pair for each 32 samples, every further level one pair for each 4 pairs of the level below. The
// extremes of any stretch then come from at most 31 raw samples at each end and 3 pairs at each end
// of every level, whatever the length of the stretch. The pairs take 1/12 of the column's own
// memory. A column holding a NaN has no summary (isUsable() is false): the order of comparisons
// decides what a scan makes of NaN, and only the scan itself can repeat it.
template<typename T> class ColumnSummary
{
public:
    static constexpr long long blockSamples = 32;
    static constexpr long long fanOut = 4;

    // The samples of column `column` (0 <= column < stride) in a sample-major block of `size`
    // values and `stride` columns.
    ColumnSummary(const T* values, long long size, int stride, int column)
        : m_values(values), m_stride(stride), m_column(column)
    {
        m_samples = size > column ? (size - column + stride - 1) / stride : 0;
        buildFirstLevel();
        while (m_usable && m_levels.back().size() > size_t(fanOut))
            buildLevelAbove();
    }

    bool isUsable() const { return m_usable; }
    long long sampleCount() const { return m_samples; }

    // Bytes taken by the pairs of all levels.
    long long memoryBytes() const
    {
        long long bytes = 0;
        for (const auto& level : m_levels)
            bytes += (long long)(level.size() * sizeof(SampleExtremes<T>));
        return bytes;
    }

    // The extremes of the samples first to last, both included, 0 <= first <= last < sampleCount().
    SampleExtremes<T> extremes(long long first, long long last) const
    {
        SampleExtremes<T> result { raw(first), raw(first) };
        long long begin = first + 1;
        long long end = last + 1;
        // Raw samples up to the first whole block, then back from the end to the last one.
        const long long head = std::min(end, roundUp(begin, blockSamples));
        takeRaw(result, begin, head);
        begin = head;
        const long long tail = std::max(begin, end / blockSamples * blockSamples);
        takeRaw(result, tail, end);
        begin /= blockSamples;
        end = tail / blockSamples;
        // Whole blocks: at each level the pairs up to the next boundary of the level above.
        for (size_t level = 0; begin < end; ++level) {
            const SampleExtremes<T>* pairs = m_levels[level].data();
            if (level + 1 == m_levels.size()) {
                takePairs(result, pairs, begin, end);
                break;
            }
            const long long up = std::min(end, roundUp(begin, fanOut));
            takePairs(result, pairs, begin, up);
            const long long down = std::max(up, end / fanOut * fanOut);
            takePairs(result, pairs, down, end);
            begin = up / fanOut;
            end = down / fanOut;
        }
        return result;
    }

    // Asks the processor to fetch what extremes(first, last) will read first: the raw samples at
    // the end of the stretch and the pairs at its two ends. A picture reads stretches far apart
    // in memory, one per pixel column, and would otherwise wait on each.
    void prefetch(long long first, long long last) const
    {
        __builtin_prefetch(m_values + m_column + m_stride * last);
        __builtin_prefetch(m_values + m_column + m_stride * (last / blockSamples * blockSamples));
        long long begin = first / blockSamples;
        long long end = last / blockSamples;
        for (const auto& pairs : m_levels) {
            __builtin_prefetch(pairs.data() + begin);
            __builtin_prefetch(pairs.data() + end);
            begin /= fanOut;
            end /= fanOut;
        }
    }

private:
    T raw(long long sample) const { return m_values[m_column + m_stride * sample]; }
    static long long roundUp(long long value, long long step) { return (value + step - 1) / step * step; }

    void takeRaw(SampleExtremes<T>& result, long long begin, long long end) const
    {
        const T* value = m_values + m_column + m_stride * begin;
        for (long long s = begin; s < end; ++s, value += m_stride)
            result.take(*value);
    }
    static void takePairs(
        SampleExtremes<T>& result, const SampleExtremes<T>* pairs, long long begin, long long end)
    {
        for (long long i = begin; i < end; ++i)
            result.take(pairs[i]);
    }

    void buildFirstLevel()
    {
        std::vector<SampleExtremes<T>> pairs;
        pairs.reserve(size_t((m_samples + blockSamples - 1) / blockSamples));
        for (long long first = 0; first < m_samples; first += blockSamples) {
            const long long last = std::min(first + blockSamples, m_samples);
            SampleExtremes<T> pair { raw(first), raw(first) };
            bool hasNaN = !(pair.low == pair.low);
            for (long long s = first + 1; s < last; ++s) {
                const T value = raw(s);
                hasNaN = hasNaN || !(value == value);
                pair.take(value);
            }
            if (hasNaN) {
                m_usable = false;
                m_levels.clear();
                return;
            }
            pairs.push_back(pair);
        }
        m_levels.push_back(std::move(pairs));
    }

    void buildLevelAbove()
    {
        const auto& below = m_levels.back();
        std::vector<SampleExtremes<T>> pairs;
        pairs.reserve((below.size() + size_t(fanOut) - 1) / size_t(fanOut));
        for (size_t first = 0; first < below.size(); first += size_t(fanOut)) {
            SampleExtremes<T> pair = below[first];
            for (size_t i = first + 1; i < std::min(first + size_t(fanOut), below.size()); ++i)
                pair.take(below[i]);
            pairs.push_back(pair);
        }
        m_levels.push_back(std::move(pairs));
    }

    const T* m_values;
    long long m_stride;
    long long m_column;
    long long m_samples = 0;
    bool m_usable = true;
    std::vector<std::vector<SampleExtremes<T>>> m_levels;
};

// The summaries of every analogue column of one store, each made the first time it is asked
// for. The store is shared between threads, so the first request of a column builds it under a
// once-flag of its own and later requests read it without a lock.
class KORVANE_EXPORT SampleSummaries
{
public:
    explicit SampleSummaries(const OscillogramData& store);
    ~SampleSummaries();
    SampleSummaries(const SampleSummaries&) = delete;
    SampleSummaries& operator=(const SampleSummaries&) = delete;

    // The summary of a column of a type, or null for a column outside the block.
    const ColumnSummary<short>* int16Column(int column) const;
    const ColumnSummary<int>* int32Column(int column) const;
    const ColumnSummary<float>* floatColumn(int column) const;
    const ColumnSummary<double>* doubleColumn(int column) const;
    template<typename T> const ColumnSummary<T>* column(int column) const;

    // Bytes taken by the summaries built so far.
    long long memoryBytes() const;

private:
    template<typename T> struct Slots;
    std::unique_ptr<Slots<short>> m_int16;
    std::unique_ptr<Slots<int>> m_int32;
    std::unique_ptr<Slots<float>> m_float;
    std::unique_ptr<Slots<double>> m_double;
};

template<> inline const ColumnSummary<short>* SampleSummaries::column<short>(int column) const
{
    return int16Column(column);
}
template<> inline const ColumnSummary<int>* SampleSummaries::column<int>(int column) const
{
    return int32Column(column);
}
template<> inline const ColumnSummary<float>* SampleSummaries::column<float>(int column) const
{
    return floatColumn(column);
}
template<> inline const ColumnSummary<double>* SampleSummaries::column<double>(int column) const
{
    return doubleColumn(column);
}
