#include "Savers/ComtradeSaveSettings.h"

#include "Model/OscillogramData.h"
#include "Model/RasObject.h"
#include "Model/SimpleOscillogram.h"
#include "Savers/ComtradeSaver.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int secondsPerHour = 3600;
constexpr int lowestZone = -12;
constexpr int highestZone = 14;
// Wide enough for the names of companies and devices.
constexpr int objectFieldWidth = 240;

QString zoneRowText(const QString& withPlus, const QString& withoutPlus, int hours)
{
    return (hours >= 0 ? withPlus : withoutPlus).arg(hours);
}

QLineEdit* namedEdit(const QString& name, const QString& text, QWidget* parent)
{
    auto* edit = new QLineEdit(text, parent);
    edit->setObjectName(name);
    return edit;
}

QLineEdit* objectEdit(const QString& name, const QString& text, QWidget* parent)
{
    QLineEdit* edit = namedEdit(name, text, parent);
    edit->setMinimumWidth(objectFieldWidth);
    return edit;
}

// The seven texts of a device in the order of the .inf.
QStringList deviceTexts(const RAS_RECORDING_DEVICE& device)
{
    return { device.recordingDeviceId, device.vendor, device.model, device.serialNumber,
        device.hardwareRevision, device.softwareRevision, device.comtradeFileName };
}

// An object left without a single text says nothing and is not written.
bool isBlank(const RAS_OBJECT& object)
{
    if (!object.territory.isEmpty() || !object.companyName.isEmpty() || !object.stationName.isEmpty())
        return false;
    return std::all_of(object.devices.begin(), object.devices.end(), [](const RAS_RECORDING_DEVICE& device) {
        const QStringList texts = deviceTexts(device);
        return std::all_of(texts.begin(), texts.end(), [](const QString& text) { return text.isEmpty(); });
    });
}
} // namespace

struct ComtradeSaveSettings::DeviceFields
{
    QVector<QLineEdit*> edits;
};

struct ComtradeSaveSettings::ObjectFields
{
    QLineEdit* territory = nullptr;
    QLineEdit* company = nullptr;
    QLineEdit* station = nullptr;
    QVector<DeviceFields> devices;
};

ComtradeSaveSettings::ComtradeSaveSettings(const SaveSource& source, QWidget* parent)
    : DiaSaveSettings(source, QStringLiteral("zip"), parent), m_recordObjects(recordObjects())
{
    setObjectName(QStringLiteral("ComtradeSaveSettings"));
    setWindowTitle(tr("Сохранить осциллограмму как"));
    setHint(tr("Осциллограмма будет сохранена в архив ZIP с файлами COMTRADE (.cfg, .dat, .hdr, .inf)."));
    // The set's own choices on the left, the objects of the .inf on the right.
    auto* columns = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(buildStandardGroup());
    left->addWidget(buildTimeZoneGroup());
    left->addWidget(buildInformationGroup());
    left->addStretch(1);
    columns->addLayout(left);
    columns->addWidget(buildObjectTabs(), 1);
    optionsLayout()->addLayout(columns);
}

ComtradeSaveSettings::~ComtradeSaveSettings() = default;

// A record without objects gets one empty object with one device for the user to fill in.
QList<RAS_OBJECT> ComtradeSaveSettings::recordObjects() const
{
    const auto simple = source().record.dynamicCast<SimpleOscillogram>();
    if (simple && !simple->rasObjects().isEmpty())
        return simple->rasObjects();
    RAS_OBJECT object;
    object.devices.append(RAS_RECORDING_DEVICE());
    return { object };
}

QWidget* ComtradeSaveSettings::buildStandardGroup()
{
    auto* group = new QGroupBox(tr("Формат COMTRADE"), this);
    auto* form = new QFormLayout(group);
    m_standard = new QComboBox(group);
    m_standard->setObjectName(QStringLiteral("cb_standard"));
    m_standard->addItems({ QStringLiteral("2013"), QStringLiteral("2017") });
    m_revision = namedEdit(QStringLiteral("le_revision"), QStringLiteral("1.0"), group);
    m_revision->setReadOnly(true);
    m_format = new QComboBox(group);
    m_format->setObjectName(QStringLiteral("cb_format"));
    m_format->addItem(QStringLiteral("FLOAT32"), 3);
    m_format->addItem(QStringLiteral("BINARY32"), 2);
    // 16-bit integers only hold what a store of 16-bit columns holds.
    if (source().record->data() && source().record->data()->countOfInt16AnalogChannels() > 0)
        m_format->addItem(QStringLiteral("BINARY"), 1);
    m_format->addItem(QStringLiteral("ASCII"), 0);
    form->addRow(tr("Стандарт:"), m_standard);
    form->addRow(tr("Ревизия:"), m_revision);
    form->addRow(tr("Формат данных:"), m_format);
    return group;
}

