#pragma once

// Readings the benchmarks share: processor time of the calling thread and the resident memory of
// the process, with its peak.

#include <QByteArray>
#include <QFile>
#include <QList>

#include <cstring>
#include <ctime>

namespace Bench {

inline double threadSeconds()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Kilobytes of a line of /proc/self/status, such as "VmRSS:" or "VmHWM:".
inline long statusKilobytes(const char* key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(key))
            return line.mid(int(std::strlen(key))).trimmed().split(' ').value(0).toLong();
    }
    return 0;
}

// Lets the peak of resident memory start again from the present.
inline void resetPeakMemory()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

} // namespace Bench
