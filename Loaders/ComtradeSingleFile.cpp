#include "ComtradeSingleFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace ComtradeSingleFile {

namespace {
const QRegularExpression& headingPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("^-{3}\\s*file\\s+type\\s*:\\s*([A-Za-z]+)(?:\\s+([A-Za-z0-9]+))?\\s*(?::\\s*(\\d+))?"
                       "\\s*-{3}\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

struct Heading
{
    QString type;
    bool binary = false;
    qint64 byteCount = -1;
};

bool parseHeading(const QByteArray& line, Heading& heading)
{
    if (!line.startsWith("---"))
        return false;
    const QRegularExpressionMatch match = headingPattern().match(QString::fromLatin1(line));
    if (!match.hasMatch())
        return false;
    heading.type = match.captured(1).toUpper();
    heading.binary = match.captured(2).compare(QLatin1String("ASCII"), Qt::CaseInsensitive) != 0
        && !match.captured(2).isEmpty();
    heading.byteCount = match.captured(3).isEmpty() ? -1 : match.captured(3).toLongLong();
    return true;
}

// The line that begins at start, without its end, and the offset after its end.
QByteArray lineAt(const QByteArray& contents, int start, int& next)
{
    int end = contents.indexOf('\n', start);
    next = end < 0 ? contents.size() : end + 1;
    if (end < 0)
        end = contents.size();
    QByteArray line = contents.mid(start, end - start);
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}
} // namespace

QList<Section> sections(const QByteArray& contents)
{
    QList<Section> found;
    int position = 0;
    while (position < contents.size()) {
        int next = 0;
        const QByteArray line = lineAt(contents, position, next);
        Heading heading;
        if (parseHeading(line, heading)) {
            found.append({ heading.type, {} });
            if (heading.binary && heading.byteCount >= 0) {
                // Binary data may hold any bytes, headings included: it is taken by its count.
                const qint64 count = qMin<qint64>(heading.byteCount, contents.size() - next);
                found.last().bytes = contents.mid(next, int(count));
                position = next + int(count);
                continue;
            }
        } else if (!found.isEmpty()) {
            found.last().bytes.append(contents.constData() + position, next - position);
        }
        position = next;
    }
    return found;
}

bool splitInto(const QByteArray& contents, const QString& folder)
{
    const QList<Section> parts = sections(contents);
    bool hasConfig = false;
    bool hasData = false;
    for (const Section& part : parts) {
        hasConfig = hasConfig || part.type == QLatin1String("CFG");
        hasData = hasData || part.type == QLatin1String("DAT");
    }
    if (!hasConfig || !hasData)
        return false;
    for (const Section& part : parts) {
        QFile file(QDir(folder).filePath(QStringLiteral("Wave.") + part.type.toLower()));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)
            || file.write(part.bytes) != part.bytes.size())
            return false;
    }
    return true;
}

} // namespace ComtradeSingleFile
