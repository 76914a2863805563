#include "ClcFileWriter.h"

#include "ByteWriter.h"

namespace KorvaneTest {

ClcFileWriter& ClcFileWriter::header(const QByteArray& registrator, const QByteArray& arcName, qint32 time,
    quint32 moddate, quint8 lineFlag, qint32 channelCount, const QByteArray& signature)
{
    m_bytes.append(ByteWriter()
                       .text(signature, 9) // 0
                       .text(registrator, 128) // 9
                       .text(arcName, 128) // 137
                       .number<qint32>(time) // 265
                       .number<quint32>(moddate) // 269
                       .number<quint8>(lineFlag) // 273
                       .number<qint32>(channelCount) // 274
                       .result());
    return *this;
}

ClcFileWriter& ClcFileWriter::channel(const QByteArray& name, quint16 type, qint32 power)
{
    m_bytes.append(ByteWriter().text(name, 256).number<quint16>(type).number<qint32>(power).result());
    return *this;
}

ClcFileWriter& ClcFileWriter::row(const QVector<double>& values, quint32 prefix)
{
    ByteWriter writer;
    writer.number<quint32>(prefix);
    for (double value : values)
        writer.real(value);
    m_bytes.append(writer.result());
    return *this;
}

ClcFileWriter& ClcFileWriter::cut(int count)
{
    m_bytes.chop(count);
    return *this;
}

} // namespace KorvaneTest
