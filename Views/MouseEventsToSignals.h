#pragma once

#include "korvane_export.h"

#include <QObject>
#include <QPoint>

class QMouseEvent;
class QState;
class QStateMachine;

// Turns the mouse events of a widget into signals, one state per held button: idle, left, middle,
// right. While a button is held, moves report the distance from the press point at once, and the
// distance from the last reported point whenever it reaches that button's step. A right drag also
// asks for a scale step by its direction: to the left more pixels per sample, to the right fewer.
class KORVANE_EXPORT MouseEventsToSignals : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(MouseEventsToSignals)
public:
    explicit MouseEventsToSignals(QObject* parent = nullptr);
    ~MouseEventsToSignals() override;

    int leftStep() const { return m_steps[Left]; }
    int middleStep() const { return m_steps[Middle]; }
    int rightStep() const { return m_steps[Right]; }
    // Steps below 1 are taken as 1, so that a step always needs a move.
    void setLeftStep(int pixels);
    void setMiddleStep(int pixels);
    void setRightStep(int pixels);

    bool isIdle() const;
    bool isLeftHeld() const;
    bool isMiddleHeld() const;
    bool isRightHeld() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void leftButtonPressed(const QPoint& position);
    void leftButtonReleased(const QPoint& position);
    void middleButtonPressed(const QPoint& position);
    void middleButtonReleased(const QPoint& position);
    void rightButtonPressed(const QPoint& position);
    void rightButtonReleased(const QPoint& position);

    void draggedLeftButtonFromPressPoint(int distanceInPixels);
    void draggedMiddleButtonFromPressPoint(int distanceInPixels);
    void draggedRightButtonFromPressPoint(int distanceInPixels);
    void draggedLeftButton(int distanceInPixels);
    void draggedMiddleButton(int distanceInPixels);
    void draggedRightButton(int distanceInPixels);
    void scaleUpRequested();
    void scaleDownRequested();

    // Emitted by a user of the filter to leave a button's state without a release event, for
    // example when a menu took the release.
    void releaseLeftButtonRequested();
    void releaseMiddleButtonRequested();
    void releaseRightButtonRequested();

private:
    enum Button { Left, Middle, Right, ButtonCount };

    void buildMachine();
    bool press(QMouseEvent* event);
    bool release(QMouseEvent* event);
    bool move(QMouseEvent* event);
    int heldButton() const;
    void setStep(Button button, int pixels);

    QStateMachine* m_machine = nullptr;
    QState* m_idle = nullptr;
    QState* m_states[ButtonCount] = {};
    int m_steps[ButtonCount] = { 1, 1, 1 };
    int m_pressX = 0;
    int m_lastX = 0;
};
