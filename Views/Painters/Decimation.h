#pragma once

#include <utility>

// The least and the greatest of the samples one pixel column covers: count samples of one column
// of a sample-major block, from index first on with the given stride, stopping at the block's size.
// Plain loops over the typed array, so that the compiler can vectorise the contiguous case.
namespace Decimation {

template<typename T> struct Extremes
{
    T low;
    T high;
};

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

} // namespace Decimation
