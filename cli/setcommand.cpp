#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/fields.h"
#include "cli/values.h"
#include "model/baudrates.h"
#include "model/littleendian.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"

#include <QStringList>

#include <algorithm>

namespace cli {

namespace {

using Outcome = BusResult::Outcome;

constexpr const char *IdKey = "id";
constexpr const char *BaudRateKey = "baud_rate";

/** A field and what it is to be, as the command line has it. */
struct Assignment
{
    QString key;
    QString value;
};

/** A field of a servo and the raw value that it is to have. */
struct Write
{
    const model::Field *field;
    qint32 raw;
};

/** Fields that lie side by side and go out together. */
using Block = std::vector<Write>;

bool hasKey(const model::Field &field, const char *key)
{
    return qstrcmp(field.key, key) == 0;
}

std::vector<Assignment> assignmentsIn(const QStringList &words)
{
    std::vector<Assignment> assignments;
    for (const QString &word : words) {
        const int separator = word.indexOf(QLatin1Char('='));
        if (separator < 1)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("\"%1\" sets nothing; write FIELD=VALUE, as target_position=90deg").arg(word)};
        const Assignment next{word.left(separator), word.mid(separator + 1)};
        const auto isSame = [&next](const Assignment &other) { return other.key == next.key; };
        if (std::any_of(assignments.begin(), assignments.end(), isSame))
            throw Failure{ExitStatus::Usage, QStringLiteral("%1 is set twice").arg(next.key)};
        assignments.push_back(next);
    }
    return assignments;
}

Write checked(const Assignment &assignment, const model::Family &family, const recording::UnitChoice &unitOf)
{
    const QByteArray key = assignment.key.toLatin1();
    const model::Field *field = family.field(QLatin1String(key));
    if (!field)
        throw Failure{ExitStatus::Usage, unknownField(assignment.key, {&family})};
    if (!field->isWritable())
        throw Failure{ExitStatus::Usage, QStringLiteral("%1 can only be read").arg(assignment.key)};
    return {field, rawValueIn(*field, assignment.value, unitOf)};
}

/** What can be said before anybody is asked: that no family takes an assignment. */
void checkForAnyFamily(const std::vector<Assignment> &assignments, const recording::UnitChoice &unitOf)
{
    for (const Assignment &assignment : assignments) {
        const QByteArray key = assignment.key.toLatin1();
        std::optional<Failure> reason;
        bool isTaken = false;
        for (const model::Family *family : families()) {
            if (!family->field(QLatin1String(key)))
                continue;
            try {
                checked(assignment, *family, unitOf);
                isTaken = true;
            } catch (const Failure &failure) {
                reason = reason.value_or(failure);
            }
        }
        if (!isTaken)
            throw reason.value_or(Failure{ExitStatus::Usage, unknownField(assignment.key, families())});
    }
}

/** One block for each run of fields side by side, by address; the motor is switched on when all else is as it is to be.
 */
std::vector<Block> blocksOf(std::vector<Write> writes, const model::Field &motor)
{
    const auto isEarlier = [&motor](const Write &one, const Write &other) {
        const auto isSwitchOn = [&motor](const Write &write) { return write.field == &motor && write.raw != 0; };
        if (isSwitchOn(one) != isSwitchOn(other))
            return isSwitchOn(other);
        return one.field->address < other.field->address;
    };
    std::sort(writes.begin(), writes.end(), isEarlier);
    std::vector<Block> blocks;
    for (const Write &write : writes) {
        const bool isAlone = blocks.empty() || write.field == &motor || blocks.back().back().field == &motor;
        if (isAlone || blocks.back().back().field->end() != write.field->address)
            blocks.emplace_back();
        blocks.back().push_back(write);
    }
    return blocks;
}

QByteArray bytesOf(const Block &block)
{
    QByteArray bytes;
    for (const Write &write : block) {
        quint8 own[sizeof(quint32)] = {};
        model::putLittleEndian(model::bitsOf(*write.field, write.raw), write.field->size, own);
        bytes.append(reinterpret_cast<const char *>(own), write.field->size);
    }
    return bytes;
}

/** Writes to one servo, and what is known of it on the way. */
class Setting
{
public:
    Setting(Context &context, int id) : m_context(context), m_bus(context.bus()), m_servo(m_bus.load(id)) {}

