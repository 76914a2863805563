#pragma once

#include "korvane_export.h"

#include <QWidget>

class QToolButton;

// The tool bar of a discrete row: one button that inverts the channel.
class KORVANE_EXPORT DigitalToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit DigitalToolBar(QWidget* parent = nullptr);

signals:
    void sigInvert(bool isInvert);

public slots:
    // Follows the channel's state without emitting sigInvert.
    void slotInvert(bool isInvert);

private:
    QToolButton* m_invert;
};
