#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/registertable.h"
#include "simulator/servodrive.h"

namespace simulator {

/** A servo of the own family: 118 registers, 2.0 framing, five operating modes. */
class ZelvarServo : public ISimulatedServo
{
public:
    /** A servo at the factory defaults but for @p id and @p baudCode. */
    ZelvarServo(quint8 id, quint8 baudCode);

    wire::Framing framing() const override { return wire::Framing::Protocol2; }
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
        quint8 error = wire::NoError;
        QByteArray parameters;
    };

    Answer answerTo(const wire::Packet &request);
    Answer read(const QByteArray &parameters) const;
    Answer write(const QByteArray &parameters);
    Answer factoryReset(const QByteArray &parameters);
    void restart();

    bool isControlEnabled() const;
    MotionSettings motionSettings() const;
    double targetAngle(OperatingMode mode) const;
    double directedValue(int address) const;
    double acceleration() const;
    void applyRegisters();
    void wrapPosition();
    void refreshRegisters();
    quint8 hardwareErrors() const;
    bool isBeyondAngleLimits(double counts) const;

    RegisterTable m_registers;
    ServoDrive m_drive;
};

} // namespace simulator
