#pragma once

#include "korvane_export.h"

#include <QSharedPointer>
#include <QWidget>

class DigitalChannel;
class OscillogramViewModel;
class QMenu;

// The name of a discrete row with the mark of its normal state ("Н.О." or "Н.З.").
class KORVANE_EXPORT DigitalChannelNameItem : public QWidget
{
    Q_OBJECT
public:
    DigitalChannelNameItem(const QSharedPointer<OscillogramViewModel>& model, QWidget* parent = nullptr);

    // The channel and its number in the view model, analogue channels counted first.
    void setChannel(const QSharedPointer<DigitalChannel>& channel, int channelNumber);
    void setName(const DigitalChannel& channel);
    QString name() const { return m_name; }
    QString stateMark() const;
    // Owned by the caller.
    QMenu* makeContextMenu();

public slots:
    void slotInvert();

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    QSharedPointer<DigitalChannel> m_channel;
    int m_channelNumber = -1;
    QString m_name;
};
