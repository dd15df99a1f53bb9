#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/ports.h"
#include "cli/profilecommands.h"
#include "cli/values.h"
#include "profile/restoration.h"

#include <QDateTime>

#include <algorithm>
#include <array>

namespace cli {

using model::ServoAddress;
using profile::Block;
using profile::Comparison;
using profile::Obstacle;
using profile::Pair;
using profile::Profile;
using profile::RestoredField;
using profile::RestoreReport;

namespace {

using Fate = RestoredField::Fate;
using Fields = std::vector<const model::Field *>;

/** How many fields have become what. */
struct Count
{
    const char *name;
    int value;
};

std::array<Count, 5> countsOf(const RestoreReport &report)
{
    return {{{"compared", int(report.fields.size())},
             {"equal", report.count(Fate::Equal)},
             {"written", report.count(Fate::Written)},
             {"refused", report.refusedCount()},
             {"missing", int(report.missing.size())}}};
}

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

/** What to say of an obstacle, and how the program ends with it. */
struct ObstacleRow
{
    Obstacle obstacle;
    ExitStatus status;
    const char *text;
};
// clang-format off
constexpr ObstacleRow Obstacles[] = {
    {Obstacle::Refused,      ExitStatus::Refused, "it refuses to be read"},
    {Obstacle::OtherModel,   ExitStatus::Usage,   "by now another servo answers, of another model"},
    {Obstacle::MotorOn,      ExitStatus::Usage,   "its motor is on; add --motor-off to have it switched off first, which frees the shaft"},
    {Obstacle::MotorStaysOn, ExitStatus::Refused, "its motor could not be switched off"},
    {Obstacle::Locked,       ExitStatus::Refused, "its lock is on, so it keeps its parameters; switch its supply off and on"},
    {Obstacle::Unreadable,   ExitStatus::Usage,   "with status_return_level=0 it could not be read any more, so nothing would be proved; edit the file"},
};
// clang-format on

/** Brings what a file has into one servo. */
class Restoring
{
public:
    Restoring(Context &context, const Profile &file, Fields fields, int id)
        : m_context(context), m_bus(context.bus()), m_file(file),
          m_fields(std::move(fields)), m_address{id, context.baudRate()}, m_name(m_bus.nameOf(id))
    {
    }

    ExitStatus carryOut(QJsonObject &answer);

private:
    void find();
    void showPlan(const Comparison &comparison, QJsonObject &answer);
    RestoreReport restore();
    [[noreturn]] void fail(const RestoreReport &report) const;
    void tellLeftOut(QJsonObject &answer);
    QString whyNot(const RestoredField &field) const;
    ExitStatus judge(const RestoreReport &report, QJsonObject &answer);

