#pragma once

#include "Model/Failure.h"
#include "Model/MeasureItem.h"
#include "Model/Oscillogram.h"
#include "Views/Painters/ILayerPainter.h"

#include <QList>
#include <QSharedPointer>

// The layers that mark moments of the record with vertical lines over the whole height.

class KORVANE_EXPORT BackgroundFill : public ILayerPainter
{
public:
    void setColor(QRgb color) { m_color = color; }
    QRgb color() const { return m_color; }
    void paint(PixelBuffer& buffer) override;

private:
    QRgb m_color = 0xFF000000;
};

class KORVANE_EXPORT TimeGrid : public ILayerPainter
{
public:
    // The ladder of grid steps in milliseconds.
    static const QList<double>& steps();
    // The step for a least spacing of 50 pixels at the rate and scale.
    static double stepFor(double sampleRate, double xScale);

    void setOscillogram(const QSharedPointer<Oscillogram>& record) { m_record = record; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void setStartSample(int sample) { m_startSample = sample; }
    void paint(PixelBuffer& buffer) override;

private:
    QSharedPointer<Oscillogram> m_record;
    double m_xScale = 1.0;
    int m_startSample = 0;
};

class KORVANE_EXPORT FailureLines : public ILayerPainter
{
public:
    void setFailures(const QList<QSharedPointer<Failure>>& failures) { m_failures = failures; }
    void setStartSample(int sample) { m_startSample = sample; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void paint(PixelBuffer& buffer) override;

private:
    QList<QSharedPointer<Failure>> m_failures;
    int m_startSample = 0;
    double m_xScale = 1.0;
};

class KORVANE_EXPORT TriggerLine : public ILayerPainter
{
public:
    void setOscillogram(const QSharedPointer<Oscillogram>& record) { m_record = record; }
    void setStartSample(int sample) { m_startSample = sample; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void paint(PixelBuffer& buffer) override;

private:
    QSharedPointer<Oscillogram> m_record;
    int m_startSample = 0;
    double m_xScale = 1.0;
};

class KORVANE_EXPORT TimeMeasurePainter : public ILayerPainter
{
public:
    explicit TimeMeasurePainter(const QList<MeasureItem>& measures = {}) : m_measures(measures) { }
    void setMeasures(const QList<MeasureItem>& measures) { m_measures = measures; }
    void setStartSample(int sample) { m_startSample = sample; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void paint(PixelBuffer& buffer) override;

private:
    QList<MeasureItem> m_measures;
    int m_startSample = 0;
    double m_xScale = 1.0;
};

class KORVANE_EXPORT CurrentSampleLine : public ILayerPainter
{
public:
    static constexpr QRgb calculaterLineColor = 0xFFFF0000;
    static constexpr QRgb unfocusedLineColor = 0xFF999999;
    static constexpr QRgb unfocusedCalculaterLineColor = 0xFF990000;

    void setHasFocus(bool hasFocus) { m_hasFocus = hasFocus; }
    void setCurrentSample(int sample) { m_currentSample = sample; }
    void setStartSample(int sample) { m_startSample = sample; }
    void setXScale(double xScale) { m_xScale = xScale; }
    void setCalculaterLineVisible(bool visible) { m_calculaterLineVisible = visible; }
    void setWindowInSamples(int samples) { m_windowInSamples = samples; }
    void paint(PixelBuffer& buffer) override;

private:
    bool m_hasFocus = false;
    int m_currentSample = 0;
    int m_startSample = 0;
    double m_xScale = 1.0;
    bool m_calculaterLineVisible = false;
    int m_windowInSamples = 0;
};
