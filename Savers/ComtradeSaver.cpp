#include "Savers/ComtradeSaver.h"

#include "Model/ComtradeOscillogram.h"
#include "Model/SimpleOscillogram.h"

#include <QDir>
#include <QFile>
#include <QTextCodec>

#include <algorithm>

namespace {
// The bytes of one sample as the block budget counts them: a byte for a discrete signal and
// four for an analogue one, over all channels of the record, selected or not.
int bytesOfSample(const Oscillogram& record)
{
    return record.countOfDigitalChannels() + 4 * record.countOfAnalogChannels();
}
} // namespace

ComtradeSaver::ComtradeSaver(const QString& path, QSharedPointer<Oscillogram> oscillogram,
    bool onlySelectedChannels, bool useTimeRange)
    : WaveSaver(path, std::move(oscillogram), onlySelectedChannels, useTimeRange)
    , m_zipPath(QFile::encodeName(tempFilePath(m_zipName)).toStdString())
    , m_cfgPath(QFile::encodeName(tempFilePath(QStringLiteral("file.CFG"))).toStdString())
    , m_datPath(QFile::encodeName(tempFilePath(QStringLiteral("file.DAT"))).toStdString())
    , m_infPath(QFile::encodeName(tempFilePath(QStringLiteral("file.INF"))).toStdString())
    , m_hdrPath(QFile::encodeName(tempFilePath(QStringLiteral("file.HDR"))).toStdString())
{
    if (const auto simple = this->oscillogram().dynamicCast<SimpleOscillogram>())
        m_rasObjects = simple->rasObjects();
    const int bytes = bytesOfSample(*this->oscillogram());
    const int samplesOfBlock = bytes > 0 ? std::max(1, blockBudgetBytes / bytes) : blockBudgetBytes;
    m_blockCount = std::max(1, countSamples() / samplesOfBlock);
}

ComtradeSaver::~ComtradeSaver() = default;

QString ComtradeSaver::tempFilePath(const QString& name) const
{
    return QDir(m_tempDir.path()).filePath(name);
}

std::string ComtradeSaver::encode(const QString& text) const
{
    // An unknown codec name leaves the saver without a codec; the texts then go out as UTF-8.
    const QByteArray bytes = codec() ? codec()->fromUnicode(text) : text.toUtf8();
    return bytes.toStdString();
}

void ComtradeSaver::setNewTz(int hours)
{
    m_localCodeHours = hours;
    m_timeCodeHours = isOscTimeSetToUtc() ? 0 : hours;
}

bool ComtradeSaver::isOscTimeSetToUtc() const
{
    const auto comtrade = oscillogram().dynamicCast<ComtradeOscillogram>();
    return comtrade && comtrade->isSetToUtc();
}

void ComtradeSaver::setAdditionalHeaderInfo(const QStringList& lines)
{
    m_additionalHeaderInfo.clear();
    for (const QString& line : lines) {
        // Back through the plain conversion from bytes, which stops at a NUL: texts that the
        // codec turned into something other than UTF-8 don't come back whole.
        const std::string bytes = encode(line);
        m_additionalHeaderInfo.push_back(QString::fromUtf8(bytes.c_str()).toUtf8().toStdString());
    }
}

QString ComtradeSaver::getPhase(int phaseNumber) const
{
    switch (phaseNumber) {
    case 1:
        return QStringLiteral("A");
    case 2:
        return QStringLiteral("B");
    case 3:
        return QStringLiteral("C");
    default:
        return QString();
    }
}

int ComtradeSaver::sampleEnd() const
{
    if (useTimeRange())
        return timeRange().finishSampleNumber() - timeRange().startSampleNumber() - 1;
    return oscillogram()->countOfSamples() - 1;
}

float ComtradeSaver::adcDelayToMicroSec(double delay) const
{
    return float(delay * 1000000.0 / oscillogram()->sampleRate());
}

void ComtradeSaver::saveOsc()
{
    const QString saving = tr("Сохранение...");
    setOk(false);
    emit updateProgress(saving, 0.0);
    if (initComtradeBasics() != 0) {
        emit cancelSave();
        return;
    }
    emit updateProgress(saving, 0.05);
    if (writeComtradeBasics() != 0) {
        emit writeError();
        return;
    }
    emit updateProgress(saving, 0.1);
    for (int block = 0; block < m_blockCount; ++block) {
        if (initComtradeData(block) != 0) {
            emit cancelSave();
            return;
        }
        if (writeComtradeData() != 0) {
            emit writeError();
            return;
        }
        emit updateProgress(saving, (block + 1) * 0.8 / m_blockCount + 0.1);
    }
    m_dataBuffer.clear();
    if (writeComtradeBasics() != 0) {
        emit writeError();
        return;
    }
    const QString packing = tr("Архивация...");
    emit updateProgress(packing, 0.9);
    if (zipFiles() != 0) {
        QFile::remove(fileInfo().absoluteFilePath());
        emit writeError();
        return;
    }
    setOk(true);
    emit updateProgress(packing, 1.0);
    emit finishProgress();
}
