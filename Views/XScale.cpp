#include "Views/XScale.h"

XScale::XScale(QObject* parent) : QObject(parent)
{
}

void XScale::store(double value)
{
    m_value = value;
    emit sigScaleChanged(m_value);
}

void XScale::setValue(double value)
{
    if (value > minimum && value < maximum)
        store(value);
}

void XScale::reset()
{
    store(initial);
}

void XScale::setToMaximum()
{
    store(maximum);
}

void XScale::setToMinimum()
{
    store(minimum);
}

void XScale::up()
{
    const double value = m_value * stepFactor;
    store(value >= maximum ? maximum : value);
}

void XScale::down()
{
    const double value = m_value / stepFactor;
    store(value <= minimum ? minimum : value);
}
