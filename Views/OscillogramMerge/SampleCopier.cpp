#include "SampleCopier.h"

#include <cstring>

namespace {
template<typename T> T* sizedBlock(QVector<T>& block, int columns, int rows)
{
    block.resize(int(qint64(columns) * rows));
    return block.data();
}

template<typename T> const T* sourceRow(const QVector<T>& block, int columns, int sample)
{
    const qint64 end = qint64(sample + 1) * columns;
    return end <= block.size() ? block.constData() + qint64(sample) * columns : nullptr;
}

template<typename T>
void copyValues(const QVector<T>& source, int srcColumns, int srcColumn, int sample, T* target,
    int dstColumns, int dstColumn, int row, int length)
{
    const T* from = sourceRow(source, srcColumns, sample);
    if (from)
        std::memcpy(
            target + qint64(row) * dstColumns + dstColumn, from + srcColumn, sizeof(T) * size_t(length));
}
} // namespace

SampleCopier::SampleCopier(OscillogramDataBuilder& builder, const std::array<int, 6>& columnsOfType, int rows)
    : m_builder(builder), m_columns(columnsOfType)
{
    m_doubles = sizedBlock(builder.doubleAnalogValues(), m_columns[DT::Double], rows);
    m_floats = sizedBlock(builder.floatAnalogValues(), m_columns[DT::Float], rows);
    m_int32s = sizedBlock(builder.int32AnalogValues(), m_columns[DT::Int32], rows);
    m_int16s = sizedBlock(builder.int16AnalogValues(), m_columns[DT::Int16], rows);
    builder.digitalValues().resize(int(qint64(m_columns[DT::Digital]) * rows));
    builder.setCountOfSamples(rows);
}

int SampleCopier::wrappedSample(int sample, int samples)
{
    if (sample < 0)
        return samples - 1;
    if (sample >= samples)
        return 0;
    return sample;
}

void SampleCopier::addColumn(int source, const QSharedPointer<OscillogramData>& store, int samples,
    DT::DataType srcType, int srcColumn, DT::DataType dstType, int dstColumn)
{
    if (!store || dstType == DT::None || (srcType == DT::Digital) != (dstType == DT::Digital))
        return;
    if (m_runs.size() <= source)
        m_runs.resize(source + 1);
    QVector<Run>& runs = m_runs[source];
    if (!runs.isEmpty() && extends(runs.last(), store.data(), srcType, srcColumn, dstType, dstColumn)) {
        ++runs.last().length;
        return;
    }
    runs.append({ store.data(), samples, srcType, srcColumn, dstType, dstColumn, 1 });
}

bool SampleCopier::extends(const Run& run, const OscillogramData* store, DT::DataType srcType, int srcColumn,
    DT::DataType dstType, int dstColumn) const
{
    return run.store == store && run.srcType == srcType && run.dstType == dstType && srcType == dstType
        && srcType != DT::Digital && run.srcColumn + run.length == srcColumn
        && run.dstColumn + run.length == dstColumn;
}

void SampleCopier::copyRow(int source, int sample, int row)
{
    if (source < 0 || source >= m_runs.size())
        return;
    for (const Run& run : qAsConst(m_runs[source])) {
        if (run.samples > 0)
            copyRun(run, wrappedSample(sample, run.samples), row);
    }
}

void SampleCopier::copyRun(const Run& run, int sample, int row)
{
    const OscillogramData& store = *run.store;
    if (run.srcType != run.dstType || run.srcType == DT::Digital) {
        for (int c = 0; c < run.length; ++c)
            writeValue(run.dstType, row, run.dstColumn + c, readValue(run, sample, c));
        return;
    }
    switch (run.srcType) {
    case DT::Int16:
        copyValues(store.int16AnalogValues(), store.countOfInt16AnalogChannels(), run.srcColumn, sample,
            m_int16s, m_columns[DT::Int16], run.dstColumn, row, run.length);
        break;
    case DT::Int32:
        copyValues(store.int32AnalogValues(), store.countOfInt32AnalogChannels(), run.srcColumn, sample,
            m_int32s, m_columns[DT::Int32], run.dstColumn, row, run.length);
        break;
    case DT::Float:
        copyValues(store.floatAnalogValues(), store.countOfFloatAnalogChannels(), run.srcColumn, sample,
            m_floats, m_columns[DT::Float], run.dstColumn, row, run.length);
        break;
    case DT::Double:
        copyValues(store.doubleAnalogValues(), store.countOfDoubleAnalogChannels(), run.srcColumn, sample,
            m_doubles, m_columns[DT::Double], run.dstColumn, row, run.length);
        break;
    default:
        break;
    }
}

double SampleCopier::readValue(const Run& run, int sample, int offset) const
{
    const OscillogramData& store = *run.store;
    const int column = run.srcColumn + offset;
    switch (run.srcType) {
    case DT::Int16:
        return store.int16ChannelValue(sample, column);
    case DT::Int32:
        return store.int32ChannelValue(sample, column);
    case DT::Float:
        return store.floatChannelValue(sample, column);
    case DT::Double:
        return store.doubleChannelValue(sample, column);
    case DT::Digital:
        return store.digitalChannelValue(sample, column) ? 1.0 : 0.0;
    default:
        return 0.0;
    }
}

void SampleCopier::writeValue(DT::DataType type, int row, int column, double value)
{
    const qint64 at = qint64(row) * m_columns[type] + column;
    switch (type) {
    case DT::Int16:
        m_int16s[at] = short(value);
        break;
    case DT::Int32:
        m_int32s[at] = int(value);
        break;
    case DT::Float:
        m_floats[at] = float(value);
        break;
    case DT::Double:
        m_doubles[at] = value;
        break;
    case DT::Digital:
        m_builder.setDigitalChannelValue(row, column, value != 0.0);
        break;
    default:
        break;
    }
}
