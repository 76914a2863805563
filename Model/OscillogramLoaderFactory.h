#pragma once

#include "korvane_export.h"

#include <QString>
#include <QVector>

class OscillogramLoader;

// Chooses a reader by the lower-cased suffix of a file name. The record core knows no reader: the
// loaders' layer fills the table of formats when the library is loaded (Loaders/LoaderTable.cpp).
class KORVANE_EXPORT OscillogramLoaderFactory
{
public:
    // One format the library reads.
    struct LoaderRow
    {
        // Lower-case suffix without the dot.
        QString suffix;
        // A new loader of the file with no parent.
        OscillogramLoader* (*create)(const QString& filename) = nullptr;
        // A check of the file itself beyond its suffix; null where the suffix is enough.
        bool (*accepts)(const QString& filename) = nullptr;
    };

    // Replaces the table; the first row of a suffix wins.
    static void setLoaderRows(const QVector<LoaderRow>& rows);
    static QVector<LoaderRow> loaderRows();

    // True for a suffix the library reads; a .zip must also hold a COMTRADE set. Opens no other file.
    static bool isWave(const QString& filename);
    // A new loader with no parent, or null for a suffix the library does not read.
    static OscillogramLoader* createLoaderForFile(const QString& filename);
};
