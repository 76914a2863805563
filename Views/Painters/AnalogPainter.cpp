#include "Views/Painters/AnalogPainter.h"

#include "Model/ClcAnalogChannel.h"
#include "Model/ComtradeChannels.h"
#include "Model/Wv2Channels.h"
#include "Settings/ColorStyle.h"
#include "Views/Painters/Decimation.h"
#include "Views/Painters/DrawPrimitives.h"
#include "Views/Painters/VerticalMapping.h"

#include <cmath>
#include <limits>
#include <vector>

struct AnalogPainter::Private
{
    QSharedPointer<AnalogChannel> channel;
    double minValue = -1.0;
    double maxValue = 1.0;
    double zeroValue = 0.0;
    double xScale = 1.0;
    double amplitude = 1.0;
    double offset = 0.0;
    int startSample = 0;
    bool isClc = false;
    bool isComtrade = false;
    bool isWv2 = false;
    bool anomalyPaint = false;
    bool usesSummary = true;
    QVector<QRgb> phaseColors;
    QVector<QRgb> componentColors;
    QList<AnomalyData> spans;
};

namespace {
// Frames and colour of the anomaly spans for one column or segment.
struct AnomalyFrames
{
    const QList<AnomalyData>& spans;
    QRgb color;
    int height;

    bool isEmpty() const { return spans.isEmpty(); }

    // The frame parts that sample m draws between the columns left and right.
    void mark(PixelBuffer& buffer, int m, int left, int right) const
    {
        for (const AnomalyData& span : spans) {
            if (m == span.startSample())
                PixelDraw::frameEdge(buffer, left, 3, height - 3, 1, color);
            if (m == span.endSample())
                PixelDraw::frameEdge(buffer, right, 3, height - 3, 1, color);
            if (m >= span.startSample() && m <= span.endSample()) {
                const int end = qMin(right, buffer.width());
                PixelDraw::horizontalLine(buffer, height - 3, left, end, 1, color);
                PixelDraw::horizontalLine(buffer, 3, left, end, 1, color);
            }
        }
    }

    bool contains(int m) const
    {
        for (const AnomalyData& span : spans) {
            if (m >= span.startSample() && m <= span.endSample())
                return true;
        }
        return false;
    }
};

template<typename T> const T* typedValues(const OscillogramData& store);
template<> const short* typedValues<short>(const OscillogramData& store)
{
    return store.int16AnalogValues().constData();
}
template<> const int* typedValues<int>(const OscillogramData& store)
{
    return store.int32AnalogValues().constData();
}
template<> const float* typedValues<float>(const OscillogramData& store)
{
    return store.floatAnalogValues().constData();
}
template<> const double* typedValues<double>(const OscillogramData& store)
{
    return store.doubleAnalogValues().constData();
}

// The extremes of the data columns of a channel, as the store found them while it was built.
void channelRange(const AnalogChannel& channel, double& low, double& high)
{
    const OscillogramData& store = *channel.data();
    bool first = true;
    for (int j = 0; j < channel.dataCount(); ++j) {
        const int column = channel.dataOffset() + j;
        double columnLow = 0.0;
        double columnHigh = 0.0;
        switch (channel.dataType()) {
        case DT::Int16:
            columnLow = store.int16MinValue(column);
            columnHigh = store.int16MaxValue(column);
            break;
        case DT::Int32:
            columnLow = store.int32MinValue(column);
            columnHigh = store.int32MaxValue(column);
            break;
        case DT::Float:
            columnLow = store.floatMinValue(column);
            columnHigh = store.floatMaxValue(column);
            break;
        case DT::Double:
            columnLow = store.doubleMinValue(column);
            columnHigh = store.doubleMaxValue(column);
            break;
        default:
            return;
        }
        low = first ? columnLow : qMin(low, columnLow);
        high = first ? columnHigh : qMax(high, columnHigh);
        first = false;
    }
}

bool hasStoreColumns(const AnalogChannel& channel)
{
    const auto store = channel.data();
    if (!store || channel.dataCount() <= 0 || channel.dataOffset() < 0)
        return false;
    const DT::DataType type = channel.dataType();
    if (type < DT::Int16 || type > DT::Double)
        return false;
    return channel.dataOffset() + channel.dataCount() <= store->countOfChannelsOfType(type);
}
} // namespace

AnalogPainter::AnalogPainter() : d(new Private)
{
    const auto& style = KV::Cfg::ColorStyle::current();
    d->phaseColors = { style.noPhase, style.phaseA, style.phaseB, style.phaseC };
    d->componentColors = { style.phaseB, style.secondComponent, style.phaseC };
}

