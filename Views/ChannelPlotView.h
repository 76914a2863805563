#pragma once

#include "Views/DropInfo.h"
#include "Views/ImageView.h"

#include <QList>

class ChannelPlotView;
class OscillogramViewModel;
class QMenu;

// The picture of a plot row: the view model renders the row's channels at the row's size.
class KORVANE_EXPORT ChannelPlotImageSource : public ImageSource
{
public:
    ChannelPlotImageSource(const QSharedPointer<OscillogramViewModel>& model, ChannelPlotView* view);
    QImage image() const override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    ChannelPlotView* m_view;
};

// The plot of one row: one channel, or several drawn over each other. It takes drops of other
// rows and shows where they would land.
class KORVANE_EXPORT ChannelPlotView : public ImageView
{
    Q_OBJECT
public:
    ChannelPlotView(
        const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent = nullptr);

    void setChannelNumber(int channel);
    // The first channel, which names the row.
    int getChannelNumber() const { return m_channels.value(0, -1); }
    void addSignal(int channel);
    void removeSignal(int channel);
    bool contains(int channel) const { return m_channels.contains(channel); }
    QList<int> channels() const { return m_channels; }

    void setDragSelected(bool selected);
    void setDragSelectedPos(int pos);
    bool isDragSelected() const { return m_dragSelected; }
    DRAG_POS dragSelectedPos() const { return m_dragPos; }

    // The menu a right click at x would open, or null after a drag zoom. Owned by the caller.
    QMenu* makeContextMenu(int x);
    // The sample under pixel column x.
    int sampleAt(int x) const;

signals:
    void sigDropSignal(QDropEvent* event, int targetChannel, DRAG_POS pos);
    void sigDragChannelSelected(int channel, bool isSelected, DRAG_POS pos);

public slots:
    void slotMakeReport();
    // A right drag zoomed, so that the release must not open the menu.
    void slotScaledChanged(bool scaled) { m_scaled = scaled; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool acceptsDrag(const QMimeData* data) const;
    void trackDrag(QDragMoveEvent* event);

    QSharedPointer<OscillogramViewModel> m_model;
    QList<int> m_channels;
    bool m_dragSelected = false;
    DRAG_POS m_dragPos = DRAG_POS_UPPER;
    bool m_scaled = false;
    // The anomaly span under the last right click: first and last sample.
    int m_reportFrom = -1;
    int m_reportTo = -1;
};
