#pragma once

#include "korvane_export.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVector>

// The parameter table of one analogue row: names and values of the quantities shown beside the
// plot. The view model reads the tables of all rows to freeze them into markers.
class KORVANE_EXPORT AChanParModel : public QObject
{
    Q_OBJECT
public:
    explicit AChanParModel(QObject* parent = nullptr);
    ~AChanParModel() override;

    int channelNumber() const { return m_channelNumber; }
    void setChannelNumber(int channel) { m_channelNumber = channel; }

    // Short names, or the long ones.
    virtual QStringList parameterNames(bool isLong) const = 0;
    virtual QVariantList parameterValues(int sample) = 0;
    virtual QList<QColor> valueColors(const QVariantList& values) const = 0;
    virtual QVector<bool> selectedParameters() const = 0;
    virtual void calculate(int sample) = 0;
    virtual int rowCount() const = 0;

private:
    int m_channelNumber = -1;
};
