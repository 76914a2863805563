#include "Savers/OscSaverFactory.h"

#include "Savers/ComtradeSaver.h"
#include "Savers/CsvSaver.h"

#include <QDateTime>
#include <QFileInfo>

namespace {
const QString csvSuffix = QStringLiteral("csv");
} // namespace

QStringList OscSaverFactory::savableSuffixes()
{
    return { QStringLiteral("zip"), csvSuffix, QStringLiteral("gdf") };
}

OscSaverFactory::SaverMaker& OscSaverFactory::csvSaverMaker()
{
    static SaverMaker maker = [](const QString& path, QSharedPointer<Oscillogram> oscillogram) -> WaveSaver* {
        return new CsvSaver(path, std::move(oscillogram), false, false);
    };
    return maker;
}

void OscSaverFactory::setCsvSaverMaker(SaverMaker maker)
{
    csvSaverMaker() = std::move(maker);
}

bool OscSaverFactory::canSave(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == csvSuffix && !csvSaverMaker())
        return false;
    return savableSuffixes().contains(suffix, Qt::CaseSensitive);
}

WaveSaver* OscSaverFactory::createSaverForOsc(const QString& path, QSharedPointer<Oscillogram> oscillogram)
{
    if (QFileInfo(path).suffix().toLower() == csvSuffix)
        return csvSaverMaker() ? csvSaverMaker()(path, oscillogram) : nullptr;
    auto* saver = new ComtradeSaver(path, oscillogram, false, false);
    saver->setNewTz(getTz());
    return saver;
}

int OscSaverFactory::getTz()
{
    return tzHoursFromOffset(QDateTime::currentDateTime().offsetFromUtc());
}

int OscSaverFactory::tzHoursFromOffset(int offsetSeconds)
{
    int hours = offsetSeconds / 3600;
    if (hours < -12)
        hours += 12;
    else if (hours >= 13)
        hours -= 12;
    return hours;
}