QWidget* ComtradeSaveSettings::buildTimeZoneGroup()
{
    auto* group = new QGroupBox(tr("Часовой пояс"), this);
    auto* form = new QFormLayout(group);
    const int recordHours = source().record->beginTime().offsetFromUtc() / secondsPerHour;
    m_timeZone = new QSpinBox(group);
    m_timeZone->setObjectName(QStringLiteral("sb_timeZone"));
    m_timeZone->setRange(lowestZone, highestZone);
    m_timeZone->setPrefix(QStringLiteral("UTC "));
    m_timeZone->setValue(recordHours);
    m_beforeLabel = new QLabel(
        zoneRowText(tr("        До сохранения (UTC+%1):"), tr("        До сохранения (UTC%1):"), recordHours),
        group);
    m_beforeLabel->setObjectName(QStringLiteral("l_tzBefore"));
    m_beforeTime = new QLabel(beginTimeIn(recordHours), group);
    m_beforeTime->setObjectName(QStringLiteral("l_timeBefore"));
    m_afterLabel = new QLabel(group);
    m_afterLabel->setObjectName(QStringLiteral("l_tzAfter"));
    m_afterTime = new QLabel(group);
    m_afterTime->setObjectName(QStringLiteral("l_timeAfter"));
    form->addRow(tr("Часовой пояс после сохранения:"), m_timeZone);
    form->addRow(m_beforeLabel, m_beforeTime);
    form->addRow(m_afterLabel, m_afterTime);
    connect(m_timeZone, QOverload<int>::of(&QSpinBox::valueChanged), this,
        &ComtradeSaveSettings::slotTimeZoneChanged);
    slotTimeZoneChanged(recordHours);
    return group;
}

void ComtradeSaveSettings::slotTimeZoneChanged(int hours)
{
    m_afterLabel->setText(zoneRowText(
        tr("        После сохранения (UTC+%1):"), tr("        После сохранения (UTC%1):"), hours));
    m_afterTime->setText(beginTimeIn(hours));
}

QString ComtradeSaveSettings::beginTimeIn(int hours) const
{
    PreciseDateTime begin = source().record->beginTime();
    begin.recalcTimeZone(hours * secondsPerHour);
    return begin.toString();
}

QWidget* ComtradeSaveSettings::buildObjectTabs()
{
    m_objectTabs = new QTabWidget(this);
    m_objectTabs->setObjectName(QStringLiteral("tw_objects"));
    m_objectFields.resize(m_recordObjects.size());
    for (int i = 0; i < m_recordObjects.size(); ++i)
        m_objectTabs->addTab(
            buildObjectPage(m_recordObjects.at(i), m_objectFields[i]), tr("Объект %1").arg(i + 1));
    return m_objectTabs;
}

QWidget* ComtradeSaveSettings::buildObjectPage(const RAS_OBJECT& object, ObjectFields& fields)
{
    auto* page = new QWidget(m_objectTabs);
    auto* form = new QFormLayout(page);
    fields.territory = objectEdit(QStringLiteral("le_territory"), object.territory, page);
    fields.company = objectEdit(QStringLiteral("le_company"), object.companyName, page);
    fields.station = objectEdit(QStringLiteral("le_station"), object.stationName, page);
    form->addRow(tr("Территория:"), fields.territory);
    form->addRow(tr("Организация:"), fields.company);
    form->addRow(tr("Наименование ПС или ЭС:"), fields.station);
    auto* devices = new QTabWidget(page);
    devices->setObjectName(QStringLiteral("tw_devices"));
    fields.devices.resize(object.devices.size());
    for (int i = 0; i < object.devices.size(); ++i)
        devices->addTab(buildDevicePage(deviceTexts(object.devices.at(i)), fields.devices[i]),
            tr("Устройство %1").arg(i + 1));
    form->addRow(devices);
    return page;
}

