#pragma once

#include "Views/BasePlotView.h"

class AChanPlotAndSplitter;
class AnalogToolBar;
class ChannelPlotView;
class Splitter;

// The plots of the analogue rows. A row dropped onto a plot joins it: both are drawn in one plot.
class KORVANE_EXPORT AChanPlotListView : public BasePlotView, public RowItems
{
    Q_OBJECT
public:
    explicit AChanPlotListView(QWidget* parent = nullptr);

    void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model) override;
    QWidget* createItem(int index, int channel) override;
    void addSignalToItem(QWidget* item, int channel) override;
    void removeSignalFromItem(QWidget* item, int channel) override;

    Splitter* createSplitter(int channel, ChannelPlotView* plot);
    AChanPlotAndSplitter* createAChanPlotAndSplitter(int index, int channel);
    ChannelPlotView* fromLayoutIndexToPlot(int index) const;
    QColor getChannelColor(int channel) const;
    QList<int> channelsInItem(int index) const;
    void updateMinHeightInSplitter(int channel, int minHeight);
    // The tool bar over the row of the channel, or null while none was asked for.
    AnalogToolBar* toolBar(int channel) const;

public slots:
    void slotAddSignalInChannelPlot(int channel, QWidget* item);
    void slotRemoveSignalFromChannelPlot(int channel, QWidget* item);
    // Shows the tool bar at the top right of the row's plot; it goes when the pointer leaves the row.
    void slotSetVisibleToolBar(bool isVisible, int channel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AnalogToolBar* createToolBar(ChannelPlotView* plot);
    void placeToolBar(AnalogToolBar* bar, ChannelPlotView* plot) const;
};
