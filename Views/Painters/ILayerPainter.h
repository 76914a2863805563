#pragma once

#include "Views/Painters/PixelBuffer.h"
#include "korvane_export.h"

// One layer of a channel plot, drawn straight into the pixels.
class KORVANE_EXPORT ILayerPainter
{
public:
    virtual ~ILayerPainter();
    virtual void paint(PixelBuffer& buffer) = 0;
};
