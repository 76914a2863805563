#pragma once

#include "Model/DigitalChannel.h"
#include "Views/Painters/ILayerPainter.h"

#include <QSharedPointer>

// The trace of one discrete channel: a bar where the bit is set, a base line where it is clear.
class KORVANE_EXPORT DigitalPainter : public ILayerPainter
{
public:
    // Distance of the bar and of the base line from the top and the bottom of a row.
    static int barFor(int height);

    void setChannel(const QSharedPointer<DigitalChannel>& channel) { m_channel = channel; }
    void setColor(QRgb color)
    {
        m_color = color;
        m_hasColor = true;
    }
    void setXScale(double xScale) { m_xScale = xScale; }
    void setStartSample(int sample) { m_startSample = sample; }
    // Whether a small scale asks the store's summary which columns hold a set bit, or looks at
    // every sample (the same picture, slower).
    void setUsesSummary(bool uses) { m_usesSummary = uses; }
    bool usesSummary() const { return m_usesSummary; }
    void paint(PixelBuffer& buffer) override;

private:
    void paintBars(PixelBuffer& buffer, QRgb color) const;
    void paintDecimated(PixelBuffer& buffer, QRgb color) const;

    QSharedPointer<DigitalChannel> m_channel;
    QRgb m_color = 0;
    bool m_hasColor = false;
    double m_xScale = 1.0;
    int m_startSample = 0;
    bool m_usesSummary = true;
};
