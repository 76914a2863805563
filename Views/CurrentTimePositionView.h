#pragma once

#include "korvane_export.h"

#include <QLabel>
#include <QSharedPointer>

class OscillogramViewModel;

// The label left of the time line: the absolute time of the current sample in the display zone,
// and under it its distance from the trigger in milliseconds.
class KORVANE_EXPORT CurrentTimePositionView : public QLabel
{
    Q_OBJECT
public:
    explicit CurrentTimePositionView(QWidget* parent = nullptr);

    void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model);
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const { return m_model; }

public slots:
    void slotUpdateText();

private:
    QSharedPointer<OscillogramViewModel> m_model;
};
