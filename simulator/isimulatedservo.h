#pragma once

#include "serialport/packet.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <map>

namespace simulator {

/** Time of the simulation, counted from the start of the bus. Never goes back. */
using SimulationTime = std::chrono::microseconds;

struct SelfMotion;

/** Raw register values by the address of their first byte. */
using RegisterValues = std::map<int, qint32>;

/** A servo on the simulated bus. It has no clock of its own: the bus tells it what time it is. */
class ISimulatedServo
{
public:
    ISimulatedServo() = default;
    virtual ~ISimulatedServo() = default;
    ISimulatedServo(const ISimulatedServo &) = delete;
    ISimulatedServo &operator=(const ISimulatedServo &) = delete;

    /** The framing that it speaks; packets in another one are noise to it. */
    virtual wire::Framing framing() const = 0;
    virtual quint8 id() const = 0;
    /** Code of the baud rate it listens at; see baudcode::nominalRate(). */
    virtual quint8 baudCode() const = 0;
    /** Time from the end of a request to the beginning of the answer. */
    virtual std::chrono::microseconds acknowledgeTime() const = 0;

    /** Lets the servo live on until @p now. */
    virtual void advance(SimulationTime now) = 0;
    /** Whether it moves, so that advance() should be called now and then although nobody asks. */
    virtual bool isActive() const = 0;

    /** Lets it move by itself until a client writes a target or switches the motor, or it starts anew. */
    virtual void moveBySelf(const SelfMotion &motion) = 0;

    /**
     * Carries out a checked @p request in its framing, sent to it or to all.
     * @return the status packet; empty when the servo is set not to answer, or is starting again. A new id or baud
     * rate holds from the next request on.
     */
    virtual QByteArray execute(const wire::Packet &request) = 0;

    /**
     * Keeps what survives without power; false when it cannot. Called when nonVolatileRegisters() have changed, and
     * before the request that changed them is answered.
     */
    using Memory = std::function<bool()>;
    /** What it has written to; without one, everything can be kept. */
    virtual void setMemory(Memory memory) = 0;

    /** What survives without power. */
    virtual RegisterValues nonVolatileRegisters() const = 0;
    /** Takes @p values over and restarts; values that a register cannot hold are passed over. */
    virtual void restoreNonVolatileRegisters(const RegisterValues &values) = 0;
};

} // namespace simulator
