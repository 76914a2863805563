// The files of the set in the temporary folder, and the archive that replaces the target.

#include "Loaders/ZipArchive.h"
#include "Savers/ComtradeSaver.h"

#include <QFile>
#include <QTextCodec>

#include <algorithm>

namespace {
QString decoded(const std::string& localPath)
{
    return QFile::decodeName(QByteArray::fromStdString(localPath));
}
} // namespace

int ComtradeSaver::writeComtradeBasics()
{
    // An empty range states sample 0 rather than a wrapped-around number.
    const unsigned lastSample = unsigned(std::max(0, sampleEnd()));
    if (m_comtrade.writeCfg(m_analogs, m_digitals, lastSample, m_cfgPath, timeBegin().toUSecsSinceEpoch(),
            timeTrigger().toUSecsSinceEpoch())
        != 0)
        return -1;
    // A record without a saved view state gets no section for it.
    const CMR_USER_SETTINGS* settings = m_userSettings.version != 0 ? &m_userSettings : nullptr;
    if (m_comtrade.writeInf(
            m_analogs, m_digitals, m_faults, m_rasDescription, m_infPath, m_mergedWaves, settings)
        != 0)
        return -1;
    return writeHeader();
}

// The generated header's fixed texts are UTF-8, while the loader reads the .HDR in the encoding
// of the .CFG. So the header is made wholly in UTF-8 and then put into the saver's encoding, and
// the set reads back in one encoding.
int ComtradeSaver::writeHeader() const
{
    if (!m_headerData.isEmpty())
        return m_comtrade.writeRawHdr(m_hdrPath, encode(m_headerData));

    COMTRADE utf8 = m_comtrade;
    utf8.setStationName(oscillogram()->stationName().toUtf8().toStdString());
    utf8.setDeviceName(oscillogram()->deviceName().toUtf8().toStdString());
    if (utf8.writeHdr(m_hdrPath, timeBegin().toUSecsSinceEpoch(), {}, m_additionalHeaderInfo) != 0)
        return -1;
    if (!codec() || codec()->mibEnum() == QTextCodec::codecForName("UTF-8")->mibEnum())
        return 0;
    QFile file(decoded(m_hdrPath));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QString text = QString::fromUtf8(file.readAll());
    file.close();
    return m_comtrade.writeRawHdr(m_hdrPath, encode(text));
}

int ComtradeSaver::zipFiles()
{
    // ZipArchive stores the names in CP866, the code page of zip names, whatever the codec.
    const QString base = fileInfo().completeBaseName();
    {
        ZipArchive archive(decoded(m_zipPath));
        archive.setCompressionLevel(zipLevel);
        if (!archive.open(ZipArchive::WriteOnly))
            return -1;
        archive.addFile(base + QStringLiteral(".INF"), decoded(m_infPath));
        archive.addFile(base + QStringLiteral(".HDR"), decoded(m_hdrPath));
        archive.addFile(base + QStringLiteral(".CFG"), decoded(m_cfgPath));
        const auto samplesMethod = m_storeSamples ? ZipArchive::Method::Store : ZipArchive::Method::Deflate;
        archive.addFile(base + QStringLiteral(".DAT"), decoded(m_datPath), samplesMethod);
    }
    const QString target = fileInfo().absoluteFilePath();
    if (QFile::exists(target))
        QFile::remove(target);
    // The archive is finished and no longer needed here: moving it costs nothing where the
    // temporary folder and the target share a file system, and falls back to a copy elsewhere.
    return QFile::rename(decoded(m_zipPath), target) ? 0 : -1;
}
