#include "Savers/CsvSaveSettings.h"

#include "Calc/CalcModule.h"
#include "Savers/CsvSaver.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QMessageBox>
#include <QSignalBlocker>

namespace {
QComboBox* namedCombo(const QString& name, QWidget* parent)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    return combo;
}
} // namespace

CsvSaveSettings::CsvSaveSettings(const SaveSource& source, QWidget* parent)
    : DiaSaveSettings(source, QStringLiteral("csv"), parent)
{
    setObjectName(QStringLiteral("CsvSaveSettings"));
    setWindowTitle(tr("Экспорт осциллограммы как CSV"));
    setHint(tr("Строка таблицы: номер, время от пуска в секундах и значения сигналов. В режимах ПА и "
               "Talvi пишутся действующие значения с шагом 8 и 4 мс."));
    auto* group = new QGroupBox(tr("Параметры CSV"), this);
    auto* form = new QFormLayout(group);
    m_mode = namedCombo(QStringLiteral("cb_mode"), group);
    m_mode->addItem(tr("Без обработки"), int(CsvSaver::WithoutProcessing));
    m_mode->addItem(tr("Режим ПА"), int(CsvSaver::ProtectionAutomation));
    m_mode->addItem(tr("Режим Talvi"), int(CsvSaver::Talvi));
    m_separator = namedCombo(QStringLiteral("cb_separator"), group);
    m_separator->addItem(tr("Точка с запятой"), 0);
    m_separator->addItem(tr("Запятая"), 1);
    m_decimal = namedCombo(QStringLiteral("cb_decimal"), group);
    m_decimal->addItem(tr("Точка"), 1);
    m_decimal->addItem(tr("Запятая"), 0);
    form->addRow(tr("Режим:"), m_mode);
    form->addRow(tr("Разделитель CSV:"), m_separator);
    form->addRow(tr("Разделитель дробной части:"), m_decimal);
    optionsLayout()->addWidget(group);
    connect(m_separator, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &CsvSaveSettings::slotCheckSeparators);
    connect(m_decimal, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &CsvSaveSettings::slotCheckSeparators);
}

CsvSaveSettings::~CsvSaveSettings() = default;

int CsvSaveSettings::mode() const
{
    return m_mode->currentData().toInt();
}

int CsvSaveSettings::separatorChoice() const
{
    return m_separator->currentData().toInt();
}

int CsvSaveSettings::decimalChoice() const
{
    return m_decimal->currentData().toInt();
}

void CsvSaveSettings::slotCheckSeparators()
{
    if (separatorChoice() != 1 || decimalChoice() != 0)
        return;
    QMessageBox::critical(this, tr("Ошибка"),
        tr("Одновременное использование <b>запятой</b> в качестве разделителя CSV и разделителя дробной "
           "части "
           "приведет к некорректному отображению и чтению данных"));
    const QSignalBlocker separatorBlocker(m_separator);
    const QSignalBlocker decimalBlocker(m_decimal);
    m_separator->setCurrentIndex(0);
    m_decimal->setCurrentIndex(0);
}

std::unique_ptr<WaveSaver> CsvSaveSettings::createSaver() const
{
    auto saver = std::make_unique<CsvSaver>(path(), source().record, onlySelectedChannels(), useTimeRange());
    configureSaver(*saver);
    if (source().calcModule)
        saver->setCalcModule(source().calcModule->copy());
    saver->setPrimSecMode(source().primSecMode);
    saver->setSeparator(separatorChoice());
    saver->setDecimalPoint(decimalChoice());
    saver->setMode(mode());
    return saver;
}
