#include "profile/restoration.h"

#include "model/baudrates.h"

#include <QDateTime>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace profile {

namespace {

using Fate = RestoredField::Fate;
using Operation = BusRequest::Operation;
using Outcome = BusResult::Outcome;

constexpr int ModelSize = 2; ///< registers of the model number, the first ones of each family

bool isMove(const Block &block)
{
    return isAddress(*block.fields.front().field);
}

} // namespace

int RestoreReport::count(Fate fate) const
{
    return int(
        std::count_if(fields.begin(), fields.end(), [fate](const RestoredField &field) { return field.fate == fate; }));
}

int RestoreReport::refusedCount() const
{
    return int(
        std::count_if(fields.begin(), fields.end(), [](const RestoredField &field) { return !field.isRestored(); }));
}

bool RestoreReport::isRestored() const
{
    return obstacle == Obstacle::None && missing.empty() && refusedCount() == 0;
}

Restoration::Restoration(ServoBus &bus, Opener open, std::chrono::milliseconds patience, Clock &clock)
    : m_bus(bus), m_open(std::move(open)), m_patience(patience), m_clock(clock)
{
}

Restoration::~Restoration() = default;

model::ServoAddress Restoration::addressAfter(const model::ServoAddress &address, const std::vector<Pair> &pairs)
{
    model::ServoAddress after = address;
    for (const Pair &pair : pairs) {
        if (!isAddress(*pair.field))
            continue;
        if (pair.field->kind == model::FieldKind::BaudRate)
            after.baudRate = model::nominalBaudRate(pair.file);
        else
            after.id = pair.file;
    }
    return after;
}

void Restoration::begin(const model::ServoAddress &address, RestoreWish wish)
{
    m_wish = std::move(wish);
    m_home = m_report.address = m_report.wantedAddress = address;
    m_image = model::RegisterImage(&family());
    if (openAt(address))
        readPatiently(address.id, 0, family().tableSize, &Restoration::onServoRead);
}

/** @return whether it could; if not, the restore has ended. */
bool Restoration::openAt(const model::ServoAddress &address)
{
    m_report.portError = m_open(address.baudRate);
    if (m_report.portError.isEmpty())
        return true;
    end(Obstacle::PortLost);
    return false;
}

void Restoration::ask(const BusRequest &request, Step next)
{
    const auto take = [self = QPointer<Restoration>(this), request, next](const BusResult &result) {
        if (!self || self->m_isEnded)
            return;
        if (result.outcome == Outcome::PortLost)
            self->end(Obstacle::PortLost);
        else if (result.outcome == Outcome::Withdrawn)
            self->end(Obstacle::PortTaken);
        else if (self->m_isStopped && request.operation == Operation::Read)
            self->end(Obstacle::Stopped);
        else
            self->repeatOrGoOn(request, next, result);
    };
    m_bus.request(request, take);
}

void Restoration::repeatOrGoOn(const BusRequest &request, Step next, const BusResult &result)
{
    const bool isSilent = request.operation == Operation::Read && result.outcome == Outcome::NoAnswer;
    if (isSilent && m_clock.now() < m_deadline)
        ask(request, next);
    else
        (this->*next)(result);
}

void Restoration::readPatiently(int id, int address, int size, Step next)
{
    m_deadline = m_clock.now() + m_patience;
    ask({Operation::Read, quint8(id), quint8(address), quint8(size), {}, m_framing}, next);
}

void Restoration::write(int address, const QByteArray &bytes, Step next)
{
    m_report.hasWritten = true;
    ask({Operation::Write, quint8(m_report.address.id), quint8(address), 0, bytes, m_framing}, next);
}

void Restoration::onServoRead(const BusResult &result)
{
    if (result.outcome == Outcome::NoAnswer)
        return end(Obstacle::NoAnswer);
    if (result.outcome == Outcome::Refused)
        return end(Obstacle::Refused);
    m_framing = result.answer.framing;
    m_image.take(0, result.data, m_clock.now());
    const Profile servo = Profile::of(m_image, QDateTime::currentDateTimeUtc());
    m_before = compare(servo, m_wish.file, m_wish.fields);
    m_report.missing = m_before.missing;
    m_plan = restorePlan(m_before);
    m_report.wantedAddress = addressAfter(m_home, m_before.differences());
    const Obstacle found = obstacle();
    if (found != Obstacle::None)
        return end(found);
    if (m_plan.empty())
        return judge(result);
    if (m_report.wantedAddress == m_home)
        return stopMotor();
    // Two servos with one address can neither be told apart nor be given another one.
    if (!openAt(m_report.wantedAddress))
        return;
    m_deadline = m_clock.now() + m_patience;
    ask({Operation::Read, quint8(m_report.wantedAddress.id), 0, ModelSize, {}}, &Restoration::onNewAddressAsked);
}

Obstacle Restoration::obstacle() const
{
    if (m_image.raw(QLatin1String("model_number")) != m_wish.file.model)
        return Obstacle::OtherModel;
    if (m_plan.empty())
        return Obstacle::None;
    if (!isAsSeen())
        return Obstacle::OtherValues;
    if (isMotorOn() && !m_wish.mayStopMotor)
        return Obstacle::MotorOn;
    if (m_image.raw(QLatin1String("lock")).value_or(0) != 0)
        return Obstacle::Locked;
    for (const Pair &pair : m_before.differences()) {
        if (qstrcmp(pair.field->key, "status_return_level") == 0 && pair.file == 0)
            return Obstacle::Unreadable;
    }
    return Obstacle::None;
}

