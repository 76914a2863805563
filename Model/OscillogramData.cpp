#include "OscillogramData.h"

#include "Model/CheckedSize.h"

#include <limits>

namespace {
template<typename T> void takeExtremes(const T& value, T& minValue, T& maxValue)
{
    if (value > maxValue)
        maxValue = value;
    else if (value < minValue)
        minValue = value;
}

// Rows are walked in memory order; rows beyond the stored values count as zeros.
template<typename T>
void scanBlock(
    const QVector<T>& values, int columns, int samples, QVector<T>& minValues, QVector<T>& maxValues)
{
    if (columns <= 0)
        return;
    T* mins = minValues.data();
    T* maxs = maxValues.data();
    const T* row = values.constData();
    const qint64 stored = values.size();
    for (int c = 0; c < columns; ++c)
        mins[c] = maxs[c] = c < stored ? row[c] : T(0);
    const qint64 wholeRows = qMin<qint64>(samples, stored / columns);
    for (qint64 s = 1; s < wholeRows; ++s) {
        row += columns;
        for (int c = 0; c < columns; ++c)
            takeExtremes(row[c], mins[c], maxs[c]);
    }
    for (qint64 s = qMax<qint64>(1, wholeRows); s < samples; ++s) {
        for (int c = 0; c < columns; ++c) {
            const qint64 index = s * columns + c;
            takeExtremes(index < stored ? values.at(int(index)) : T(0), mins[c], maxs[c]);
        }
    }
}

template<typename T> bool blockFits(int columns, int samples)
{
    return Korvane::checkedProduct(columns, samples, Korvane::largestBlockBytes / qint64(sizeof(T))) >= 0;
}

// Bits are counted in int by QBitArray.
bool bitsFit(int columns, int samples)
{
    return Korvane::checkedProduct(columns, samples, std::numeric_limits<int>::max()) >= 0;
}

template<typename T>
void reserveBlock(QVector<T>& values, QVector<T>& minValues, QVector<T>& maxValues, int columns, int samples)
{
    minValues.resize(columns);
    maxValues.resize(columns);
    // A reserved QVector keeps its capacity, so appends up to this size never reallocate.
    values.reserve(int(qint64(columns) * samples));
}
} // namespace

OscillogramData::OscillogramData(OscillogramDataPrivate* d)
    : d(d)
    , m_doubles(d->doubleValues, d->countOfDoubleChannels)
    , m_floats(d->floatValues, d->countOfFloatChannels)
    , m_int32s(d->int32Values, d->countOfInt32Channels)
    , m_int16s(d->int16Values, d->countOfInt16Channels)
{
    scanExtremes();
}

OscillogramData::~OscillogramData()
{
    delete d;
}

void OscillogramData::scanExtremes()
{
    const int samples = d->countOfSamples;
    if (samples <= 0)
        return;
    scanBlock(d->doubleValues, d->countOfDoubleChannels, samples, d->doubleMinValues, d->doubleMaxValues);
    scanBlock(d->floatValues, d->countOfFloatChannels, samples, d->floatMinValues, d->floatMaxValues);
    scanBlock(d->int32Values, d->countOfInt32Channels, samples, d->int32MinValues, d->int32MaxValues);
    scanBlock(d->int16Values, d->countOfInt16Channels, samples, d->int16MinValues, d->int16MaxValues);
}

int OscillogramData::countOfAnalogChannels() const
{
    return d->countOfDoubleChannels + d->countOfFloatChannels + d->countOfInt32Channels
        + d->countOfInt16Channels;
}

int OscillogramData::countOfChannelsOfType(DT::DataType type) const
{
    switch (type) {
    case DT::Int16:
        return d->countOfInt16Channels;
    case DT::Int32:
        return d->countOfInt32Channels;
    case DT::Float:
        return d->countOfFloatChannels;
    case DT::Double:
        return d->countOfDoubleChannels;
    case DT::Digital:
        return d->countOfDigitalChannels;
    default:
        return 0;
    }
}

int OscillogramData::dataSizeOfType(DT::DataType type) const
{
    switch (type) {
    case DT::Int16:
        return d->int16Values.size();
    case DT::Int32:
        return d->int32Values.size();
    case DT::Float:
        return d->floatValues.size();
    case DT::Double:
        return d->doubleValues.size();
    case DT::Digital:
        return d->digitalValues.size();
    default:
        return 0;
    }
}

OscillogramDataBuilder::OscillogramDataBuilder() : d(new OscillogramDataPrivate)
{
}

OscillogramDataBuilder::~OscillogramDataBuilder()
{
    delete d;
}

bool OscillogramDataBuilder::reserve(int doubleChannels, int floatChannels, int int32Channels,
    int int16Channels, int digitalChannels, int samples)
{
    if (!blockFits<double>(doubleChannels, samples) || !blockFits<float>(floatChannels, samples)
        || !blockFits<int>(int32Channels, samples) || !blockFits<short>(int16Channels, samples)
        || !bitsFit(digitalChannels, samples))
        return false;
    d->countOfDoubleChannels = doubleChannels;
    d->countOfFloatChannels = floatChannels;
    d->countOfInt32Channels = int32Channels;
    d->countOfInt16Channels = int16Channels;
    d->countOfDigitalChannels = digitalChannels;
    d->countOfSamples = samples;
    reserveBlock(d->doubleValues, d->doubleMinValues, d->doubleMaxValues, doubleChannels, samples);
    reserveBlock(d->floatValues, d->floatMinValues, d->floatMaxValues, floatChannels, samples);
    reserveBlock(d->int32Values, d->int32MinValues, d->int32MaxValues, int32Channels, samples);
    reserveBlock(d->int16Values, d->int16MinValues, d->int16MaxValues, int16Channels, samples);
    d->digitalValues.resize(int(qint64(digitalChannels) * samples));
    return true;
}

void OscillogramDataBuilder::setCountOfSamples(int samples)
{
    d->countOfSamples = samples;
}

void OscillogramDataBuilder::setDigitalChannelValue(int sample, int channel, bool value)
{
    const qint64 index = qint64(sample) * d->countOfDigitalChannels + channel;
    if (index < 0 || index >= d->digitalValues.size())
        return;
    d->digitalValues.setBit(int(index), value);
}

QSharedPointer<OscillogramData> OscillogramDataBuilder::build()
{
    OscillogramDataPrivate* block = d;
    d = nullptr;
    return QSharedPointer<OscillogramData>::create(block);
}
