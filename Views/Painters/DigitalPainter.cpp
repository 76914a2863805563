#include "Views/Painters/DigitalPainter.h"

#include "Model/SampleSummary.h"

#include "Settings/ColorStyle.h"
#include "Views/Painters/AnalogPainter.h"
#include "Views/Painters/DrawPrimitives.h"

#include <cmath>

int DigitalPainter::barFor(int height)
{
    return height > 10 ? qMax((height - 10) >> 1, 2) : 2;
}

void DigitalPainter::paint(PixelBuffer& buffer)
{
    if (!m_channel || !m_channel->data() || m_xScale <= 0.0)
        return;
    const auto& style = KV::Cfg::ColorStyle::current();
    QRgb color = m_hasColor ? m_color : style.discreteTrace;
    if (m_channel->isSelected())
        color = style.selectedTrace;
    if (m_xScale > 0.05)
        paintBars(buffer, color);
    else
        paintDecimated(buffer, color);
}

void DigitalPainter::paintBars(PixelBuffer& buffer, QRgb color) const
{
    const OscillogramData& store = *m_channel->data();
    const int width = buffer.width();
    const int height = buffer.height();
    const int bar = barFor(height);
    const int stride = store.countOfDigitalChannels();
    const int bits = store.digitalValues().size();
    const int count = AnalogPainter::visibleCount(width, m_xScale, store.countOfSamples(), m_startSample);
    const int columnWidth = int(std::ceil(m_xScale));
    for (int i = 0; i <= count - 2; ++i) {
        const int x = PixelDraw::floorColumn(i * m_xScale);
        if (x < 0 || x >= width)
            continue;
        const int index = stride * (m_startSample + i) + m_channel->dataOffset();
        if (index < 0 || index >= bits)
            continue;
        const int top = m_channel->testBit(index) ? bar : height - bar;
        for (int column = x + 1; column <= x + columnWidth && column < width; ++column)
            PixelDraw::columnSpan(buffer, column, top, height - bar, color);
    }
}

void DigitalPainter::paintDecimated(PixelBuffer& buffer, QRgb color) const
{
    const OscillogramData& store = *m_channel->data();
    const int width = buffer.width();
    const int height = buffer.height();
    const int bar = barFor(height);
    const long long stride = store.countOfDigitalChannels();
    const long long bits = store.digitalValues().size();
    const double samplesPerColumn = 1.0 / m_xScale;
    const int spp = int(std::floor(samplesPerColumn));
    const long long columns = (long long)(std::floor(bits / (stride * samplesPerColumn))) - 1;
    const long long first = m_startSample * stride + m_channel->dataOffset();
    const DigitalSummary* summary
        = m_usesSummary ? store.summaries().digitalChannel(m_channel->dataOffset()) : nullptr;
    // A drawn bar is a bit that reads as set, after the channel's inversion.
    const bool drawnBit = !m_channel->isInverted();
    for (int x = 0; x < width && x < columns; ++x) {
        const long long p = first + x * spp * stride;
        if (p < 0 || p >= bits)
            continue;
        bool anySet = false;
        if (summary) {
            const long long sample = m_startSample + (long long)x * spp;
            const long long last = std::min(sample + spp - 1, summary->sampleCount() - 1);
            anySet = spp > 0 && summary->holds(drawnBit, sample, last);
        } else {
            for (long long k = 0; k < spp && p + k * stride < bits; ++k) {
                if (m_channel->testBit(int(p + k * stride))) {
                    anySet = true;
                    break;
                }
            }
        }
        if (anySet)
            PixelDraw::columnSpan(buffer, x, bar, height - bar, color);
        else
            buffer.setPixel(x, height / 2, color);
    }
}
