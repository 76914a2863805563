#pragma once

#include "Views/AChanParModel.h"

// The parameters of a channel of an ordinary record: instantaneous value, effective values,
// frequency, phase and ADC code, as the channel's normal state allows and the user chose.
class KORVANE_EXPORT SimpleAChanParModel : public AChanParModel
{
    Q_OBJECT
public:
    SimpleAChanParModel(OscillogramViewModel* owner, const QSharedPointer<AnalogChannel>& channel,
        int channelNumber, QObject* parent = nullptr);

    QStringList parameterNames(bool isLong) const override;
    QVariantList parameterValues(int sample) override;
    void calculate(int sample) override;
    int rowCount() const override;
    QStringList parameterUnits() const override;

private:
    // The parameters of KorvaneSettings::Parameter that this channel shows, in display order.
    QVector<int> shownParameters() const;
    QVariant value(int parameter, int sample) const;

    bool m_measured = false;
};