    Context &m_context;
    BusClient &m_bus;
    const Profile &m_file;
    const Fields m_fields; ///< to restore
    ServoAddress m_address;
    const QString m_name;
    Servo m_servo;
};

ExitStatus Restoring::carryOut(QJsonObject &answer)
{
    find();
    answer.insert(QStringLiteral("family"), QLatin1String(m_servo.family().name));
    const Profile servo = Profile::of(m_servo.image, QDateTime::currentDateTimeUtc());
    checkModels(m_file, m_context.options().words.front(), servo, m_name);
    const Comparison comparison = profile::compare(servo, m_file, m_fields);
    print(m_context, m_address.id, comparison.differences());
    tellLeftOut(answer);
    if (m_context.options().isDryRun) {
        showPlan(comparison, answer);
        return ExitStatus::Done;
    }
    const RestoreReport report = restore();
    if (report.obstacle != Obstacle::None)
        fail(report);
    return judge(report, answer);
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
        const ServoAddress moved = profile::Restoration::addressAfter(m_address, wanted);
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

void Restoring::showPlan(const Comparison &comparison, QJsonObject &answer)
{
    QJsonArray blocks;
    for (const Block &block : profile::restorePlan(comparison)) {
        const QString bytes = QString::fromLatin1(block.bytes().toHex(' '));
        m_context.output().line(QStringLiteral("%1: would write %2 from register %3 on")
                                    .arg(m_name, bytes, QString::number(block.address())));
        blocks.append(QJsonObject{{QStringLiteral("address"), block.address()}, {QStringLiteral("bytes"), bytes}});
    }
    if (blocks.isEmpty())
        m_context.output().line(QStringLiteral("%1: nothing to write").arg(m_name));
    answer.insert(QStringLiteral("blocks"), blocks);
    answer.insert(QStringLiteral("fields"), fieldObjects(comparison.differences(), m_context.options().unitOf));
}

RestoreReport Restoring::restore()
{
    const auto open = [this](int baudRate) {
        try {
            m_bus.open(baudRate);
        } catch (const Failure &failure) {
            return failure.text;
        }
        return QString();
    };
    profile::Restoration restoration(m_bus.bus(), open, m_bus.timeout());
    QObject::connect(&restoration, &profile::Restoration::ended, &m_bus, &BusClient::woken);
    restoration.begin(m_address, {m_file, m_fields, m_context.options().motorOff});
    m_bus.runUntil([&] {
        if (m_bus.isInterrupted())
            restoration.stop();
        return restoration.isEnded();
    });
    if (m_bus.isInterrupted())
        throw Interrupted{};
    return restoration.report();
}

void Restoring::fail(const RestoreReport &report) const
{
    for (const ObstacleRow &row : Obstacles) {
        if (row.obstacle == report.obstacle)
            throw Failure{row.status, m_name + QLatin1String(": ") + QLatin1String(row.text)};
    }
    if (report.obstacle == Obstacle::AddressTaken)
        throw Failure{ExitStatus::Usage,
                      QStringLiteral("%1: another servo has the id %2 at %3 baud; give that one another id first")
                          .arg(m_name)
                          .arg(report.wantedAddress.id)
                          .arg(report.wantedAddress.baudRate)};
    if (report.obstacle == Obstacle::NoAnswer && !report.hasWritten)
        m_bus.failWithoutAnswer(m_address.id);
    if (report.obstacle == Obstacle::NoAnswer)
        throw Failure{ExitStatus::NoAnswer,
                      QStringLiteral("%1 was written to but does not answer any more, so nothing is proved; the same "
                                     "command again does what is left")
                          .arg(m_name)};
    throw Failure{ExitStatus::Port, report.portError.isEmpty() ? lossText(m_bus.portName()) : report.portError};
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

/** What to say of @p field, which the servo has not got. */
QString Restoring::whyNot(const RestoredField &field) const
{
    const auto &unitOf = m_context.options().unitOf;
    QString reason = QStringLiteral("the servo did not keep it");
    if (field.fate == Fate::Refused)
        reason = QStringLiteral("refused with %1").arg(BusClient::refusal(field.error));
    else if (field.fate == Fate::LeftOut)
        reason = QStringLiteral("left as it is, since not all before it was taken");
    return QStringLiteral("%1: %2=%3 not set, it has %4: %5")
        .arg(m_name, QLatin1String(field.now.field->key), valueText(*field.now.field, field.now.file, unitOf),
             valueText(*field.now.field, field.now.servo, unitOf), reason);
}

ExitStatus Restoring::judge(const RestoreReport &report, QJsonObject &answer)
{
    if (report.isMotorSwitchedOff)
        m_context.output().line(QStringLiteral("%1: motor off").arg(m_name));
    QStringList errors;
    for (const model::Field *field : report.missing)
        errors.append(QStringLiteral("%1: the file does not have %2").arg(m_name, QLatin1String(field->key)));
    QJsonObject fields;
    for (const RestoredField &field : report.fields) {
        if (field.fate == Fate::Equal)
            continue;
        QJsonObject object = fieldObject(field.now, m_context.options().unitOf);
        object.insert(QStringLiteral("kept"), field.isRestored());
        fields.insert(QLatin1String(field.now.field->key), object);
        if (!field.isRestored())
            errors.append(whyNot(field));
    }
    for (const QString &error : errors)
        Output::tell(error);
    QJsonObject counts;
    QStringList countTexts;
    for (const Count &count : countsOf(report)) {
        counts.insert(QLatin1String(count.name), count.value);
        countTexts.append(QStringLiteral("%1 %2").arg(QLatin1String(count.name)).arg(count.value));
    }
    const bool isRestored = report.isRestored();
    m_context.output().line(
        QStringLiteral("%1: %2: %3")
            .arg(m_name, isRestored ? QStringLiteral("restored") : QStringLiteral("not all is as in the file"),
                 countTexts.join(QLatin1String(", "))));
    answer.insert(QStringLiteral("fields"), fields);
    answer.insert(QStringLiteral("counts"), counts);
    answer.insert(QStringLiteral("restored"), isRestored);
    if (!errors.isEmpty())
        answer.insert(QStringLiteral("error"), errors.join(QLatin1String("; ")));
    return isRestored ? ExitStatus::Done : ExitStatus::Refused;
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
