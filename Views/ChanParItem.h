#pragma once

#include "Views/DragDropSignalWidget.h"

class DigitalChannelNameItem;

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

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int m_channelNumber;
    DigitalChannelNameItem* m_name;
    bool m_selected = false;
};
