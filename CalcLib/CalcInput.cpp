#include "CalcLib/CalcInput.h"

SampleBuffer::SampleBuffer(int32_t rows, int32_t samples)
{
    if (rows <= 0 || samples <= 0)
        return;
    m_rows = rows;
    m_samples = samples;
    m_cells.reserve(static_cast<size_t>(rows) * static_cast<size_t>(samples));
    m_rowPointers.resize(static_cast<size_t>(rows));
    for (auto& row : m_rowPointers) {
        row.reserve(static_cast<size_t>(samples));
        for (int32_t i = 0; i < samples; ++i) {
            m_cells.push_back(std::make_unique<int32_t>(0));
            row.push_back(m_cells.back().get());
        }
    }
}
