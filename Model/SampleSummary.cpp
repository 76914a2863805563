#include "Model/SampleSummary.h"

#include "Model/OscillogramData.h"

#include <atomic>
#include <mutex>

namespace {
template<typename Summary> long long bytesOf(const Summary& summary)
{
    return summary.memoryBytes();
}

template<typename Summary> long long bytesOf(const std::vector<std::unique_ptr<Summary>>& summaries)
{
    long long bytes = 0;
    for (const auto& summary : summaries)
        bytes += summary->memoryBytes();
    return bytes;
}

// A summary made the first time it is asked for. The store is shared between threads, so the
// first request builds it under a once-flag of its own and later requests read it without a lock.
template<typename Summary> struct LazySummary
{
    std::once_flag once;
    std::unique_ptr<Summary> summary;
    std::atomic<const Summary*> built { nullptr };

    template<typename Make> const Summary* get(Make make)
    {
        std::call_once(once, [&] {
            summary.reset(make());
            built.store(summary.get(), std::memory_order_release);
        });
        return summary.get();
    }

    // A summary still being built by another thread is not counted.
    long long memoryBytes() const
    {
        const Summary* ready = built.load(std::memory_order_acquire);
        return ready ? bytesOf(*ready) : 0;
    }
};

template<typename Summary> long long memoryOf(const LazySummary<Summary>* entries, int count)
{
    long long bytes = 0;
    for (int i = 0; i < count; ++i)
        bytes += entries[i].memoryBytes();
    return bytes;
}
} // namespace

// The summaries of one typed block are made together, the first time one of them is asked for.
template<typename T> struct SampleSummaries::Slots
{
    const QVector<T>& block;
    int columns;
    LazySummary<std::vector<std::unique_ptr<ColumnSummary<T>>>> all;

    Slots(const QVector<T>& block, int columns) : block(block), columns(std::max(0, columns)) { }

    const ColumnSummary<T>* column(int column)
    {
        if (column < 0 || column >= columns)
            return nullptr;
        const auto* summaries = all.get([&] {
            return new std::vector<std::unique_ptr<ColumnSummary<T>>>(
                ColumnSummary<T>::buildAll(block.constData(), block.size(), columns));
        });
        return (*summaries)[size_t(column)].get();
    }

    long long memoryBytes() const { return all.memoryBytes(); }
};

struct SampleSummaries::DigitalSlots
{
    const QBitArray& bits;
    int channels;
    std::unique_ptr<LazySummary<DigitalSummary>[]> entries;

    DigitalSlots(const QBitArray& bits, int channels)
        : bits(bits)
        , channels(std::max(0, channels))
        , entries(new LazySummary<DigitalSummary>[size_t(this->channels)])
    {
    }

    const DigitalSummary* channel(int channel)
    {
        if (channel < 0 || channel >= channels)
            return nullptr;
        return entries[size_t(channel)].get([&] { return new DigitalSummary(bits, channels, channel); });
    }

    long long memoryBytes() const { return memoryOf(entries.get(), channels); }
};

// Discrete channels

DigitalSummary::DigitalSummary(const QBitArray& bits, int stride, int channel)
    : m_bits(reinterpret_cast<const uchar*>(bits.bits())), m_stride(stride), m_channel(channel)
{
    const long long size = bits.size();
    m_samples = stride > 0 && size > channel ? (size - channel + stride - 1) / stride : 0;
    const size_t blocks = size_t((m_samples + blockSamples - 1) / blockSamples);
    m_anySet.assign((blocks + 63) / 64, 0);
    m_anyClear.assign((blocks + 63) / 64, 0);
    for (long long s = 0; s < m_samples; ++s) {
        const size_t block = size_t(s / blockSamples);
        std::vector<quint64>& any = raw(s) ? m_anySet : m_anyClear;
        any[block / 64] |= quint64(1) << (block % 64);
    }
}

bool DigitalSummary::raw(long long sample) const
{
    const long long bit = m_channel + m_stride * sample;
    return (m_bits[bit >> 3] >> (bit & 7)) & 1;
}

bool DigitalSummary::anyRaw(bool value, long long begin, long long end) const
{
    for (long long s = begin; s < end; ++s) {
        if (raw(s) == value)
            return true;
    }
    return false;
}

bool DigitalSummary::anyBlock(const std::vector<quint64>& blocks, long long begin, long long end)
{
    while (begin < end) {
        const long long word = begin / 64;
        const long long wordEnd = std::min(end, (word + 1) * 64);
        const int from = int(begin % 64);
        const int count = int(wordEnd - begin);
        const quint64 mask = count == 64 ? ~quint64(0) : ((quint64(1) << count) - 1) << from;
        if (blocks[size_t(word)] & mask)
            return true;
        begin = wordEnd;
    }
    return false;
}

bool DigitalSummary::holds(bool value, long long first, long long last) const
{
    const long long end = last + 1;
    const long long head = std::min(end, (first + blockSamples - 1) / blockSamples * blockSamples);
    if (anyRaw(value, first, head))
        return true;
    const long long tail = std::max(head, end / blockSamples * blockSamples);
    if (anyRaw(value, tail, end))
        return true;
    return anyBlock(value ? m_anySet : m_anyClear, head / blockSamples, tail / blockSamples);
}

long long DigitalSummary::memoryBytes() const
{
    return (long long)((m_anySet.size() + m_anyClear.size()) * sizeof(quint64));
}

// The summaries of a store

SampleSummaries::SampleSummaries(const OscillogramData& store)
    : m_int16(new Slots<short>(store.int16AnalogValues(), store.countOfInt16AnalogChannels()))
    , m_int32(new Slots<int>(store.int32AnalogValues(), store.countOfInt32AnalogChannels()))
    , m_float(new Slots<float>(store.floatAnalogValues(), store.countOfFloatAnalogChannels()))
    , m_double(new Slots<double>(store.doubleAnalogValues(), store.countOfDoubleAnalogChannels()))
    , m_digital(new DigitalSlots(store.digitalValues(), store.countOfDigitalChannels()))
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

const DigitalSummary* SampleSummaries::digitalChannel(int channel) const
{
    return m_digital->channel(channel);
}

long long SampleSummaries::memoryBytes() const
{
    return m_int16->memoryBytes() + m_int32->memoryBytes() + m_float->memoryBytes() + m_double->memoryBytes()
        + m_digital->memoryBytes();
}

const SampleSummaries& OscillogramData::summaries() const
{
    std::call_once(m_summariesOnce, [this] { m_summaries = std::make_shared<SampleSummaries>(*this); });
    return *m_summaries;
}
