#include "simulator/ptyport.h"

#include "simulator/linespeed.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace simulator {

namespace {

QString systemError(const char *what)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(what), QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

PtyPort::PtyPort(QObject *parent) : QObject(parent)
{
    connect(&m_watch, &ClientWatch::opened, this, [this] {
        dropUnreadBytes();
        Q_EMIT clientChanged();
    });
    connect(&m_watch, &ClientWatch::closed, this, &PtyPort::onClosed);
}

PtyPort::~PtyPort()
{
    if (m_notifier)
        m_notifier->setEnabled(false);
    if (m_device >= 0)
        ::close(m_device);
    if (m_master >= 0)
        ::close(m_master);
}

QString PtyPort::open()
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
        return systemError("cannot make a pseudo terminal");
    fcntl(m_master, F_SETFD, FD_CLOEXEC);
    fcntl(m_master, F_SETFL, O_RDWR | O_NONBLOCK);

    const char *name = ptsname(m_master);
    m_devicePath = QFile::decodeName(name);
    m_device = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_device < 0)
        return systemError("cannot open the pseudo terminal");
    makeRaw();
    m_watch.watch(m_devicePath);

    m_notifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &PtyPort::readAvailable);
    return {};
}

void PtyPort::makeRaw()
{
    termios settings{};
    if (tcgetattr(m_device, &settings) != 0)
        return;
    cfmakeraw(&settings);
    tcsetattr(m_device, TCSANOW, &settings);
}

int PtyPort::baudRate() const
{
    return lineSpeed(m_master);
}

void PtyPort::write(const QByteArray &bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(m_master, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return;
        written += static_cast<int>(count);
    }
}

void PtyPort::readAvailable()
{
    char buffer[4096];
    const ssize_t count = ::read(m_master, buffer, sizeof buffer);
    const bool isBroken = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
    const QString error = isBroken ? systemError("cannot read from the pseudo terminal") : QString();

    // Only now: whoever sent these bytes had opened the device file before, so replies to them come after the flush.
    m_watch.catchUp();
    if (count > 0)
        Q_EMIT received(QByteArray(buffer, static_cast<int>(count)));
    if (isBroken) {
        m_notifier->setEnabled(false);
        Q_EMIT failed(error);
    }
}

void PtyPort::dropUnreadBytes()
{
    tcflush(m_device, TCIFLUSH);
}

void PtyPort::onClosed()
{
    dropUnreadBytes();
    // A client that was killed leaves its settings and its claim to be the only one, which would otherwise
    // end with the last open file: ours.
    makeRaw();
#ifdef TIOCNXCL
    ioctl(m_device, TIOCNXCL);
#else
    // Systems without it have no such claims to end.
#endif
    Q_EMIT clientChanged();
}

} // namespace simulator
