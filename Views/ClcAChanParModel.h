#pragma once

#include "Views/AChanParModel.h"

// The parameters of a channel of a Clc archive: its three data columns are the minimum, the maximum
// and the average of each interval, shown as they are stored.
class KORVANE_EXPORT ClcAChanParModel : public AChanParModel
{
    Q_OBJECT
public:
    ClcAChanParModel(OscillogramViewModel* owner, const QSharedPointer<AnalogChannel>& channel,
        int channelNumber, QObject* parent = nullptr);

    QStringList parameterNames(bool isLong) const override;
    QVariantList parameterValues(int sample) override;
    void calculate(int sample) override;
    int rowCount() const override { return defaultRowCount; }
    QStringList parameterUnits() const override;
};
