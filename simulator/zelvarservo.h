#pragma once

#include "simulator/registerservo.h"

namespace simulator {

/** A servo of the own family: 118 registers, 2.0 framing, five operating modes. */
class ZelvarServo : public RegisterServo
{
public:
    /** A servo at the factory defaults but for @p id and @p baudCode. */
    ZelvarServo(quint8 id, quint8 baudCode);

protected:
    QByteArray status(quint8 id, Outcome outcome, const QByteArray &parameters) const override;
    bool answers(quint8) const override { return true; }
    QByteArray identity() const override;
    Outcome judgeWrite(int address, const QByteArray &data) const override;
    void putWrite(int address, const QByteArray &data) override { m_registers.write(address, data); }
    Outcome resetNonVolatile(const QByteArray &parameters) override;
    void restart() override;
    void applyRegisters() override;
    void aimAt(double angle) override;
    void followDrive(SimulationTime now) override;

private:
    bool isControlEnabled() const;
    MotionSettings motionSettings() const;
    double targetAngle(OperatingMode mode) const;
    double directedValue(int address) const;
    double acceleration() const;
    void wrapPosition();
    void refreshRegisters();
    quint8 hardwareErrors() const;
    bool isBeyondAngleLimits(double counts) const;
};

} // namespace simulator
