#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/registertable.h"
#include "simulator/selfmotion.h"
#include "simulator/servodrive.h"

#include <optional>

namespace simulator {

/** What the servos of all families have in common: they carry out instructions on a table of registers. */
class RegisterServo : public ISimulatedServo
{
public:
    wire::Framing framing() const override { return m_layout.framing; }
    quint8 id() const override;
    quint8 baudCode() const override;
    std::chrono::microseconds acknowledgeTime() const override;
    void advance(SimulationTime now) override;
    bool isActive() const override { return m_selfMotion || !m_drive.isResting(); }
    void moveBySelf(const SelfMotion &motion) override { m_selfMotion = motion; }
    QByteArray execute(const wire::Packet &request) override;
    void setMemory(Memory memory) override { m_memory = std::move(memory); }
    RegisterValues nonVolatileRegisters() const override { return m_registers.nonVolatileValues(); }
    void restoreNonVolatileRegisters(const RegisterValues &values) override;

    /** A raw register value, for looking inside. REQUIRES: a register begins at @p address. */
    qint32 registerValue(int address) const { return m_registers.value(address); }

protected:
    /** Where a family has the registers that every servo has. */
    struct Layout
    {
        wire::Framing framing;
        quint8 id;
        quint8 baudRate;
        quint8 acknowledgeTime; ///< in steps of 2 µs
        quint8 keptWrite;       ///< flag: a write waits for the action
        quint8 motorSwitch;
        quint8 firstTarget; ///< of the registers that say where to go
        quint8 targetsEnd;
    };

    RegisterServo(const Layout &layout, const RegisterTable &registers, const MotorConstants &motor)
        : m_registers(registers), m_drive(motor), m_layout(layout)
    {
    }

    /** The status packet of the servo @p id, which may have another one by now. */
    virtual QByteArray status(quint8 id, Outcome outcome, const QByteArray &parameters) const = 0;
    /** Whether the servo is set to answer @p instruction. */
    virtual bool answers(quint8 instruction) const = 0;
    /** What it answers to a ping. */
    virtual QByteArray identity() const = 0;
    /** What becomes of the write; nothing is changed yet. */
    virtual Outcome judgeWrite(int address, const QByteArray &data) const = 0;
    /** Takes a write over that judgeWrite() lets pass, into the registers only. */
    virtual void putWrite(int address, const QByteArray &data) = 0;
    /** Sets the non-volatile registers to their factory values. */
    virtual Outcome resetNonVolatile(const QByteArray &parameters) = 0;
    /** As after switching the power on. */
    virtual void restart() = 0;
    /** Lets the drive follow the registers. */
    virtual void applyRegisters() = 0;
    /** Switches the motor on and sets the target @p angle, in radians from the middle, in the registers only. */
    virtual void aimAt(double angle) = 0;
    /** Lets the registers follow the drive, at @p now. */
    virtual void followDrive(SimulationTime now) = 0;

    RegisterTable m_registers;
    ServoDrive m_drive;

private:
    struct Answer
    {
        Outcome outcome = Outcome::Done;
        QByteArray parameters;
    };
    struct Instruction;
    static const Instruction Instructions[];

    Answer carryOut(const wire::Packet &request);
    Answer ping(const QByteArray &parameters);
    Answer read(const QByteArray &parameters);
    Answer write(const QByteArray &parameters);
    Answer keepWrite(const QByteArray &parameters);
    Answer act(const QByteArray &parameters);
    Answer factoryReset(const QByteArray &parameters);
    Answer reboot(const QByteArray &parameters);

    void followSelfMotion(SimulationTime now);
    bool isCommand(int address, int size) const;
    int addressSize() const;
    int number(const QByteArray &parameters, int index) const;
    Outcome judge(const QByteArray &parameters) const;
    bool isKept(const RegisterTable &before);
    void beginAnew();

    const Layout m_layout;
    Memory m_memory;
    std::optional<QByteArray> m_keptWrite; ///< its parameters
    std::optional<SelfMotion> m_selfMotion;
    SimulationTime m_now{0};
    SimulationTime m_silentUntil{0};
};

} // namespace simulator
