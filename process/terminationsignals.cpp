#include "process/terminationsignals.h"

#ifdef Q_OS_UNIX
#    include <QSocketNotifier>

#    include <cerrno>
#    include <csignal>
#    include <fcntl.h>
#    include <unistd.h>
#endif

namespace process {

#ifdef Q_OS_UNIX

namespace {

constexpr int Handled[] = {SIGINT, SIGTERM, SIGHUP};

/** Read end and write end of the pipe that a handler writes to: it may do little else. */
int pipeEnds[2] = {-1, -1};

void onSignal(int)
{
    const int error = errno;
    const char byte = 0;
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written); // a full pipe has the news already
    errno = error;
}

void setHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Handled)
        sigaction(number, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent)
{
    if (pipe(pipeEnds) != 0)
        qFatal("No pipe: the system has no file descriptor left");
    for (const int end : pipeEnds) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT requested();
    });
    setHandlers(onSignal);
}

TerminationSignals::~TerminationSignals()
{
    setHandlers(SIG_DFL);
    for (int &end : pipeEnds) {
        ::close(end);
        end = -1;
    }
}

#else

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent) {}
TerminationSignals::~TerminationSignals() = default;

#endif

} // namespace process