AnalogPainter::~AnalogPainter() = default;

void AnalogPainter::setChannel(const QSharedPointer<AnalogChannel>& channel)
{
    d->channel = channel;
    d->isClc = !channel.dynamicCast<ClcAnalogChannel>().isNull();
    d->isComtrade = !channel.dynamicCast<ComtradeAnalogChannel>().isNull();
    d->isWv2 = !channel.dynamicCast<Wv2AnalogChannel>().isNull();
    d->minValue = -1.0;
    d->maxValue = 1.0;
    d->zeroValue = 0.0;
    if (!channel)
        return;
    if (hasStoreColumns(*channel))
        channelRange(*channel, d->minValue, d->maxValue);
    d->zeroValue = -channel->offsetAdder() / channel->multiplier();
    if (d->minValue == d->maxValue) {
        const double value = d->minValue;
        d->minValue = value - 1.0;
        d->maxValue = value + 1.0;
    }
}

QSharedPointer<AnalogChannel> AnalogPainter::channel() const
{
    return d->channel;
}
double AnalogPainter::minValue() const
{
    return d->minValue;
}
void AnalogPainter::setMinValue(double value)
{
    d->minValue = value;
}
double AnalogPainter::maxValue() const
{
    return d->maxValue;
}
void AnalogPainter::setMaxValue(double value)
{
    d->maxValue = value;
}
double AnalogPainter::zeroValue() const
{
    return d->zeroValue;
}
void AnalogPainter::setZeroValue(double value)
{
    d->zeroValue = value;
}
double AnalogPainter::xScale() const
{
    return d->xScale;
}
void AnalogPainter::setXScale(double xScale)
{
    d->xScale = xScale;
}
double AnalogPainter::amplitude() const
{
    return d->amplitude;
}
void AnalogPainter::setAmplitude(double amplitude)
{
    d->amplitude = amplitude;
}
double AnalogPainter::offset() const
{
    return d->offset;
}
void AnalogPainter::setOffset(double offset)
{
    d->offset = offset;
}
int AnalogPainter::startSample() const
{
    return d->startSample;
}
void AnalogPainter::setStartSample(int sample)
{
    d->startSample = sample;
}
bool AnalogPainter::isClc() const
{
    return d->isClc;
}
void AnalogPainter::setIsClc(bool isClc)
{
    d->isClc = isClc;
}
bool AnalogPainter::isComtrade() const
{
    return d->isComtrade;
}
bool AnalogPainter::isWv2() const
{
    return d->isWv2;
}
void AnalogPainter::setIsWv2(bool isWv2)
{
    d->isWv2 = isWv2;
}
bool AnalogPainter::anomalyPaint() const
{
    return d->anomalyPaint;
}
void AnalogPainter::setAnomalyPaint(bool paint)
{
    d->anomalyPaint = paint;
}
bool AnalogPainter::usesSummary() const
{
    return d->usesSummary;
}
void AnalogPainter::setUsesSummary(bool uses)
{
    d->usesSummary = uses;
}
void AnalogPainter::setAnomalySpans(const QList<AnomalyData>& spans)
{
    d->spans = spans;
}
const QVector<QRgb>& AnalogPainter::phaseColors() const
{
    return d->phaseColors;
}
const QVector<QRgb>& AnalogPainter::componentColors() const
{
    return d->componentColors;
}

int AnalogPainter::visibleCount(int width, double xScale, int countOfSamples, int startSample)
{
    const int count = VerticalMapping::toRow(width / xScale + 2.0);
    return qMin(count, countOfSamples - startSample);
}

void AnalogPainter::paint(PixelBuffer& buffer)
{
    paintZeroLine(buffer);
    paintTrace(buffer);
}

void AnalogPainter::paintZeroLine(PixelBuffer& buffer) const
{
    if (d->isClc || d->maxValue == d->minValue)
        return;
    const int height = buffer.height();
    const int width = buffer.width();
    const int row
        = VerticalMapping::toRow(height * (1.0 - (d->zeroValue - d->minValue) / (d->maxValue - d->minValue)));
    if (row < 0 || (qint64(row) + 1) * width > buffer.pixelCapacity())
        return;
    QRgb* line = buffer.data() + qint64(row) * width;
    std::fill(line, line + width, KV::Cfg::ColorStyle::current().grid);
}

