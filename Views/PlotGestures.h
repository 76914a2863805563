#pragma once

#include "korvane_export.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSharedPointer>

class MouseEventsToSignals;
class OscillogramViewModel;
class QKeyEvent;
class QScrollBar;
class QWidget;

// What the mouse and the arrow keys do over the plots of a record: the left button places the
// current sample (and, when the settings ask for it, drags out a time measure), the middle button
// pans, the right button zooms in steps of the setting "ui/dragPixelsPerScaleStep" pixels, Left and
// Right move the current sample, Up and Down scroll the rows. It also ties the horizontal scroll bar
// to the start sample and keeps the current sample in the middle when the scale changes.
// A plot list creates one over the widget that receives the plots' mouse events. Where the platform
// asks for a context menu on the right press, the menu waits for the release and is dropped when
// the drag zoomed, so that a right drag can zoom at all.
class KORVANE_EXPORT PlotGestures : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PlotGestures)
public:
    static constexpr int defaultDragPixelsPerScaleStep = 10;

    PlotGestures(QWidget* area, QScrollBar* horizontal, QScrollBar* vertical, QObject* parent = nullptr);

    void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model);
    MouseEventsToSignals* mouseSignals() const { return m_mouse; }
    // Pixels of a right drag that are exceeded before the scale changes one step.
    int dragPixelsPerScaleStep() const { return m_scaleStep; }
    // The pixels the arrow keys move the current sample by, for the given modifiers.
    static int keyStepPixels(Qt::KeyboardModifiers modifiers);

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // Range of the horizontal scroll bar for the present width, scale and record.
    void updateHorizontalScrollBar();

signals:
    // Emitted on the release of the right button: true when the drag changed the scale, so that
    // the row under the mouse keeps its context menu closed.
    void sigScaledChanged(bool scaled);

private:
    int plotWidth() const;
    int sampleAt(int x) const;
    void connectModel();
    void connectMouse();
    void onLeftPressed(const QPoint& position);
    void onLeftDragged(int fromPress);
    void onLeftReleased();
    void onMiddleDragged(int distance);
    void onRightPressed();
    void onRightReleased(const QPoint& position);
    bool holdContextMenu(QObject* watched, QEvent* event);
    void onScaleStep(bool up);
    void onXScaleChanged();
    bool keyPressed(QKeyEvent* event);

    QPointer<QWidget> m_area;
    QPointer<QScrollBar> m_horizontal;
    QPointer<QScrollBar> m_vertical;
    MouseEventsToSignals* m_mouse = nullptr;
    QSharedPointer<OscillogramViewModel> m_model;
    int m_scaleStep = defaultDragPixelsPerScaleStep;
    int m_pressX = 0;
    bool m_leftHeld = false;
    bool m_measureStarted = false;
    bool m_scaled = false;
    // A context menu asked for by the right press, held until the release shows whether the
    // press began a zoom.
    QPointer<QWidget> m_menuTarget;
    QPoint m_menuPosition;
    QPoint m_menuGlobalPosition;
    bool m_deliveringMenu = false;
};
