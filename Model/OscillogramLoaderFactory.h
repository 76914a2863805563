#pragma once

#include "korvane_export.h"

#include <QString>

class OscillogramLoader;

// Chooses a reader by the lower-cased suffix of a file name.
class KORVANE_EXPORT OscillogramLoaderFactory
{
public:
    // True for a suffix the library reads; a .zip must also hold a COMTRADE set. Opens no other file.
    static bool isWave(const QString& filename);
    // A new loader with no parent, or null for a suffix the library does not read.
    static OscillogramLoader* createLoaderForFile(const QString& filename);
};