namespace {
struct TraceContext
{
    const AnalogChannel& channel;
    PixelBuffer& buffer;
    VerticalMapping mapping;
    double xScale;
    int startSample;
    int count;
    AnomalyFrames frames;
    bool usesSummary;
};

// Case of a small scale: one vertical span per pixel column from the least to the greatest of the
// samples it covers, sharing one sample with the next column so that the trace stays joined.
// How many pixel columns ahead the summary's memory is asked for.
constexpr int prefetchColumns = 8;

// The vertical spans of a decimated trace, one per pixel column, with the colour of each. They are
// gathered first and filled in row by row afterwards: a dense trace covers most of the picture,
// and writing it column by column would touch a new line of memory with every pixel.
struct ColumnSpans
{
    std::vector<int> top;
    std::vector<int> bottom; // below top: nothing in that column
    std::vector<QRgb> color;

    explicit ColumnSpans(int width)
        : top(size_t(width), 0), bottom(size_t(width), -1), color(size_t(width), 0)
    {
    }

    void fill(PixelBuffer& buffer) const
    {
        const int width = buffer.width();
        int firstRow = std::numeric_limits<int>::max();
        int lastRow = -1;
        for (int x = 0; x < width; ++x) {
            if (top[size_t(x)] <= bottom[size_t(x)]) {
                firstRow = qMin(firstRow, top[size_t(x)]);
                lastRow = qMax(lastRow, bottom[size_t(x)]);
            }
        }
        for (int y = firstRow; y <= lastRow; ++y) {
            // A buffer may end inside its last row.
            const int end = int(qMin<qint64>(width, buffer.pixelCapacity() - qint64(y) * width));
            fillRow(buffer.data() + qint64(y) * width, y, end, top.data(), bottom.data(), color.data());
        }
    }

    // One pass over the row that always stores, with no branch and no aliasing, so that the
    // compiler can vectorise it.
    static void fillRow(QRgb* __restrict line, int y, int end, const int* __restrict tops,
        const int* __restrict bottoms, const QRgb* __restrict colors)
    {
        for (int x = 0; x < end; ++x) {
            const QRgb inside = QRgb(0) - (QRgb(y >= tops[x]) & QRgb(y <= bottoms[x]));
            line[x] = (colors[x] & inside) | (line[x] & ~inside);
        }
    }
};

template<typename T>
void decimatedTrace(const TraceContext& c, const T* values, long long size, int stride, QRgb color)
{
    PixelBuffer& buffer = c.buffer;
    const int width = buffer.width();
    const int height = buffer.height();
    const double samplesPerColumn = 1.0 / c.xScale;
    const int spp = int(std::floor(samplesPerColumn));
    const long long columns = (long long)(std::floor(size / (samplesPerColumn * stride))) - 1;
    const bool inverted = c.channel.isInverted();
    const QRgb anomalyColor = c.frames.color;
    const qint64 pixelCapacity = buffer.pixelCapacity();
    const Decimation::ColumnReader<T> reader(
        *c.channel.data(), values, size, stride, c.channel.dataOffset(), c.usesSummary);
    ColumnSpans spans(width);
    long long p = c.channel.dataOffset() + (long long)stride * c.startSample;
    int n = c.startSample;
    for (int x = 0; x < width && x < columns; ++x, p += (long long)spp * stride, n += spp) {
        if (p < 0 || p >= size)
            continue;
        reader.prefetch(n + prefetchColumns * (long long)spp, spp + 1);
        const auto extremes = reader.extremes(n, spp + 1);
        int y1 = c.mapping.row(extremes.low);
        int y2 = c.mapping.row(extremes.high);
        if (inverted) {
            y1 = height - y1;
            y2 = height - y2;
        }
        y1 = qBound(0, y1, height);
        y2 = qBound(0, y2, height);
        if (y1 > y2)
            std::swap(y1, y2);
        QRgb columnColor = color;
        if (!c.frames.isEmpty()) {
            const long long scanned = qMin<long long>(spp + 1, (size - p + stride - 1) / stride);
            for (int k = 0; k < scanned; ++k)
                c.frames.mark(buffer, n + k, x, x + 1);
            if (c.frames.contains(n))
                columnColor = anomalyColor;
        }
        const int lastInside = int(qMin<qint64>(y2, (pixelCapacity - 1 - x) / width));
        if (c.frames.isEmpty()) {
            spans.top[size_t(x)] = y1;
            spans.bottom[size_t(x)] = lastInside;
            spans.color[size_t(x)] = columnColor;
        } else {
            // A frame's edges reach into the neighbouring columns and the trace of the column
            // painted next covers them: the order of a column at a time is kept.
            for (int y = y1; y <= lastInside; ++y)
                buffer.data()[qint64(y) * width + x] = columnColor;
        }
    }
    spans.fill(buffer);
}

// Case of a small scale on a Clc channel: every sample, no decimation. Each further data column
// stops one sample earlier than the one before.
template<typename T>
void clcTrace(const TraceContext& c, const T* values, long long size, int stride, const QVector<QRgb>& colors)
{
    const int width = c.buffer.width();
    const int height = c.buffer.height();
    int count = c.count;
    for (int j = 0; j < c.channel.dataCount(); ++j) {
        --count;
        const QRgb color = colors[j];
        const long long column = c.channel.dataOffset() + j;
        auto valueAt = [&](int i) {
            const long long index = column + (long long)stride * (c.startSample + i);
            return (index >= 0 && index < size) ? double(values[index]) : 0.0;
        };
        for (int i = 0; i <= count - 2; ++i) {
            const int x = PixelDraw::floorColumn(i * c.xScale);
            if (x < 0 || x >= width)
                continue;
            int y1 = qBound(0, c.mapping.row(valueAt(i)), height);
            int y2 = qBound(0, c.mapping.row(valueAt(i + 1)), height);
            if (y1 > y2)
                std::swap(y1, y2);
            PixelDraw::columnSpan(c.buffer, x, y1, y2, color);
        }
    }
}

// Case of a large scale: true segments between neighbouring samples.
void segmentTrace(const TraceContext& c, const QVector<QRgb>& colors)
{
    for (int j = 0; j < c.channel.dataCount(); ++j) {
        const int column = c.channel.dataOffset() + j;
        for (int i = 1; i < c.count; ++i) {
            const int x1 = PixelDraw::floorColumn((i - 1) * c.xScale);
            const int x2 = PixelDraw::floorColumn(i * c.xScale);
            const double v1 = c.channel.getValue(c.startSample + i - 1, column);
            const double v2 = c.channel.getValue(c.startSample + i, column);
            QRgb color = colors[j];
            if (!c.frames.isEmpty()) {
                const int m = c.startSample + i;
                c.frames.mark(c.buffer, m, x1, x2);
                if (c.frames.contains(m))
                    color = c.frames.color;
            }
            PixelDraw::segment(c.buffer, x1, c.mapping.row(v1), x2, c.mapping.row(v2), color);
        }
    }
}

template<typename T> void typedTrace(const TraceContext& c, bool isClc, const QVector<QRgb>& colors)
{
    const OscillogramData& store = *c.channel.data();
    const DT::DataType type = c.channel.dataType();
    const T* values = typedValues<T>(store);
    const long long size = store.dataSizeOfType(type);
    const int stride = store.countOfChannelsOfType(type);
    if (c.xScale > 0.05)
        segmentTrace(c, colors);
    else if (isClc)
        clcTrace(c, values, size, stride, colors);
    else
        decimatedTrace(c, values, size, stride, colors.value(0));
}
} // namespace

