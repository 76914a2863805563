#pragma once

#include "Model/Anomaly.h"
#include "Model/MeasureItem.h"
#include "Model/Oscillogram.h"
#include "Views/Painters/Markers.h"
#include "Views/Painters/TimeLayers.h"
#include "Views/PlotDrawInfo.h"
#include "korvane_export.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QSharedPointer>
#include <QVector>

class PixelBuffer;

// Draws the picture of channels, one over the other, with the layers a PlotDrawInfo asks for. It
// owns the painters of the layers and sets them up from a Scene for each picture; the view model
// fills the Scene from its state, so that drawing changes nothing in the model.
class KORVANE_EXPORT ChannelRenderer
{
public:
    // The state of one view that a picture shows, already resolved against the PlotDrawInfo.
    struct Scene
    {
        QSharedPointer<Oscillogram> oscillogram;
        int startSample = 0;
        double xScale = 1.0;
        QRgb background = 0xFF000000;
        // Amplitude of the trace by channel number; a channel beyond the list has 0.
        QVector<double> amplitudes;
        int primSecMode = 0;
        bool anomalyPaint = true;
        QHash<int, Anomaly> anomalies;
        // The markers of the view, drawn on a picture of one analogue channel only; may be null.
        QSharedPointer<const Markers> markers;
        QList<MeasureItem> measures;
        int currentSample = 0;
        bool hasFocus = false;
        bool calculaterLineVisible = false;
        int windowInSamples = 0;
    };

    // True where the picture carries the markers: one analogue channel, and the info asks for them.
    static bool drawsMarkers(const PlotDrawInfo& info, const QList<int>& channels, int countOfAnalogChannels);

    // A null image for an empty size. The image owns the pixels the painters wrote; nothing is copied.
    QImage render(
        const Scene& scene, const QList<int>& channels, int width, int height, const PlotDrawInfo& info);

private:
    void paintAnalogChannel(PixelBuffer& buffer, const Scene& scene, int channel) const;
    void paintDigitalChannel(PixelBuffer& buffer, const Scene& scene, int digitalIndex) const;
    void paintMarkers(PixelBuffer& buffer, const Scene& scene, int channel) const;
    void paintCurrentSample(PixelBuffer& buffer, const Scene& scene);

    BackgroundFill m_background;
    TimeGrid m_timeGrid;
    FailureLines m_failureLines;
    TriggerLine m_triggerLine;
    TimeMeasurePainter m_measures;
    CurrentSampleLine m_currentSampleLine;
};
