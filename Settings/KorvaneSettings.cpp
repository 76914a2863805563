#include "Settings/KorvaneSettings.h"

#include "Settings/ColorStyle.h"
#include "Settings/SettingsProvider.h"

#include <QDateTime>
#include <QSettings>

namespace {
const QString varTypeKey = QStringLiteral("KorvaneCalculator/type");
const QString constTypeKey = QStringLiteral("KorvaneCalculator/constType");
const QString calcDurationKey = QStringLiteral("KorvaneCalculator/calcDuration");
const QString devTypeKey = QStringLiteral("KorvaneCalculator/devType");
const QString manualFlagKey = QStringLiteral("KorvaneCalculator/manualFlag");
const QString manualIntervalKey = QStringLiteral("KorvaneCalculator/manualInterval");
const QString firstHarmScaleKey = QStringLiteral("Spectrum/firstHarmScale");
const QString timeDisplayModeKey = QStringLiteral("main/timeDisplayMode");
const QString customTimeZoneKey = QStringLiteral("main/customTimeZone");
const QString colorStyleKey = QStringLiteral("main/colorStyle");
const QString lastOpenFilesKey = QStringLiteral("main/lastOpenOscillograms");
const QString languageCodeKey = QStringLiteral("Language/LanguageCode");
const QString selectedParametersKey = QStringLiteral("main/selectedParameters");
const QString compactModeParameterKey = QStringLiteral("main/selectedParameterForCompactMode");
const QString drawMouseMeasuresKey = QStringLiteral("main/drawMouseMeasures");
const QString calculaterLineKey = QStringLiteral("main/calculaterLineVisibility");

const QString defaultLanguageCode = QStringLiteral("ru");
// The first calculator of varying signals is out of service; its number now means the second.
constexpr int retiredVarType = 1;
constexpr int defaultVarType = 2;

int machineUtcOffsetHours()
{
    return QDateTime::currentDateTime().offsetFromUtc() / 3600;
}

QVector<bool> allParametersSelected()
{
    return QVector<bool>(KorvaneSettings::parameterCount, true);
}

QVariantList toVariantList(const QVector<bool>& flags)
{
    QVariantList list;
    for (bool flag : flags)
        list.append(flag);
    return list;
}

QVector<bool> toFlags(const QVariantList& list)
{
    QVector<bool> flags;
    for (const QVariant& value : list)
        flags.append(value.toBool());
    return flags;
}
} // namespace

KorvaneSettings::KorvaneSettings(QSettings* settings)
    : m_settings(settings ? settings : SettingsProvider::settings())
    , m_selectedParameters(allParametersSelected())
    , m_languageCode(defaultLanguageCode)
{
    restoreSettings();
}

void KorvaneSettings::restoreSettings()
{
    restoreCalcSettings();
    restoreViewSettings();
}

void KorvaneSettings::restoreCalcSettings()
{
    m_varType = m_settings->value(varTypeKey, defaultVarType).toInt();
    if (m_varType == retiredVarType)
        m_varType = defaultVarType;
    m_constType = m_settings->value(constTypeKey, 2).toInt();
    m_calcDuration = m_settings->value(calcDurationKey, 2).toInt();
    m_devType = m_settings->value(devTypeKey, 0).toInt();
    m_manualFlag = m_settings->value(manualFlagKey, false).toBool();
    m_manualInterval = m_settings->value(manualIntervalKey, 40).toInt();
}

void KorvaneSettings::restoreViewSettings()
{
    m_firstHarmScale = m_settings->value(firstHarmScaleKey, false).toBool();
    m_timeDisplayMode = static_cast<TimeDisplayMode>(m_settings->value(timeDisplayModeKey, 1).toInt());
    m_customTimeZone = m_settings->value(customTimeZoneKey, machineUtcOffsetHours()).toInt();
    setStyle(m_settings->value(colorStyleKey, 0).toInt());
    m_lastOpenFiles = m_settings->value(lastOpenFilesKey, QStringList()).toStringList();
    m_languageCode = m_settings->value(languageCodeKey, defaultLanguageCode).toString();
    setSelectedParameters(
        toFlags(m_settings->value(selectedParametersKey, toVariantList(allParametersSelected())).toList()));
    m_selectedParameterForCompactMode = m_settings->value(compactModeParameterKey, 0).toInt();
    m_drawMouseMeasures = m_settings->value(drawMouseMeasuresKey, false).toBool();
    m_calculaterLineVisible = m_settings->value(calculaterLineKey, false).toBool();
}

void KorvaneSettings::saveSettings()
{
    if (!m_blockCalcSettings)
        saveCalcSettings();
    saveViewSettings();
    m_settings->sync();
}

void KorvaneSettings::saveCalcSettings()
{
    m_settings->setValue(varTypeKey, m_varType);
    m_settings->setValue(constTypeKey, m_constType);
    m_settings->setValue(calcDurationKey, m_calcDuration);
    m_settings->setValue(devTypeKey, m_devType);
    m_settings->setValue(manualFlagKey, m_manualFlag);
    m_settings->setValue(manualIntervalKey, m_manualInterval);
}

void KorvaneSettings::saveViewSettings()
{
    m_settings->setValue(firstHarmScaleKey, m_firstHarmScale);
    m_settings->setValue(timeDisplayModeKey, static_cast<int>(m_timeDisplayMode));
    m_settings->setValue(customTimeZoneKey, m_customTimeZone);
    m_settings->setValue(colorStyleKey, style().number());
    m_settings->setValue(lastOpenFilesKey, m_lastOpenFiles);
    m_settings->setValue(languageCodeKey, m_languageCode.isEmpty() ? defaultLanguageCode : m_languageCode);
    m_settings->setValue(selectedParametersKey, toVariantList(m_selectedParameters));
    m_settings->setValue(compactModeParameterKey, m_selectedParameterForCompactMode);
    m_settings->setValue(drawMouseMeasuresKey, m_drawMouseMeasures);
    m_settings->setValue(calculaterLineKey, m_calculaterLineVisible);
}

const KV::Cfg::ColorStyle& KorvaneSettings::style()
{
    return KV::Cfg::ColorStyle::current();
}

void KorvaneSettings::setStyle(int style)
{
    KV::Cfg::ColorStyle::setCurrent(style);
}

void KorvaneSettings::setSelectedParameters(const QVector<bool>& parameters)
{
    m_selectedParameters = parameters.mid(0, parameterCount);
    while (m_selectedParameters.size() < parameterCount)
        m_selectedParameters.append(true);
}

QStringList KorvaneSettings::languageCodes()
{
    return { QStringLiteral("ru"), QStringLiteral("en") };
}

QStringList KorvaneSettings::languageNames()
{
    return { QStringLiteral("Русский (ru)"), QStringLiteral("English (en)") };
}

int KorvaneSettings::indexLanguageCode(const QString& code)
{
    return languageCodes().indexOf(code);
}

void KorvaneSettings::addLastOpenFile(const QString& path)
{
    m_lastOpenFiles.removeAll(path);
    m_lastOpenFiles.prepend(path);
    while (m_lastOpenFiles.size() > maxLastOpenFiles)
        m_lastOpenFiles.removeLast();
}

void KorvaneSettings::saveOpenFiles()
{
    m_settings->setValue(lastOpenFilesKey, m_lastOpenFiles);
    m_settings->sync();
}
