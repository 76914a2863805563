#include "Model/SampleSummary.h"

#include "Model/OscillogramData.h"

#include <atomic>
#include <mutex>

template<typename T> struct SampleSummaries::Slots
{
    struct Entry
    {
        std::once_flag once;
        std::unique_ptr<ColumnSummary<T>> summary;
        std::atomic<const ColumnSummary<T>*> built { nullptr };
    };

    const QVector<T>& block;
    int columns;
    std::unique_ptr<Entry[]> entries;

    Slots(const QVector<T>& block, int columns)
        : block(block), columns(std::max(0, columns)), entries(new Entry[size_t(this->columns)])
    {
    }

    const ColumnSummary<T>* column(int column)
    {
        if (column < 0 || column >= columns)
            return nullptr;
        Entry& entry = entries[size_t(column)];
        std::call_once(entry.once, [&] {
            entry.summary.reset(new ColumnSummary<T>(block.constData(), block.size(), columns, column));
            entry.built.store(entry.summary.get(), std::memory_order_release);
        });
        return entry.summary.get();
    }

    // A summary still being built by another thread is not counted.
    long long memoryBytes() const
    {
        long long bytes = 0;
        for (int c = 0; c < columns; ++c) {
            if (const ColumnSummary<T>* summary = entries[size_t(c)].built.load(std::memory_order_acquire))
                bytes += summary->memoryBytes();
        }
        return bytes;
    }
};

SampleSummaries::SampleSummaries(const OscillogramData& store)
    : m_int16(new Slots<short>(store.int16AnalogValues(), store.countOfInt16AnalogChannels()))
    , m_int32(new Slots<int>(store.int32AnalogValues(), store.countOfInt32AnalogChannels()))
    , m_float(new Slots<float>(store.floatAnalogValues(), store.countOfFloatAnalogChannels()))
    , m_double(new Slots<double>(store.doubleAnalogValues(), store.countOfDoubleAnalogChannels()))
{
}

SampleSummaries::~SampleSummaries() = default;

const ColumnSummary<short>* SampleSummaries::int16Column(int column) const
{
    return m_int16->column(column);
}
const ColumnSummary<int>* SampleSummaries::int32Column(int column) const
{
    return m_int32->column(column);
}
const ColumnSummary<float>* SampleSummaries::floatColumn(int column) const
{
    return m_float->column(column);
}
const ColumnSummary<double>* SampleSummaries::doubleColumn(int column) const
{
    return m_double->column(column);
}

long long SampleSummaries::memoryBytes() const
{
    return m_int16->memoryBytes() + m_int32->memoryBytes() + m_float->memoryBytes() + m_double->memoryBytes();
}

const SampleSummaries& OscillogramData::summaries() const
{
    std::call_once(m_summariesOnce, [this] { m_summaries = std::make_shared<SampleSummaries>(*this); });
    return *m_summaries;
}
