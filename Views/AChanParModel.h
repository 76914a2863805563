#pragma once

#include "CalcLib/DevConfig.h"
#include "korvane_export.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>
#include <QVariantList>
#include <QVector>

class AnalogChannel;
class OscillogramViewModel;

// The parameter table of one analogue row: names, units and values of the quantities shown beside
// the plot. The view model reads the tables of all rows to freeze them into markers.
class KORVANE_EXPORT AChanParModel : public QObject
{
    Q_OBJECT
public:
    // Shown rows of a panel unless a model says otherwise: with more than three parameters the
    // panel has two columns.
    static constexpr int defaultRowCount = 3;

    AChanParModel(OscillogramViewModel* owner, const QSharedPointer<AnalogChannel>& channel,
        int channelNumber, QObject* parent = nullptr);
    ~AChanParModel() override;

    int channelNumber() const { return m_channelNumber; }
    void setChannelNumber(int channel) { m_channelNumber = channel; }
    QSharedPointer<AnalogChannel> channel() const { return m_channel; }
    OscillogramViewModel* viewModel() const { return m_owner; }
    int currentSample() const { return m_currentSample; }
    int primSecMode() const { return m_primSecMode; }
    void setPrimSecMode(int mode) { m_primSecMode = mode; }
    CalcParameters calculated() const { return m_calculated; }

    // Short names, or the long ones, of the shown parameters in their order.
    virtual QStringList parameterNames(bool isLong) const = 0;
    // The values at the sample; a calculated value that the window does not allow yet is invalid.
    virtual QVariantList parameterValues(int sample) = 0;
    // Colours of the style by the sign of each value.
    virtual QList<QColor> valueColors(const QVariantList& values) const;
    // Which of the six parameters the user chose; all of them without settings.
    virtual QVector<bool> selectedParameters() const;
    // Measures at the sample and remembers it as the current one.
    virtual void calculate(int sample) = 0;
    // Rows of text a panel shows.
    virtual int rowCount() const = 0;
    // The unit of each shown parameter, in the order of the names.
    virtual QStringList parameterUnits() const = 0;

protected:
    // The value as the user wants to see it, primary or secondary.
    double toShownSide(double value) const;
    void setCurrentSample(int sample) { m_currentSample = sample; }
    void setCalculated(const CalcParameters& parameters) { m_calculated = parameters; }

private:
    OscillogramViewModel* m_owner;
    QSharedPointer<AnalogChannel> m_channel;
    int m_channelNumber;
    CalcParameters m_calculated;
    int m_currentSample = -1;
    int m_primSecMode = 0;
};
