#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/profilecommands.h"
#include "cli/values.h"
#include "model/baudrates.h"

#include <QDateTime>

#include <algorithm>
#include <map>

namespace cli {

using profile::Block;
using profile::Comparison;
using profile::Pair;
using profile::Profile;

namespace {

using Outcome = BusResult::Outcome;
using Fields = std::vector<const model::Field *>;

/** What became of the fields that were compared. */
struct Counts
{
    int compared = 0;
    int equal = 0; ///< before anything was written
    int written = 0;
    int refused = 0;
    int missing = 0; ///< asked for, but the file does not have them

    bool isAll() const { return refused == 0 && missing == 0; }
    QString text() const
    {
        return QStringLiteral("compared %1, equal %2, written %3, refused %4, missing %5")
            .arg(compared)
            .arg(equal)
            .arg(written)
            .arg(refused)
            .arg(missing);
    }
    QJsonObject asObject() const
    {
        return {{QStringLiteral("compared"), compared},
                {QStringLiteral("equal"), equal},
                {QStringLiteral("written"), written},
                {QStringLiteral("refused"), refused},
                {QStringLiteral("missing"), missing}};
    }
};

/** Whether @p field is restored unless only some were asked for. */
bool isWanted(const model::Field &field, const Options &options)
{
    if (profile::isAddress(field))
        return options.withId;
    if (profile::belongsToOneServo(field))
        return options.withHome;
    return options.only.isEmpty();
}

/** What is to be restored: what was asked for, else what the file has but for what is each servo's own. */
Fields chosen(const Profile &file, const Options &options)
{
    const Fields asked = options.only.isEmpty() ? Fields() : askedFor(options, file.family());
    Fields fields;
    for (const model::Field *field : profile::nonVolatileFields(file.family())) {
        const bool isAsked = std::find(asked.begin(), asked.end(), field) != asked.end();
        if (isAsked || (file.raw(*field) && isWanted(*field, options)))
            fields.push_back(field);
    }
    return fields;
}

/** Where a servo is found on the bus. */
struct Address
{
    int id;
    int baudRate; ///< bits per second

    bool operator==(const Address &other) const { return id == other.id && baudRate == other.baudRate; }
};

/** Brings what a file has into one servo. */
class Restoring
{
public:
    Restoring(Context &context, const Profile &file, Fields fields, int id)
        : m_context(context), m_bus(context.bus()), m_file(file),
          m_fields(std::move(fields)), m_home{id, context.baudRate()}, m_address(m_home), m_name(m_bus.nameOf(id))
    {
    }

    ExitStatus carryOut(QJsonObject &answer);

private:
    void find();
    void compare();
    Address addressAfter(const std::vector<Pair> &pairs) const;
    void check() const;
    void checkNewAddress();
    void showPlan(const std::vector<Block> &plan, QJsonObject &answer);
    void switchMotorOff();
    void send(const std::vector<Block> &plan);
    bool sendBlock(const Block &block);
    void note(const Block &block, const QString &reason);
    BusResult write(int address, const QByteArray &bytes);
    bool isMotorOn() const { return m_servo.image.raw(m_servo.family().motorSwitch()).value_or(0) != 0; }
    void readBack();
    void tellLeftOut(QJsonObject &answer);
    QString whyNot(const Pair &pair) const;
    ExitStatus judge(QJsonObject &answer);

