#include "Views/ClcAChanParModel.h"

#include "Model/AnalogChannel.h"

namespace {
constexpr int kColumns = 3;
}

ClcAChanParModel::ClcAChanParModel(OscillogramViewModel* owner, const QSharedPointer<AnalogChannel>& channel,
    int channelNumber, QObject* parent)
    : AChanParModel(owner, channel, channelNumber, parent)
{
}

QStringList ClcAChanParModel::parameterNames(bool) const
{
    return { QStringLiteral("Min"), QStringLiteral("Max"), QStringLiteral("Avg") };
}

QStringList ClcAChanParModel::parameterUnits() const
{
    const QString unit = channel()->unit();
    return { unit, unit, unit };
}

void ClcAChanParModel::calculate(int sample)
{
    setCurrentSample(sample);
}

QVariantList ClcAChanParModel::parameterValues(int sample)
{
    setCurrentSample(sample);
    const AnalogChannel& ch = *channel();
    QVariantList values;
    for (int column = 0; column < kColumns; ++column)
        values << ch.getRealValue(ch.getValue(sample, ch.dataOffset() + column));
    return values;
}
