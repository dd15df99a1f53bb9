#include "tests/support/ptypeer.h"

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <utility>

PtyPeer::PtyPeer(Script script) : m_script(std::move(script))
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
        qFatal("no pseudo terminal");
    m_path = QString::fromLocal8Bit(ptsname(m_master));
    m_slave = ::open(ptsname(m_master), O_RDWR | O_NOCTTY); // keeps the line up between clients
    termios settings{};
    tcgetattr(m_slave, &settings);
    cfmakeraw(&settings);
    tcsetattr(m_slave, TCSANOW, &settings);
    m_thread = std::thread([this] { run(); });
}

PtyPeer::~PtyPeer()
{
    hangUp();
}

QVector<wire::Packet> PtyPeer::received() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_received;
}

void PtyPeer::send(const QByteArray &bytes)
{
    if (!bytes.isEmpty() && ::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) < 0)
        qFatal("the peer cannot write");
}

void PtyPeer::hangUp()
{
    if (!m_thread.joinable())
        return;
    m_stopping = true;
    m_thread.join();
    ::close(m_slave);
    ::close(m_master);
}

void PtyPeer::run()
{
    constexpr int PollMilliseconds = 5; // how soon hangUp() is noticed
    wire::protocol1::Parser parser1;
    wire::protocol2::Parser parser2;
    while (!m_stopping) {
        pollfd descriptor{m_master, POLLIN, 0};
        if (poll(&descriptor, 1, PollMilliseconds) <= 0)
            continue;
        char buffer[512];
        const ssize_t size = ::read(m_master, buffer, sizeof buffer);
        const QByteArray bytes(buffer, static_cast<int>(qMax<ssize_t>(size, 0)));
        parser1.append(bytes);
        parser2.append(bytes);
        for (auto packet = parser2.next(); packet || (packet = parser1.next()); packet = parser2.next()) {
            {
                const std::lock_guard<std::mutex> guard(m_mutex);
                m_received.append(*packet);
            }
            send(m_script(*packet));
        }
    }
}
