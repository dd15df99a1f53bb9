#include "bench/watchedprogram.h"

#include "bench/measuring.h"

#include <QProcessEnvironment>

WatchedProgram::WatchedProgram(const QString &path, const Wish &wish)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(ZELVAR_BENCH_PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("zelvarbench"));
    if (wish.tab >= 0)
        environment.insert(QStringLiteral("ZELVAR_BENCH_TAB"), QString::number(wish.tab));
    if (wish.isLarge)
        environment.insert(QStringLiteral("ZELVAR_BENCH_LARGE"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);

    const double begin = wallTime();
    m_process.start(path, QStringList(), QIODevice::ReadOnly);
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead())
            qFatal("%s shows no window", qPrintable(path));
    }
    // The other process's own time, so that it does not matter when this one hears of it.
    m_startTime = m_process.readLine().toDouble() - begin;
}

WatchedProgram::~WatchedProgram()
{
    m_process.terminate();
    m_process.waitForFinished();
}
