#include "MergeSettingsForm.h"

#include "Views/OscillogramMerge/MergeChecks.h"
#include "Views/OscillogramMerge/OscillogramMergeTask.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

MergeSettingsForm::MergeSettingsForm(QWidget* parent)
    : QWidget(parent)
    , m_oscillogramList(new QListWidget(this))
    , m_typeGroup(new QButtonGroup(this))
    , m_vertical(new QRadioButton(tr("Объединение"), this))
    , m_horisontal(new QRadioButton(tr("Склейка"), this))
    , m_description(new QLabel(this))
    , m_modeBox(new QComboBox(this))
    , m_channelList(new QListWidget(this))
    , m_name(new QLineEdit(this))
    , m_done(new QPushButton(tr("Готово"), this))
    , m_cancel(new QPushButton(tr("Отмена"), this))
{
    m_oscillogramList->setObjectName(QStringLiteral("lw_oscillograms"));
    m_vertical->setObjectName(QStringLiteral("rb_vertical"));
    m_horisontal->setObjectName(QStringLiteral("rb_horisontal"));
    m_description->setObjectName(QStringLiteral("l_description"));
    m_modeBox->setObjectName(QStringLiteral("cb_verticalMergeMode"));
    m_channelList->setObjectName(QStringLiteral("lw_channels"));
    m_name->setObjectName(QStringLiteral("le_oscillogramName"));
    m_done->setObjectName(QStringLiteral("pb_done"));
    m_cancel->setObjectName(QStringLiteral("pb_cancel"));
    m_typeGroup->addButton(m_vertical, OscillogramMergeTask::Vertical);
    m_typeGroup->addButton(m_horisontal, OscillogramMergeTask::Horisontal);
    m_vertical->setChecked(true);
    m_modeBox->addItems({ tr("По первой осциллограмме"), tr("По времени пуска"),
        tr("По астрономическому времени"), tr("По первому аварийному событию") });
    m_description->setWordWrap(true);
    m_name->setPlaceholderText(tr("Название новой осциллограммы"));
    buildLayout();
    updateDescription();

    connect(m_typeGroup, &QButtonGroup::idClicked, this, &MergeSettingsForm::setMergeType);
    connect(m_modeBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        [this](int mode) { m_verticalMergeMode = mode; });
    connect(m_oscillogramList, &QListWidget::itemChanged, this, [this]() { refreshChannels(); });
    connect(m_channelList, &QListWidget::itemChanged, this, [this]() { updateFlags(); });
    connect(m_done, &QPushButton::clicked, this, &MergeSettingsForm::slotDone);
}

MergeSettingsForm::~MergeSettingsForm()
{
    // The rows belong to the shared pointers, which a running task may still hold.
    takeItemsBack();
}

void MergeSettingsForm::buildLayout()
{
    auto* records = new QGroupBox(tr("Осциллограммы"), this);
    (new QVBoxLayout(records))->addWidget(m_oscillogramList);
    auto* channels = new QGroupBox(tr("Сигналы"), this);
    (new QVBoxLayout(channels))->addWidget(m_channelList);
    auto* lists = new QHBoxLayout;
    lists->addWidget(records);
    lists->addWidget(channels);

    auto* name = new QFormLayout;
    name->addRow(tr("Название:"), m_name);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_done);
    buttons->addWidget(m_cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createTypeBox());
    layout->addLayout(lists, 1);
    layout->addLayout(name);
    layout->addLayout(buttons);
}

QWidget* MergeSettingsForm::createTypeBox()
{
    auto* box = new QGroupBox(tr("Способ объединения"), this);
    auto* types = new QHBoxLayout;
    types->addWidget(m_vertical);
    types->addWidget(m_horisontal);
    types->addStretch();
    auto* mode = new QFormLayout;
    mode->addRow(tr("Выравнивание:"), m_modeBox);
    auto* layout = new QVBoxLayout(box);
    layout->addLayout(types);
    layout->addWidget(m_description);
    layout->addLayout(mode);
    return box;
}

