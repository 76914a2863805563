// The samples of the .DAT, one block at a time. Raw stored values go out unchanged in number;
// the multiplier and offset of the .CFG scale them, so only the representation changes.

#include "Savers/ComtradeSaver.h"

#include <QDebug>
#include <QHash>

// A run of neighbouring columns of one type, read together for each sample.
struct ComtradeSaver::ColumnSource
{
    const OscillogramData* store = nullptr;
    DT::DataType type = DT::None;
    int column = 0;
    int count = 1;
};

namespace {
// Filtered channels are read from their own column; the full set by index among the channels of
// the same type, which is the plain index wherever all analogue channels share one type, as they
// do in every loaded record, and the column of a typed block in a merged record of several types.
// Channels that follow each other in the store join into one run.
template<typename ChannelOf>
std::vector<ComtradeSaver::ColumnSource> sourcesOf(int count, bool onlySelected, ChannelOf channelOf)
{
    std::vector<ComtradeSaver::ColumnSource> sources;
    QHash<int, int> indexInType;
    for (int i = 0; i < count; ++i) {
        const auto channel = channelOf(i);
        const int typeIndex = indexInType[int(channel->dataType())]++;
        if (onlySelected && !channel->isSelected())
            continue;
        const ComtradeSaver::ColumnSource next { channel->data().data(), channel->dataType(),
            onlySelected ? channel->dataOffset() : typeIndex, 1 };
        if (!sources.empty()) {
            ComtradeSaver::ColumnSource& last = sources.back();
            if (last.store == next.store && last.type == next.type
                && last.column + last.count == next.column) {
                ++last.count;
                continue;
            }
        }
        sources.push_back(next);
    }
    return sources;
}

// The raw number as Channel::getValue reads it, for the discrete columns.
double rawValue(const ComtradeSaver::ColumnSource& source, int sample, int column)
{
    switch (source.type) {
    case DT::Int16:
        return source.store->int16ChannelValue(sample, column);
    case DT::Int32:
        return source.store->int32ChannelValue(sample, column);
    case DT::Float:
        return source.store->floatChannelValue(sample, column);
    case DT::Double:
        return source.store->doubleChannelValue(sample, column);
    case DT::Digital:
        return source.store->digitalChannelValue(sample, column) ? 1.0 : 0.0;
    default:
        return 0.0;
    }
}

// The values of a run at one sample into the sample's slots from index on. Where the run lies
// wholly inside the block the values are taken in one piece; otherwise value by value, a value
// beyond the end counting 0 as the store's reads have it.
template<typename T>
void putRun(ComtradeSample& sample, uint32_t index, const QVector<T>& block, int countOfChannels,
    const ComtradeSaver::ColumnSource& source, int recordSample)
{
    const qint64 first = qint64(recordSample) * countOfChannels + source.column;
    if (first >= 0 && first + source.count <= block.size()) {
        sample.setAnalogs(index, block.constData() + first, uint32_t(source.count));
        return;
    }
    for (int j = 0; j < source.count; ++j) {
        const qint64 at = first + j;
        const T value = at >= 0 && at < block.size() ? block.at(int(at)) : T(0);
        sample.setAnalogs(index + uint32_t(j), &value, 1);
    }
}
} // namespace

std::vector<ComtradeSaver::ColumnSource> ComtradeSaver::analogSources() const
{
    const Oscillogram& record = *oscillogram();
    return sourcesOf(record.countOfAnalogChannels(), onlySelectedChannels(),
        [&record](int i) { return record.analogChannel(i); });
}

std::vector<ComtradeSaver::ColumnSource> ComtradeSaver::digitalSources() const
{
    const Oscillogram& record = *oscillogram();
    return sourcesOf(record.countOfDigitalChannels(), onlySelectedChannels(),
        [&record](int i) { return record.digitalChannel(i); });
}

// Every value of a block is written anew, so a buffer of the same shape serves the next block
// as it is: the blocks of a long record then cost one allocation instead of one each.
bool ComtradeSaver::hasBufferFor(int samples) const
{
    return m_dataBuffer.blockCount() == 1 && m_dataBuffer.samplesPerBlock() == uint32_t(samples)
        && m_dataBuffer.analogCount() == m_analogs.size() && m_dataBuffer.digitalCount() == m_digitals.size()
        && m_dataBuffer.format() == m_format;
}

int ComtradeSaver::initComtradeData(int block)
{
    const int samples = countSamples();
    const int samplesOfBlock = samples / m_blockCount;
    m_firstSampleOfBlock = samplesOfBlock * block;
    // The last block runs to the end and takes the remainder.
    const int count = block == m_blockCount - 1 ? samples - m_firstSampleOfBlock : samplesOfBlock;

    if (count <= 0) {
        m_dataBuffer.clear();
        return 0;
    }
    if (!hasBufferFor(count)
        && m_dataBuffer.init(
               1, uint32_t(count), uint32_t(m_analogs.size()), uint32_t(m_digitals.size()), m_format)
            != 0)
        return -1;
    const std::vector<ColumnSource> analogs = analogSources();
    const std::vector<ColumnSource> digitals = digitalSources();
    const int first = m_firstSampleOfBlock + firstSampleOfRange();
    for (int i = 0; i < count; ++i) {
        if (checkCancel())
            return -1;
        if (fillSample(m_dataBuffer.sample(0, uint32_t(i)), first + i, analogs, digitals) != 0)
            return -1;
    }
    return 0;
}

int ComtradeSaver::fillSample(ComtradeSample& sample, int recordSample,
    const std::vector<ColumnSource>& analogs, const std::vector<ColumnSource>& digitals) const
{
    uint32_t index = 0;
    for (const ColumnSource& source : analogs) {
        const OscillogramData& store = *source.store;
        switch (source.type) {
        case DT::Int16:
            putRun(sample, index, store.int16AnalogValues(), store.countOfInt16AnalogChannels(), source,
                recordSample);
            break;
        case DT::Int32:
            putRun(sample, index, store.int32AnalogValues(), store.countOfInt32AnalogChannels(), source,
                recordSample);
            break;
        case DT::Float:
            putRun(sample, index, store.floatAnalogValues(), store.countOfFloatAnalogChannels(), source,
                recordSample);
            break;
        case DT::Double:
            putRun(sample, index, store.doubleAnalogValues(), store.countOfDoubleAnalogChannels(), source,
                recordSample);
            break;
        default:
            qDebug() << "Error value type";
            return -1;
        }
        index += uint32_t(source.count);
    }
    index = 0;
    for (const ColumnSource& source : digitals) {
        for (int column = source.column; column < source.column + source.count; ++column) {
            const uint8_t value = source.type == DT::Digital
                ? uint8_t(source.store->digitalChannelValue(recordSample, column))
                : static_cast<uint8_t>(static_cast<int>(rawValue(source, recordSample, column)));
            sample.setDigital(index++, value);
        }
    }
    return 0;
}

int ComtradeSaver::writeComtradeData()
{
    return m_comtrade.writeDat(m_dataBuffer, m_datPath, uint64_t(m_firstSampleOfBlock));
}
