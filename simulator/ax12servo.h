#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/registertable.h"
#include "simulator/servodrive.h"

#include <optional>

namespace simulator {

/** An AX-12: 50 registers, 1.0 framing, a joint of 300° or, with both angle limits 0, a wheel. */
class Ax12Servo : public ISimulatedServo
{
public:
    /** A servo at the factory defaults but for @p id and @p baudCode. */
    Ax12Servo(quint8 id, quint8 baudCode);

    wire::Framing framing() const override { return wire::Framing::Protocol1; }
    quint8 id() const override;
    quint8 baudCode() const override;
    std::chrono::microseconds acknowledgeTime() const override;
    void advance(SimulationTime now) override;
    bool isActive() const override { return !m_drive.isResting(); }
    QByteArray execute(const wire::Packet &request) override;
    RegisterValues nonVolatileRegisters() const override { return m_registers.nonVolatileValues(); }
    void restoreNonVolatileRegisters(const RegisterValues &values) override;

    /** A raw register value, for looking inside. REQUIRES: a register begins at @p address. */
    qint32 registerValue(int address) const { return m_registers.value(address); }

private:
    struct Answer
    {
        quint8 errors = 0; ///< bits of wire::Protocol1Error
        QByteArray parameters;
    };

    Answer answerTo(const wire::Packet &request);
    Answer read(const QByteArray &parameters) const;
    Answer write(const QByteArray &parameters);
    bool goesBeyondAngleLimits(int address, const QByteArray &data) const;
    bool answers(quint8 instruction) const;
    void restart();

    bool isWheel() const;
    MotionSettings motionSettings() const;
    double speedSetting() const;
    void applyRegisters();
    void refreshRegisters();
    quint8 standingErrors() const;
    void watchLoad(SimulationTime now);
    void shutDownOnAlarm();

    RegisterTable m_registers;
    ServoDrive m_drive;
    std::optional<SimulationTime> m_stalledSince;
    bool m_isOverloaded = false; ///< until it is told again what to do
};

} // namespace simulator
