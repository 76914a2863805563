#include "Savers/DiaSaveSettings.h"

#include "Savers/WaveSaver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const char* const hintStyle = "QLabel{background: rgba(255,255,127,255);border: 1px solid "
                              "rgba(127,127,127,255);border-radius: 4px;}";
constexpr int secondsPerHour = 3600;
} // namespace

DiaSaveSettings::DiaSaveSettings(const SaveSource& source, const QString& suffix, QWidget* parent)
    : QDialog(parent)
    , m_source(source)
    , m_suffix(suffix)
    , m_hint(new QLabel(this))
    , m_options(new QVBoxLayout)
{
    m_hint->setObjectName(QStringLiteral("l_hint"));
    m_hint->setStyleSheet(QLatin1String(hintStyle));
    m_hint->setWordWrap(true);
    m_hint->setMargin(4);
    m_hint->hide();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addWidget(buildPathRow());
    layout->addLayout(m_options);
    layout->addWidget(buildCommonChoices());
    layout->addStretch(1);
    layout->addWidget(buildButtons());
    m_path->setText(defaultPath());
}

DiaSaveSettings::~DiaSaveSettings() = default;

QWidget* DiaSaveSettings::buildPathRow()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("Путь:"), row);
    m_path = new QLineEdit(row);
    m_path->setObjectName(QStringLiteral("le_path"));
    m_path->setMinimumWidth(360);
    label->setBuddy(m_path);
    m_browse = new QPushButton(tr("Обзор..."), row);
    m_browse->setObjectName(QStringLiteral("pb_browse"));
    layout->addWidget(label);
    layout->addWidget(m_path, 1);
    layout->addWidget(m_browse);
    connect(m_browse, &QPushButton::clicked, this, &DiaSaveSettings::slotBrowse);
    return row;
}

QWidget* DiaSaveSettings::buildCommonChoices()
{
    auto* box = new QWidget(this);
    auto* form = new QFormLayout(box);
    form->setContentsMargins(0, 0, 0, 0);
    m_selectedChannels = new QCheckBox(tr("Только выделенные сигналы"), box);
    m_selectedChannels->setObjectName(QStringLiteral("cb_selectedChannels"));
    m_timeRange = new QCheckBox(tr("Только выделенный отрезок"), box);
    m_timeRange->setObjectName(QStringLiteral("cb_timeRange"));
    // Without a marked range there is nothing to restrict the samples to.
    m_timeRange->setEnabled(m_source.timeRange.has_value());
    m_encoding = new QComboBox(box);
    m_encoding->setObjectName(QStringLiteral("cb_encoding"));
    m_encoding->addItem(tr("UTF-8 (рекомендуется)"), QStringLiteral("UTF-8"));
    m_encoding->addItem(QStringLiteral("Windows-1251"), QStringLiteral("windows-1251"));
    m_encoding->addItem(QStringLiteral("CP866"), QStringLiteral("CP866"));
    form->addRow(m_selectedChannels);
    form->addRow(m_timeRange);
    form->addRow(tr("Кодировка:"), m_encoding);
    return box;
}

QWidget* DiaSaveSettings::buildButtons()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_save = new QPushButton(tr("Сохранить"), row);
    m_save->setObjectName(QStringLiteral("pb_save"));
    m_save->setDefault(true);
    auto* cancel = new QPushButton(tr("Отмена"), row);
    cancel->setObjectName(QStringLiteral("pb_cancel"));
    layout->addStretch(1);
    layout->addWidget(m_save);
    layout->addWidget(cancel);
    connect(m_save, &QPushButton::clicked, this, &DiaSaveSettings::accept);
    connect(cancel, &QPushButton::clicked, this, &DiaSaveSettings::reject);
    return row;
}

QString DiaSaveSettings::defaultFileName(const PreciseDateTime& begin)
{
    const QDateTime time = begin.toDateTime();
    const int hours = begin.offsetFromUtc() / secondsPerHour;
    const QString zone = (hours > 0 ? QStringLiteral("+") : QString()) + QStringLiteral("%1t").arg(hours);
    return time.toString(QStringLiteral("yy.MM.dd")) + QLatin1Char(',')
        + time.toString(QStringLiteral("HH.mm.ss.zzz")) + QLatin1Char(',') + zone;
}

// Beside the record's file when it has one on disk, otherwise in the home folder.
QString DiaSaveSettings::defaultPath() const
{
    const QFileInfo recordFile(m_source.record->filename());
    const QString folder = recordFile.absoluteDir().exists() && !m_source.record->filename().isEmpty()
        ? recordFile.absolutePath()
        : QDir::homePath();
    return QDir(folder).filePath(defaultFileName(m_source.record->beginTime()) + QLatin1Char('.') + m_suffix);
}

QString DiaSaveSettings::path() const
{
    const QString text = m_path->text().trimmed();
    if (text.isEmpty() || QFileInfo(text).suffix().compare(m_suffix, Qt::CaseInsensitive) == 0)
        return text;
    return text + QLatin1Char('.') + m_suffix;
}

void DiaSaveSettings::setPath(const QString& path)
{
    m_path->setText(path);
}

bool DiaSaveSettings::onlySelectedChannels() const
{
    return m_selectedChannels->isChecked();
}

bool DiaSaveSettings::useTimeRange() const
{
    return m_timeRange->isEnabled() && m_timeRange->isChecked();
}

QString DiaSaveSettings::codecName() const
{
    return m_encoding->currentData().toString();
}

void DiaSaveSettings::setHint(const QString& text)
{
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
}

void DiaSaveSettings::configureSaver(WaveSaver& saver) const
{
    saver.setCodec(codecName());
    if (m_source.timeRange)
        saver.setTimeRange(*m_source.timeRange);
}

bool DiaSaveSettings::askToContinue(const QString& text)
{
    return QMessageBox::question(this, tr("Сохранение файла"), text, QMessageBox::Yes | QMessageBox::No)
        == QMessageBox::Yes;
}

void DiaSaveSettings::slotBrowse()
{
    const QString chosen = QFileDialog::getSaveFileName(this, tr("Сохранить как"), path(),
        QStringLiteral("*.%1").arg(m_suffix), nullptr, QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty())
        m_path->setText(chosen);
}

void DiaSaveSettings::accept()
{
    const QString target = path();
    if (target.isEmpty()) {
        QMessageBox::warning(this, tr("Сохранение файла"), tr("Ошибка сохранения: путь не указан"));
        return;
    }
    if (QFileInfo::exists(target) && !askToContinue(tr("Файл %1 существует, перезаписать?").arg(target)))
        return;
    if (!confirmOptions())
        return;
    QDialog::accept();
}
