#include "Views/PlotGestures.h"

#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsProvider.h"
#include "Views/ChannelPlotView.h"
#include "Views/MouseEventsToSignals.h"
#include "Views/OscillogramViewModel.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSettings>
#include <QWidget>

#include <cmath>

namespace {
const char* const scaleStepKey = "ui/dragPixelsPerScaleStep";
}

PlotGestures::PlotGestures(QWidget* area, QScrollBar* horizontal, QScrollBar* vertical, QObject* parent)
    : QObject(parent)
    , m_area(area)
    , m_horizontal(horizontal)
    , m_vertical(vertical)
    , m_mouse(new MouseEventsToSignals(this))
{
    m_scaleStep = qMax(0,
        SettingsProvider::settings()
            ->value(QLatin1String(scaleStepKey), defaultDragPixelsPerScaleStep)
            .toInt());
    // A scale step needs a drag beyond the setting's pixels, so the right button's step is one more.
    m_mouse->setRightStep(m_scaleStep + 1);
    m_area->installEventFilter(m_mouse);
    m_area->installEventFilter(this);
    // Context menus go to the rows inside the area, whose events no filter on the area sees.
    qApp->installEventFilter(this);
    m_area->setFocusPolicy(Qt::StrongFocus);
    connectMouse();
}

void PlotGestures::connectMouse()
{
    connect(m_mouse, &MouseEventsToSignals::leftButtonPressed, this, &PlotGestures::onLeftPressed);
    connect(
        m_mouse, &MouseEventsToSignals::draggedLeftButtonFromPressPoint, this, &PlotGestures::onLeftDragged);
    connect(m_mouse, &MouseEventsToSignals::leftButtonReleased, this, &PlotGestures::onLeftReleased);
    connect(m_mouse, &MouseEventsToSignals::draggedMiddleButton, this, &PlotGestures::onMiddleDragged);
    connect(m_mouse, &MouseEventsToSignals::rightButtonPressed, this, &PlotGestures::onRightPressed);
    connect(m_mouse, &MouseEventsToSignals::scaleUpRequested, this, [this] { onScaleStep(true); });
    connect(m_mouse, &MouseEventsToSignals::scaleDownRequested, this, [this] { onScaleStep(false); });
    connect(m_mouse, &MouseEventsToSignals::rightButtonReleased, this, &PlotGestures::onRightReleased);
}

void PlotGestures::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    if (m_model)
        m_model->disconnect(this);
    if (m_horizontal)
        m_horizontal->disconnect(this);
    m_model = model;
    if (m_model)
        connectModel();
}

void PlotGestures::connectModel()
{
    OscillogramViewModel* model = m_model.data();
    connect(model, &OscillogramViewModel::xScaleChanged, this, &PlotGestures::onXScaleChanged);
    connect(model, &OscillogramViewModel::sigWaveChanged, this, &PlotGestures::updateHorizontalScrollBar);
    if (!m_horizontal)
        return;
    connect(m_horizontal, &QScrollBar::valueChanged, model, &OscillogramViewModel::setStartSampleNumber);
    connect(model, &OscillogramViewModel::startSampleNumberChanged, m_horizontal, &QScrollBar::setValue);
    updateHorizontalScrollBar();
}

int PlotGestures::plotWidth() const
{
    return m_area ? m_area->width() : 0;
}

int PlotGestures::sampleAt(int x) const
{
    return int(std::lround(m_model->startSampleNumber() + x / m_model->xScale()));
}

void PlotGestures::updateHorizontalScrollBar()
{
    if (!m_model || !m_horizontal)
        return;
    const int width = plotWidth();
    m_model->setPlotWidth(width);
    const auto record = m_model->oscillogram();
    const int samples = record ? record->countOfSamples() : 0;
    const double scale = m_model->xScale();
    const int visible = int(width / scale);
    const int maximum = width <= scale * samples ? qMax(0, int(samples - width / scale)) : 0;
    const QSignalBlocker blocker(m_horizontal);
    m_horizontal->setRange(0, maximum);
    m_horizontal->setPageStep(qMax(1, visible));
    m_horizontal->setSingleStep(qMax(1, visible / 20));
    m_horizontal->setValue(m_model->startSampleNumber());
}

