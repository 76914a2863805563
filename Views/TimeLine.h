#pragma once

#include "Views/TimeLineDrawInfo.h"
#include "korvane_export.h"

#include <QSharedPointer>
#include <QWidget>

#include <memory>

class OscillogramViewModel;
class QPaintDevice;
class TimeLineTexts;

// The ruler above the plots and the header strip of a printed page: milliseconds from the trigger,
// where merged records begin, where the record ends, the time measures and the markers.
class KORVANE_EXPORT TimeLine : public QWidget
{
    Q_OBJECT
public:
    explicit TimeLine(QWidget* parent = nullptr);
    ~TimeLine() override;

    void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model);
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const { return m_model; }

    // The argument, or the model's value when it is negative.
    int startSampleNumber(int startSample) const;
    double xScale(double xScale) const;
    // The rate of the ruler: the record's, but a fixed 2.0 for an event-triggered COMTRADE record,
    // whose samples have no common rate.
    double sampleRate() const;
    // Milliseconds from sample a to sample b, as the record counts them.
    double timeForSample(int a, int b) const;
    double lengthMeasure(int a, int b) const;

    // Draws the ruler over the whole device. Needs a device at least 13 pixels high.
    void drawTimeLine(QPaintDevice* device, const TimeLineDrawInfo& info) const;

signals:
    void sigSetTrigger(int sample);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    // Laid-out labels kept between paints; drawing does not change what the ruler shows.
    std::unique_ptr<TimeLineTexts> m_texts;
};