bool Restoration::isAsSeen() const
{
    const std::vector<Pair> differences = m_before.differences();
    return !m_wish.seen || std::all_of(differences.begin(), differences.end(), [this](const Pair &pair) {
        return m_wish.seen->raw(*pair.field) == pair.servo;
    });
}

void Restoration::onNewAddressAsked(const BusResult &result)
{
    if (!openAt(m_home))
        return;
    if (result.outcome == Outcome::NoAnswer)
        stopMotor();
    else
        end(Obstacle::AddressTaken);
}

void Restoration::stopMotor()
{
    const model::Field &motor = family().motorSwitch();
    if (isMotorOn())
        write(motor.address, QByteArray(motor.size, '\0'), &Restoration::onMotorTold);
    else
        sendNext();
}

void Restoration::onMotorTold(const BusResult &)
{
    const model::Field &motor = family().motorSwitch();
    readPatiently(m_home.id, motor.address, motor.size, &Restoration::onMotorRead);
}

void Restoration::onMotorRead(const BusResult &result)
{
    if (result.outcome != Outcome::Answered)
        return end(Obstacle::NoAnswer);
    m_image.take(family().motorSwitch().address, result.data, m_clock.now());
    if (isMotorOn())
        return end(Obstacle::MotorStaysOn);
    m_report.isMotorSwitchedOff = true;
    sendNext();
}

void Restoration::sendNext()
{
    // Only here, where it is known whether the write before has moved the servo.
    if (m_isStopped)
        return end(Obstacle::Stopped);
    if (m_next == m_plan.size())
        return readBack();
    const Block &block = m_plan[m_next];
    // A servo that has not taken everything stays where it is, so that the next restore finds it.
    if (isMove(block) && !m_failed.empty()) {
        noteRest();
        readBack();
    } else {
        write(block.address(), block.bytes(), &Restoration::onBlockSent);
    }
}

void Restoration::onBlockSent(const BusResult &result)
{
    const Block &block = m_plan[m_next];
    if (result.outcome == Outcome::Refused) {
        note(block, Fate::Refused, result.error);
    } else if (isMove(block)) {
        m_report.address = addressAfter(m_report.address, block.fields);
        if (!openAt(m_report.address))
            return;
    }
    if (result.outcome == Outcome::NoAnswer)
        return readPatiently(m_report.address.id, block.address(), block.bytes().size(), &Restoration::onBlockRead);
    ++m_next;
    sendNext();
}

/** Nothing goes out behind a block of which nobody can tell whether the servo has it: it may depend on that. */
void Restoration::onBlockRead(const BusResult &result)
{
    const bool isTaken = result.data == m_plan[m_next].bytes();
    ++m_next;
    if (isTaken)
        return sendNext();
    noteRest();
    readBack();
}

/** Nothing more of the plan is going to be written. */
void Restoration::noteRest()
{
    for (; m_next < m_plan.size(); ++m_next)
        note(m_plan[m_next], Fate::LeftOut, 0);
}

void Restoration::note(const Block &block, Fate fate, quint8 error)
{
    for (const Pair &pair : block.fields)
        m_failed.push_back({pair, fate, error});
}

void Restoration::readBack()
{
    readPatiently(m_report.address.id, 0, family().tableSize, &Restoration::onReadBack);
}

void Restoration::onReadBack(const BusResult &result)
{
    if (result.outcome == Outcome::Answered)
        return judge(result);
    if (m_report.address == m_home)
        return end(Obstacle::NoAnswer);
    m_report.address = m_home; // it may not have taken its new address
    if (openAt(m_home))
        readPatiently(m_home.id, 0, family().tableSize, &Restoration::onReadAtHome);
}

void Restoration::onReadAtHome(const BusResult &result)
{
    if (result.outcome == Outcome::Answered)
        judge(result);
    else
        end(Obstacle::NoAnswer);
}

/** Holds what was wanted against @p result, the servo's whole table. */
void Restoration::judge(const BusResult &result)
{
    m_image.take(0, result.data, m_clock.now());
    for (const Pair &before : m_before.pairs) {
        const auto isIt = [&before](const RestoredField &failed) { return failed.now.field == before.field; };
        const auto failed = std::find_if(m_failed.begin(), m_failed.end(), isIt);
        RestoredField field{{before.field, m_image.raw(*before.field).value_or(0), before.file}};
        if (field.now.isEqual())
            field.fate = before.isEqual() ? Fate::Equal : Fate::Written;
        else
            field.fate = failed == m_failed.end() ? Fate::NotKept : failed->fate;
        field.error = failed == m_failed.end() ? 0 : failed->error;
        m_report.fields.push_back(field);
    }
    end(Obstacle::None);
}

void Restoration::end(Obstacle obstacle)
{
    m_report.obstacle = obstacle;
    m_isEnded = true;
    Q_EMIT ended();
}

} // namespace profile
