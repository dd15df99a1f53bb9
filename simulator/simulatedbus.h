#pragma once

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/groupinstruction.h"
#include "simulator/isimulatedservo.h"

#include <memory>
#include <vector>

namespace simulator {

/** One packet that the bus answers to a request. */
struct BusReply
{
    QByteArray bytes;
    std::chrono::microseconds acknowledgeTime{0}; ///< from the end of what was on the wire before to the first byte
    int requestSize = 0;                          ///< bytes of the request on the wire; 0 but for the first reply to it
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
    /** A line at some speed and time. */
    struct Moment
    {
        int baudRate;
        SimulationTime time;
    };

    std::vector<BusReply> answer(const wire::Packet &request, const Moment &moment);
    std::vector<BusReply> answerToGroup(const GroupRequest &request, const Moment &moment);
    BusReply answerTogether(const GroupRequest &request, const Moment &moment);
    /** The reply of the servo, or the servos, with the request's id. Without bytes when none answers. */
    BusReply answerOfOne(const wire::Packet &request, const Moment &moment);
    std::vector<ISimulatedServo *> addressed(const wire::Packet &request, int baudRate) const;

    /** Greatest length field of a 2.0 request: one that gives each of all servos its own few registers has room. */
    static constexpr int LongestRequest = 4096;

    Servos m_servos;
    wire::protocol1::Parser m_parser1;
    wire::protocol2::Parser m_parser2{LongestRequest};
    SimulationTime m_lastReception{0};
    int m_lastBaudRate = 0;
};

} // namespace simulator
