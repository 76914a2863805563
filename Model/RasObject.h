#pragma once

#include "Model/Line.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

// A recording device of a power object of the .inf, with the lines it observes.
struct RAS_RECORDING_DEVICE
{
    QString recordingDeviceId;
    QString vendor;
    QString model;
    QString serialNumber;
    QString hardwareRevision;
    QString softwareRevision;
    QString comtradeFileName;
    QList<QSharedPointer<Line>> lines;
};

// A power object of the .inf: where the record was made.
struct RAS_OBJECT
{
    QString territory;
    QString companyName;
    QString stationName;
    QList<RAS_RECORDING_DEVICE> devices;
};
