#pragma once

#include "simulator/registerservo.h"

namespace simulator {

/** An AX-12: 50 registers, 1.0 framing, a joint of 300° or, with both angle limits 0, a wheel. */
class Ax12Servo : public RegisterServo
{
public:
    /** A servo at the factory defaults but for @p id and @p baudCode. */
    Ax12Servo(quint8 id, quint8 baudCode);

protected:
    QByteArray status(quint8 id, Outcome outcome, const QByteArray &parameters) const override;
    bool answers(quint8 instruction) const override;
    QByteArray identity() const override { return {}; }
    Outcome judgeWrite(int address, const QByteArray &data) const override;
    void putWrite(int address, const QByteArray &data) override;
    Outcome resetNonVolatile(const QByteArray &parameters) override;
    void restart() override;
    void applyRegisters() override;
    void aimAt(double angle) override;
    void followDrive(SimulationTime now) override;

private:
    bool goesBeyondAngleLimits(int address, const QByteArray &data) const;
    bool isWheel() const;
    MotionSettings motionSettings() const;
    double speedSetting() const;
    void refreshRegisters();
    quint8 standingErrors() const;
    void watchLoad(SimulationTime now);
    void shutDownOnAlarm();

    std::optional<SimulationTime> m_stalledSince;
    bool m_isOverloaded = false; ///< until it is told again what to do
};

} // namespace simulator
