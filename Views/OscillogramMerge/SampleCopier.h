#pragma once

#include "Model/DataType.h"
#include "Model/OscillogramData.h"

#include <QVector>

#include <array>

// Copies rows of source records into the blocks of a store under construction. The columns to
// copy are told once; neighbouring columns of one source and type that land side by side in the
// target are copied as one run, so that a row of a record costs a few block copies rather than a
// read per channel.
class KORVANE_EXPORT SampleCopier
{
public:
    // Sizes the builder's blocks to rows times the columns that reserve() gave them.
    SampleCopier(OscillogramDataBuilder& builder, const std::array<int, 6>& columnsOfType, int rows);

    // Source number `source`, a record of `samples` samples in `store`, gives its column `srcColumn`
    // of `srcType` to the target's column `dstColumn` of `dstType` (converted when they differ).
    void addColumn(int source, const QSharedPointer<OscillogramData>& store, int samples,
        DT::DataType srcType, int srcColumn, DT::DataType dstType, int dstColumn);

    // Writes every column of the source, read at `sample`, into target row `row`. The reading
    // rule of merged records: before the start reads the last sample, behind the end the first.
    void copyRow(int source, int sample, int row);

    // The sample the rule reads for index i of a record of n samples.
    static int wrappedSample(int sample, int samples);

private:
    struct Run
    {
        const OscillogramData* store = nullptr;
        int samples = 0;
        DT::DataType srcType = DT::None;
        int srcColumn = 0;
        DT::DataType dstType = DT::None;
        int dstColumn = 0;
        int length = 1;
    };

    bool extends(const Run& run, const OscillogramData* store, DT::DataType srcType, int srcColumn,
        DT::DataType dstType, int dstColumn) const;
    void copyRun(const Run& run, int sample, int row);
    double readValue(const Run& run, int sample, int offset) const;
    void writeValue(DT::DataType type, int row, int column, double value);

    OscillogramDataBuilder& m_builder;
    std::array<int, 6> m_columns;
    QVector<QVector<Run>> m_runs;
    double* m_doubles = nullptr;
    float* m_floats = nullptr;
    int* m_int32s = nullptr;
    short* m_int16s = nullptr;
};
