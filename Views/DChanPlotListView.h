#pragma once

#include "Views/BasePlotView.h"

class ChannelPlotView;

// The plots of the discrete rows. A row dropped onto a plot moves before or after it.
class KORVANE_EXPORT DChanPlotListView : public BasePlotView, public RowItems
{
    Q_OBJECT
public:
    explicit DChanPlotListView(QWidget* parent = nullptr);

    QWidget* createItem(int index, int channel) override;
    ChannelPlotView* fromLayoutIndexToPlot(int index) const;
};
