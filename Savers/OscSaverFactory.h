#pragma once

#include "Model/Oscillogram.h"
#include "korvane_export.h"

#include <QSharedPointer>
#include <QStringList>

#include <functional>

class WaveSaver;

// Picks the saver of a record by the lower-cased suffix of the output file.
class KORVANE_EXPORT OscSaverFactory
{
public:
    using SaverMaker
        = std::function<WaveSaver*(const QString& path, QSharedPointer<Oscillogram> oscillogram)>;

    // "zip", "csv", "gdf", in this order. A suffix whose saver isn't there is refused all the same.
    static QStringList savableSuffixes();
    static bool canSave(const QString& path);
    // "csv" gives a CsvSaver; every other suffix a ComtradeSaver set to the system's time zone.
    // The caller owns the result, which is null for "csv" once the CSV maker has been removed.
    static WaveSaver* createSaverForOsc(const QString& path, QSharedPointer<Oscillogram> oscillogram);
    // Whole hours of the system time zone from UTC now, folded into -12..12.
    static int getTz();
    static int tzHoursFromOffset(int offsetSeconds);

    // The maker of the CSV saver, a CsvSaver from the start; a null maker takes it away.
    static void setCsvSaverMaker(SaverMaker maker);

private:
    OscSaverFactory() = default;
    static SaverMaker& csvSaverMaker();
};
