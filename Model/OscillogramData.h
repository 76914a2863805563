#pragma once

#include "Model/DataType.h"
#include "korvane_export.h"

#include <QBitArray>
#include <QSharedPointer>
#include <QVector>

#include <memory>
#include <mutex>

class SampleSummaries;

// The block that the builder fills and the store then owns. Every block is sample-major: the
// value of column c at sample s stands at s * countOfChannels + c, with the count of that type.
struct OscillogramDataPrivate
{
    int countOfDoubleChannels = 0;
    QVector<double> doubleMinValues;
    QVector<double> doubleMaxValues;
    QVector<double> doubleValues;
    int countOfFloatChannels = 0;
    QVector<float> floatMinValues;
    QVector<float> floatMaxValues;
    QVector<float> floatValues;
    int countOfInt32Channels = 0;
    QVector<int> int32MinValues;
    QVector<int> int32MaxValues;
    QVector<int> int32Values;
    int countOfInt16Channels = 0;
    QVector<short> int16MinValues;
    QVector<short> int16MaxValues;
    QVector<short> int16Values;
    QBitArray digitalValues;
    int countOfDigitalChannels = 0;
    int countOfSamples = 0;
};

// All samples of a record, immutable after construction and shared by the record and its
// channels. Analogue reads at or beyond the end of a block give 0.
class KORVANE_EXPORT OscillogramData
{
public:
    explicit OscillogramData(OscillogramDataPrivate* d);
    ~OscillogramData();
    OscillogramData(const OscillogramData&) = delete;
    OscillogramData& operator=(const OscillogramData&) = delete;

    int doubleValueIndex(int sample, int channel) const
    {
        return sample * d->countOfDoubleChannels + channel;
    }
    int floatValueIndex(int sample, int channel) const { return sample * d->countOfFloatChannels + channel; }
    int int32ValueIndex(int sample, int channel) const { return sample * d->countOfInt32Channels + channel; }
    int int16ValueIndex(int sample, int channel) const { return sample * d->countOfInt16Channels + channel; }
    int digitalValueIndex(int sample, int channel) const
    {
        return sample * d->countOfDigitalChannels + channel;
    }

    double doubleChannelValue(int sample, int channel) const
    {
        return m_doubles.valueOrZero(qint64(sample) * m_doubles.columns + channel);
    }
    float floatChannelValue(int sample, int channel) const
    {
        return m_floats.valueOrZero(qint64(sample) * m_floats.columns + channel);
    }
    int int32ChannelValue(int sample, int channel) const
    {
        return m_int32s.valueOrZero(qint64(sample) * m_int32s.columns + channel);
    }
    short int16ChannelValue(int sample, int channel) const
    {
        return m_int16s.valueOrZero(qint64(sample) * m_int16s.columns + channel);
    }
    bool digitalChannelValue(int sample, int channel) const
    {
        return d->digitalValues.testBit(digitalValueIndex(sample, channel));
    }

    double doubleMinValue(int channel) const { return d->doubleMinValues.at(channel); }
    float floatMinValue(int channel) const { return d->floatMinValues.at(channel); }
    int int32MinValue(int channel) const { return d->int32MinValues.at(channel); }
    short int16MinValue(int channel) const { return d->int16MinValues.at(channel); }
    double doubleMaxValue(int channel) const { return d->doubleMaxValues.at(channel); }
    float floatMaxValue(int channel) const { return d->floatMaxValues.at(channel); }
    int int32MaxValue(int channel) const { return d->int32MaxValues.at(channel); }
    short int16MaxValue(int channel) const { return d->int16MaxValues.at(channel); }

    const QVector<double>& doubleAnalogValues() const { return d->doubleValues; }
    const QVector<float>& floatAnalogValues() const { return d->floatValues; }
    const QVector<int>& int32AnalogValues() const { return d->int32Values; }
    const QVector<short>& int16AnalogValues() const { return d->int16Values; }
    const QBitArray& digitalValues() const { return d->digitalValues; }

