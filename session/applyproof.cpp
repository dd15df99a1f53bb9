#include "session/applyproof.h"

#include "model/littleendian.h"
#include "serialport/servobus.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace session {

namespace {

using Outcome = BusResult::Outcome;
using Verdict = ApplyReport::Verdict;

/** How long a servo that does not answer is asked for what it has. */
constexpr std::chrono::seconds Patience{1};

constexpr const char *ServoId = "id";
constexpr const char *BaudRate = "baud_rate";

bool hasKey(const AppliedField &field, const char *key)
{
    return qstrcmp(field.field->key, key) == 0;
}

bool isAddress(const AppliedField &field)
{
    return hasKey(field, ServoId) || hasKey(field, BaudRate);
}

/** The writable fields of @p family that lie wholly in a block of @p data from @p address on. */
std::vector<AppliedField> fieldsOf(const model::RegisterImage &before, quint8 address, const QByteArray &data)
{
    model::RegisterImage block(&before.family());
    block.take(address, data, {});
    std::vector<AppliedField> fields;
    for (const model::Field &field : before.family().fields) {
        const auto wanted = block.bits(field);
        if (wanted && field.isWritable())
            fields.push_back({&field, *wanted, before.bits(field), std::nullopt});
    }
    return fields;
}

} // namespace

Block blockOf(const model::RegisterImage &image, const std::vector<AppliedField> &fields)
{
    Block block;
    block.address = fields.front().field->address;
    for (int address = block.address; address < fields.back().field->end(); ++address)
        block.data.append(char(image.byte(address).value_or(0)));
    for (const AppliedField &field : fields) {
        auto *bytes = reinterpret_cast<quint8 *>(block.data.data()) + (field.field->address - block.address);
        model::putLittleEndian(field.wanted, field.field->size, bytes);
    }
    return block;
}

ApplyProof::ApplyProof(Connection &connection, ServoBus &bus, std::shared_ptr<const model::RegisterImage> image,
                       Clock &clock)
    : m_connection(connection), m_bus(bus), m_clock(clock), m_image(std::move(image))
{
    connect(&connection, &Connection::writeSent, this, &ApplyProof::onWriteSent);
    connect(&connection, &Connection::written, this, &ApplyProof::onWritten);
    connect(&connection, &Connection::stateChanged, this, &ApplyProof::onStateChanged);
}

ApplyProof::~ApplyProof() = default;

bool ApplyProof::canUndo() const
{
    const auto isThere = [this](const AppliedField &field) {
        return field.before && m_image->bits(*field.field) == field.wanted;
    };
    return !undoable().empty() && std::all_of(m_lastApplied.begin(), m_lastApplied.end(), isThere);
}

Block ApplyProof::undo() const
{
    std::vector<AppliedField> fields = undoable();
    for (AppliedField &field : fields)
        field.wanted = *field.before;
    return blockOf(*m_image, fields);
}

/** The fields of the last block that may be taken back: nothing switches a motor on but its user. */
std::vector<AppliedField> ApplyProof::undoable() const
{
    std::vector<AppliedField> fields;
    const model::Field *motor = &m_image->family().motorSwitch();
    std::copy_if(m_lastApplied.begin(), m_lastApplied.end(), std::back_inserter(fields),
                 [motor](const AppliedField &field) { return field.field != motor || field.before == 0U; });
    return fields;
}

void ApplyProof::expect(quint8 address, const QByteArray &data)
{
    Pending pending{++m_lastNumber, address, data, fieldsOf(*m_image, address, data), {}, false, {}, m_stops};
    for (const AppliedField &field : pending.fields) {
        if (field.before != field.wanted)
            pending.report.edited.push_back(field);
    }
    m_pending.push_back(std::move(pending));
}

std::vector<AppliedField> ApplyProof::takeBack(quint8 address, const QByteArray &data)
{
    const auto isThis = [&](const Pending &pending) { return pending.isWrite(address, data); };
    // Of several equal ones, the one that still waits is the last.
    const auto found = std::find_if(m_pending.rbegin(), m_pending.rend(), isThis);
    if (found == m_pending.rend())
        return {};
    std::vector<AppliedField> edited = std::move(found->report.edited);
    m_pending.erase(std::prev(found.base()));
    return edited;
}

void ApplyProof::onWriteSent(quint8 address, const QByteArray &data)
{
    const auto isThis = [&](const Pending &pending) { return !pending.isSent && pending.isWrite(address, data); };
    const auto found = std::find_if(m_pending.begin(), m_pending.end(), isThis);
    if (found == m_pending.end())
        return;
    found->isSent = true;
    found->report.sentAt = m_clock.now();
}

void ApplyProof::onWritten(const WriteOutcome &outcome)
{
    const auto isThis = [&outcome](const Pending &pending) { return pending.isWrite(outcome.address, outcome.data); };
    const auto found = std::find_if(m_pending.begin(), m_pending.end(), isThis);
    if (found == m_pending.end())
        return; // somebody else's
    found->report.write = outcome.result;
    found->writtenAt = m_clock.now();
    const bool isRefused = outcome.result.outcome == Outcome::Refused;
    if (outcome.result.outcome == Outcome::PortLost || outcome.result.outcome == Outcome::Withdrawn) {
        found->report.verdict = outcome.result.attempts == 0 ? Verdict::Dropped : Verdict::Unproved;
        report(found->number);
        return;
    }
    readBack(*found, quint8(isRefused ? m_connection.address().id : m_connection.servoAddress().id));
}

