#pragma once

#include "korvane_export.h"

#include <QList>
#include <QWidget>

class QToolButton;

// The small tool bar shown over an analogue row on request: amplitude, height, fit, reset, hide
// and invert of the row's channel. Each button emits its signal without the channel; the row list
// adds the channel number. When the row is too narrow, groups of buttons are hidden from the right.
class KORVANE_EXPORT AnalogToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit AnalogToolBar(QWidget* parent = nullptr);

    // The widths the bar needs with all buttons, in stage 1 and in stage 2.
    int defaultStageWidth() const { return m_thresholds[0]; }
    int stage1Width() const { return m_thresholds[1]; }
    int stage2Width() const { return m_thresholds[2]; }
    // Chooses the stage whose buttons fit into the width.
    void fitToWidth(int width);

signals:
    void sigIncMag();
    void sigDecMag();
    void sigIncH();
    void sigDecH();
    void sigFitMag();
    void sigReset();
    void sigHide();
    void sigInvert(bool isInverted);

public slots:
    // Stage 1 hides the rightmost group (hide and invert), stage 2 also the one before it (fit and
    // reset); the default stage shows all buttons.
    void set1Stage();
    void set2Stage();
    void setDefaultStage();
    // Follows the channel's state without emitting sigInvert.
    void slotInvertChannel(bool isInverted);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* addButton(const QString& name, const QString& toolTip, const QString& icon);
    void showGroups(int count);

    // Groups of buttons from the left: amplitude, height, fit and reset, hide and invert.
    QList<QList<QToolButton*>> m_groups;
    int m_thresholds[3] = { 0, 0, 0 };
};