    Context &m_context;
    BusClient &m_bus;
    const Profile &m_file;
    const Fields m_fields; ///< to restore
    const Address m_home;  ///< where the servo is asked for
    Address m_address;     ///< where it is by now
    const QString m_name;
    Servo m_servo;
    Comparison m_comparison;                            ///< before anything was written
    std::map<const model::Field *, QString> m_refusals; ///< why the servo has not got them
};

ExitStatus Restoring::carryOut(QJsonObject &answer)
{
    find();
    answer.insert(QStringLiteral("family"), QLatin1String(m_servo.family().name));
    compare();
    const std::vector<Pair> differences = m_comparison.differences();
    const std::vector<Block> plan = profile::restorePlan(m_comparison);
    print(m_context, m_home.id, differences);
    tellLeftOut(answer);
    if (m_context.options().isDryRun) {
        showPlan(plan, answer);
        return ExitStatus::Done;
    }
    if (!plan.empty()) {
        check();
        checkNewAddress();
        if (isMotorOn())
            switchMotorOff();
        send(plan);
        readBack();
    }
    return judge(answer);
}

/**
 * Reads the servo. An earlier run may have been cut off behind its last write, which moves the servo: then it is found
 * at its new address, and is taken for the one that was asked for because all of it is as in the file.
 */
void Restoring::find()
{
    m_bus.open(m_address.baudRate);
    try {
        m_servo = m_bus.load(m_address.id);
        return;
    } catch (const Failure &failure) {
        std::vector<Pair> wanted;
        for (const model::Field *field : m_fields) {
            if (const auto raw = m_file.raw(*field))
                wanted.push_back({field, 0, *raw});
        }
        const Address moved = addressAfter(wanted);
        if (failure.status != ExitStatus::NoAnswer || moved == m_address)
            throw;
        m_bus.open(moved.baudRate);
        if (!m_bus.isTaken(moved.id))
            throw;
        m_servo = m_bus.load(moved.id);
        const Profile there = Profile::of(m_servo.image, QDateTime::currentDateTimeUtc());
        const Comparison comparison = profile::compare(there, m_file, m_fields);
        if (there.model != m_file.model || !comparison.differences().empty())
            throw;
        m_address = moved;
    }
}

void Restoring::compare()
{
    const Profile servo = Profile::of(m_servo.image, QDateTime::currentDateTimeUtc());
    checkModels(m_file, m_context.options().words.front(), servo, m_name);
    m_comparison = profile::compare(servo, m_file, m_fields);
}

Address Restoring::addressAfter(const std::vector<Pair> &pairs) const
{
    Address address = m_address;
    for (const Pair &pair : pairs) {
        if (!profile::isAddress(*pair.field))
            continue;
        if (pair.field->kind == model::FieldKind::BaudRate)
            address.baudRate = model::nominalBaudRate(pair.file);
        else
            address.id = pair.file;
    }
    return address;
}

void Restoring::check() const
{
    if (isMotorOn() && !m_context.options().motorOff)
        throw Failure{ExitStatus::Usage, QStringLiteral("%1: its motor is on; add --motor-off to have it switched off "
                                                        "first, which frees the shaft")
                                             .arg(m_name)};
    if (m_servo.image.raw(QLatin1String("lock")).value_or(0) != 0)
        throw Failure{
            ExitStatus::Refused,
            QStringLiteral("%1: its lock is on, so it keeps its parameters; switch its supply off and on").arg(m_name)};
    for (const Pair &pair : m_comparison.differences()) {
        if (qstrcmp(pair.field->key, "status_return_level") == 0 && pair.file == 0)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("%1: with status_return_level=0 it could not be read any more, so nothing "
                                         "would be proved; edit the file")
                              .arg(m_name)};
    }
}

/** Two servos with one id can neither be told apart nor be given another one. */
void Restoring::checkNewAddress()
{
    const Address after = addressAfter(m_comparison.differences());
    if (after == m_address)
        return;
    m_bus.open(after.baudRate);
    const bool isTaken = m_bus.isTaken(after.id);
    m_bus.open(m_address.baudRate);
    if (isTaken)
        throw Failure{ExitStatus::Usage,
                      QStringLiteral("%1: another servo has the id %2 at %3 baud; give that one another id first")
                          .arg(m_name)
                          .arg(after.id)
                          .arg(after.baudRate)};
}

void Restoring::showPlan(const std::vector<Block> &plan, QJsonObject &answer)
{
    QJsonArray blocks;
    for (const Block &block : plan) {
        const QString bytes = QString::fromLatin1(block.bytes().toHex(' '));
        m_context.output().line(QStringLiteral("%1: would write %2 from register %3 on")
                                    .arg(m_name, bytes, QString::number(block.address())));
        blocks.append(QJsonObject{{QStringLiteral("address"), block.address()}, {QStringLiteral("bytes"), bytes}});
    }
    if (plan.empty())
        m_context.output().line(QStringLiteral("%1: nothing to write").arg(m_name));
    answer.insert(QStringLiteral("blocks"), blocks);
    answer.insert(QStringLiteral("fields"), fieldObjects(m_comparison.differences(), m_context.options().unitOf));
}

void Restoring::switchMotorOff()
{
    const model::Field &motor = m_servo.family().motorSwitch();
    write(motor.address, QByteArray(motor.size, '\0'));
    m_bus.refresh(m_servo, motor.address, motor.size);
    if (isMotorOn())
        throw Failure{ExitStatus::Refused, QStringLiteral("%1: its motor could not be switched off").arg(m_name)};
    m_context.output().line(QStringLiteral("%1: motor off").arg(m_name));
}

void Restoring::send(const std::vector<Block> &plan)
{
    bool goesOn = true;
    for (const Block &block : plan) {
        // A servo that has not taken everything stays where it is, so that the next run finds it.
        const bool isMove = profile::isAddress(*block.fields.front().field);
        goesOn = goesOn && !(isMove && !m_refusals.empty());
        if (goesOn)
            goesOn = sendBlock(block);
        else
            note(block, QStringLiteral("left as it is, since not all before it was taken"));
    }
}

void Restoring::note(const Block &block, const QString &reason)
{
    for (const Pair &pair : block.fields)
        m_refusals[pair.field] = reason;
}

/** @return whether to go on: not when nobody can tell whether the servo has the block, on which others may depend. */
bool Restoring::sendBlock(const Block &block)
{
    const BusResult result = write(block.address(), block.bytes());
    if (result.outcome == Outcome::Refused)
        note(block, QStringLiteral("refused with %1").arg(BusClient::refusal(result)));
    m_address = addressAfter(result.outcome == Outcome::Refused ? std::vector<Pair>() : block.fields);
    m_bus.open(m_address.baudRate);
    if (result.outcome != Outcome::NoAnswer)
        return true;
    const BusResult found = m_bus.read(m_address.id, block.address(), block.bytes().size(), m_servo.framing);
    return found.data == block.bytes();
}

BusResult Restoring::write(int address, const QByteArray &bytes)
{
    BusRequest request;
    request.operation = BusRequest::Operation::Write;
    request.id = quint8(m_address.id);
    request.address = quint8(address);
    request.data = bytes;
    request.framing = m_servo.framing;
    return m_bus.ask(request);
}

void Restoring::readBack()
{
    const int size = m_servo.family().tableSize;
    BusResult result = m_bus.read(m_address.id, 0, size, m_servo.framing);
    if (result.outcome == Outcome::NoAnswer && !(m_address == m_home)) {
        m_bus.open(m_home.baudRate); // it may not have taken its new address
        result = m_bus.read(m_home.id, 0, size, m_servo.framing);
    }
    if (result.outcome != Outcome::Answered)
        throw Failure{ExitStatus::NoAnswer,
                      QStringLiteral("%1 was written to but does not answer any more, so nothing is proved; the same "
                                     "command again does what is left")
                          .arg(m_name)};
    m_servo.image.take(0, result.data, SystemClock::instance().now());
}

/** Names what differs and stays so because it was not asked for. */
void Restoring::tellLeftOut(QJsonObject &answer)
{
    QStringList keys;
    for (const profile::Value &value : m_file.values) {
        const bool isChosen = std::find(m_fields.begin(), m_fields.end(), value.field) != m_fields.end();
        if (!isChosen && m_servo.image.raw(*value.field) != value.raw)
            keys.append(QLatin1String(value.field->key));
    }
    answer.insert(QStringLiteral("leftOut"), QJsonArray::fromStringList(keys));
    if (!keys.isEmpty())
        m_context.output().line(
            QStringLiteral("%1: different but left out: %2").arg(m_name, keys.join(QLatin1String(", "))));
}

/** What to say of @p pair, which is not equal although it was to be. */
QString Restoring::whyNot(const Pair &pair) const
{
    const auto &unitOf = m_context.options().unitOf;
    const auto refusal = m_refusals.find(pair.field);
    return QStringLiteral("%1: %2=%3 not set, it has %4: %5")
        .arg(m_name, QLatin1String(pair.field->key), valueText(*pair.field, pair.file, unitOf),
             valueText(*pair.field, pair.servo, unitOf),
             refusal == m_refusals.end() ? QStringLiteral("the servo did not keep it") : refusal->second);
}

ExitStatus Restoring::judge(QJsonObject &answer)
{
    Counts counts;
    counts.compared = int(m_comparison.pairs.size());
    counts.missing = int(m_comparison.missing.size());
    QStringList errors;
    for (const model::Field *field : m_comparison.missing)
        errors.append(QStringLiteral("%1: the file does not have %2").arg(m_name, QLatin1String(field->key)));
    QJsonObject fields;
    for (const Pair &before : m_comparison.pairs) {
        const Pair now{before.field, m_servo.image.raw(*before.field).value_or(0), before.file};
        counts.equal += before.isEqual() && now.isEqual() ? 1 : 0;
        counts.written += !before.isEqual() && now.isEqual() ? 1 : 0;
        counts.refused += now.isEqual() ? 0 : 1;
        if (before.isEqual() && now.isEqual())
            continue;
        QJsonObject object = fieldObject(now, m_context.options().unitOf);
        object.insert(QStringLiteral("kept"), now.isEqual());
        fields.insert(QLatin1String(now.field->key), object);
        if (!now.isEqual())
            errors.append(whyNot(now));
    }
    for (const QString &error : errors)
        Output::tell(error);
    m_context.output().line(
        QStringLiteral("%1: %2: %3")
            .arg(m_name, counts.isAll() ? QStringLiteral("restored") : QStringLiteral("not all is as in the file"),
                 counts.text()));
    answer.insert(QStringLiteral("fields"), fields);
    answer.insert(QStringLiteral("counts"), counts.asObject());
    answer.insert(QStringLiteral("restored"), counts.isAll());
    if (!errors.isEmpty())
        answer.insert(QStringLiteral("error"), errors.join(QLatin1String("; ")));
    return counts.isAll() ? ExitStatus::Done : ExitStatus::Refused;
}

} // namespace

ExitStatus restoreServos(Context &context)
{
    const Profile file = loadProfile(context.options().words.front());
    const std::vector<int> ids = context.servosToChange();
    const Fields fields = chosen(file, context.options());
    const bool hasAddress =
        std::any_of(fields.begin(), fields.end(), [](const model::Field *field) { return profile::isAddress(*field); });
    if (ids.size() > 1 && hasAddress)
        throw Failure{ExitStatus::Usage, QStringLiteral("only one servo can be given an id and a baud rate")};
    return context.forEach(
        ids, [&](int id, QJsonObject &answer) { return Restoring(context, file, fields, id).carryOut(answer); });
}

} // namespace cli
