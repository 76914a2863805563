#pragma once

#include "Model/OscillogramData.h"
#include "Model/SampleSummary.h"

#include <algorithm>

// The least and the greatest of the samples one pixel column covers.
namespace Decimation {

template<typename T> using Extremes = SampleExtremes<T>;

// The plain scan: count samples of one column of a sample-major block, from index first on with
// the given stride, stopping at the block's size. Plain loops over the typed array, so that the
// compiler can vectorise the contiguous case.
template<typename T>
Extremes<T> columnExtremes(const T* values, long long size, long long first, int stride, int count)
{
    T low = values[first];
    T high = low;
    long long last = first + (long long)(count - 1) * stride;
    if (last >= size)
        last = size - 1;
    if (stride == 1) {
        for (long long i = first + 1; i <= last; ++i) {
            const T v = values[i];
            low = v < low ? v : low;
            high = v > high ? v : high;
        }
    } else {
        for (long long i = first + stride; i <= last; i += stride) {
            const T v = values[i];
            low = v < low ? v : low;
            high = v > high ? v : high;
        }
    }
    return { low, high };
}

// The same extremes for a run of columns of one store column: from the store's summary where
// there is one, so that a column costs a few summary pairs and the raw samples at its two ends
// however many samples it covers; by the plain scan otherwise (a column holding NaN, or when the
// caller asks for the scan). Both give the same values.
template<typename T> class ColumnReader
{
public:
    ColumnReader(const OscillogramData& store, const T* values, long long size, int stride, int column,
        bool useSummary)
        : m_values(values), m_size(size), m_stride(stride), m_column(column)
    {
        if (useSummary) {
            m_summary = store.summaries().column<T>(column);
            if (m_summary && !m_summary->isUsable())
                m_summary = nullptr;
        }
    }

    // The count samples from sample `first` on (fewer at the end of the block); the first sample
    // must lie inside the block.
    Extremes<T> extremes(long long first, int count) const
    {
        if (m_summary)
            return m_summary->extremes(first, std::min(first + count - 1, m_summary->sampleCount() - 1));
        return columnExtremes(m_values, m_size, m_column + first * m_stride, m_stride, count);
    }

    // Fetches ahead what extremes(first, count) will read, where that comes from the summary.
    void prefetch(long long first, int count) const
    {
        if (m_summary && first >= 0 && first < m_summary->sampleCount())
            m_summary->prefetch(first, std::min(first + count - 1, m_summary->sampleCount() - 1));
    }

private:
    const T* m_values;
    long long m_size;
    long long m_stride;
    long long m_column;
    const ColumnSummary<T>* m_summary = nullptr;
};

} // namespace Decimation
