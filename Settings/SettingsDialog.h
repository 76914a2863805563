#pragma once

#include "korvane_export.h"

#include <QDialog>
#include <QSharedPointer>
#include <QVector>

class KorvaneSettings;
class KorvaneSettingsWidget;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;
class QSpinBox;
class QTabWidget;

// "Настройки": the general page (language, colours, measures, time display, parameters shown) and
// the calculator page.
class KORVANE_EXPORT SettingsDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(SettingsDialog)
public:
    SettingsDialog(QSharedPointer<KorvaneSettings>& settings, QWidget* parent = nullptr);

    // Hides what only the host's main window uses: the language.
    void hideMWFields();
    // Hides the calculator page; its settings are then left as they are.
    void hideCalcFields();

    void loadSettings();
    // Ticks the parameter boxes from the settings and refills the compact-mode choice.
    void initSelectedParameters();
    // Six flags in the order of KorvaneSettings::Parameter, from the check boxes.
    QVector<bool> selectedParameters() const;
    void saveSettings();

public slots:
    void slotUpdateParamForComapctMode();
    void accept() override;

private:
    QWidget* buildMainPage();
    QGroupBox* buildTimeDisplayGroup();
    QGroupBox* buildParametersGroup();
    void loadColorStyle();
    int chosenColorStyle() const;
    void loadTimeDisplay();
    void saveTimeDisplay();

    QSharedPointer<KorvaneSettings> m_settings;
    QTabWidget* m_tabs;
    QWidget* m_mainPage;
    KorvaneSettingsWidget* m_calcPage;
    QLabel* m_languageLabel;
    QComboBox* m_language;
    QComboBox* m_colorStyle;
    QCheckBox* m_drawMouseMeasures;
    QCheckBox* m_calculaterLine;
    QCheckBox* m_compatibleLoading;
    QButtonGroup* m_timeDisplay;
    QSpinBox* m_customTimeZone;
    QVector<QCheckBox*> m_parameters;
    QComboBox* m_compactModeParameter;
    // The style when the dialog was loaded, kept while the combo still shows its entry.
    int m_loadedStyle = 0;
    int m_loadedStyleIndex = 0;
    bool m_calcFieldsHidden = false;
};
