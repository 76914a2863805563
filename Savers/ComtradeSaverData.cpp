// The samples of the .DAT, one block at a time. Raw stored values go out unchanged in number;
// the multiplier and offset of the .CFG scale them, so only the representation changes.

#include "Savers/ComtradeSaver.h"

#include <QDebug>

struct ComtradeSaver::ColumnSource
{
    const OscillogramData* store = nullptr;
    DT::DataType type = DT::None;
    int column = 0;
};

namespace {
// Filtered channels are read from their own column; the full set by index, which is the
// column wherever all analogue channels share one type, as they do in every loaded record.
template<typename ChannelOf>
std::vector<ComtradeSaver::ColumnSource> sourcesOf(int count, bool onlySelected, ChannelOf channelOf)
{
    std::vector<ComtradeSaver::ColumnSource> sources;
    for (int i = 0; i < count; ++i) {
        const auto channel = channelOf(i);
        if (onlySelected && !channel->isSelected())
            continue;
        sources.push_back(
            { channel->data().data(), channel->dataType(), onlySelected ? channel->dataOffset() : i });
    }
    return sources;
}

// The raw number as Channel::getValue reads it, for the discrete columns.
double rawValue(const ComtradeSaver::ColumnSource& source, int sample)
{
    switch (source.type) {
    case DT::Int16:
        return source.store->int16ChannelValue(sample, source.column);
    case DT::Int32:
        return source.store->int32ChannelValue(sample, source.column);
    case DT::Float:
        return source.store->floatChannelValue(sample, source.column);
    case DT::Double:
        return source.store->doubleChannelValue(sample, source.column);
    case DT::Digital:
        return source.store->digitalChannelValue(sample, source.column) ? 1.0 : 0.0;
    default:
        return 0.0;
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
        switch (source.type) {
        case DT::Int16:
            sample.setAnalogFromInt(index, source.store->int16ChannelValue(recordSample, source.column));
            break;
        case DT::Int32:
            sample.setAnalogFromInt(index, source.store->int32ChannelValue(recordSample, source.column));
            break;
        case DT::Float:
            sample.setAnalogFromDouble(index, source.store->floatChannelValue(recordSample, source.column));
            break;
        case DT::Double:
            sample.setAnalogFromDouble(index, source.store->doubleChannelValue(recordSample, source.column));
            break;
        default:
            qDebug() << "Error value type";
            return -1;
        }
        ++index;
    }
    index = 0;
    for (const ColumnSource& source : digitals)
        sample.setDigital(index++, static_cast<uint8_t>(static_cast<int>(rawValue(source, recordSample))));
    return 0;
}

int ComtradeSaver::writeComtradeData()
{
    return m_comtrade.writeDat(m_dataBuffer, m_datPath, uint64_t(m_firstSampleOfBlock));
}
