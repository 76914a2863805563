#include "Views/BasePlotView.h"

#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"

#include <QEvent>

BasePlotView::BasePlotView(QWidget* parent) : ScrollArea(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void BasePlotView::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    m_model = model;
    QWidget* area = viewport();
    const auto repaint = [area] { area->update(); };
    OscillogramViewModel* m = model.data();
    connect(m, &OscillogramViewModel::currentSampleChanged, area, repaint);
    connect(m, &OscillogramViewModel::xScaleChanged, area, repaint);
    connect(m, &OscillogramViewModel::startSampleNumberChanged, area, repaint);
    connect(m, &OscillogramViewModel::hasFocusChanged, area, repaint);
    connect(m, &OscillogramViewModel::measuresChanged, area, repaint);
    connect(m, &OscillogramViewModel::chanMagChanged, area, repaint);
    connect(m, &OscillogramViewModel::channelSelectionChanged, area, repaint);
    connect(m, &OscillogramViewModel::triggerTimeChanged, area, repaint);
    connect(m, &OscillogramViewModel::sigPrimSecModeChanged, area, repaint);
    connect(m, &OscillogramViewModel::repaintWave, area, repaint);
    listHelper()->setModel(model, this);
}

void BasePlotView::setGestureFilter(QObject* filter)
{
    if (m_gestureFilter)
        viewport()->removeEventFilter(m_gestureFilter);
    m_gestureFilter = filter;
    if (filter)
        viewport()->installEventFilter(filter);
}

bool BasePlotView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        emit sigFocusRequested();
    return ScrollArea::viewportEvent(event);
}

QColor BasePlotView::viewportColor() const
{
    return QColor::fromRgba(KV::Cfg::ColorStyle::current().background);
}
