#pragma once

#include "Views/BasePlotView.h"

class AChanPlotAndSplitter;
class ChannelPlotView;
class Splitter;

// The plots of the analogue rows. A row dropped onto a plot joins it: both are drawn in one plot.
class KORVANE_EXPORT AChanPlotListView : public BasePlotView, public RowItems
{
    Q_OBJECT
public:
    explicit AChanPlotListView(QWidget* parent = nullptr);

    QWidget* createItem(int index, int channel) override;
    void addSignalToItem(QWidget* item, int channel) override;
    void removeSignalFromItem(QWidget* item, int channel) override;

    Splitter* createSplitter(int channel, ChannelPlotView* plot);
    AChanPlotAndSplitter* createAChanPlotAndSplitter(int index, int channel);
    ChannelPlotView* fromLayoutIndexToPlot(int index) const;
    QColor getChannelColor(int channel) const;
    QList<int> channelsInItem(int index) const;
    void updateMinHeightInSplitter(int channel, int minHeight);

public slots:
    void slotAddSignalInChannelPlot(int channel, QWidget* item);
    void slotRemoveSignalFromChannelPlot(int channel, QWidget* item);
};
