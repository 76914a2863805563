#pragma once

#include "Model/AnalogChannel.h"
#include "Model/Anomaly.h"
#include "Views/Painters/ILayerPainter.h"

#include <QList>
#include <QScopedPointer>
#include <QSharedPointer>
#include <QVector>

// The trace of one analogue channel, with its zero line and the frames of found anomalies.
class KORVANE_EXPORT AnalogPainter : public ILayerPainter
{
public:
    AnalogPainter();
    ~AnalogPainter() override;

    // Reads the kind of the channel and its range of raw values.
    void setChannel(const QSharedPointer<AnalogChannel>& channel);
    QSharedPointer<AnalogChannel> channel() const;

    double minValue() const;
    void setMinValue(double value);
    double maxValue() const;
    void setMaxValue(double value);
    double zeroValue() const;
    void setZeroValue(double value);
    double xScale() const;
    void setXScale(double xScale);
    double amplitude() const;
    void setAmplitude(double amplitude);
    double offset() const;
    void setOffset(double offset);
    int startSample() const;
    void setStartSample(int sample);
    bool isClc() const;
    void setIsClc(bool isClc);
    bool isComtrade() const;
    bool isWv2() const;
    void setIsWv2(bool isWv2);
    bool anomalyPaint() const;
    void setAnomalyPaint(bool paint);
    void setAnomalySpans(const QList<AnomalyData>& spans);
    // At small scales the extremes of each pixel column come from the store's summary (the
    // default), or from a scan of every sample the column covers; the pixels are the same.
    bool usesSummary() const;
    void setUsesSummary(bool uses);
    const QVector<QRgb>& phaseColors() const;
    const QVector<QRgb>& componentColors() const;

    // Zero line, then trace.
    void paint(PixelBuffer& buffer) override;
    void paintZeroLine(PixelBuffer& buffer) const;
    void paintTrace(PixelBuffer& buffer) const;

    // The number of samples from the start sample that a plot of the width shows.
    static int visibleCount(int width, double xScale, int countOfSamples, int startSample);

private:
    struct Private;
    QScopedPointer<Private> d;
};
