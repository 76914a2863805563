#pragma once

#include <QByteArray>
#include <QVector>
#include <QtGlobal>

namespace KorvaneTest {

// Writes .clc archives byte by byte: a 278-byte header, 262-byte channel records, then rows of
// 4 passed-over bytes and three doubles a channel.
class ClcFileWriter
{
public:
    ClcFileWriter& header(const QByteArray& registrator, const QByteArray& arcName, qint32 time,
        quint32 moddate, quint8 lineFlag, qint32 channelCount, const QByteArray& signature = "CLC_2");
    ClcFileWriter& channel(const QByteArray& name, quint16 type, qint32 power);
    // The values in channel order, three a channel.
    ClcFileWriter& row(const QVector<double>& values, quint32 prefix = 0xDEADBEEF);
    // Drops the last bytes written, as a file cut short would.
    ClcFileWriter& cut(int count);

    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace KorvaneTest
