#include "Views/SimpleAChanParModel.h"

#include "Calc/CalcModule.h"
#include "Model/AnalogChannel.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramViewModel.h"

#include <cmath>

namespace {
// Display order of the six parameters, which is also the order of the settings' flags.
constexpr int kAllParameters[] = { KorvaneSettings::Amplitude, KorvaneSettings::EffectiveValue,
    KorvaneSettings::FirstHarmonicEffectiveValue, KorvaneSettings::Frequency, KorvaneSettings::Phase,
    KorvaneSettings::AdcCode };

QString shortName(int parameter)
{
    switch (parameter) {
    case KorvaneSettings::Amplitude:
        return QObject::tr("А");
    case KorvaneSettings::EffectiveValue:
        return QObject::tr("Э");
    case KorvaneSettings::FirstHarmonicEffectiveValue:
        return QObject::tr("Э1");
    case KorvaneSettings::Frequency:
        return QObject::tr("Ч");
    case KorvaneSettings::Phase:
        return QObject::tr("Ф");
    default:
        return QObject::tr("АЦП");
    }
}

QString longName(int parameter)
{
    switch (parameter) {
    case KorvaneSettings::Amplitude:
        return QObject::tr("Ампл. значение");
    case KorvaneSettings::EffectiveValue:
        return QObject::tr("Эфф. значение");
    case KorvaneSettings::FirstHarmonicEffectiveValue:
        return QObject::tr("Эфф. значение 1-й гармоники");
    case KorvaneSettings::Frequency:
        return QObject::tr("Частота");
    case KorvaneSettings::Phase:
        return QObject::tr("Фаза");
    default:
        return QObject::tr("АЦП");
    }
}

bool isMeasuringState(int normalState)
{
    return normalState == 0 || normalState == 1;
}
} // namespace

SimpleAChanParModel::SimpleAChanParModel(OscillogramViewModel* owner,
    const QSharedPointer<AnalogChannel>& channel, int channelNumber, QObject* parent)
    : AChanParModel(owner, channel, channelNumber, parent)
{
}

QVector<int> SimpleAChanParModel::shownParameters() const
{
    // A channel that is not measured (states other than 0 and 1) shows its instantaneous value only.
    if (!isMeasuringState(channel()->normalState()))
        return { KorvaneSettings::Amplitude };
    const QVector<bool> selected = selectedParameters();
    QVector<int> shown;
    for (int parameter : kAllParameters) {
        if (parameter < selected.size() && selected[parameter])
            shown << parameter;
    }
    return shown;
}

QStringList SimpleAChanParModel::parameterNames(bool isLong) const
{
    QStringList names;
    for (int parameter : shownParameters())
        names << (isLong ? longName(parameter) : shortName(parameter));
    return names;
}

QStringList SimpleAChanParModel::parameterUnits() const
{
    QStringList units;
    for (int parameter : shownParameters()) {
        if (parameter == KorvaneSettings::Frequency)
            units << tr("Гц");
        else if (parameter == KorvaneSettings::Phase)
            units << QStringLiteral("°");
        else if (parameter == KorvaneSettings::AdcCode)
            units << QString();
        else
            units << channel()->unit();
    }
    return units;
}

void SimpleAChanParModel::calculate(int sample)
{
    setCurrentSample(sample);
    const auto module = viewModel() ? viewModel()->calcModule() : QSharedPointer<CalcModule>();
    m_measured = module && isMeasuringState(channel()->normalState()) && module->canCalculateSample(sample);
    if (!m_measured)
        return;
    CalcModuleParams params;
    params.channel = channel();
    params.sampleIndex = sample;
    setCalculated(module->calculate(params));
}

QVariantList SimpleAChanParModel::parameterValues(int sample)
{
    if (sample != currentSample())
        calculate(sample);
    QVariantList values;
    for (int parameter : shownParameters())
        values << value(parameter, sample);
    return values;
}

QVariant SimpleAChanParModel::value(int parameter, int sample) const
{
    const AnalogChannel& ch = *channel();
    const CalcParameters calc = calculated();
    switch (parameter) {
    case KorvaneSettings::Amplitude:
        return toShownSide(ch.getRealValue(ch.getValue(sample)));
    case KorvaneSettings::AdcCode: {
        const double raw = ch.getValue(sample);
        return raw == std::trunc(raw) ? QVariant(qlonglong(raw)) : QVariant(raw);
    }
    default:
        break;
    }
    if (!m_measured)
        return QVariant();
    switch (parameter) {
    case KorvaneSettings::EffectiveValue:
        return toShownSide(calc.rms);
    case KorvaneSettings::FirstHarmonicEffectiveValue:
        return toShownSide(calc.firstHarmonic);
    case KorvaneSettings::Frequency:
        return calc.frequency;
    default:
        return calc.phase;
    }
}

int SimpleAChanParModel::rowCount() const
{
    switch (channel()->normalState()) {
    case 0:
    case 1:
    case 3:
        return defaultRowCount;
    case 2:
        return 1;
    default:
        return 0;
    }
}
