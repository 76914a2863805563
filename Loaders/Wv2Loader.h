#pragma once

#include "Loaders/Wv2MetaData.h"
#include "Model/OscillogramLoader.h"
#include "Model/Wv2Oscillogram.h"

#include <QSharedPointer>

#include <memory>

class QBuffer;
class QIODevice;

// Reads a .wv2 record file, from disk or from a buffer taken out of an archive, in two passes:
// the descriptions first, then the frames with what the first pass learned.
class KORVANE_EXPORT Wv2Loader : public OscillogramLoader
{
    Q_OBJECT
public:
    Wv2Loader(const QString& file, QObject* parent);
    // The buffer stays the caller's; it must live until the load has ended.
    Wv2Loader(const QString& file, QBuffer* buffer, QObject* parent);

    QSharedPointer<Wv2MetaData> readMetaData();
    QSharedPointer<OscillogramData> readOscillogramData();

protected:
    LoaderResult work() override;

private:
    enum SourceKind { FileSource = 0, BufferSource = 1 };

    void readMeta();
    void readData();
    void setLines();
    void generateHeader();
    void generateRAS();

    void setOscillogramParametersFromMetaData();
    void setOscillogramInfoFromMetaData();
    void setAnalogChannelsFromMetaData();
    void setDigitalChannelsFromMetaData();
    void setLinesFromMetaData();
    void setEmergenciesFromMetaData();

    using TaskBase::updateProgress;
    void updateProgressAndCheckCancelled(const QString& stage, double percent);
    // Reports the bytes read so far as a share of the file.
    void updateProgress();

    // The device to read from, at its start; a file is opened afresh for each pass.
    std::unique_ptr<QIODevice> openFile() const;
    QIODevice* openSource(std::unique_ptr<QIODevice>& owned);

    QBuffer* m_buffer = nullptr;
    SourceKind m_sourceKind = FileSource;
    QSharedPointer<Wv2MetaData> m_metaData;
    QSharedPointer<Wv2Oscillogram> m_oscillogram;
    qint64 m_bytesRead = 0;
    qint64 m_fileSize = 0;
    int m_lastPermille = -1;
    QString m_stage;
    const QString m_configurationStage;
    const QString m_dataStage;
    const QString m_displayStage;
};
