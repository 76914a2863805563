#include "Settings/SettingsDialog.h"

#include "Settings/ColorStyle.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/KorvaneSettingsWidget.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
constexpr int talviVarType = 2;
constexpr int minTimeZone = -12;
constexpr int maxTimeZone = 14;
} // namespace

SettingsDialog::SettingsDialog(QSharedPointer<KorvaneSettings>& settings, QWidget* parent)
    : QDialog(parent), m_settings(settings)
{
    setWindowTitle(tr("Настройки"));
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabWidget"));
    m_mainPage = buildMainPage();
    m_tabs->addTab(m_mainPage, tr("Основные"));
    m_calcPage = new KorvaneSettingsWidget(settings, m_tabs);
    m_calcPage->setObjectName(QStringLiteral("calcSettingsWidget"));
    m_calcPage->offerVarCalculator(QStringLiteral("Talvi"), talviVarType);
    m_tabs->addTab(m_calcPage, tr("Вычислитель"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);

    loadSettings();
}

QWidget* SettingsDialog::buildMainPage()
{
    auto* page = new QWidget(this);
    auto* form = new QFormLayout;

    m_languageLabel = new QLabel(tr("Язык:"), page);
    m_languageLabel->setObjectName(QStringLiteral("l_language"));
    m_language = new QComboBox(page);
    m_language->setObjectName(QStringLiteral("cb_language"));
    const QStringList codes = KorvaneSettings::languageCodes();
    const QStringList names = KorvaneSettings::languageNames();
    for (int i = 0; i < codes.size(); ++i)
        m_language->addItem(names.at(i), codes.at(i));
    form->addRow(m_languageLabel, m_language);

    auto* styleLabel = new QLabel(tr("Цветовой стиль:"), page);
    styleLabel->setObjectName(QStringLiteral("l_colorStyle"));
    m_colorStyle = new QComboBox(page);
    m_colorStyle->setObjectName(QStringLiteral("cb_colorStyle"));
    m_colorStyle->addItem(tr("Стандартный"), KV::Cfg::ColorStyle::Dark);
    m_colorStyle->addItem(tr("Черно-белый"), KV::Cfg::ColorStyle::BlackOnWhite);
    form->addRow(styleLabel, m_colorStyle);

    m_drawMouseMeasures = new QCheckBox(tr("Создание замера курсором мыши"), page);
    m_drawMouseMeasures->setObjectName(QStringLiteral("cb_drawMouseMeasures"));
    m_calculaterLine = new QCheckBox(tr("Отображение линии вычислителя"), page);
    m_calculaterLine->setObjectName(QStringLiteral("cb_calculaterLineVisibility"));

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(form);
    layout->addWidget(m_drawMouseMeasures);
    layout->addWidget(m_calculaterLine);
    layout->addWidget(buildTimeDisplayGroup());
    layout->addWidget(buildParametersGroup());
    layout->addStretch();
    return page;
}

QGroupBox* SettingsDialog::buildTimeDisplayGroup()
{
    auto* group = new QGroupBox(tr("Отображение времени в осциллограммах"), this);
    group->setObjectName(QStringLiteral("gb_timeDisplay"));
    auto* local
        = new QRadioButton(tr("Показывать в локальном времени устройства, записавшего осциллограмму"), group);
    local->setObjectName(QStringLiteral("rb_deviceLocalTime"));
    auto* utc = new QRadioButton(tr("Показывать в UTC+0"), group);
    utc->setObjectName(QStringLiteral("rb_utcTime"));
    auto* custom = new QRadioButton(tr("Показывать в часовом поясе"), group);
    custom->setObjectName(QStringLiteral("rb_customTimeZone"));
    m_customTimeZone = new QSpinBox(group);
    m_customTimeZone->setObjectName(QStringLiteral("sb_customTimeZone"));
    m_customTimeZone->setRange(minTimeZone, maxTimeZone);
    m_customTimeZone->setPrefix(QStringLiteral("UTC"));

    m_timeDisplay = new QButtonGroup(group);
    m_timeDisplay->addButton(local, KorvaneSettings::DeviceLocalTime);
    m_timeDisplay->addButton(utc, KorvaneSettings::UtcTime);
    m_timeDisplay->addButton(custom, KorvaneSettings::CustomTimeZone);
    connect(custom, &QRadioButton::toggled, m_customTimeZone, &QSpinBox::setEnabled);

    auto* customRow = new QHBoxLayout;
    customRow->addWidget(custom);
    customRow->addWidget(m_customTimeZone);
    customRow->addStretch();
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(local);
    layout->addWidget(utc);
    layout->addLayout(customRow);
    return group;
}

QGroupBox* SettingsDialog::buildParametersGroup()
{
    auto* group = new QGroupBox(tr("Отображаемые параметры синусоидальных сигналов"), this);
    group->setObjectName(QStringLiteral("gb_parameters"));
    const QStringList objectNames
        = { QStringLiteral("cb_amp"), QStringLiteral("cb_ef"), QStringLiteral("cb_ef_harm"),
              QStringLiteral("cb_freq"), QStringLiteral("cb_ph"), QStringLiteral("cb_adc") };
    const QStringList texts = { tr("Амплитуда"), tr("Эффективное значение"),
        tr("Эффективное значение 1-ой гармоники"), tr("Частота"), tr("Фаза"), tr("АЦП") };
    auto* layout = new QVBoxLayout(group);
    for (int i = 0; i < KorvaneSettings::parameterCount; ++i) {
        auto* box = new QCheckBox(texts.at(i), group);
        box->setObjectName(objectNames.at(i));
        layout->addWidget(box);
        m_parameters.append(box);
        connect(box, &QCheckBox::toggled, this, &SettingsDialog::slotUpdateParamForComapctMode);
    }

    auto* compactLabel = new QLabel(tr("Отображаемый параметр сигнала в компактном режиме:"), group);
    compactLabel->setObjectName(QStringLiteral("l_paramCompactMode"));
    m_compactModeParameter = new QComboBox(group);
    m_compactModeParameter->setObjectName(QStringLiteral("cb_paramCompactMode"));
    auto* compactRow = new QHBoxLayout;
    compactRow->addWidget(compactLabel);
    compactRow->addWidget(m_compactModeParameter);
    layout->addLayout(compactRow);
    return group;
}

void SettingsDialog::hideMWFields()
{
    m_languageLabel->hide();
    m_language->hide();
}

void SettingsDialog::hideCalcFields()
{
    m_calcFieldsHidden = true;
    m_tabs->removeTab(m_tabs->indexOf(m_calcPage));
    m_calcPage->hide();
}

void SettingsDialog::loadSettings()
{
    const int languageIndex = KorvaneSettings::indexLanguageCode(m_settings->languageCode());
    m_language->setCurrentIndex(languageIndex < 0 ? 0 : languageIndex);
    loadColorStyle();
    m_drawMouseMeasures->setChecked(m_settings->isDrawMouseMeasures());
    m_calculaterLine->setChecked(m_settings->isCalculaterLineVisible());
    loadTimeDisplay();
    initSelectedParameters();
    m_calcPage->loadSettings();
}

void SettingsDialog::loadColorStyle()
{
    m_loadedStyle = KorvaneSettings::style().number();
    const int index = m_colorStyle->findData(m_loadedStyle);
    m_loadedStyleIndex = index < 0 ? 0 : index;
    m_colorStyle->setCurrentIndex(m_loadedStyleIndex);
}

int SettingsDialog::chosenColorStyle() const
{
    // A style the combo does not offer stays in force until another entry is chosen.
    if (m_colorStyle->currentIndex() == m_loadedStyleIndex)
        return m_loadedStyle;
    return m_colorStyle->currentData().toInt();
}

void SettingsDialog::loadTimeDisplay()
{
    const int mode = m_settings->timeDisplayMode();
    const bool known = mode == KorvaneSettings::UtcTime || mode == KorvaneSettings::DeviceLocalTime;
    m_timeDisplay->button(known ? mode : KorvaneSettings::CustomTimeZone)->setChecked(true);
    m_customTimeZone->setValue(m_settings->customTimeZone());
    m_customTimeZone->setEnabled(!known);
}

void SettingsDialog::saveTimeDisplay()
{
    m_settings->setTimeDisplayMode(static_cast<KorvaneSettings::TimeDisplayMode>(m_timeDisplay->checkedId()));
    m_settings->setCustomTimeZone(m_customTimeZone->value());
}

void SettingsDialog::initSelectedParameters()
{
    const QVector<bool> selected = m_settings->selectedParamters();
    for (int i = 0; i < m_parameters.size(); ++i) {
        const QSignalBlocker blocker(m_parameters.at(i));
        m_parameters.at(i)->setChecked(selected.value(i, true));
    }
    m_compactModeParameter->clear();
    slotUpdateParamForComapctMode();
    const int index = m_compactModeParameter->findData(m_settings->selectedParameterForCompactMode());
    m_compactModeParameter->setCurrentIndex(index < 0 ? 0 : index);
}

QVector<bool> SettingsDialog::selectedParameters() const
{
    QVector<bool> selected;
    for (const QCheckBox* box : m_parameters)
        selected.append(box->isChecked());
    return selected;
}

void SettingsDialog::slotUpdateParamForComapctMode()
{
    const QVariant chosen = m_compactModeParameter->currentData();
    m_compactModeParameter->clear();
    for (int i = 0; i < m_parameters.size(); ++i) {
        if (m_parameters.at(i)->isChecked())
            m_compactModeParameter->addItem(m_parameters.at(i)->text(), i);
    }
    const int index = chosen.isValid() ? m_compactModeParameter->findData(chosen) : -1;
    if (index >= 0)
        m_compactModeParameter->setCurrentIndex(index);
}

void SettingsDialog::saveSettings()
{
    const QString oldLanguage = m_settings->languageCode();
    const QString newLanguage = m_language->currentData().toString();
    m_settings->setLanguageCode(newLanguage);
    KorvaneSettings::setStyle(chosenColorStyle());
    m_settings->setDrawMouseMeasures(m_drawMouseMeasures->isChecked());
    m_settings->setCalculaterLineVisibility(m_calculaterLine->isChecked());
    saveTimeDisplay();
    m_settings->setSelectedParameters(selectedParameters());
    if (m_compactModeParameter->currentIndex() >= 0)
        m_settings->setSelectedParameterForCompactMode(m_compactModeParameter->currentData().toInt());

    if (m_calcFieldsHidden)
        m_settings->saveSettings();
    else
        m_calcPage->saveSettings();

    if (newLanguage != oldLanguage)
        QMessageBox::information(
            this, tr("Сохранение настроек"), tr("Перезапустите Korvane, чтобы применить настройки"));
}

void SettingsDialog::accept()
{
    if (!selectedParameters().contains(true)) {
        QMessageBox::warning(
            this, tr("Внимание"), tr("Необходимо выбрать хотя бы один параметр для отображения"));
        return;
    }
    saveSettings();
    QDialog::accept();
}
