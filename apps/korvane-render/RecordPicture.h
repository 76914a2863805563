#pragma once

#include "Model/Oscillogram.h"

#include <QImage>

// A picture of the whole record: rows of rowHeight pixels, analogue channels first, each made by
// OscillogramViewModel::channelPlot at the scale that fits the record into the width.
QImage recordPicture(const QSharedPointer<Oscillogram>& record, int width, int rowHeight);
