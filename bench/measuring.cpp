#include "bench/measuring.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

double readClock(clockid_t clock)
{
    constexpr double MicrosecondsPerSecond = 1e6;
    constexpr double NanosecondsPerMicrosecond = 1e3;
    timespec time{};
    if (clock_gettime(clock, &time) != 0)
        return 0.0;
    return double(time.tv_sec) * MicrosecondsPerSecond + double(time.tv_nsec) / NanosecondsPerMicrosecond;
}

} // namespace

double wallTime()
{
    return readClock(CLOCK_MONOTONIC);
}

double threadTime()
{
    return readClock(CLOCK_THREAD_CPUTIME_ID);
}

double processTime(qint64 pid)
{
    clockid_t clock{};
    return clock_getcpuclockid(static_cast<pid_t>(pid), &clock) == 0 ? readClock(clock) : 0.0;
}

double residentKilobytes(qint64 pid)
{
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Rss:"))
            return line.mid(4).simplified().split(' ').first().toDouble();
    }
    return 0.0;
}

double Samples::percentile(double percent) const
{
    std::vector<double> sorted = m_values;
    std::sort(sorted.begin(), sorted.end());
    const auto rank = static_cast<std::size_t>(std::ceil(double(sorted.size()) * percent / 100.0));
    return sorted[std::min(std::max<std::size_t>(rank, 1), sorted.size()) - 1];
}
