#include "RecordPicture.h"

#include "Views/OscillogramViewModel.h"

#include <QPainter>

QImage recordPicture(const QSharedPointer<Oscillogram>& record, int width, int rowHeight)
{
    OscillogramViewModel model;
    model.setPlotWidth(width);
    model.setOscillogram(record);
    const int channels = record->countOfChannels();
    if (channels == 0)
        return QImage();
    PlotDrawInfo info;
    info.startSample = 0;
    info.xScale = record->countOfSamples() > 0 ? double(width) / record->countOfSamples() : 1.0;
    info.drawCurrentSample = false;
    QImage picture(width, rowHeight * channels, QImage::Format_ARGB32);
    QPainter painter(&picture);
    for (int c = 0; c < channels; ++c)
        painter.drawImage(0, c * rowHeight, model.channelPlot({ c }, width, rowHeight, info));
    return picture;
}
