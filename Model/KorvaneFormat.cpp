#include "KorvaneFormat.h"

#include <QRegularExpression>

QString addThousandSeparators(unsigned long long value)
{
    QString text = QString::number(value);
    if (value <= 10000)
        return text;
    for (int position = text.size() - 3; position > 0; position -= 3)
        text.insert(position, QLatin1Char(' '));
    return text;
}

namespace Korvane {
void humanifyGitVersion(QString& version)
{
    version.remove(QStringLiteral("korvane_v"));
    static const QRegularExpression pattern(QStringLiteral("^([\\d\\.]+)_build(\\d+)$"));
    const QRegularExpressionMatch match = pattern.match(version);
    if (match.hasMatch())
        version = QStringLiteral("%1 build %2").arg(match.captured(1), match.captured(2));
}
} // namespace Korvane