void MergeSettingsForm::setOscillograms(const QList<NamedOscillogram>& waves)
{
    m_waves = waves;
    const QSignalBlocker blocker(m_oscillogramList);
    m_oscillogramList->clear();
    for (const NamedOscillogram& wave : waves) {
        auto* row = new QListWidgetItem(wave.first, m_oscillogramList);
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(Qt::Checked);
        row->setToolTip(wave.second->beginTime().toString());
    }
    refreshChannels();
}

void MergeSettingsForm::setOscillogramChosen(int index, bool chosen)
{
    if (QListWidgetItem* row = m_oscillogramList->item(index))
        row->setCheckState(chosen ? Qt::Checked : Qt::Unchecked);
}

void MergeSettingsForm::setMergeType(int type)
{
    m_mergeType = type;
    const QSignalBlocker blocker(m_typeGroup);
    if (QAbstractButton* button = m_typeGroup->button(type))
        button->setChecked(true);
    m_modeBox->setEnabled(type == OscillogramMergeTask::Vertical);
    updateDescription();
    refreshChannels();
}

void MergeSettingsForm::setVerticalMergeMode(int mode)
{
    m_verticalMergeMode = mode;
    const QSignalBlocker blocker(m_modeBox);
    if (mode >= 0 && mode < m_modeBox->count())
        m_modeBox->setCurrentIndex(mode);
}

void MergeSettingsForm::setOscillogramName(const QString& name)
{
    m_name->setText(name);
}

QString MergeSettingsForm::oscillogramName() const
{
    return m_name->text().trimmed();
}

void MergeSettingsForm::updateDescription()
{
    m_description->setText(m_mergeType == OscillogramMergeTask::Horisontal
            ? tr("Склейка одноименных каналов разных осциллограмм.")
            : tr("Объединение всех каналов выбранных осциллограмм."));
}

QList<QSharedPointer<Oscillogram>> MergeSettingsForm::chosenOscillograms() const
{
    OscillogramMergeTask order;
    for (int r = 0; r < m_oscillogramList->count() && r < m_waves.size(); ++r) {
        if (m_oscillogramList->item(r)->checkState() == Qt::Checked)
            order.addOscillogram(m_waves[r].second);
    }
    if (m_mergeType == OscillogramMergeTask::Horisontal)
        order.sortOscillograms();
    return order.oscillograms();
}

void MergeSettingsForm::takeItemsBack()
{
    const QSignalBlocker blocker(m_channelList);
    while (m_channelList->count() > 0)
        m_channelList->takeItem(0);
}

void MergeSettingsForm::refreshChannels()
{
    takeItemsBack();
    m_items.clear();
    const QList<QSharedPointer<Oscillogram>> chosen = chosenOscillograms();
    const bool gluing = m_mergeType == OscillogramMergeTask::Horisontal;
    if (gluing) {
        OscillogramMergeTask gluingChannels;
        for (const auto& record : chosen)
            gluingChannels.addOscillogram(record);
        gluingChannels.setupGluingChannels();
        m_items = gluingChannels.mergeItems();
    } else {
        for (const auto& record : chosen) {
            for (int c = 0; c < record->countOfAnalogChannels(); ++c)
                m_items.append(QSharedPointer<MergeItem>::create(record, record->analogChannel(c), c));
            for (int c = 0; c < record->countOfDigitalChannels(); ++c)
                m_items.append(QSharedPointer<MergeItem>::create(record, record->digitalChannel(c), c));
        }
    }
    const QSignalBlocker blocker(m_channelList);
    for (const auto& item : qAsConst(m_items)) {
        // Joining by channels takes every channel; a gluing takes those the user ticks.
        item->setFlags(
            gluing ? (item->flags() | Qt::ItemIsUserCheckable) : (item->flags() & ~Qt::ItemIsUserCheckable));
        item->setCheckState(Qt::Checked);
        item->setToolTip(item->oscillogram()->filename());
        m_channelList->addItem(item.data());
    }
    updateFlags();
}

