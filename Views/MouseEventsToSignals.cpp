#include "Views/MouseEventsToSignals.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QState>
#include <QStateMachine>

MouseEventsToSignals::MouseEventsToSignals(QObject* parent) : QObject(parent)
{
    buildMachine();
}

MouseEventsToSignals::~MouseEventsToSignals() = default;

void MouseEventsToSignals::buildMachine()
{
    m_machine = new QStateMachine(this);
    m_idle = new QState(m_machine);
    for (QState*& state : m_states)
        state = new QState(m_machine);
    m_idle->addTransition(this, &MouseEventsToSignals::leftButtonPressed, m_states[Left]);
    m_idle->addTransition(this, &MouseEventsToSignals::middleButtonPressed, m_states[Middle]);
    m_idle->addTransition(this, &MouseEventsToSignals::rightButtonPressed, m_states[Right]);
    m_states[Left]->addTransition(this, &MouseEventsToSignals::leftButtonReleased, m_idle);
    m_states[Middle]->addTransition(this, &MouseEventsToSignals::middleButtonReleased, m_idle);
    m_states[Right]->addTransition(this, &MouseEventsToSignals::rightButtonReleased, m_idle);
    m_states[Left]->addTransition(this, &MouseEventsToSignals::releaseLeftButtonRequested, m_idle);
    m_states[Middle]->addTransition(this, &MouseEventsToSignals::releaseMiddleButtonRequested, m_idle);
    m_states[Right]->addTransition(this, &MouseEventsToSignals::releaseRightButtonRequested, m_idle);
    m_machine->setInitialState(m_idle);
    m_machine->start();
    // The machine starts through a queued call; delivering it now lets the very first press count,
    // even before the host's event loop has run.
    QCoreApplication::sendPostedEvents(m_machine, QEvent::MetaCall);
}

void MouseEventsToSignals::setStep(Button button, int pixels)
{
    m_steps[button] = qMax(1, pixels);
}

void MouseEventsToSignals::setLeftStep(int pixels)
{
    setStep(Left, pixels);
}

void MouseEventsToSignals::setMiddleStep(int pixels)
{
    setStep(Middle, pixels);
}

void MouseEventsToSignals::setRightStep(int pixels)
{
    setStep(Right, pixels);
}

bool MouseEventsToSignals::isIdle() const
{
    return m_idle->active();
}

bool MouseEventsToSignals::isLeftHeld() const
{
    return m_states[Left]->active();
}

bool MouseEventsToSignals::isMiddleHeld() const
{
    return m_states[Middle]->active();
}

bool MouseEventsToSignals::isRightHeld() const
{
    return m_states[Right]->active();
}

int MouseEventsToSignals::heldButton() const
{
    for (int button = Left; button < ButtonCount; ++button)
        if (m_states[button]->active())
            return button;
    return -1;
}

bool MouseEventsToSignals::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent*>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool MouseEventsToSignals::press(QMouseEvent* event)
{
    if (!isIdle())
        return false;
    m_pressX = event->pos().x();
    m_lastX = m_pressX;
    switch (event->button()) {
    case Qt::LeftButton:
        emit leftButtonPressed(event->pos());
        return true;
    case Qt::MiddleButton:
        emit middleButtonPressed(event->pos());
        return true;
    case Qt::RightButton:
        emit rightButtonPressed(event->pos());
        return true;
    default:
        return false;
    }
}

bool MouseEventsToSignals::release(QMouseEvent* event)
{
    const int held = heldButton();
    if (held == Left && event->button() == Qt::LeftButton)
        emit leftButtonReleased(event->pos());
    else if (held == Middle && event->button() == Qt::MiddleButton)
        emit middleButtonReleased(event->pos());
    else if (held == Right && event->button() == Qt::RightButton)
        emit rightButtonReleased(event->pos());
    else
        return false;
    return true;
}

bool MouseEventsToSignals::move(QMouseEvent* event)
{
    const int held = heldButton();
    if (held < 0)
        return false;
    const int x = event->pos().x();
    const int fromPress = x - m_pressX;
    const int distance = x - m_lastX;
    const bool stepped = qAbs(distance) >= m_steps[held];
    if (stepped)
        m_lastX = x;
    switch (held) {
    case Left:
        emit draggedLeftButtonFromPressPoint(fromPress);
        if (stepped)
            emit draggedLeftButton(distance);
        break;
    case Middle:
        emit draggedMiddleButtonFromPressPoint(fromPress);
        if (stepped)
            emit draggedMiddleButton(distance);
        break;
    default:
        emit draggedRightButtonFromPressPoint(fromPress);
        if (stepped) {
            emit draggedRightButton(distance);
            if (distance < 0)
                emit scaleUpRequested();
            else
                emit scaleDownRequested();
        }
        break;
    }
    return true;
}
