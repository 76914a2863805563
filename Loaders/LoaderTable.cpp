// The formats the library reads, handed to OscillogramLoaderFactory of the record core when the
// library is loaded: the record core may not know its readers, the readers know the record core.

#include "Loaders/ClcLoader.h"
#include "Loaders/ComtradeLoader.h"
#include "Loaders/Wv2Loader.h"
#include "Model/OscillogramLoaderFactory.h"

namespace {
template<typename Loader> OscillogramLoader* makeLoader(const QString& filename)
{
    return new Loader(filename, nullptr);
}

struct LoaderTable
{
    LoaderTable()
    {
        OscillogramLoaderFactory::setLoaderRows({
            { QStringLiteral("wv2"), &makeLoader<Wv2Loader>, nullptr },
            { QStringLiteral("cfg"), &makeLoader<ComtradeLoader>, nullptr },
            // A zip counts as a record only when it holds a COMTRADE set.
            { QStringLiteral("zip"), &makeLoader<ComtradeLoader>, &ComtradeLoader::isComtrade },
            { QStringLiteral("clc"), &makeLoader<ClcLoader>, nullptr },
        });
    }
};

// Runs as the shared library is loaded, before a host calls into it.
const LoaderTable loaderTable;
} // namespace
