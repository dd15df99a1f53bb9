#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/scan.h"
#include "model/families.h"
#include "session/motorstop.h"

#include <set>

namespace cli {

namespace {

using namespace std::chrono_literals;
using Operation = BusRequest::Operation;
using Outcome = BusResult::Outcome;

/** How often something is asked for that the bus sends once, since a lost answer may as well be a lost request. */
constexpr int Attempts = 3;
/** A servo is back from a reboot by then. */
constexpr std::chrono::milliseconds BootPatience{2000};
constexpr std::chrono::milliseconds Pause{50}; ///< between two looks whether it is

/** Where servos of a family are found after a factory reset, if not where they were. */
struct ResetHome
{
    const model::Family *family;
    int id;
    int baudRate;
};
constexpr ResetHome ResetHomes[] = {
    {&model::DynamixelAx12Family, 1, 1000000},
};

const ResetHome *resetHome(const model::Family &family)
{
    for (const ResetHome &row : ResetHomes) {
        if (row.family == &family)
            return &row;
    }
    return nullptr;
}

void checkHomeIsFree(BusClient &bus, const Servo &servo, const ResetHome &home)
{
    if (servo.id == home.id && bus.baudRate() == home.baudRate)
        return;
    const int baudRate = bus.baudRate();
    bus.open(home.baudRate);
    const bool isTaken = bus.isTaken(home.id);
    bus.open(baudRate);
    if (isTaken)
        throw Failure{
            ExitStatus::Usage,
            QStringLiteral("%1 would get the id %2, which another servo has at %3 baud; give that one another "
                           "id first, or take it off the bus")
                .arg(bus.nameOf(servo.id))
                .arg(home.id)
                .arg(home.baudRate)};
}

/** Asks for @p operation until it is answered. */
BusResult insist(BusClient &bus, const Servo &servo, Operation operation)
{
    BusRequest request;
    request.operation = operation;
    request.id = quint8(servo.id);
    request.framing = servo.framing;
    BusResult result;
    for (int i = 0; i < Attempts && result.outcome == Outcome::NoAnswer; ++i)
        result = bus.ask(request);
    if (result.outcome == Outcome::Refused)
        throw Failure{ExitStatus::Refused,
                      QStringLiteral("%1 refuses: %2").arg(bus.nameOf(servo.id), BusClient::refusal(result))};
    return result;
}

/** Whether @p id answers within the time of a reboot. */
bool isBack(BusClient &bus, int id)
{
    const auto deadline = SystemClock::instance().now() + BootPatience;
    while (SystemClock::instance().now() < deadline) {
        if (bus.isTaken(id))
            return true;
        bus.waitUntil(SystemClock::instance().now() + Pause);
    }
    return false;
}

ExitStatus reboot(Context &context, int id)
{
    BusClient &bus = context.bus();
    const Servo servo = bus.load(id);
    if (servo.framing == wire::Framing::Protocol1)
        throw Failure{ExitStatus::Refused,
                      QStringLiteral("%1 cannot be rebooted: an AX-12 knows no reboot; switch its supply off and on")
                          .arg(bus.nameOf(id))};
    insist(bus, servo, Operation::Reboot);
    if (!isBack(bus, id))
        bus.failWithoutAnswer(id);
    context.output().line(QStringLiteral("%1: rebooted").arg(bus.nameOf(id)));
    return ExitStatus::Done;
}

ExitStatus reset(Context &context, int id, QJsonObject &answer)
{
    BusClient &bus = context.bus();
    bus.open(context.baudRate());
    const Servo servo = bus.load(id);
    const ResetHome *home = resetHome(servo.family());
    if (home)
        checkHomeIsFree(bus, servo, *home);
    insist(bus, servo, Operation::FactoryReset);
    const int newId = home ? home->id : id;
    bus.open(home ? home->baudRate : context.baudRate());
    if (!isBack(bus, newId))
        bus.failWithoutAnswer(newId);
    answer.insert(QStringLiteral("newId"), newId);
    answer.insert(QStringLiteral("newBaud"), bus.baudRate());
    context.output().line(QStringLiteral("%1: set back to its factory values; it is servo %2 at %3 baud now")
                              .arg(bus.nameOf(id))
                              .arg(newId)
                              .arg(bus.baudRate()));
    return ExitStatus::Done;
}

/** Stops of several servos at once, until each is proved or overdue. */
class Stops
{
public:
    explicit Stops(BusClient &bus) : m_bus(bus) {}

    void begin(int id)
    {
        auto stop = std::make_unique<session::MotorStop>(m_bus.bus());
        QObject::connect(stop.get(), &session::MotorStop::proved, &m_bus, [this, id] { end(id, m_proved); });
        QObject::connect(stop.get(), &session::MotorStop::overdue, &m_bus, [this, id] { end(id, m_overdue); });
        stop->begin(quint8(id), nullptr);
        m_stops.push_back(std::move(stop));
        ++m_running;
    }
    /** Returns when each has ended. */
    void wait()
    {
        while (m_running > 0)
            m_bus.waitUntil(SystemClock::instance().now() + Pause);
        for (const auto &stop : m_stops)
            stop->end();
    }
    bool isProved(int id) const { return m_proved.count(id) > 0; }

private:
    void end(int id, std::set<int> &group)
    {
        if (m_proved.count(id) + m_overdue.count(id) > 0)
            return;
        group.insert(id);
        if (--m_running == 0)
            Q_EMIT m_bus.woken();
    }

    BusClient &m_bus;
    std::vector<std::unique_ptr<session::MotorStop>> m_stops;
    std::set<int> m_proved;
    std::set<int> m_overdue;
    int m_running = 0;
};

} // namespace

ExitStatus stopMotors(Context &context)
{
    BusClient &bus = context.bus();
    Stops stops(bus);
    std::vector<int> ids = context.options().ids;
    if (ids.empty()) {
        session::MotorStop all(bus.bus());
        all.tellAll(); // ahead of everything else; the search that follows goes out behind it
        std::set<int> found;
        for (const FoundServo &servo : Scan::everybodyAt(bus, context.baudRate()))
            found.insert(servo.id);
        ids.assign(found.begin(), found.end());
        if (ids.empty())
            throw Failure{
                ExitStatus::NoAnswer,
                QStringLiteral("all servos on %1 were told to stop at %2 baud, but nobody answers, so nothing "
                               "is proved")
                    .arg(bus.portName())
                    .arg(bus.baudRate())};
    }
    for (const int id : ids)
        stops.begin(id);
    stops.wait();
    return context.forEach(ids, [&](int id, QJsonObject &answer) {
        answer.insert(QStringLiteral("stopped"), stops.isProved(id));
        if (!stops.isProved(id))
            throw Failure{ExitStatus::NoAnswer,
                          QStringLiteral("%1 was told to stop but no reading shows its motor off; cut its supply")
                              .arg(bus.nameOf(id))};
        context.output().line(QStringLiteral("%1: motor off").arg(bus.nameOf(id)));
        return ExitStatus::Done;
    });
}

ExitStatus rebootServos(Context &context)
{
    return context.forEach(context.servosToChange(), [&](int id, QJsonObject &) { return reboot(context, id); });
}

ExitStatus resetServos(Context &context)
{
    return context.forEach(context.servosToChange(),
                           [&](int id, QJsonObject &answer) { return reset(context, id, answer); });
}

} // namespace cli
