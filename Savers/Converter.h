#pragma once

#include "korvane_export.h"

#include <QCoreApplication>
#include <QStringList>

// The entry of a batch host: a record converted from one file into another, without a window,
// on the calling thread. Conversions keep all channels and the whole time span and write UTF-8.
class KORVANE_EXPORT Converter
{
    Q_DECLARE_TR_FUNCTIONS(Converter)
public:
    // args: the source path and the destination path. True when the destination was written;
    // otherwise error tells why.
    static bool convertOsc(const QStringList& args, QString& error);
    // As above; with storeSamples a COMTRADE archive keeps its .DAT uncompressed: faster to write,
    // several times larger.
    static bool convertOsc(const QStringList& args, QString& error, bool storeSamples);
    static int getTz();

private:
    Converter() = default;
};
