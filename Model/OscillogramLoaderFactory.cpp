#include "OscillogramLoaderFactory.h"

#include "Model/OscillogramLoader.h"

#include <QFileInfo>

namespace {
using LoaderRow = OscillogramLoaderFactory::LoaderRow;

// A function's own static, so that the loaders' layer may fill it from its static initialisers
// whatever the order in which the objects of the library start.
QVector<LoaderRow>& table()
{
    static QVector<LoaderRow> rows;
    return rows;
}

const LoaderRow* rowFor(const QString& filename)
{
    const QString suffix = QFileInfo(filename).suffix().toLower();
    for (const LoaderRow& row : table()) {
        if (suffix == row.suffix)
            return &row;
    }
    return nullptr;
}
} // namespace

void OscillogramLoaderFactory::setLoaderRows(const QVector<LoaderRow>& rows)
{
    table() = rows;
}

QVector<OscillogramLoaderFactory::LoaderRow> OscillogramLoaderFactory::loaderRows()
{
    return table();
}

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
    return row ? row->create(filename) : nullptr;
}
