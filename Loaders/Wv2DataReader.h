#pragma once

#include "Loaders/Wv2MetaData.h"
#include "Model/OscillogramData.h"

#include <QCoreApplication>
#include <QSharedPointer>

#include <functional>
#include <vector>

class QIODevice;

// The second pass over a .wv2 file: decodes the frames of the data blocks into the store with
// the channels' offsets and masks that the first pass learned. Failures raise a
// LoadFailureException.
class KORVANE_EXPORT Wv2DataReader
{
    Q_DECLARE_TR_FUNCTIONS(Wv2DataReader)
public:
    // Told the count of bytes read so far after each tag; it may throw to stop the reading.
    using ProgressCallback = std::function<void(qint64 bytesRead)>;

    Wv2DataReader(QIODevice* device, QSharedPointer<const Wv2MetaData> metaData);
    void setProgressCallback(ProgressCallback callback) { m_progress = std::move(callback); }
    // Reads from the device's present position, which must be the start of the file.
    QSharedPointer<OscillogramData> read();

private:
    // Where a channel's value lies in a frame, and which of its bits count.
    struct ValuePlace
    {
        int offset;
        quint16 mask;
    };

    void checkStoreFitsTheFile() const;
    [[noreturn]] static void failDamaged();
    void readTag();
    void decodeBlock(const WAVE_TAG& tag);
    void decodeFrames(const QByteArray& frames, quint32 frameCount);
    template<bool CheckBounds> void decodeFrames(const QByteArray& frames, quint32 frameCount);
    QByteArray readBytes(qint64 count, const char* code);
    void skipBytes(qint64 count);
    void consumed(qint64 count);

    QIODevice* m_device;
    QSharedPointer<const Wv2MetaData> m_metaData;
    ProgressCallback m_progress;
    OscillogramDataBuilder m_builder;
    std::vector<ValuePlace> m_analogPlaces;
    std::vector<ValuePlace> m_digitalPlaces;
    int m_frameSize = 0;
    bool m_placesWithinFrame = false;
    qint64 m_position = 0;
    qint64 m_framesRead = 0;
    qint64 m_totalFrames = 0;
    QByteArray m_bits;
};