    int countOfDoubleAnalogChannels() const { return d->countOfDoubleChannels; }
    int countOfFloatAnalogChannels() const { return d->countOfFloatChannels; }
    int countOfInt32AnalogChannels() const { return d->countOfInt32Channels; }
    int countOfInt16AnalogChannels() const { return d->countOfInt16Channels; }
    int countOfDigitalChannels() const { return d->countOfDigitalChannels; }
    int countOfAnalogChannels() const;
    int countOfSamples() const { return d->countOfSamples; }

    int countOfChannelsOfType(DT::DataType type) const;
    int dataSizeOfType(DT::DataType type) const;

    // Least and greatest samples of each analogue column at several resolutions, for pictures
    // whose cost must not grow with the samples. Made on first use, safely from any thread.
    const SampleSummaries& summaries() const;

private:
    // A read-only view of one block, taken once the store is complete: reads of whole columns go
    // through it without the indirections of the private block and its vectors.
    template<typename T> struct BlockView
    {
        const T* values = nullptr;
        int size = 0;
        int columns = 0;

        BlockView() = default;
        BlockView(const QVector<T>& block, int columnCount)
            : values(block.constData()), size(block.size()), columns(columnCount)
        {
        }
        // Only the flat index is checked: a column beyond the count that lands within the block
        // reads a neighbour's value, as readers of the store expect.
        T valueOrZero(qint64 index) const { return (index >= 0 && index < size) ? values[index] : T(0); }
    };

    void scanExtremes();

    OscillogramDataPrivate* d;
    BlockView<double> m_doubles;
    BlockView<float> m_floats;
    BlockView<int> m_int32s;
    BlockView<short> m_int16s;
    mutable std::once_flag m_summariesOnce;
    mutable std::shared_ptr<SampleSummaries> m_summaries;
};

// Fills a store once: reserve, append or set, then build().
class KORVANE_EXPORT OscillogramDataBuilder
{
public:
    OscillogramDataBuilder();
    ~OscillogramDataBuilder();
    OscillogramDataBuilder(const OscillogramDataBuilder&) = delete;
    OscillogramDataBuilder& operator=(const OscillogramDataBuilder&) = delete;

    // False, with nothing reserved, when a block would pass what one container can hold: the
    // reader then reports its damaged file.
    bool reserve(int doubleChannels, int floatChannels, int int32Channels, int int16Channels,
        int digitalChannels, int samples);
    void setCountOfSamples(int samples);

    QVector<double>& doubleAnalogValues() { return d->doubleValues; }
    QVector<float>& floatAnalogValues() { return d->floatValues; }
    QVector<int>& int32AnalogValues() { return d->int32Values; }
    QVector<short>& int16AnalogValues() { return d->int16Values; }
    QBitArray& digitalValues() { return d->digitalValues; }

    void appendDoubleValue(double value) { d->doubleValues.append(value); }
    void appendFloatValue(float value) { d->floatValues.append(value); }
    void appendInt32Value(int value) { d->int32Values.append(value); }
    void appendInt16Value(short value) { d->int16Values.append(value); }

    void setDoubleChannelValue(int sample, int channel, double value)
    {
        d->doubleValues[sample * d->countOfDoubleChannels + channel] = value;
    }
    void setFloatChannelValue(int sample, int channel, float value)
    {
        d->floatValues[sample * d->countOfFloatChannels + channel] = value;
    }
    void setInt32ChannelValue(int sample, int channel, int value)
    {
        d->int32Values[sample * d->countOfInt32Channels + channel] = value;
    }
    void setInt16ChannelValue(int sample, int channel, short value)
    {
        d->int16Values[sample * d->countOfInt16Channels + channel] = value;
    }
    void setDigitalChannelValue(int sample, int channel, bool value);

    QSharedPointer<OscillogramData> build();

private:
    OscillogramDataPrivate* d;
};
