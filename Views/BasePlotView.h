#pragma once

#include "Views/ScrollArea.h"

#include <QPointer>
#include <QSharedPointer>

class OscillogramViewModel;

// Base of the plot lists: rows of plots that repaint whenever what they show changes. The mouse
// gestures of the plots (current sample, pan, zoom, measures) live in an event filter that the
// record view installs with setGestureFilter; the plots leave mouse buttons to it.
class KORVANE_EXPORT BasePlotView : public ScrollArea
{
    Q_OBJECT
public:
    explicit BasePlotView(QWidget* parent = nullptr);

    virtual void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model);
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const { return m_model; }

    // Installs the filter on the viewport, which receives the mouse events of all plot rows; a
    // second call replaces the first filter.
    void setGestureFilter(QObject* filter);
    QObject* gestureFilter() const { return m_gestureFilter; }

protected:
    QColor viewportColor() const override;
    bool viewportEvent(QEvent* event) override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    QPointer<QObject> m_gestureFilter;
};
