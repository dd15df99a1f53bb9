#include "simulator/registerservo.h"

namespace simulator {

namespace {

constexpr int AcknowledgeMicroseconds = 2;
/** So often a servo that moves by itself takes a new target. */
constexpr SimulationTime SelfMotionStep = std::chrono::milliseconds(5);
constexpr SimulationTime BootTime = std::chrono::milliseconds(200);

} // namespace

/** What servos carry out. */
struct RegisterServo::Instruction
{
    quint8 code;
    bool isInProtocol1;
    Answer (RegisterServo::*carryOut)(const QByteArray &parameters);
};

// clang-format off
const RegisterServo::Instruction RegisterServo::Instructions[] = {
    {wire::Ping,         true,  &RegisterServo::ping},
    {wire::Read,         true,  &RegisterServo::read},
    {wire::Write,        true,  &RegisterServo::write},
    {wire::RegWrite,     true,  &RegisterServo::keepWrite},
    {wire::Action,       true,  &RegisterServo::act},
    {wire::FactoryReset, true,  &RegisterServo::factoryReset},
    {wire::Reboot,       false, &RegisterServo::reboot},
};
// clang-format on

quint8 RegisterServo::id() const
{
    return static_cast<quint8>(m_registers.value(m_layout.id));
}

quint8 RegisterServo::baudCode() const
{
    return static_cast<quint8>(m_registers.value(m_layout.baudRate));
}

std::chrono::microseconds RegisterServo::acknowledgeTime() const
{
    return std::chrono::microseconds(m_registers.value(m_layout.acknowledgeTime) * AcknowledgeMicroseconds);
}

void RegisterServo::advance(SimulationTime now)
{
    followSelfMotion(now);
    m_now = now;
    m_drive.advance(now);
    followDrive(now);
}

void RegisterServo::followSelfMotion(SimulationTime now)
{
    for (; m_selfMotion && m_now + SelfMotionStep < now; m_now += SelfMotionStep) {
        aimAt(m_selfMotion->angleAt(m_now));
        applyRegisters();
        m_drive.advance(m_now);
    }
}

/** Whether a write tells the servo what to do, so that it does nothing else by itself. */
bool RegisterServo::isCommand(int address, int size) const
{
    const int end = address + size;
    const bool isSwitch = address <= m_layout.motorSwitch && end > m_layout.motorSwitch;
    return isSwitch || (address < m_layout.targetsEnd && end > m_layout.firstTarget);
}

void RegisterServo::restoreNonVolatileRegisters(const RegisterValues &values)
{
    m_registers.restoreNonVolatileValues(values);
    beginAnew();
}

QByteArray RegisterServo::execute(const wire::Packet &request)
{
    if (m_now < m_silentUntil)
        return {};
    const quint8 idBefore = id();
    const bool willAnswer = answers(request.instruction);
    const Answer answer = carryOut(request);
    return willAnswer ? status(idBefore, answer.outcome, answer.parameters) : QByteArray();
}

RegisterServo::Answer RegisterServo::carryOut(const wire::Packet &request)
{
    for (const Instruction &row : Instructions) {
        if (row.code == request.instruction && (row.isInProtocol1 || framing() == wire::Framing::Protocol2))
            return (this->*row.carryOut)(request.parameters);
    }
    return {Outcome::UnknownInstruction, {}};
}

/** Bytes of an address or a length in an instruction. */
int RegisterServo::addressSize() const
{
    return framing() == wire::Framing::Protocol2 ? 2 : 1;
}

int RegisterServo::number(const QByteArray &parameters, int index) const
{
    return addressSize() == 1 ? static_cast<quint8>(parameters[index]) : wire::fromLittleEndian16(parameters, index);
}

RegisterServo::Answer RegisterServo::ping(const QByteArray &)
{
    return {Outcome::Done, identity()};
}

RegisterServo::Answer RegisterServo::read(const QByteArray &parameters)
{
    if (parameters.size() != 2 * addressSize())
        return {Outcome::WrongSize, {}};
    const int address = number(parameters, 0);
    const int length = number(parameters, addressSize());
    if (length == 0 || !m_registers.contains(address, length))
        return {Outcome::OutsideTable, {}};
    return {Outcome::Done, m_registers.read(address, length)};
}

Outcome RegisterServo::judge(const QByteArray &parameters) const
{
    if (parameters.size() <= addressSize())
        return Outcome::WrongSize;
    return judgeWrite(number(parameters, 0), parameters.mid(addressSize()));
}

RegisterServo::Answer RegisterServo::write(const QByteArray &parameters)
{
    const Outcome outcome = judge(parameters);
    if (outcome != Outcome::Done)
        return {outcome, {}};
    const RegisterTable before = m_registers;
    putWrite(number(parameters, 0), parameters.mid(addressSize()));
    if (!isKept(before))
        return {Outcome::MemoryFailed, {}};
    if (isCommand(number(parameters, 0), parameters.size() - addressSize()))
        m_selfMotion.reset();
    if (!m_registers.value(m_layout.keptWrite))
        m_keptWrite.reset(); // a client may take the flag down
    applyRegisters();
    return {};
}

/**
 * Whether the memory has the non-volatile registers. If it failed, they are what they were: what the client reads
 * then is what the servo will be after the power was off, and one that was told of a failure finds it under the id
 * and baud rate that it knows.
 */
bool RegisterServo::isKept(const RegisterTable &before)
{
    if (!m_memory || m_registers.nonVolatileValues() == before.nonVolatileValues() || m_memory())
        return true;
    m_registers = before;
    return false;
}

RegisterServo::Answer RegisterServo::keepWrite(const QByteArray &parameters)
{
    const Outcome outcome = judge(parameters);
    if (outcome != Outcome::Done)
        return {outcome, {}};
    m_keptWrite = parameters;
    m_registers.setValue(m_layout.keptWrite, 1);
    return {};
}

RegisterServo::Answer RegisterServo::act(const QByteArray &)
{
    if (!m_keptWrite)
        return {Outcome::NothingKept, {}};
    const QByteArray parameters = *m_keptWrite;
    m_keptWrite.reset();
    m_registers.setValue(m_layout.keptWrite, 0);
    return write(parameters);
}

RegisterServo::Answer RegisterServo::factoryReset(const QByteArray &parameters)
{
    const RegisterTable before = m_registers;
    const Outcome outcome = resetNonVolatile(parameters);
    if (outcome != Outcome::Done)
        return {outcome, {}};
    if (!isKept(before))
        return {Outcome::MemoryFailed, {}};
    beginAnew();
    return {};
}

RegisterServo::Answer RegisterServo::reboot(const QByteArray &)
{
    beginAnew();
    m_silentUntil = m_now + BootTime;
    return {};
}

void RegisterServo::beginAnew()
{
    m_selfMotion.reset();
    m_keptWrite.reset();
    m_registers.setValue(m_layout.keptWrite, 0);
    restart();
}

} // namespace simulator
