#pragma once

#include "korvane_export.h"

#include <QString>
#include <QStringList>
#include <QVector>

class QSettings;

namespace KV {
namespace Cfg {
class ColorStyle;
} // namespace Cfg
} // namespace KV

// The user's settings: calculators, spectrum, time display, colour style, recent files, language and
// the parameters shown. Read from the ini file on construction, written back by saveSettings.
class KORVANE_EXPORT KorvaneSettings
{
public:
    // How absolute times are shown. Any stored number beyond these counts as the user's zone.
    enum TimeDisplayMode : int { UtcTime = 0, DeviceLocalTime = 1, CustomTimeZone = 2 };

    // The parameters of a sine signal that the parameter rows may show, in their stored order.
    enum Parameter : int {
        Amplitude = 0,
        EffectiveValue,
        FirstHarmonicEffectiveValue,
        Frequency,
        Phase,
        AdcCode
    };
    static constexpr int parameterCount = 6;
    static constexpr int maxLastOpenFiles = 10;

    // Without a QSettings of its own it works on the process-wide one of SettingsProvider.
    explicit KorvaneSettings(QSettings* settings = nullptr);

    QSettings* settings() const { return m_settings; }

    void saveSettings();
    void restoreSettings();

    int varType() const { return m_varType; }
    void setVarType(int varType) { m_varType = varType; }
    int constType() const { return m_constType; }
    void setConstType(int constType) { m_constType = constType; }
    int calcDuration() const { return m_calcDuration; }
    void setCalcDuration(int calcDuration) { m_calcDuration = calcDuration; }
    int devType() const { return m_devType; }
    void setDevType(int devType) { m_devType = devType; }
    bool manualFlag() const { return m_manualFlag; }
    void setManualFlag(bool manualFlag) { m_manualFlag = manualFlag; }
    int manualInterval() const { return m_manualInterval; }
    void setManualInterval(int manualInterval) { m_manualInterval = manualInterval; }
    bool firstHarmScale() const { return m_firstHarmScale; }
    void setFirstHarmScale(bool firstHarmScale) { m_firstHarmScale = firstHarmScale; }

    // While set, saveSettings leaves the calculator keys in the file as they are.
    bool blockCalcSettings() const { return m_blockCalcSettings; }
    void setBlockCalcSettings(bool block) { m_blockCalcSettings = block; }

    TimeDisplayMode timeDisplayMode() const { return m_timeDisplayMode; }
    void setTimeDisplayMode(TimeDisplayMode mode) { m_timeDisplayMode = mode; }
    // Hours from UTC.
    int customTimeZone() const { return m_customTimeZone; }
    void setCustomTimeZone(int hours) { m_customTimeZone = hours; }

    // The colour style is process-wide: setting it here changes every view's colours at once.
    static const KV::Cfg::ColorStyle& style();
    static void setStyle(int style);

    // Six flags in the order of Parameter.
    QVector<bool> selectedParamters() const { return m_selectedParameters; }
    // A shorter list is completed with true, a longer one cut to six flags.
    void setSelectedParameters(const QVector<bool>& parameters);
    // A Parameter.
    int selectedParameterForCompactMode() const { return m_selectedParameterForCompactMode; }
    void setSelectedParameterForCompactMode(int parameter) { m_selectedParameterForCompactMode = parameter; }

    bool isDrawMouseMeasures() const { return m_drawMouseMeasures; }
    void setDrawMouseMeasures(bool draw) { m_drawMouseMeasures = draw; }
    bool isCalculaterLineVisible() const { return m_calculaterLineVisible; }
    void setCalculaterLineVisibility(bool visible) { m_calculaterLineVisible = visible; }

    // Compatible reading of COMTRADE files, on unless the user turned it off; the host hands it
    // to the loaders.
    bool isCompatibleLoading() const { return m_compatibleLoading; }
    void setCompatibleLoading(bool compatible) { m_compatibleLoading = compatible; }

    QString languageCode() const { return m_languageCode; }
    void setLanguageCode(const QString& code) { m_languageCode = code; }
    static QStringList languageCodes();
    static QStringList languageNames();
    // The place of the code in languageCodes(), or -1.
    static int indexLanguageCode(const QString& code);

    // Most recent first, at most ten. Only saveOpenFiles and saveSettings put the list in the file.
    QStringList lastOpenFiles() const { return m_lastOpenFiles; }
    void addLastOpenFile(const QString& path);
    void clearLastOpenFiles() { m_lastOpenFiles.clear(); }
    void saveOpenFiles();

private:
    void restoreCalcSettings();
    void restoreViewSettings();
    void saveCalcSettings();
    void saveViewSettings();

    QSettings* m_settings;
    int m_varType = 2;
    int m_constType = 2;
    int m_calcDuration = 2;
    int m_devType = 0;
    bool m_manualFlag = false;
    int m_manualInterval = 40;
    bool m_firstHarmScale = false;
    bool m_blockCalcSettings = false;
    TimeDisplayMode m_timeDisplayMode = DeviceLocalTime;
    int m_customTimeZone = 0;
    QVector<bool> m_selectedParameters;
    int m_selectedParameterForCompactMode = 0;
    bool m_drawMouseMeasures = false;
    bool m_calculaterLineVisible = false;
    bool m_compatibleLoading = true;
    QString m_languageCode;
    QStringList m_lastOpenFiles;
};
