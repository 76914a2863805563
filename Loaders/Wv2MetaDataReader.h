#pragma once

#include "Loaders/Wv2MetaData.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QSharedPointer>

class QIODevice;

// The first pass over a .wv2 file: walks the tag chain and keeps every description, passing
// over the frames of the data blocks. Failures raise a LoadFailureException.
class KORVANE_EXPORT Wv2MetaDataReader
{
    Q_DECLARE_TR_FUNCTIONS(Wv2MetaDataReader)
public:
    void setIoDevice(QIODevice* device) { m_device = device; }
    // Without a device the meta-data is emptied; otherwise it is read afresh from the device's
    // present position.
    void read();
    QSharedPointer<Wv2MetaData> metaData() const { return m_metaData; }

private:
    void prepareToRead();
    void readMetaData();
    void readSource(const WAVE_TAG& tag);
    void readFormat(const WAVE_TAG& tag);
    void readData(const WAVE_TAG& tag);
    void readAnalogChannel(const WAVE_TAG& tag);
    void readDigitalChannel(const WAVE_TAG& tag);
    void readLine(const WAVE_TAG& tag);
    void readEmergency(const WAVE_TAG& tag);
    void skipUnknownTag(const WAVE_TAG& tag);
    // The meta-data pass reports no progress of its own.
    void updateProgress(int) { }

    // Reads the fixed part of a tag body and passes over what the tag holds beyond it.
    template<typename Body> Body readBody(const WAVE_TAG& tag);
    QByteArray readBytes(qint64 count, const QString& failureText);
    void skipBytes(qint64 count, const QString& failureText);

    QIODevice* m_device = nullptr;
    QDataStream m_stream;
    QSharedPointer<Wv2MetaData> m_metaData;
};
