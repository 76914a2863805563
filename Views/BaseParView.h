#pragma once

#include "Views/ScrollArea.h"

#include <QSharedPointer>

class OscillogramViewModel;

// Base of the parameter lists, the left side of the rows. They scroll with their plot lists
// through the view model and show no scroll bar of their own.
class KORVANE_EXPORT BaseParView : public ScrollArea
{
    Q_OBJECT
public:
    explicit BaseParView(QWidget* parent = nullptr);

    virtual void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model);
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const { return m_model; }

public slots:
    // Shows the values at the model's current sample.
    virtual void refreshValues();
    // Reads the shown parameters anew after the settings or the primary/secondary mode changed.
    virtual void refreshParameters();

protected:
    QColor viewportColor() const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // A row dropped below the last row goes to the end of the list.
    void dropSignalInPanelList(QDropEvent* event);
    bool acceptsDrag(const QMimeData* data) const;

    QSharedPointer<OscillogramViewModel> m_model;
};
