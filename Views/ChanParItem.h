#pragma once

#include "Views/DragDropSignalWidget.h"

class DigitalChannelNameItem;
class DigitalToolBar;

// The left part of a discrete row: the channel's name and its normal state.
class KORVANE_EXPORT ChanParItem : public DragDropSignalWidget
{
    Q_OBJECT
public:
    ChanParItem(
        const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent = nullptr);

    int channelNumber() const override { return m_channelNumber; }
    QPixmap plot() const override;
    DigitalChannelNameItem* nameItem() const { return m_name; }
    void updateSelection();
    // The invert button, shown at the right end while the pointer is over the row.
    DigitalToolBar* toolBar() const { return m_toolBar; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    int m_channelNumber;
    DigitalChannelNameItem* m_name;
    DigitalToolBar* m_toolBar;
    bool m_selected = false;
};
