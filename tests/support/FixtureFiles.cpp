#include "FixtureFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace KorvaneTest {

bool writeFile(const QString& path, const QByteArray& bytes)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

QString samplesDir()
{
    const QString dir = qEnvironmentVariable("KORVANE_SAMPLES");
    if (dir.isEmpty() || !QFileInfo(dir).isDir())
        return {};
    return QDir(dir).absolutePath();
}

} // namespace KorvaneTest