QList<QSharedPointer<MergeItem>> MergeSettingsForm::selectedItems() const
{
    QList<QSharedPointer<MergeItem>> selected;
    for (const auto& item : m_items) {
        if (item->checkState() == Qt::Checked)
            selected.append(item);
    }
    return selected;
}

void MergeSettingsForm::updateFlags()
{
    const QList<QSharedPointer<Oscillogram>> chosen = chosenOscillograms();
    m_mergeAllowed = MergeChecks::gluingAllowed(chosen);
    m_timesOverlap = MergeChecks::timesOverlap(chosen);
    m_allHaveFailures = MergeChecks::allHaveFailures(chosen);
    m_signalsSelected = !selectedItems().isEmpty();
    m_ratesDiffer = MergeChecks::ratesDiffer(chosen);
}

QString MergeSettingsForm::refusal() const
{
    const bool gluing = m_mergeType == OscillogramMergeTask::Horisontal;
    const bool joining = m_mergeType == OscillogramMergeTask::Vertical;
    if (chosenOscillograms().isEmpty())
        return tr("Осциллограммы не выбраны.");
    if (gluing && !m_mergeAllowed)
        return tr(
            "Склейка осциллограмм невозможна. Осциллограммы расходятся по времени больше чем на 3 минуты.");
    if (joining && m_verticalMergeMode == OscillogramMergeTask::AstronomicalTime && !m_timesOverlap)
        return tr("Осциллограммы расходятся по времени, объединение по астрономическому времени невозможно.");
    if (joining && m_verticalMergeMode == OscillogramMergeTask::FirstFailure && !m_allHaveFailures)
        return tr("Объединение по точке аварийного события невозможно. Найдена осциллограмма без аварийного "
                  "события.");
    if (gluing && !m_signalsSelected)
        return tr("Сигналы не выбраны.");
    return QString();
}

bool MergeSettingsForm::confirmGluingOfDifferentRecords()
{
    if (m_mergeType != OscillogramMergeTask::Horisontal
        || !MergeChecks::configurationsDiffer(chosenOscillograms()))
        return true;
    return QMessageBox::question(this, tr("Проверка конфигурации"),
               tr("Конфигурации осциллограмм отличаются. Удовлетворительный результат склейки не "
                  "гарантируется. "
                  "\r\nПродолжить склейку?"),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

bool MergeSettingsForm::confirmResampling()
{
    if (!m_ratesDiffer)
        return true;
    return QMessageBox::warning(this, tr("Внимание"),
               tr("Частота дискретизации выбранных осциллограмм отличается. \nБудет выполнена "
                  "передискретизация "
                  "по наименьшему значению частоты."),
               QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok)
        == QMessageBox::Ok;
}

void MergeSettingsForm::slotDone()
{
    updateFlags();
    const QString refused = refusal();
    if (!refused.isEmpty()) {
        QMessageBox::warning(this, tr("Внимание"), refused, QMessageBox::Ok);
        return;
    }
    if (!confirmGluingOfDifferentRecords() || !confirmResampling())
        return;
    if (oscillogramName().isEmpty()) {
        QMessageBox::warning(
            this, tr("Внимание"), tr("Введите название для новой осциллограммы."), QMessageBox::Ok);
        return;
    }
    emit sigDoneButtonTriggered(oscillogramName());
}

OscillogramMergeTask* MergeSettingsForm::createTask(QObject* parent) const
{
    if (!OscillogramMergeTask::createHandler(m_mergeType, m_verticalMergeMode))
        return nullptr;
    auto* task = new OscillogramMergeTask(parent);
    task->setOscillogramName(oscillogramName());
    task->setMergeType(m_mergeType);
    task->setVerticalMergeMode(m_verticalMergeMode);
    for (const auto& record : chosenOscillograms())
        task->addOscillogram(record);
    for (const auto& item : selectedItems())
        task->addMergeItem(item);
    return task;
}
