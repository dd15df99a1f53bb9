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

constexpr const char *ServoId = "id";
constexpr const char *BaudRate = "baud_rate";
constexpr const char *MotorSwitch = "control_enable";
/** Registers that a servo clears by itself once it has done what they ask for. */
constexpr const char *SelfClearing = "pending_shadow_instruction";

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

ApplyProof::ApplyProof(Connection &connection, ServoBus &bus, std::shared_ptr<const model::RegisterImage> image)
    : m_connection(connection), m_bus(bus), m_image(std::move(image))
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
    const std::vector<AppliedField> fields = undoable();
    Block block;
    block.address = fields.front().field->address;
    // What lies between the fields stays as it is.
    for (int address = block.address; address < fields.back().field->end(); ++address)
        block.data.append(char(m_image->byte(address).value_or(0)));
    for (const AppliedField &field : fields) {
        auto *bytes = reinterpret_cast<quint8 *>(block.data.data()) + (field.field->address - block.address);
        model::putLittleEndian(*field.before, field.field->size, bytes);
    }
    return block;
}

/** The fields of the last block that may be taken back: nothing switches a motor on but its user. */
std::vector<AppliedField> ApplyProof::undoable() const
{
    std::vector<AppliedField> fields;
    std::copy_if(m_lastApplied.begin(), m_lastApplied.end(), std::back_inserter(fields),
                 [](const AppliedField &field) { return !hasKey(field, MotorSwitch) || field.before == 0U; });
    return fields;
}

void ApplyProof::expect(quint8 address, const QByteArray &data)
{
    Pending pending{address, data, fieldsOf(*m_image, address, data), {}, false};
    for (const AppliedField &field : pending.fields) {
        if (field.before != field.wanted)
            pending.report.edited.push_back(field);
    }
    m_pending.push_back(std::move(pending));
}

void ApplyProof::onWriteSent(quint8 address, const QByteArray &data)
{
    const auto isThis = [&](const Pending &pending) { return !pending.isSent && pending.isWrite(address, data); };
    const auto found = std::find_if(m_pending.begin(), m_pending.end(), isThis);
    if (found != m_pending.end())
        found->isSent = true;
}

void ApplyProof::onWritten(const WriteOutcome &outcome)
{
    const auto isThis = [&outcome](const Pending &pending) { return pending.isWrite(outcome.address, outcome.data); };
    const auto found = std::find_if(m_pending.begin(), m_pending.end(), isThis);
    if (found == m_pending.end())
        return; // somebody else's
    Pending pending = std::move(*found);
    m_pending.erase(found);
    pending.report.write = outcome.result;
    const bool isRefused = outcome.result.outcome == Outcome::Refused;
    if (outcome.result.outcome == Outcome::PortLost || outcome.result.outcome == Outcome::Withdrawn) {
        pending.report.verdict = outcome.result.attempts == 0 ? Verdict::Dropped : Verdict::Unknown;
        report(pending.report);
        return;
    }
    const auto servoId = quint8(isRefused ? m_connection.address().id : m_connection.servoAddress().id);
    readBack(pending, servoId);
}

void ApplyProof::onStateChanged(State state)
{
    if (state == State::Identifying) {
        ++m_session;
        m_pending.clear();
        m_lastApplied.clear();
    }
    if (state != State::Disconnected)
        return;
    // What is on its way will still be told of.
    const auto firstDropped = std::stable_partition(m_pending.begin(), m_pending.end(),
                                                    [](const Pending &pending) { return pending.isSent; });
    const std::vector<Pending> dropped(firstDropped, m_pending.end());
    m_pending.erase(firstDropped, m_pending.end());
    for (Pending pending : dropped) {
        pending.report.verdict = Verdict::Dropped;
        report(pending.report);
    }
}

void ApplyProof::readBack(const Pending &pending, quint8 servoId)
{
    BusRequest request;
    request.operation = BusRequest::Operation::Read;
    request.id = servoId;
    request.length = quint8(m_image->family().tableSize);
    ++m_reading;
    const QPointer<ApplyProof> self(this);
    m_bus.request(request, [self, pending, servoId, session = m_session](const BusResult &result) {
        if (!self)
            return;
        --self->m_reading;
        if (session == self->m_session)
            self->onRead(pending, servoId, result);
    });
}

void ApplyProof::onRead(Pending pending, quint8 servoId, const BusResult &result)
{
    const auto before = quint8(m_connection.address().id);
    if (result.outcome == Outcome::Answered) {
        const bool isWhereItWas = servoId == before;
        judge(pending, result.data, isWhereItWas);
        if (isWhereItWas)
            Q_EMIT read(result.data);
    } else if (servoId != before) {
        // Nobody at the new id: the servo may not have taken it.
        readBack(pending, before);
        return;
    } else {
        pending.report.verdict = movesBaudRate() ? Verdict::Elsewhere : Verdict::Unknown;
    }
    report(pending.report);
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
    if (hasKey(field, SelfClearing))
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

void ApplyProof::report(const ApplyReport &report)
{
    if (report.verdict == Verdict::Applied)
        m_lastApplied = report.edited;
    Q_EMIT reported(report);
}

} // namespace session
