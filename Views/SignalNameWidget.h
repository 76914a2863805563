#pragma once

#include "korvane_export.h"

#include <QLabel>

class Channel;

// The name line of a parameter panel: line names, the channel's id, its name and unit.
class KORVANE_EXPORT SignalNameWidget : public QLabel
{
    Q_OBJECT
public:
    explicit SignalNameWidget(QWidget* parent = nullptr);

    void setChannel(const Channel& channel, bool isAnalog);
    static QString nameText(const Channel& channel, bool isAnalog);
};
