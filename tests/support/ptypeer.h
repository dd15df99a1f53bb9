#pragma once

#include "serialport/packet.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

/**
 * The far end of a serial line, scripted: a pseudo terminal whose other side answers instruction packets from a
 * thread of its own, so that it goes on while the test's thread waits inside a call.
 */
class PtyPeer
{
public:
    /** What the peer sends back for an instruction packet; called in the peer's thread. */
    using Script = std::function<QByteArray(const wire::Packet &instruction)>;

    explicit PtyPeer(Script script);
    ~PtyPeer();
    PtyPeer(const PtyPeer &) = delete;
    PtyPeer &operator=(const PtyPeer &) = delete;

    QString path() const { return m_path; }
    /** The instruction packets received so far, in order. */
    QVector<wire::Packet> received() const;
    int receivedCount() const { return received().size(); }
    /** Sends bytes that nobody asked for. */
    void send(const QByteArray &bytes);
    /** Pulls the plug: the device file goes away. */
    void hangUp();

private:
    void run();

    Script m_script;
    QString m_path;
    int m_master = -1;
    int m_slave = -1;
    std::atomic<bool> m_stopping{false};
    mutable std::mutex m_mutex;
    QVector<wire::Packet> m_received;
    std::thread m_thread;
};
