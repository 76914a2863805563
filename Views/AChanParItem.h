#pragma once

#include "Views/DragDropSignalWidget.h"

#include <QList>

class AChanParItemFrame;
class AChanParModel;
class QMenu;
class QVBoxLayout;

// The left part of an analogue row: one panel per channel drawn in the row's plot.
class KORVANE_EXPORT AChanParItem : public DragDropSignalWidget
{
    Q_OBJECT
public:
    AChanParItem(
        const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent = nullptr);

    int channelNumber() const override;
    QPixmap plot() const override;

    // Adds the panel of another channel below the ones there are.
    void addSignal(int channel);
    void addChanPanel(QWidget* panel, int channel);
    void removeSignal(int channel);
    QList<int> channels() const;
    QList<AChanParItemFrame*> frames() const { return m_frames; }
    AChanParItemFrame* frame(int channel) const;
    int countPanels() const { return m_frames.size(); }

    void refreshValues(int sample);
    void refreshParameters();
    void setCompact(bool compact);
    void updateSelection();

    // The names of the row for print and for the drag pixmap, centred in the device.
    void drawPanel(QPaintDevice* device) const;
    // Owned by the caller.
    QMenu* makeContextMenu();

signals:
    void sigSplit(AChanParItem* item);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    AChanParModel* makeModel(int channel);

    QVBoxLayout* m_layout;
    QList<AChanParItemFrame*> m_frames;
    bool m_pressed = false;
};
