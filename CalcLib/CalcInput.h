#pragma once

#include "CalcLib/DevConfig.h"
#include "korvane_export.h"

#include <cstdint>
#include <memory>
#include <vector>

// The sample buffer of the engine: rows x W cells, each cell a separately allocated 32-bit
// integer reached through a pointer. buffer[row][i] is the pointer to cell i of the row, so
// that clients fill it with *buffer[row][i] = value.
class KORVANE_EXPORT SampleBuffer
{
public:
    SampleBuffer() = default;
    // All cells start at 0. Negative sizes make an empty buffer.
    SampleBuffer(int32_t rows, int32_t samples);
    SampleBuffer(SampleBuffer&&) = default;
    SampleBuffer& operator=(SampleBuffer&&) = default;

    int32_t rows() const { return m_rows; }
    int32_t samples() const { return m_samples; }
    int32_t* const* operator[](int32_t row) const { return m_rowPointers[row].data(); }

private:
    int32_t m_rows = 0;
    int32_t m_samples = 0;
    std::vector<std::unique_ptr<int32_t>> m_cells;
    std::vector<std::vector<int32_t*>> m_rowPointers;
};

// What a calculator works on: the window of samples and the rows of its results.
struct CalcInput
{
    int32_t rows = 0;
    int32_t samples = 0;
    SampleBuffer buffer;
    std::vector<CalcResultRow> results;
};

// The low 16 bits of a cell, as a signed value: what the 16-bit calculators see.
inline int16_t lowWord(int32_t cell)
{
    return static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint32_t>(cell) & 0xFFFFu));
}