QWidget* ComtradeSaveSettings::buildDevicePage(const QStringList& values, DeviceFields& fields)
{
    static const char* const labels[]
        = { QT_TR_NOOP("Идентификатор устройства:"), QT_TR_NOOP("Производитель:"), QT_TR_NOOP("Модель:"),
              QT_TR_NOOP("Серийный номер:"), QT_TR_NOOP("Версия аппаратной части:"),
              QT_TR_NOOP("Версия программы:"), QT_TR_NOOP("Имя файла COMTRADE:") };
    static const char* const names[] = { "le_deviceId", "le_vendor", "le_model", "le_serialNumber",
        "le_hardwareRevision", "le_softwareRevision", "le_comtradeFileName" };
    auto* page = new QWidget(this);
    auto* form = new QFormLayout(page);
    for (int i = 0; i < values.size(); ++i) {
        fields.edits.append(objectEdit(QLatin1String(names[i]), values.at(i), page));
        form->addRow(tr(labels[i]), fields.edits.last());
    }
    return page;
}

QWidget* ComtradeSaveSettings::buildInformationGroup()
{
    const Oscillogram& record = *source().record;
    auto* group = new QGroupBox(tr("Информация об осциллограмме"), this);
    group->setObjectName(QStringLiteral("gb_information"));
    auto* form = new QFormLayout(group);
    form->addRow(tr("Станция:"), new QLabel(record.stationName(), group));
    form->addRow(tr("Устройство:"), new QLabel(record.deviceName(), group));
    form->addRow(tr("Начало записи:"), new QLabel(record.beginTime().toString(), group));
    form->addRow(tr("Частота дискретизации:"), new QLabel(tr("%1 Гц").arg(record.sampleRate()), group));
    form->addRow(
        tr("Аналоговых сигналов:"), new QLabel(QString::number(record.countOfAnalogChannels()), group));
    form->addRow(
        tr("Дискретных сигналов:"), new QLabel(QString::number(record.countOfDigitalChannels()), group));
    return group;
}

int ComtradeSaveSettings::comtradeFormat() const
{
    return m_format->currentData().toInt();
}

int ComtradeSaveSettings::newTimeZone() const
{
    return m_timeZone->value();
}

QList<RAS_OBJECT> ComtradeSaveSettings::objects() const
{
    QList<RAS_OBJECT> result = m_recordObjects;
    for (int i = 0; i < result.size(); ++i) {
        const ObjectFields& fields = m_objectFields.at(i);
        result[i].territory = fields.territory->text();
        result[i].companyName = fields.company->text();
        result[i].stationName = fields.station->text();
        for (int d = 0; d < fields.devices.size(); ++d) {
            const QVector<QLineEdit*>& edits = fields.devices.at(d).edits;
            RAS_RECORDING_DEVICE& device = result[i].devices[d];
            device.recordingDeviceId = edits.at(0)->text();
            device.vendor = edits.at(1)->text();
            device.model = edits.at(2)->text();
            device.serialNumber = edits.at(3)->text();
            device.hardwareRevision = edits.at(4)->text();
            device.softwareRevision = edits.at(5)->text();
            device.comtradeFileName = edits.at(6)->text();
        }
    }
    return result;
}

bool ComtradeSaveSettings::confirmOptions()
{
    const QList<RAS_OBJECT> chosen = objects();
    const bool noCompany = std::any_of(chosen.begin(), chosen.end(),
        [](const RAS_OBJECT& object) { return object.companyName.trimmed().isEmpty(); });
    if (noCompany && !askToContinue(tr("Не указано наименование организации. Продолжить сохранение?")))
        return false;
    const bool noStation = std::any_of(chosen.begin(), chosen.end(),
        [](const RAS_OBJECT& object) { return object.stationName.trimmed().isEmpty(); });
    return !noStation || askToContinue(tr("Не указано наименование ПС или ЭС. Продолжить сохранение?"));
}

std::unique_ptr<WaveSaver> ComtradeSaveSettings::createSaver() const
{
    auto saver
        = std::make_unique<ComtradeSaver>(path(), source().record, onlySelectedChannels(), useTimeRange());
    configureSaver(*saver);
    saver->setComtradeFormat(comtradeFormat());
    saver->setNewTz(newTimeZone());
    QList<RAS_OBJECT> written = objects();
    written.erase(std::remove_if(written.begin(), written.end(), isBlank), written.end());
    saver->setObjList(written);
    if (!source().record->headerContent().isEmpty())
        saver->setHeaderData(source().record->headerContent());
    return saver;
}
