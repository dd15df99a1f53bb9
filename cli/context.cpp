#include "cli/context.h"

#include "cli/busclient.h"
#include "cli/ports.h"
#include "cli/scan.h"

#include <QStringList>

#include <utility>

namespace cli {

Context::Context(Options options)
    : m_options(std::move(options)), m_output(m_options.isJson ? Output::Form::Objects : Output::Form::Lines)
{
    m_answer.insert(QStringLiteral("command"), m_options.command);
}

Context::~Context() = default;

int Context::baudRate() const
{
    return m_options.baudRate ? *m_options.baudRate : storedBaudRate();
}

BusClient &Context::bus()
{
    if (m_bus)
        return *m_bus;
    m_bus = std::make_unique<BusClient>(chosenPort(m_options.port), m_options.timeout);
    m_answer.insert(QStringLiteral("port"), m_bus->portName());
    m_answer.insert(QStringLiteral("baud"), baudRate());
    m_bus->open(baudRate());
    return *m_bus;
}

std::vector<int> Context::servosToRead()
{
    if (!m_options.ids.empty())
        return m_options.ids;
    const std::vector<FoundServo> found = Scan::everybodyAt(bus(), baudRate());
    QStringList ids;
    for (const FoundServo &servo : found)
        ids.append(QString::number(servo.id));
    if (found.empty())
        throw Failure{ExitStatus::NoAnswer,
                      QStringLiteral("nobody answers on %1 at %2 baud; look with \"zelvar-servo scan --bauds all\"")
                          .arg(bus().portName())
                          .arg(baudRate())};
    if (found.size() > 1)
        throw Failure{ExitStatus::Usage, QStringLiteral("which servo? Give one with --id; %1 has: %2")
                                             .arg(bus().portName(), ids.join(QLatin1String(", ")))};
    return {found.front().id};
}

const std::vector<int> &Context::servosToChange() const
{
    if (m_options.ids.empty())
        throw Failure{ExitStatus::Usage, QStringLiteral("which servo? %1 needs --id").arg(m_options.command)};
    return m_options.ids;
}

ExitStatus Context::forEach(const std::vector<int> &ids, const std::function<ExitStatus(int, QJsonObject &)> &work)
{
    ExitStatus worst = ExitStatus::Done;
    QJsonArray servos;
    for (const int id : ids) {
        QJsonObject servo{{QStringLiteral("id"), id}};
        ExitStatus status = ExitStatus::Done;
        try {
            status = work(id, servo);
        } catch (const Failure &failure) {
            if (failure.status == ExitStatus::Port)
                throw;
            status = failure.status;
            servo.insert(QStringLiteral("error"), failure.text);
            Output::tell(failure.text);
        }
        servo.insert(QStringLiteral("status"), int(status));
        servos.append(servo);
        m_answer.insert(QStringLiteral("servos"), servos);
        worst = worse(worst, status);
    }
    return worst;
}

} // namespace cli
