#pragma once

#include "korvane_export.h"

#include <QWidget>

class Channel;

// The name line of a parameter panel: line names, the channel's id, its name and unit. A name too
// long for the panel is cut with an ellipsis; the tool tip has all of it.
class KORVANE_EXPORT SignalNameWidget : public QWidget
{
    Q_OBJECT
public:
    explicit SignalNameWidget(QWidget* parent = nullptr);

    void setChannel(const Channel& channel, bool isAnalog);
    QString text() const { return m_text; }
    static QString nameText(const Channel& channel, bool isAnalog);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};