    ExitStatus carryOut(const std::vector<Assignment> &assignments, QJsonObject &answer);

private:
    void check() const;
    void checkNewId(const Write &write);
    void show(const Block &block) const;
    void send();
    bool sendBlock(const Block &block);
    void follow(const Block &block);
    model::RegisterImage readBack();
    ExitStatus judge(const model::RegisterImage &after, QJsonObject &answer);
    QString whyNot(const Write &write) const;
    QString text(const Write &write, qint32 raw) const
    {
        return valueText(*write.field, raw, m_context.options().unitOf);
    }

    Context &m_context;
    BusClient &m_bus;
    const Servo m_servo; ///< as it was before
    std::vector<Write> m_writes;
    std::vector<Block> m_blocks;
    int m_id = 0;                            ///< where the servo is by now
    const model::Field *m_refused = nullptr; ///< first field of the block that was
    QString m_refusal;
    quint8 m_alarms = 0; ///< of 1.0 answers to what was written
};

ExitStatus Setting::carryOut(const std::vector<Assignment> &assignments, QJsonObject &answer)
{
    m_id = m_servo.id;
    answer.insert(QStringLiteral("family"), QLatin1String(m_servo.family().name));
    for (const Assignment &assignment : assignments)
        m_writes.push_back(checked(assignment, m_servo.family(), m_context.options().unitOf));
    check();
    m_blocks = blocksOf(m_writes, m_servo.family().motorSwitch());
    if (m_context.options().isDryRun) {
        QJsonArray blocks;
        for (const Block &block : m_blocks) {
            show(block);
            blocks.append(QJsonObject{{QStringLiteral("address"), block.front().field->address},
                                      {QStringLiteral("bytes"), QString::fromLatin1(bytesOf(block).toHex(' '))}});
        }
        answer.insert(QStringLiteral("blocks"), blocks);
        return ExitStatus::Done;
    }
    for (const Write &write : m_writes)
        checkNewId(write);
    send();
    return judge(readBack(), answer);
}

void Setting::check() const
{
    const model::Field &motor = m_servo.family().motorSwitch();
    if (m_servo.image.raw(motor).value_or(0) == 0)
        return;
    for (const Write &write : m_writes) {
        if (write.field->access == model::Access::NonVolatile)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("%1: %2 cannot be changed while the motor is on; first: zelvar-servo set --id "
                                         "%3 %4=off")
                              .arg(m_bus.nameOf(m_id), QLatin1String(write.field->key), QString::number(m_id),
                                   QLatin1String(motor.key))};
    }
}

/** Two servos with one id can neither be told apart nor be given another one. */
void Setting::checkNewId(const Write &write)
{
    const bool isMove = hasKey(*write.field, IdKey) && write.raw != m_servo.id;
    if (isMove && m_bus.isTaken(write.raw))
        throw Failure{ExitStatus::Usage, QStringLiteral("%1: id=%2 is taken by another servo on this bus; choose an id "
                                                        "that nobody answers with")
                                             .arg(m_bus.nameOf(m_id))
                                             .arg(write.raw)};
}

void Setting::show(const Block &block) const
{
    const QByteArray bytes = bytesOf(block);
    const quint8 address = block.front().field->address;
    const auto id = quint8(m_servo.id);
    const QByteArray packet =
        m_servo.framing == wire::Framing::Protocol2
            ? wire::protocol2::encodeInstruction(id, wire::Write, wire::protocol2::writeParameters(address, bytes))
            : wire::protocol1::encode(id, wire::Write, wire::protocol1::writeParameters(address, bytes));
    m_context.output().line(QStringLiteral("%1: would write %2 from register %3 on, as %4")
                                .arg(m_bus.nameOf(m_id), QString::fromLatin1(bytes.toHex(' ')),
                                     QString::number(address), QString::fromLatin1(packet.toHex(' '))));
}

void Setting::send()
{
    for (const Block &block : m_blocks) {
        if (!sendBlock(block))
            return; // what comes next may depend on it
        follow(block);
    }
}

bool Setting::sendBlock(const Block &block)
{
    BusRequest request;
    request.operation = BusRequest::Operation::Write;
    request.id = quint8(m_id);
    request.address = block.front().field->address;
    request.data = bytesOf(block);
    request.framing = m_servo.framing;
    const BusResult result = m_bus.ask(request);
    if (result.answer.framing == wire::Framing::Protocol1)
        m_alarms |= result.answer.instruction;
    if (result.outcome != Outcome::Refused)
        return true; // reading back tells whether an unanswered one has taken
    m_refused = block.front().field;
    m_refusal = BusClient::refusal(result);
    return false;
}

