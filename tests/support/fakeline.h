#pragma once

#include "serialport/busline.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "tests/support/turnedclock.h"

#include <QVector>

/** A line with a scripted servo at its other end; what it says is delivered when the test says so. */
class FakeLine final : public BusLine
{
public:
    /** What the servo sends back for an instruction packet. */
    using Script = std::function<QByteArray(const wire::Packet &instruction)>;

    FakeLine(TurnedClock &clock, Script script) : m_clock(clock), m_script(std::move(script)) {}

    QVector<wire::Packet> sent;
    QVector<Clock::TimePoint> sentAt;

    void arrive(const QByteArray &bytes) { m_received += bytes; }
    /** @return whether there was something to deliver. */
    bool deliver()
    {
        const bool hasReceived = !m_received.isEmpty();
        if (hasReceived)
            reportReceived();
        return hasReceived;
    }
    void lose() { reportLost(QStringLiteral("lost")); }

    QString open(const QString &, int) override { return {}; }
    void close() override { m_received.clear(); }
    void send(const QByteArray &bytes) override
    {
        wire::protocol1::Parser parser1;
        wire::protocol2::Parser parser2;
        parser1.append(bytes);
        parser2.append(bytes);
        auto packet = parser2.next();
        sent.append(packet ? *packet : *parser1.next());
        sentAt.append(m_clock.now());
        arrive(m_script(sent.last()));
    }
    QByteArray takeReceived() override { return std::exchange(m_received, {}); }
    void discardReceived() override { m_received.clear(); }
    bool waitForReceived(Clock::Duration limit) override
    {
        if (m_received.isEmpty())
            m_clock.pass(limit);
        return !m_received.isEmpty();
    }

private:
    TurnedClock &m_clock;
    Script m_script;
    QByteArray m_received;
};
