#pragma once

#include "Loaders/ComtradeLoader.h"

#include <QStringList>

// The batch hosts read COMTRADE in compatible mode unless "--strict" stands among the arguments;
// the option is taken out of the list wherever it stands, and the rest is returned.
inline QStringList applyReadingOption(QStringList arguments)
{
    const bool strict = arguments.removeAll(QStringLiteral("--strict")) > 0;
    ComtradeLoader::setDefaultCompatible(!strict);
    return arguments;
}
