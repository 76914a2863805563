#include "Views/Painters/ChannelRenderer.h"

#include "Views/Painters/AnalogPainter.h"
#include "Views/Painters/DigitalPainter.h"
#include "Views/Painters/PixelBuffer.h"
#include "Views/Painters/ValuesPainter.h"

namespace {
double amplitudeOf(const ChannelRenderer::Scene& scene, int channel)
{
    return channel < 0 || channel >= scene.amplitudes.size() ? 0.0 : scene.amplitudes[channel];
}

// The trace and the values of an analogue channel stand on the same place of the plot.
template<typename TracePainter>
void placeOnPlot(TracePainter& painter, const QSharedPointer<AnalogChannel>& target, double amplitude,
    const ChannelRenderer::Scene& scene)
{
    painter.setChannel(target);
    painter.setOffset(0.0);
    painter.setAmplitude(amplitude);
    painter.setXScale(scene.xScale);
    painter.setStartSample(scene.startSample);
}

// The layers that stand on the time axis alone share their place too.
template<typename TimePainter> void placeOnTime(TimePainter& painter, const ChannelRenderer::Scene& scene)
{
    painter.setStartSample(scene.startSample);
    painter.setXScale(scene.xScale);
}
} // namespace

bool ChannelRenderer::drawsMarkers(
    const PlotDrawInfo& info, const QList<int>& channels, int countOfAnalogChannels)
{
    return info.drawMarkers && channels.size() == 1 && channels.first() < countOfAnalogChannels;
}

QImage ChannelRenderer::render(
    const Scene& scene, const QList<int>& channels, int width, int height, const PlotDrawInfo& info)
{
    if (width <= 0 || height <= 0)
        return QImage();
    PixelBuffer buffer(width, height);
    m_background.setColor(scene.background);
    m_background.paint(buffer);
    if (info.drawTimeGrid) {
        m_timeGrid.setOscillogram(scene.oscillogram);
        placeOnTime(m_timeGrid, scene);
        m_timeGrid.paint(buffer);
    }
    if (info.drawFailures) {
        m_failureLines.setFailures(
            scene.oscillogram ? scene.oscillogram->failures() : QList<QSharedPointer<Failure>>());
        placeOnTime(m_failureLines, scene);
        m_failureLines.paint(buffer);
    }
    const int analogs = scene.oscillogram ? scene.oscillogram->countOfAnalogChannels() : 0;
    const int all = scene.oscillogram ? scene.oscillogram->countOfChannels() : 0;
    const bool drawMarkers = drawsMarkers(info, channels, analogs) && scene.markers;
    for (int channel : channels) {
        if (channel < analogs) {
            if (channel < 0)
                continue;
            paintAnalogChannel(buffer, scene, channel);
        } else if (channel < all) {
            paintDigitalChannel(buffer, scene, channel - analogs);
        }
        if (drawMarkers)
            paintMarkers(buffer, scene, channel);
    }
    if (info.drawTrigger) {
        m_triggerLine.setOscillogram(scene.oscillogram);
        placeOnTime(m_triggerLine, scene);
        m_triggerLine.paint(buffer);
    }
    if (info.drawMeasures) {
        m_measures.setMeasures(scene.measures);
        placeOnTime(m_measures, scene);
        m_measures.paint(buffer);
    }
    if (info.drawCurrentSample)
        paintCurrentSample(buffer, scene);
    void* block = buffer.releasedBlock();
    return QImage(reinterpret_cast<uchar*>(buffer.release()), width, height, QImage::Format_ARGB32,
        PixelBuffer::recycle, block);
}

void ChannelRenderer::paintAnalogChannel(PixelBuffer& buffer, const Scene& scene, int channel) const
{
    const auto target = scene.oscillogram->analogChannel(channel);
    const double amplitude = amplitudeOf(scene, channel);
    AnalogPainter trace;
    placeOnPlot(trace, target, amplitude, scene);
    trace.setAnomalyPaint(scene.anomalyPaint);
    if (scene.anomalies.contains(channel))
        trace.setAnomalySpans(scene.anomalies.value(channel).getAnomalyData());
    ValuesPainter values;
    placeOnPlot(values, target, amplitude, scene);
    values.setPrimSecMode(scene.primSecMode);
    trace.paintZeroLine(buffer);
    trace.paintTrace(buffer);
    values.paint(buffer);
}

void ChannelRenderer::paintDigitalChannel(PixelBuffer& buffer, const Scene& scene, int digitalIndex) const
{
    DigitalPainter trace;
    trace.setChannel(scene.oscillogram->digitalChannel(digitalIndex));
    placeOnTime(trace, scene);
    trace.paint(buffer);
}

void ChannelRenderer::paintMarkers(PixelBuffer& buffer, const Scene& scene, int channel) const
{
    // A copy of the view's markers is set up for this picture; the view's own stay as they are.
    Markers layer(*scene.markers);
    placeOnTime(layer, scene);
    layer.setChannel(channel);
    layer.paint(buffer);
}

void ChannelRenderer::paintCurrentSample(PixelBuffer& buffer, const Scene& scene)
{
    m_currentSampleLine.setHasFocus(scene.hasFocus);
    m_currentSampleLine.setCurrentSample(scene.currentSample);
    placeOnTime(m_currentSampleLine, scene);
    m_currentSampleLine.setCalculaterLineVisible(scene.calculaterLineVisible);
    m_currentSampleLine.setWindowInSamples(scene.windowInSamples);
    m_currentSampleLine.paint(buffer);
}
