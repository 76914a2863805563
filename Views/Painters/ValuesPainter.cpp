#include "Views/Painters/ValuesPainter.h"

#include "Views/Painters/AnalogPainter.h"
#include "Views/Painters/DrawPrimitives.h"
#include "Views/Painters/VerticalMapping.h"

#include <QImage>
#include <QPainter>

struct ValuesPainter::Private
{
    QSharedPointer<AnalogChannel> channel;
    double minValue = -1.0;
    double maxValue = 1.0;
    double xScale = 1.0;
    double amplitude = 1.0;
    double offset = 0.0;
    int primSecMode = AnalogChannel::Primary;
    int startSample = 0;
};

ValuesPainter::ValuesPainter() : d(new Private)
{
}
ValuesPainter::~ValuesPainter() = default;

void ValuesPainter::setChannel(const QSharedPointer<AnalogChannel>& channel)
{
    // The range comes the same way as the trace's, so that the points sit on it.
    AnalogPainter trace;
    trace.setChannel(channel);
    d->channel = channel;
    d->minValue = trace.minValue();
    d->maxValue = trace.maxValue();
}

void ValuesPainter::setMinValue(double value)
{
    d->minValue = value;
}
void ValuesPainter::setMaxValue(double value)
{
    d->maxValue = value;
}
void ValuesPainter::setXScale(double xScale)
{
    d->xScale = xScale;
}
void ValuesPainter::setAmplitude(double amplitude)
{
    d->amplitude = amplitude;
}
void ValuesPainter::setOffset(double offset)
{
    d->offset = offset;
}
void ValuesPainter::setPrimSecMode(int mode)
{
    d->primSecMode = mode;
}
void ValuesPainter::setStartSample(int sample)
{
    d->startSample = sample;
}

QString ValuesPainter::label(double raw) const
{
    const AnalogChannel& channel = *d->channel;
    double value = channel.getRealValue(raw);
    if (channel.ps() != d->primSecMode) {
        if (channel.ps() == AnalogChannel::Primary)
            value *= channel.secondary() / channel.primary();
        else
            value *= channel.primary() / channel.secondary();
    }
    return QString::number(value, 'f', 1);
}

void ValuesPainter::paint(PixelBuffer& buffer)
{
    if (d->xScale < double(leastScale) || !d->channel || !d->channel->data())
        return;
    const AnalogChannel& channel = *d->channel;
    const int width = buffer.width();
    const int height = buffer.height();
    const VerticalMapping mapping(d->minValue, d->maxValue, d->amplitude, d->offset, height);
    const int count
        = AnalogPainter::visibleCount(width, d->xScale, channel.data()->countOfSamples(), d->startSample);
    QImage image(reinterpret_cast<uchar*>(buffer.data()), width, height, QImage::Format_ARGB32);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    for (int j = 0; j < channel.dataCount(); ++j) {
        const int column = channel.dataOffset() + j;
        for (int i = 1; i < count; ++i) {
            const int sample = d->startSample + i - 1;
            const int x = PixelDraw::floorColumn((i - 1) * d->xScale);
            const double raw = channel.getValue(sample, column);
            const int y = mapping.row(raw);
            PixelDraw::segment(buffer, x - 1, y - 2, x - 1, y + 2, pointColor);
            PixelDraw::segment(buffer, x, y - 3, x, y + 3, pointColor);
            PixelDraw::segment(buffer, x + 1, y - 2, x + 1, y + 2, pointColor);
            if (y < height / 2)
                painter.drawText(QRect(QPoint(x - 50, y), QPoint(x + 49, y + 19)),
                    Qt::AlignHCenter | Qt::AlignTop, label(raw));
            else
                painter.drawText(QRect(QPoint(x - 50, y - 20), QPoint(x + 49, y - 1)),
                    Qt::AlignHCenter | Qt::AlignBottom, label(raw));
        }
    }
}
