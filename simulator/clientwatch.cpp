#include "simulator/clientwatch.h"

#include <QFile>
#include <QSocketNotifier>

#ifdef Q_OS_LINUX
#    include <sys/inotify.h>
#    include <unistd.h>
#endif

namespace simulator {

ClientWatch::ClientWatch(QObject *parent) : QObject(parent) {}

#ifdef Q_OS_LINUX

ClientWatch::~ClientWatch()
{
    if (m_descriptor < 0)
        return;
    m_notifier->setEnabled(false);
    close(m_descriptor);
}

void ClientWatch::watch(const QString &device)
{
    m_descriptor = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_descriptor < 0)
        return;
    inotify_add_watch(m_descriptor, QFile::encodeName(device).constData(), IN_OPEN | IN_CLOSE);
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ClientWatch::catchUp);
}

void ClientWatch::catchUp()
{
    if (m_descriptor < 0)
        return;
    alignas(inotify_event) char buffer[4096];
    quint32 last = 0;
    ssize_t size = 0;
    while ((size = read(m_descriptor, buffer, sizeof buffer)) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
            if (event->mask & (IN_OPEN | IN_CLOSE))
                last = event->mask;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (last & IN_OPEN)
        Q_EMIT opened();
    else if (last & IN_CLOSE)
        Q_EMIT closed();
}

#else

ClientWatch::~ClientWatch() = default;

void ClientWatch::watch(const QString &) {}

void ClientWatch::catchUp() {}

#endif

} // namespace simulator