void ApplyProof::onStateChanged(State state)
{
    if (state == State::Identifying) {
        m_pending.clear();
        m_lastApplied.clear();
    }
    if (state != State::Disconnected)
        return;
    std::vector<quint64> dropped; // what is on its way will still be told of
    for (Pending &pending : m_pending) {
        if (pending.isSent)
            continue;
        pending.report.verdict = Verdict::Dropped;
        dropped.push_back(pending.number);
    }
    for (const quint64 number : dropped)
        report(number);
}

void ApplyProof::readBack(Pending &pending, quint8 servoId)
{
    BusRequest request;
    request.operation = BusRequest::Operation::Read;
    request.id = servoId;
    request.length = quint8(m_image->family().tableSize);
    const QPointer<ApplyProof> self(this);
    m_bus.request(request, [self, number = pending.number, servoId](const BusResult &result) {
        if (self)
            self->onRead(number, servoId, result);
    });
}

void ApplyProof::onRead(quint64 number, quint8 servoId, const BusResult &result)
{
    Pending *pending = find(number);
    if (!pending)
        return; // of an earlier connection
    const auto before = quint8(m_connection.address().id);
    const bool isAnswered = result.outcome == Outcome::Answered;
    if (isAnswered && isSuperseded(*pending))
        return;
    if (isAnswered) {
        absorbSuperseded(number);
        if (find(number)->stops != m_stops)
            forgetMotor(*find(number));
        judge(*find(number), result.data, servoId == before);
        if (servoId == before)
            Q_EMIT read(result.data);
    } else if (servoId != before) {
        // Nobody at the new id: the servo may not have taken it.
        readBack(*pending, before);
        return;
    } else if (result.outcome == Outcome::NoAnswer && m_clock.now() - pending->writtenAt < Patience) {
        readBack(*pending, quint8(m_connection.servoAddress().id));
        return;
    } else if (result.outcome == Outcome::Withdrawn || result.outcome == Outcome::PortLost) {
        pending->report.verdict = Verdict::Unproved;
    } else {
        pending->report.verdict = movesBaudRate() ? Verdict::Elsewhere : Verdict::Unknown;
    }
    report(number);
}

/** Whether a later block has gone out to the same registers, which is then to prove the fields of @p pending, too. */
bool ApplyProof::isSuperseded(const Pending &pending) const
{
    return std::any_of(m_pending.begin(), m_pending.end(), [&pending](const Pending &other) {
        return other.number > pending.number && other.isSent && other.address == pending.address;
    });
}

/** Takes the fields of all blocks over that the one of @p number has superseded. */
void ApplyProof::absorbSuperseded(quint64 number)
{
    Pending &later = *find(number);
    const auto isEarlier = [number, address = later.address](const Pending &other) {
        return other.number < number && other.address == address;
    };
    for (const Pending &earlier : m_pending) {
        if (!isEarlier(earlier))
            continue;
        for (const AppliedField &field : earlier.report.edited)
            absorb(field, later);
    }
    m_pending.erase(std::remove_if(m_pending.begin(), m_pending.end(), isEarlier), m_pending.end());
}

void ApplyProof::absorb(const AppliedField &field, Pending &later)
{
    const auto isThis = [&field](const AppliedField &other) { return other.field == field.field; };
    std::vector<AppliedField> &edited = later.report.edited;
    const auto again = std::find_if(edited.begin(), edited.end(), isThis);
    const auto wanted = std::find_if(later.fields.begin(), later.fields.end(), isThis);
    if (again != edited.end())
        again->before = field.before;
    else if (wanted != later.fields.end())
        edited.push_back({field.field, wanted->wanted, field.before, std::nullopt});
}

void ApplyProof::forgetMotor(Pending &pending) const
{
    const auto isMotor = [motor = &m_image->family().motorSwitch()](const AppliedField &field) {
        return field.field == motor;
    };
    for (std::vector<AppliedField> *fields : {&pending.fields, &pending.report.edited})
        fields->erase(std::remove_if(fields->begin(), fields->end(), isMotor), fields->end());
}

void ApplyProof::judge(Pending &pending, const QByteArray &registers, bool isWhereItWas) const
{
    model::RegisterImage after(&m_image->family());
    after.take(0, registers, {});
    const auto look = [&after](AppliedField &field) { field.found = after.bits(*field.field); };
    std::for_each(pending.report.edited.begin(), pending.report.edited.end(), look);
    for (AppliedField &field : pending.fields) {
        look(field);
        if (isHeld(field, pending, isWhereItWas) && field.found != field.wanted)
            pending.report.others.push_back(field);
    }
    pending.report.verdict = pending.report.others.empty() ? Verdict::Applied : Verdict::NotApplied;
}

bool ApplyProof::isHeld(const AppliedField &field, const Pending &pending, bool isWhereItWas) const
{
    if (field.field->clearsItself)
        return false;
    if (!isAddress(field))
        return true;
    const auto &edited = pending.report.edited;
    const auto isThis = [&field](const AppliedField &other) { return other.field == field.field; };
    return isWhereItWas && std::any_of(edited.begin(), edited.end(), isThis);
}

bool ApplyProof::movesBaudRate() const
{
    return m_connection.servoAddress().baudRate != m_connection.address().baudRate;
}

ApplyProof::Pending *ApplyProof::find(quint64 number)
{
    const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                    [number](const Pending &pending) { return pending.number == number; });
    return found == m_pending.end() ? nullptr : &*found;
}

void ApplyProof::report(quint64 number)
{
    if (Pending *pending = find(number); pending && pending->report.verdict != Verdict::Dropped)
        absorbSuperseded(number);
    const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                    [number](const Pending &pending) { return pending.number == number; });
    if (found == m_pending.end())
        return;
    const ApplyReport ended = std::move(found->report);
    m_pending.erase(found);
    if (ended.verdict == Verdict::Applied)
        m_lastApplied = ended.edited;
    Q_EMIT reported(ended);
}

} // namespace session
