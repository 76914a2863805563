#include "OscillogramLoaderFactory.h"

#include "Loaders/ClcLoader.h"
#include "Loaders/ComtradeLoader.h"
#include "Loaders/Wv2Loader.h"
#include "Model/OscillogramLoader.h"

#include <QFileInfo>

namespace {
struct LoaderRow
{
    const char* suffix;
    OscillogramLoader* (*create)(const QString& filename);
    // A check of the file itself beyond its suffix; null where the suffix is enough.
    bool (*accepts)(const QString& filename);
};

template<typename Loader> OscillogramLoader* makeLoader(const QString& filename)
{
    return new Loader(filename, nullptr);
}

// One row per format the library reads, in the order of the suffix list.
const LoaderRow loaderRows[] = {
    { "wv2", &makeLoader<Wv2Loader>, nullptr },
    { "cfg", &makeLoader<ComtradeLoader>, nullptr },
    // A zip counts as a record only when it holds a COMTRADE set.
    { "zip", &makeLoader<ComtradeLoader>, &ComtradeLoader::isComtrade },
    { "clc", &makeLoader<ClcLoader>, nullptr },
    // The single-file form of COMTRADE is read only in compatible reading.
    { "cff", &makeLoader<ComtradeLoader>, &ComtradeLoader::readsSingleFile },
};

const LoaderRow* rowFor(const QString& filename)
{
    const QString suffix = QFileInfo(filename).suffix().toLower();
    for (const LoaderRow& row : loaderRows) {
        if (suffix == QLatin1String(row.suffix))
            return &row;
    }
    return nullptr;
}
} // namespace

bool OscillogramLoaderFactory::isWave(const QString& filename)
{
    const LoaderRow* row = rowFor(filename);
    if (!row)
        return false;
    return !row->accepts || row->accepts(filename);
}

OscillogramLoader* OscillogramLoaderFactory::createLoaderForFile(const QString& filename)
{
    const LoaderRow* row = rowFor(filename);
    if (!row || (row->accepts == &ComtradeLoader::readsSingleFile && !row->accepts(filename)))
        return nullptr;
    return row->create(filename);
}
