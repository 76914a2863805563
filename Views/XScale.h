#pragma once

#include "korvane_export.h"

#include <QObject>

// Pixels per sample of the record view, kept between its limits and changed in steps of 1.1.
class KORVANE_EXPORT XScale : public QObject
{
    Q_OBJECT
public:
    static constexpr double initial = 1.0;
    static constexpr double minimum = 0.005;
    static constexpr double maximum = 50.0;
    static constexpr double stepFactor = 1.1;

    explicit XScale(QObject* parent = nullptr);

    double value() const { return m_value; }
    // Only values strictly inside the limits are taken; the limits themselves are ignored too.
    void setValue(double value);
    void reset();
    void setToMaximum();
    void setToMinimum();
    bool isMinimum() const { return m_value == minimum; }
    bool isMaximum() const { return m_value == maximum; }
    void up();
    void down();

signals:
    void sigScaleChanged(double value);

private:
    void store(double value);

    double m_value = initial;
};
