#include "Views/Painters/TimeLayers.h"

#include "Model/NumericCast.h"
#include "Model/SimpleOscillogram.h"
#include "Settings/ColorStyle.h"
#include "Views/Painters/DrawPrimitives.h"

#include <cmath>
#include <cstring>

ILayerPainter::~ILayerPainter() = default;

namespace {
// A full-height line at the column of a sample, when the sample is in view.
void sampleLine(PixelBuffer& buffer, int sample, int startSample, double xScale, int thickness, QRgb color)
{
    const int x = PixelDraw::sampleColumn(sample, startSample, xScale, buffer.width());
    if (x >= 0)
        PixelDraw::verticalLine(buffer, x, 0, buffer.height(), thickness, color);
}
} // namespace

void BackgroundFill::paint(PixelBuffer& buffer)
{
    if (!buffer.data() || buffer.capacity() < qint64(sizeof(QRgb)))
        return;
    char* bytes = reinterpret_cast<char*>(buffer.data());
    buffer.data()[0] = m_color;
    qint64 filled = sizeof(QRgb);
    while (filled < buffer.capacity()) {
        const qint64 chunk = qMin(filled, buffer.capacity() - filled);
        std::memcpy(bytes + filled, bytes, size_t(chunk));
        filled += chunk;
    }
}

const QList<double>& TimeGrid::steps()
{
    static const QList<double> ladder { 1, 2, 5, 10, 25, 50, 100, 250, 500, 1000, 1500, 2500, 5000, 10000,
        20000, 50000, 100000, 250000, 500000, 1000000, 1500000, 2500000, 5000000, 10000000, 15000000 };
    return ladder;
}

double TimeGrid::stepFor(double sampleRate, double xScale)
{
    const double least = 50.0 / (sampleRate / 1000.0) / xScale;
    for (double step : steps()) {
        if (step > least)
            return step;
    }
    return steps().last();
}

void TimeGrid::paint(PixelBuffer& buffer)
{
    if (!m_record)
        return;
    const double rate = m_record->sampleRate();
    const double step = stepFor(rate, m_xScale);
    const int samples = m_record->countOfSamples();
    const int pre = m_record->countOfPreFailureSamples();
    const int post = m_record->countOfPostFailureSamples();
    const int lines = Korvane::truncatedToInt(std::floor(samples / (rate / 1000.0) / step + 0.5));
    const int adjustment = (samples < pre || samples < post) ? pre - samples : 0;
    const double origin = (pre - m_startSample - adjustment) * m_xScale;
    const int width = buffer.width();
    const QRgb color = KV::Cfg::ColorStyle::current().grid;
    for (int i = 1; i <= lines; ++i) {
        const double distance = i * (rate * (step * m_xScale) / 1000.0);
        const double before = origin - distance;
        if (before >= 0.0 && before <= width)
            PixelDraw::verticalLine(buffer, int(before), 0, buffer.height(), 1, color);
        const double after = origin + distance;
        if (after < 0.0 || after > width || after > samples * m_xScale)
            continue;
        PixelDraw::verticalLine(buffer, int(after), 0, buffer.height(), 1, color);
    }
}

void FailureLines::paint(PixelBuffer& buffer)
{
    const QRgb color = KV::Cfg::ColorStyle::current().failureLine;
    for (const auto& failure : m_failures) {
        if (failure)
            sampleLine(buffer, failure->blockNum(), m_startSample, m_xScale, 1, color);
    }
}

void TriggerLine::paint(PixelBuffer& buffer)
{
    if (!m_record)
        return;
    const auto& style = KV::Cfg::ColorStyle::current();
    if (const auto simple = m_record.dynamicCast<SimpleOscillogram>()) {
        for (const MergedWave& wave : simple->mergedWaves())
            sampleLine(buffer, wave.sampleOffset, m_startSample, m_xScale, 1, style.phaseB);
    }
    const int samples = m_record->countOfSamples();
    const int pre = m_record->countOfPreFailureSamples();
    // A record without samples shows its background only.
    if (samples > 0 && samples >= pre && samples >= m_record->countOfPostFailureSamples())
        sampleLine(buffer, pre, m_startSample, m_xScale, 3, style.failureLine);
}

void TimeMeasurePainter::paint(PixelBuffer& buffer)
{
    const auto& style = KV::Cfg::ColorStyle::current();
    for (const MeasureItem& item : m_measures) {
        const QRgb start = item.isSaved() ? style.savedMeasureStart : style.phaseB;
        const QRgb finish = item.isSaved() ? style.savedMeasureFinish : style.phaseA;
        sampleLine(buffer, item.startSampleNumber(), m_startSample, m_xScale, 1, start);
        if (item.isComplete())
            sampleLine(buffer, item.finishSampleNumber(), m_startSample, m_xScale, 1, finish);
    }
}

void CurrentSampleLine::paint(PixelBuffer& buffer)
{
    const QRgb line = m_hasFocus ? KV::Cfg::ColorStyle::current().currentSampleLine : unfocusedLineColor;
    sampleLine(buffer, m_currentSample, m_startSample, m_xScale, 3, line);
    if (m_calculaterLineVisible) {
        const QRgb calculater = m_hasFocus ? calculaterLineColor : unfocusedCalculaterLineColor;
        sampleLine(buffer, m_currentSample - m_windowInSamples, m_startSample, m_xScale, 1, calculater);
    }
}
