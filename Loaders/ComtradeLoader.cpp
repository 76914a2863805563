#include "ComtradeLoader.h"

#include "Loaders/EncodingDetector.h"
#include "Loaders/ZipArchive.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextCodec>

namespace {
bool nameEndsWith(const QFileInfo& entry, const char* ending)
{
    return entry.fileName().endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

// The first entry in name order whose name ends so; the test is on the name, not the suffix.
const QFileInfo* firstEndingWith(const QFileInfoList& entries, const char* ending)
{
    for (const QFileInfo& entry : entries) {
        if (nameEndsWith(entry, ending))
            return &entry;
    }
    return nullptr;
}

QStringList namesBesideConfig(const QString& cfgName)
{
    return QFileInfo(cfgName).absoluteDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

QStringList namesInArchive(const QString& zipName)
{
    ZipArchive archive(zipName);
    if (!archive.open(ZipArchive::ReadOnly))
        return {};
    return archive.entryNames();
}
} // namespace

ComtradeLoader::ComtradeLoader(const QString& filename, QObject* parent)
    : OscillogramLoader(filename, parent)
    , m_timeCodeRegExp(QStringLiteral("^([+-]?\\d+)"))
    , m_codec(QTextCodec::codecForName("CP1251"))
{
}

bool ComtradeLoader::isComtrade(const QString& filename)
{
    const QString suffix = QFileInfo(filename).suffix().toLower();
    QStringList names;
    if (suffix == QLatin1String("zip"))
        names = namesInArchive(filename);
    else if (suffix == QLatin1String("cfg"))
        names = namesBesideConfig(filename);
    if (names.isEmpty())
        return false;
    QStringList suffixes;
    for (const QString& name : qAsConst(names))
        suffixes.append(QFileInfo(name).suffix().toLower());
    return suffixes.contains(QLatin1String("cfg")) && suffixes.contains(QLatin1String("dat"));
}

LoaderResult ComtradeLoader::work()
{
    m_oscillogram = QSharedPointer<ComtradeOscillogram>::create();
    m_oscillogram->setFilename(filename());
    const QString suffix = QFileInfo(filename()).suffix().toLower();
    if (suffix == QLatin1String("cfg"))
        loadUnzipped(filename());
    else if (suffix == QLatin1String("zip"))
        loadZipped(filename());
    else
        throw new LoadFailureException(QStringLiteral("FileFormatException"));
    return LoaderResult { m_userSettings, m_oscillogram };
}

void ComtradeLoader::loadUnzipped(const QString& cfgName)
{
    const QFileInfo cfgInfo(cfgName);
    // Every file that begins with the base name takes part, not only its exact namesakes.
    const QFileInfoList entries
        = cfgInfo.absoluteDir().entryInfoList({ cfgInfo.completeBaseName() + QLatin1Char('*') },
            QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);

    QStringList textFiles;
    for (const QFileInfo& entry : entries) {
        if (!nameEndsWith(entry, "dat"))
            textFiles.append(entry.absoluteFilePath());
    }
    if (QTextCodec* detected = EncodingDetector::codecForFiles(textFiles))
        m_codec = detected;

    const QFileInfo* config = firstEndingWith(entries, "cfg");
    if (config)
        readConfigFile(config->absoluteFilePath());
    const QFileInfo* data = firstEndingWith(entries, "dat");
    if (!config || !data)
        throw new LoadFailureException(tr("Не удалось открыть осциллограмму."));
    readDataFile(data->absoluteFilePath());

    if (const QFileInfo* header = firstEndingWith(entries, "hdr"))
        readHeaderFile(header->absoluteFilePath());

    // The empty objects are made for every entry that sorts before the .inf; the .inf then
    // replaces them, and without one they stay.
    for (const QFileInfo& entry : entries) {
        if (nameEndsWith(entry, "inf")) {
            readInfoFile(entry.absoluteFilePath());
            break;
        }
        createEmptyObjects();
    }
}

void ComtradeLoader::loadZipped(const QString& path)
{
    const QString stage = tr("Извлечение архива");
    QTemporaryDir dir;
    if (!dir.isValid())
        throw new LoadFailureException(tr("Невозможно распаковать архив"));
    updateProgress(stage, 0.0);
    unzip(path, dir.path());
    updateProgress(stage, 100.0);
    QDirIterator it(dir.path(), { QStringLiteral("*.cfg"), QStringLiteral("*.CFG") }, QDir::Files,
        QDirIterator::Subdirectories);
    if (!it.hasNext())
        throw new LoadFailureException(tr("Zip архив не содержит файлов Comtrade"));
    loadUnzipped(it.next());
}

void ComtradeLoader::unzip(const QString& archivePath, const QString& destination)
{
    ZipArchive archive(archivePath);
    // An archive that will not open is reported by the caller as one without a set.
    if (!archive.open(ZipArchive::ReadOnly))
        return;
    // The caller's temporary folder goes with the exception, and what was extracted with it.
    if (!archive.extractTo(destination) && archive.tooLarge())
        throw new LoadFailureException(tr("Архив содержит файл слишком большого размера"));
}
