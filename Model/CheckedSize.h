#pragma once

#include <QtGlobal>

#include <limits>

// Sizes and counts read from a file, checked before anything is reserved for them. Every product
// is formed in 64 bits and compared with two limits: what one block of the sample store can hold
// (Qt's containers count their bytes in int), and what the file can fill. A file of a few bytes
// may declare billions of channels or samples; such a file is damaged, not a reason to allocate.
namespace Korvane {

// The bytes one QVector or QByteArray can hold, less the room of its header.
constexpr qint64 largestBlockBytes = std::numeric_limits<int>::max() - 64;

// A record's values never take more than this many bytes of store for each byte of the file
// they come from: a 16-bit value comes from at least a bit in a .wv2 frame, an ASCII value of
// COMTRADE from at least two characters into eight bytes. The allowance covers headers that
// declare a little more than a tiny file holds.
constexpr qint64 storeBytesPerFileByte = 16;
constexpr qint64 storeAllowanceBytes = qint64(1) << 20;

// a * b, or -1 when either is negative or the product passes limit; never overflows.
constexpr qint64 checkedProduct(qint64 a, qint64 b, qint64 limit)
{
    if (a < 0 || b < 0 || limit < 0)
        return -1;
    if (a != 0 && b > limit / a)
        return -1;
    return a * b;
}

// a + b, or -1 when either is negative or the sum passes limit; never overflows.
constexpr qint64 checkedSum(qint64 a, qint64 b, qint64 limit)
{
    if (a < 0 || b < 0 || a > limit || b > limit - a)
        return -1;
    return a + b;
}

// Whether count values of bytesEach bytes fit in one block of the store.
constexpr bool fitsOneBlock(qint64 count, qint64 bytesEach)
{
    return checkedProduct(count, bytesEach, largestBlockBytes) >= 0;
}

// Whether a store of storeBytes can come from a file of fileBytes.
constexpr bool storeFitsFile(qint64 storeBytes, qint64 fileBytes)
{
    if (storeBytes < 0 || fileBytes < 0)
        return false;
    const qint64 fillable
        = checkedProduct(fileBytes, storeBytesPerFileByte, std::numeric_limits<qint64>::max() / 2);
    return fillable >= 0 && storeBytes <= fillable + storeAllowanceBytes;
}

} // namespace Korvane