void PlotGestures::onXScaleChanged()
{
    updateHorizontalScrollBar();
    if (!m_horizontal)
        return;
    const double scale = m_model->xScale();
    const double half = plotWidth() / 2.0;
    const int current = m_model->currentSample();
    int start = 0;
    // Zooming keeps the current sample in the middle of the plot, as far as the record allows.
    if (m_horizontal->maximum() > 0 && current * scale > half)
        start = int(current - half / scale);
    m_model->setStartSampleNumber(start);
    m_horizontal->setValue(m_model->startSampleNumber());
}

void PlotGestures::onLeftPressed(const QPoint& position)
{
    if (!m_model)
        return;
    m_leftHeld = true;
    m_measureStarted = false;
    m_pressX = position.x();
    m_model->setCurrentSample(sampleAt(m_pressX));
}

void PlotGestures::onLeftDragged(int fromPress)
{
    if (!m_model || !m_leftHeld)
        return;
    const auto settings = m_model->allSettings();
    if (!m_measureStarted && settings && settings->isDrawMouseMeasures()) {
        m_model->startTimeMeasure();
        m_measureStarted = true;
    }
    m_model->setCurrentSample(sampleAt(m_pressX + fromPress));
}

void PlotGestures::onLeftReleased()
{
    if (m_model && m_measureStarted)
        m_model->finishTimeMeasure();
    m_leftHeld = false;
    m_measureStarted = false;
}

void PlotGestures::onMiddleDragged(int distance)
{
    if (!m_model || !m_horizontal)
        return;
    m_horizontal->setValue(m_horizontal->value() + int(std::floor(-distance / m_model->xScale())));
}

void PlotGestures::onRightPressed()
{
    m_scaled = false;
    m_menuTarget.clear();
}

void PlotGestures::onRightReleased(const QPoint& position)
{
    emit sigScaledChanged(m_scaled);
    if (m_area) {
        // Where the menu comes after the release, the plot itself decides by the flag.
        for (QWidget* widget = m_area->childAt(position); widget && widget != m_area;
             widget = widget->parentWidget())
            if (auto* plot = qobject_cast<ChannelPlotView*>(widget))
                plot->slotScaledChanged(m_scaled);
    }
    QPointer<QWidget> target = m_menuTarget;
    m_menuTarget.clear();
    if (target && !m_scaled) {
        QContextMenuEvent menu(QContextMenuEvent::Mouse, m_menuPosition, m_menuGlobalPosition);
        m_deliveringMenu = true;
        QCoreApplication::sendEvent(target, &menu);
        m_deliveringMenu = false;
    }
}

bool PlotGestures::holdContextMenu(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu || m_deliveringMenu || !m_mouse->isRightHeld() || !m_area)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    auto* menu = static_cast<QContextMenuEvent*>(event);
    if (!widget || menu->reason() != QContextMenuEvent::Mouse
        || !(widget == m_area || m_area->isAncestorOf(widget)))
        return false;
    m_menuTarget = widget;
    m_menuPosition = menu->pos();
    m_menuGlobalPosition = menu->globalPos();
    return true;
}

void PlotGestures::onScaleStep(bool up)
{
    if (!m_model)
        return;
    if (up)
        m_model->scaleUp();
    else
        m_model->scaleDown();
    m_scaled = true;
}

int PlotGestures::keyStepPixels(Qt::KeyboardModifiers modifiers)
{
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    if (shift && control)
        return 100;
    if (control)
        return 25;
    return shift ? 5 : 1;
}

bool PlotGestures::eventFilter(QObject* watched, QEvent* event)
{
    if (holdContextMenu(watched, event))
        return true;
    if (watched == m_area && event->type() == QEvent::Resize)
        updateHorizontalScrollBar();
    if (watched == m_area && event->type() == QEvent::KeyPress)
        return keyPressed(static_cast<QKeyEvent*>(event));
    return QObject::eventFilter(watched, event);
}

bool PlotGestures::keyPressed(QKeyEvent* event)
{
    if (!m_model)
        return false;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        // At scales above one pixel per sample a short step would round to nothing; it moves one
        // sample instead, so that the keys never go dead.
        const int samples = qMax(1, int(std::floor(keyStepPixels(event->modifiers()) / m_model->xScale())));
        m_model->setCurrentSample(
            m_model->currentSample() + (event->key() == Qt::Key_Left ? -samples : samples));
        return true;
    }
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (m_vertical)
            m_vertical->triggerAction(event->key() == Qt::Key_Up ? QAbstractSlider::SliderSingleStepSub
                                                                 : QAbstractSlider::SliderSingleStepAdd);
        return true;
    default:
        return false;
    }
}
