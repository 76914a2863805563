#pragma once

#include <QByteArray>
#include <QtEndian>

#include <cstring>

namespace KorvaneTest {

// Appends little-endian numbers and fixed-width text fields, as binary record formats lay them out.
class ByteWriter
{
public:
    template<typename T> ByteWriter& number(T value)
    {
        char raw[sizeof(T)];
        qToLittleEndian<T>(value, raw);
        m_bytes.append(raw, int(sizeof(T)));
        return *this;
    }

    ByteWriter& real(double value)
    {
        quint64 bits;
        std::memcpy(&bits, &value, sizeof bits);
        return number<quint64>(bits);
    }

    // The text cut or padded with NUL bytes to the width; a text of the full width has no NUL.
    ByteWriter& text(const QByteArray& value, int width)
    {
        m_bytes.append(value.left(width));
        return zeros(width - qMin(width, value.size()));
    }

    ByteWriter& zeros(int count)
    {
        m_bytes.append(QByteArray(qMax(0, count), '\0'));
        return *this;
    }

    ByteWriter& bytes(const QByteArray& value)
    {
        m_bytes.append(value);
        return *this;
    }

    int size() const { return m_bytes.size(); }
    const QByteArray& result() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace KorvaneTest
