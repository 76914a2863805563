#pragma once

#include "Savers/DiaSaveSettings.h"

#include <QList>
#include <QVector>

class QSpinBox;
class QTabWidget;
struct RAS_OBJECT;

// "Сохранить осциллограмму как": a COMTRADE set in a zip, with the data format, the time zone of
// the written times, the power objects and their devices.
class KORVANE_EXPORT ComtradeSaveSettings : public DiaSaveSettings
{
    Q_OBJECT
    Q_DISABLE_COPY(ComtradeSaveSettings)
public:
    explicit ComtradeSaveSettings(const SaveSource& source, QWidget* parent = nullptr);
    ~ComtradeSaveSettings() override;

    // The data format of the set: 3 FLOAT32, 2 BINARY32, 1 BINARY, 0 ASCII.
    int comtradeFormat() const;
    int newTimeZone() const;
    // The objects as the tabs now hold them.
    QList<RAS_OBJECT> objects() const;

    std::unique_ptr<WaveSaver> createSaver() const override;

protected:
    bool confirmOptions() override;

private slots:
    void slotTimeZoneChanged(int hours);

private:
    struct ObjectFields;
    struct DeviceFields;

    QWidget* buildStandardGroup();
    QWidget* buildTimeZoneGroup();
    QWidget* buildObjectTabs();
    QWidget* buildObjectPage(const RAS_OBJECT& object, ObjectFields& fields);
    QWidget* buildDevicePage(const QStringList& values, DeviceFields& fields);
    QWidget* buildInformationGroup();
    QList<RAS_OBJECT> recordObjects() const;
    QString beginTimeIn(int hours) const;

    QComboBox* m_standard;
    QLineEdit* m_revision;
    QComboBox* m_format;
    QLabel* m_beforeLabel;
    QLabel* m_beforeTime;
    QLabel* m_afterLabel;
    QLabel* m_afterTime;
    QSpinBox* m_timeZone;
    QTabWidget* m_objectTabs;
    QList<RAS_OBJECT> m_recordObjects;
    QVector<ObjectFields> m_objectFields;
};
