#pragma once

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/isimulatedservo.h"

#include <memory>
#include <vector>

namespace simulator {

/** What the bus answers to one request. */
struct BusReply
{
    QByteArray bytes;
    std::chrono::microseconds acknowledgeTime{0}; ///< from the end of the request to the first byte
    int requestSize = 0;                          ///< bytes of the request on the wire
};

/**
 * A half-duplex bus with servos of both framings, without a port and without a clock.
 *
 * Every servo listens to everything, takes what is in its framing, at its baud rate and with its id, and may
 * answer. Servos with the same id answer at once and spoil each other's replies.
 */
class SimulatedBus
{
public:
    using Servos = std::vector<std::unique_ptr<ISimulatedServo>>;

    explicit SimulatedBus(Servos servos);

    /**
     * Takes bytes in any slices, sent at @p baudRate bits per second and received at @p now.
     * @return the replies to the requests that they complete, in order.
     */
    std::vector<BusReply> receive(const QByteArray &bytes, int baudRate, SimulationTime now);
    /** Forgets an unfinished packet, when whoever sent it has left. */
    void forgetPartialPacket();

    /** Lets the moving servos live on until @p now. */
    void advance(SimulationTime now);
    /** Whether a servo moves, so that advance() should be called now and then. */
    bool isActive() const;

    const Servos &servos() const { return m_servos; }

private:
    std::vector<BusReply> answer(const wire::Packet &request, int baudRate, SimulationTime now);
    std::vector<ISimulatedServo *> addressed(const wire::Packet &request, int baudRate) const;

    Servos m_servos;
    wire::protocol1::Parser m_parser1;
    wire::protocol2::Parser m_parser2;
    SimulationTime m_lastReception{0};
    int m_lastBaudRate = 0;
};

} // namespace simulator
