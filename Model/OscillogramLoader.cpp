#include "OscillogramLoader.h"

OscillogramLoader::OscillogramLoader(const QString& filename, QObject* parent)
    : Task<LoaderResult>(parent), m_filename(filename)
{
    setAutoDelete(false);
}