/** Goes where @p block has sent the servo. */
void Setting::follow(const Block &block)
{
    for (const Write &write : block) {
        if (hasKey(*write.field, IdKey))
            m_id = write.raw;
        if (hasKey(*write.field, BaudRateKey))
            m_bus.open(model::baudRateOf(write.raw));
    }
}

model::RegisterImage Setting::readBack()
{
    const int size = m_servo.family().tableSize;
    BusResult result = m_bus.read(m_id, 0, size, m_servo.framing);
    const bool hasMoved = m_id != m_servo.id || m_bus.baudRate() != m_context.baudRate();
    if (result.outcome == Outcome::NoAnswer && hasMoved) {
        // It may not have taken its new address.
        m_bus.open(m_context.baudRate());
        result = m_bus.read(m_servo.id, 0, size, m_servo.framing);
    }
    if (result.outcome != Outcome::Answered)
        throw Failure{ExitStatus::NoAnswer,
                      QStringLiteral("%1 was written to but does not answer any more, so nothing is proved; check it "
                                     "with \"zelvar-servo get\"")
                          .arg(m_bus.nameOf(m_id))};
    model::RegisterImage after(&m_servo.family());
    after.take(0, result.data, SystemClock::instance().now());
    return after;
}

QString Setting::whyNot(const Write &write) const
{
    if (m_refused && write.field->address >= m_refused->address)
        return QStringLiteral("refused with %1").arg(m_refusal);
    Servo servo = m_servo;
    servo.alarms = m_alarms;
    const QString errors = m_alarms ? hardwareErrors(servo).join(QLatin1String(", ")) : QString();
    return errors.isEmpty() ? QStringLiteral("the servo did not keep it")
                            : QStringLiteral("the servo did not keep it and reports: %1").arg(errors);
}

ExitStatus Setting::judge(const model::RegisterImage &after, QJsonObject &answer)
{
    ExitStatus status = ExitStatus::Done;
    QStringList errors;
    QJsonObject fields;
    for (const Write &write : m_writes) {
        const QString key = QLatin1String(write.field->key);
        const qint32 before = m_servo.image.raw(*write.field).value_or(0);
        const qint32 found = after.raw(*write.field).value_or(0);
        const bool isKept = found == write.raw || (write.field->clearsItself && !m_refused);
        if (isKept) {
            m_context.output().line(QStringLiteral("%1: %2=%3 (was %4)")
                                        .arg(m_bus.nameOf(m_servo.id), key, text(write, found), text(write, before)));
        } else {
            errors.append(
                QStringLiteral("%1: %2=%3 not set, it has %4: %5")
                    .arg(m_bus.nameOf(m_servo.id), key, text(write, write.raw), text(write, found), whyNot(write)));
            Output::tell(errors.last());
            status = ExitStatus::Refused;
        }
        QJsonObject field = fieldObject(*write.field, found, m_context.options().unitOf);
        field.insert(QStringLiteral("wanted"), valueObject(*write.field, write.raw, m_context.options().unitOf));
        field.insert(QStringLiteral("kept"), isKept);
        fields.insert(key, field);
    }
    answer.insert(QStringLiteral("fields"), fields);
    if (!errors.isEmpty())
        answer.insert(QStringLiteral("error"), errors.join(QLatin1String("; ")));
    return status;
}

} // namespace

ExitStatus setFields(Context &context)
{
    const std::vector<Assignment> assignments = assignmentsIn(context.options().words);
    if (assignments.empty())
        throw Failure{ExitStatus::Usage, QStringLiteral("nothing to set; write FIELD=VALUE, as target_position=90deg")};
    const std::vector<int> ids = context.servosToChange();
    const auto isId = [](const Assignment &assignment) { return assignment.key == QLatin1String(IdKey); };
    if (ids.size() > 1 && std::any_of(assignments.begin(), assignments.end(), isId))
        throw Failure{ExitStatus::Usage, QStringLiteral("only one servo can be given an id")};
    checkForAnyFamily(assignments, context.options().unitOf);
    return context.forEach(ids, [&](int id, QJsonObject &answer) {
        context.bus().open(context.baudRate());
        return Setting(context, id).carryOut(assignments, answer);
    });
}

} // namespace cli