void AnalogPainter::paintTrace(PixelBuffer& buffer) const
{
    if (!d->channel || !d->channel->data() || d->xScale <= 0.0)
        return;
    const AnalogChannel& channel = *d->channel;
    if (!hasStoreColumns(channel))
        return;
    const auto& style = KV::Cfg::ColorStyle::current();
    QVector<QRgb> colors(channel.dataCount());
    for (int j = 0; j < colors.size(); ++j) {
        if (channel.isSelected())
            colors[j] = style.selectedTrace;
        else if (channel.getCustomColor())
            colors[j] = channel.getCustomColor()->rgba();
        else if (d->isClc)
            colors[j] = d->componentColors.value(j, d->componentColors[0]);
        else
            colors[j] = d->phaseColors.value(channel.phaseNumber(), d->phaseColors[0]);
    }
    const QList<AnomalyData> noSpans;
    const QList<AnomalyData>& spans = d->anomalyPaint ? d->spans : noSpans;
    const int samples = channel.data()->countOfSamples();
    const TraceContext context { channel, buffer,
        VerticalMapping(d->minValue, d->maxValue, d->amplitude, d->offset, buffer.height()), d->xScale,
        d->startSample, visibleCount(buffer.width(), d->xScale, samples, d->startSample),
        AnomalyFrames { spans, style.anomaly, buffer.height() }, d->usesSummary };
    switch (channel.dataType()) {
    case DT::Int16:
        typedTrace<short>(context, d->isClc, colors);
        break;
    case DT::Int32:
        typedTrace<int>(context, d->isClc, colors);
        break;
    case DT::Float:
        typedTrace<float>(context, d->isClc, colors);
        break;
    case DT::Double:
        typedTrace<double>(context, d->isClc, colors);
        break;
    default:
        break;
    }
}
