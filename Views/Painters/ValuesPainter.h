#pragma once

#include "Model/AnalogChannel.h"
#include "Views/Painters/ILayerPainter.h"

#include <QScopedPointer>
#include <QSharedPointer>

// Points and value labels of the samples of an analogue channel, shown only at a large scale
// where there is room for them.
class KORVANE_EXPORT ValuesPainter : public ILayerPainter
{
public:
    static constexpr QRgb pointColor = 0xFF909090;
    static constexpr float leastScale = 25.0f;

    ValuesPainter();
    ~ValuesPainter() override;

    // Reads the channel's range of raw values, as the trace does.
    void setChannel(const QSharedPointer<AnalogChannel>& channel);
    void setMinValue(double value);
    void setMaxValue(double value);
    void setXScale(double xScale);
    void setAmplitude(double amplitude);
    void setOffset(double offset);
    void setPrimSecMode(int mode);
    void setStartSample(int sample);

    // The label of a raw value, in the primary or secondary values the mode asks for.
    QString label(double raw) const;

    void paint(PixelBuffer& buffer) override;

private:
    struct Private;
    QScopedPointer<Private> d;
};
