#pragma once

namespace DT {
// The storage block of a channel in OscillogramData.
enum DataType {
    None = 0,
    Int16 = 1,
    Int32 = 2,
    Float = 3,
    Double = 4,
    Digital = 5,
};
} // namespace DT
