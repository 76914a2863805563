#pragma once

#include "Model/DataType.h"
#include "korvane_export.h"

#include <QBitArray>

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
        : ColumnSummary(
            values, size, stride, column, std::move(firstLevels(values, size, stride, column, column + 1)[0]))
    {
    }

    // The summaries of all `stride` columns of a sample-major block, made in one pass over the
    // block in memory order: a column alone would read a line of memory for each of its samples
    // when the columns are many.
    static std::vector<std::unique_ptr<ColumnSummary>> buildAll(const T* values, long long size, int stride)
    {
        auto levels = firstLevels(values, size, stride, 0, stride);
        std::vector<std::unique_ptr<ColumnSummary>> summaries;
        for (int c = 0; c < stride; ++c)
            summaries.emplace_back(new ColumnSummary(values, size, stride, c, std::move(levels[size_t(c)])));
        return summaries;
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
    // The whole blocks inside the stretch come from the pairs. A part of a block at either end is
    // read sample by sample only where its block's pair could widen what the rest gives: any part
    // of a block lies within the block's own extremes.
    SampleExtremes<T> extremes(long long first, long long last) const
    {
        const long long end = last + 1;
        const long long head = std::min(end, roundUp(first, blockSamples));
        const long long tail = std::max(head, end / blockSamples * blockSamples);
        SampleExtremes<T> result {};
        bool known = head / blockSamples < tail / blockSamples;
        if (known)
            result = wholeBlocks(head / blockSamples, tail / blockSamples);
        takeEdge(result, known, first, head);
        takeEdge(result, known, tail, end);
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
    // The pairs of the first level of a column, and whether the column holds no NaN.
    struct FirstLevel
    {
        std::vector<SampleExtremes<T>> pairs;
        bool usable = true;
    };

    ColumnSummary(const T* values, long long size, int stride, int column, FirstLevel&& firstLevel)
        : m_values(values), m_stride(stride), m_column(column), m_usable(firstLevel.usable)
    {
        m_samples = size > column ? (size - column + stride - 1) / stride : 0;
        if (!m_usable)
            return;
        m_levels.push_back(std::move(firstLevel.pairs));
        while (m_levels.back().size() > size_t(fanOut))
            buildLevelAbove();
    }

    // The first levels of columns from to to (excluded), in one pass over their samples in
    // memory order.
    static std::vector<FirstLevel> firstLevels(const T* values, long long size, int stride, int from, int to)
    {
        std::vector<FirstLevel> levels(size_t(std::max(0, to - from)));
        std::vector<SampleExtremes<T>> block(levels.size());
        const long long rows = stride > 0 ? (size + stride - 1) / stride : 0;
        for (long long first = 0; first < rows; first += blockSamples) {
            const long long end = std::min(first + blockSamples, rows);
            const int present = int(std::min<long long>(to, size - first * stride));
            const T* row = values + first * stride;
            for (int c = from; c < present; ++c)
                block[size_t(c - from)] = { row[c], row[c] };
            for (long long s = first; s < end; ++s, row += stride) {
                const int count = int(std::min<long long>(to, size - s * stride));
                for (int c = from; c < count; ++c) {
                    const T value = row[c];
                    FirstLevel& level = levels[size_t(c - from)];
                    level.usable = level.usable && value == value;
                    block[size_t(c - from)].take(value);
                }
            }
            for (int c = from; c < present; ++c)
                levels[size_t(c - from)].pairs.push_back(block[size_t(c - from)]);
        }
        return levels;
    }

    T raw(long long sample) const { return m_values[m_column + m_stride * sample]; }
    static long long roundUp(long long value, long long step) { return (value + step - 1) / step * step; }

    // The extremes of the whole blocks begin to end (end excluded, begin < end): at each level the
    // pairs up to the next boundary of the level above.
    SampleExtremes<T> wholeBlocks(long long begin, long long end) const
    {
        SampleExtremes<T> result = m_levels[0][size_t(begin)];
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

    // Samples begin to end (end excluded) of one block, into a result that is known or not yet.
    void takeEdge(SampleExtremes<T>& result, bool& known, long long begin, long long end) const
    {
        if (begin >= end)
            return;
        if (known) {
            const SampleExtremes<T>& block = m_levels[0][size_t(begin / blockSamples)];
            if (!(block.low < result.low) && !(block.high > result.high))
                return;
        } else {
            result = { raw(begin), raw(begin) };
            known = true;
        }
        takeRaw(result, begin, end);
    }

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

// Which blocks of 8 samples of one discrete channel hold a set bit and which a clear one, so that
// a picture asks whether a stretch of samples holds a value at the cost of at most 7 samples at
// each end and one bit for each block between, instead of a look at every sample. Two bits a
// block: a quarter of the channel's own bits.
class KORVANE_EXPORT DigitalSummary
{
public:
    static constexpr long long blockSamples = 8;

    // The samples of channel `channel` (0 <= channel < stride) of a sample-major bit block.
    DigitalSummary(const QBitArray& bits, int stride, int channel);

    long long sampleCount() const { return m_samples; }
    // Whether a sample from first to last, both included, holds the value;
    // 0 <= first <= last < sampleCount().
    bool holds(bool value, long long first, long long last) const;
    long long memoryBytes() const;

private:
    bool raw(long long sample) const;
    bool anyRaw(bool value, long long begin, long long end) const;
    static bool anyBlock(const std::vector<quint64>& blocks, long long begin, long long end);

    const uchar* m_bits;
    long long m_stride;
    long long m_channel;
    long long m_samples = 0;
    std::vector<quint64> m_anySet;
    std::vector<quint64> m_anyClear;
};

// The summaries of every analogue column and every discrete channel of one store, each made the first time it
// is asked for. The store is shared between threads, so the first request of a column builds it under a
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
    // The summary of a discrete channel, or null for a channel outside the block.
    const DigitalSummary* digitalChannel(int channel) const;

    // Bytes taken by the summaries built so far.
    long long memoryBytes() const;

private:
    template<typename T> struct Slots;
    std::unique_ptr<Slots<short>> m_int16;
    std::unique_ptr<Slots<int>> m_int32;
    std::unique_ptr<Slots<float>> m_float;
    std::unique_ptr<Slots<double>> m_double;
    struct DigitalSlots;
    std::unique_ptr<DigitalSlots> m_digital;
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
