#include "Views/AChanParModel.h"

#include "Model/AnalogChannel.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

AChanParModel::AChanParModel(OscillogramViewModel* owner, const QSharedPointer<AnalogChannel>& channel,
    int channelNumber, QObject* parent)
    : QObject(parent)
    , m_owner(owner)
    , m_channel(channel)
    , m_channelNumber(channelNumber)
    , m_primSecMode(owner ? owner->primSecMode() : 0)
{
}

AChanParModel::~AChanParModel() = default;

QList<QColor> AChanParModel::valueColors(const QVariantList& values) const
{
    const RowColors colors = RowColors::current();
    QList<QColor> result;
    for (const QVariant& value : values) {
        const bool negative = value.type() == QVariant::Double && value.toDouble() < 0.0;
        result << (negative ? colors.negativeValue : colors.positiveValue);
    }
    return result;
}

QVector<bool> AChanParModel::selectedParameters() const
{
    if (m_owner && m_owner->allSettings())
        return m_owner->allSettings()->selectedParamters();
    return QVector<bool>(KorvaneSettings::parameterCount, true);
}

double AChanParModel::toShownSide(double value) const
{
    const AnalogChannel& channel = *m_channel;
    if (channel.ps() == AnalogChannel::Primary && m_primSecMode == AnalogChannel::Secondary)
        return channel.primary() == 0.0 ? value : value * channel.secondary() / channel.primary();
    if (channel.ps() == AnalogChannel::Secondary && m_primSecMode == AnalogChannel::Primary)
        return channel.secondary() == 0.0 ? value : value * channel.primary() / channel.secondary();
    return value;
}
