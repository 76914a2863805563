#include "Settings/KorvaneSettingsWidget.h"

#include "Settings/KorvaneSettings.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
// Data of the constant-signal entries: the first is constType 2, the second constType 0.
constexpr int firstConstCalculator = 2;
constexpr int secondConstCalculator = 0;
// Saving always puts the varying signals on this calculator and the device code on the default.
constexpr int savedVarType = 2;
constexpr int savedDevType = 0;
} // namespace

KorvaneSettingsWidget::KorvaneSettingsWidget(QSharedPointer<KorvaneSettings>& settings, QWidget* parent)
    : QWidget(parent), m_settings(settings)
{
    buildForm();
    loadSettings();
}

void KorvaneSettingsWidget::buildForm()
{
    auto* form = new QFormLayout;

    m_varCalcLabel = new QLabel(tr("Тип вычислителя переменных сигналов:"), this);
    m_varCalcLabel->setObjectName(QStringLiteral("l_varCalc"));
    m_varCalc = new QComboBox(this);
    m_varCalc->setObjectName(QStringLiteral("cb_varCalc"));
    form->addRow(m_varCalcLabel, m_varCalc);
    m_varCalcLabel->hide();
    m_varCalc->hide();

    auto* constLabel = new QLabel(tr("Тип вычислителя постоянных сигналов:"), this);
    constLabel->setObjectName(QStringLiteral("l_constCalc"));
    m_constCalc = new QComboBox(this);
    m_constCalc->setObjectName(QStringLiteral("cb_constCalc"));
    m_constCalc->addItem(tr("Вычислитель 1"), firstConstCalculator);
    m_constCalc->addItem(tr("Вычислитель 2"), secondConstCalculator);
    form->addRow(constLabel, m_constCalc);

    auto* durationLabel = new QLabel(tr("Количество периодов для расчета (1 - 8):"), this);
    durationLabel->setObjectName(QStringLiteral("l_calcDuration"));
    m_calcDuration = new QSpinBox(this);
    m_calcDuration->setObjectName(QStringLiteral("sb_calcDuration"));
    m_calcDuration->setRange(1, 8);
    m_calcDuration->installEventFilter(this);
    form->addRow(durationLabel, m_calcDuration);

    m_period = new QLabel(this);
    m_period->setObjectName(QStringLiteral("l_period"));
    m_manualButton = new QPushButton(tr("Задать промежуточное"), this);
    m_manualButton->setObjectName(QStringLiteral("pb_manual"));
    auto* periodRow = new QHBoxLayout;
    periodRow->addWidget(m_period);
    periodRow->addStretch();
    periodRow->addWidget(m_manualButton);
    form->addRow(periodRow);

    auto* page = new QVBoxLayout(this);
    page->addLayout(form);
    page->addStretch();

    connect(m_calcDuration, QOverload<int>::of(&QSpinBox::valueChanged), this,
        &KorvaneSettingsWidget::slotIntervalChanged);
    connect(m_manualButton, &QPushButton::clicked, this, &KorvaneSettingsWidget::slotManualInterval);
}

void KorvaneSettingsWidget::offerVarCalculator(const QString& name, int varType)
{
    m_varCalc->addItem(name, varType);
    m_varCalcLabel->show();
    m_varCalc->show();
}

void KorvaneSettingsWidget::loadSettings()
{
    const int constIndex = m_constCalc->findData(m_settings->constType());
    m_constCalc->setCurrentIndex(constIndex < 0 ? 0 : constIndex);
    {
        const QSignalBlocker blocker(m_calcDuration);
        m_calcDuration->setValue(m_settings->calcDuration());
    }
    if (m_settings->manualFlag()) {
        setManual(m_settings->manualInterval());
    } else {
        m_calcDuration->setEnabled(true);
        m_manual = false;
        slotIntervalChanged(m_calcDuration->value());
    }
}

void KorvaneSettingsWidget::saveSettings()
{
    m_settings->setVarType(savedVarType);
    m_settings->setDevType(savedDevType);
    m_settings->setConstType(m_constCalc->currentData().toInt());
    m_settings->setCalcDuration(m_calcDuration->value());
    m_settings->setManualFlag(m_manual);
    m_settings->setManualInterval(m_interval);
    m_settings->saveSettings();
}

void KorvaneSettingsWidget::updatePeriod()
{
    m_period->setText(tr("%1 мс").arg(m_interval));
}

void KorvaneSettingsWidget::slotIntervalChanged(int periods)
{
    m_interval = periods * periodMs;
    updatePeriod();
}

void KorvaneSettingsWidget::setManual(int ms)
{
    {
        const QSignalBlocker blocker(m_calcDuration);
        m_calcDuration->setValue(ms / periodMs);
    }
    m_interval = ms;
    m_manual = true;
    updatePeriod();
    m_calcDuration->setEnabled(false);
    m_calcDuration->setToolTip(tr("Нажмите, чтобы вернуться к расчету по целым периодам"));
}

void KorvaneSettingsWidget::slotManualInterval()
{
    bool accepted = false;
    const int ms = QInputDialog::getInt(this, tr("Ввод периода"),
        tr("Введите период для \nвычислителя, мс (20 - 80):"), m_interval, minManualInterval,
        maxManualInterval, 1, &accepted);
    if (accepted)
        setManual(ms);
}

void KorvaneSettingsWidget::leaveManual()
{
    m_manual = false;
    m_calcDuration->setEnabled(true);
    m_calcDuration->setToolTip(QString());
    slotIntervalChanged(m_calcDuration->value());
}

bool KorvaneSettingsWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_calcDuration && m_manual && event->type() == QEvent::MouseButtonPress) {
        leaveManual();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
