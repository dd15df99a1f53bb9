#include "cli/busclient.h"

#include "cli/failure.h"
#include "cli/ports.h"
#include "model/families.h"
#include "model/refusals.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace cli {

namespace {

using Operation = BusRequest::Operation;
using Outcome = BusResult::Outcome;

constexpr int ModelSize = 2; ///< registers of the model number, the first ones of each family

} // namespace

QStringList hardwareErrors(const Servo &servo)
{
    QStringList errors;
    for (const model::Field &field : servo.family().fields) {
        // An AX-12 has no register of them; its alarms have the same bits as its answers.
        const bool isReported = servo.framing == wire::Framing::Protocol1;
        const bool hasErrors = isReported ? qstrcmp(field.key, "alarm_led") == 0 : !field.isWritable();
        const quint32 bits = isReported ? servo.alarms : servo.image.bits(field).value_or(0);
        for (const model::Flag &flag : field.flags) {
            if (hasErrors && (bits & (1U << flag.bit)))
                errors.append(QLatin1String(flag.label));
        }
    }
    return errors;
}

BusClient::BusClient(QString portName, std::chrono::milliseconds timeout)
    : m_portName(std::move(portName)), m_timeout(timeout)
{
    connect(&m_signals, &process::TerminationSignals::requested, this, [this] {
        m_isInterrupted = true;
        Q_EMIT woken();
    });
    connect(&m_bus, &ServoBus::connectionLost, this, [this](const QString &reason) { m_lossReason = reason; });
}

BusClient::~BusClient() = default;

void BusClient::open(int baudRate)
{
    if (m_bus.isOpen() && m_baudRate == baudRate)
        return;
    const QString error = m_bus.open(m_portName, baudRate);
    if (!error.isEmpty())
        throw Failure{ExitStatus::Port, whyNotOpened(m_portName, error)};
    m_baudRate = baudRate;
}

void BusClient::runUntil(const std::function<bool()> &isOver)
{
    QEventLoop loop;
    const auto connection = connect(this, &BusClient::woken, &loop, &QEventLoop::quit);
    while (!isOver())
        loop.exec();
}

BusResult BusClient::ask(const BusRequest &request)
{
    if (m_isInterrupted)
        throw Interrupted{};
    BusResult answer;
    bool isEnded = false;
    m_bus.request(request, [&](const BusResult &result) {
        answer = result;
        isEnded = true;
        Q_EMIT woken();
    });
    runUntil([&isEnded] { return isEnded; }); // also when interrupted: nobody is left half asked
    if (answer.outcome == Outcome::PortLost)
        throw Failure{ExitStatus::Port, lossText(m_portName)};
    return answer;
}

BusResult BusClient::read(int id, int address, int length, std::optional<wire::Framing> framing)
{
    const auto deadline = SystemClock::instance().now() + m_timeout;
    const BusRequest request{Operation::Read, quint8(id), quint8(address), quint8(length), {}, framing};
    for (;;) {
        BusResult result = ask(request);
        if (result.outcome != Outcome::NoAnswer || SystemClock::instance().now() >= deadline)
            return result;
    }
}

Servo BusClient::load(int id)
{
    // One exchange does for the own family; the other one refuses to be read so far.
    BusResult result = read(id, 0, model::ZelvarV1Family.tableSize, std::nullopt);
    const bool isOther = result.outcome == Outcome::Refused;
    if (isOther)
        result = read(id, 0, ModelSize, std::nullopt);
    checkAnswer(id, result);
    Servo servo = identified(id, result);
    if (isOther || &servo.family() != &model::ZelvarV1Family)
        refresh(servo, 0, servo.family().tableSize);
    return servo;
}

Servo BusClient::identified(int id, const BusResult &result) const
{
    const quint16 model = wire::fromLittleEndian16(result.data, 0);
    Servo servo{id, result.answer.framing, model::RegisterImage(&model::familyOf(model))};
    servo.image.take(0, result.data, SystemClock::instance().now());
    return servo;
}

void BusClient::refresh(Servo &servo, int address, int size)
{
    const BusResult result = read(servo.id, address, size, servo.framing);
    checkAnswer(servo.id, result);
    servo.image.take(address, result.data, SystemClock::instance().now());
    if (servo.framing == wire::Framing::Protocol1)
        servo.alarms = result.answer.instruction;
}

void BusClient::checkAnswer(int id, const BusResult &result) const
{
    if (result.outcome == Outcome::Refused)
        throw Failure{ExitStatus::Refused,
                      QStringLiteral("%1 refuses to be read: %2").arg(nameOf(id), refusal(result))};
    if (result.outcome != Outcome::Answered)
        failWithoutAnswer(id);
}

bool BusClient::isTaken(int id)
{
    return read(id, 0, ModelSize, std::nullopt).outcome != Outcome::NoAnswer;
}

void BusClient::waitUntil(Clock::TimePoint moment)
{
    const auto now = [] { return SystemClock::instance().now(); };
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &BusClient::woken);
    while (now() < moment && !m_isInterrupted && m_lossReason.isEmpty()) {
        timer.start(std::chrono::ceil<std::chrono::milliseconds>(moment - now()));
        bool hasWoken = false;
        runUntil([&hasWoken] { return std::exchange(hasWoken, true); });
    }
    if (m_isInterrupted)
        throw Interrupted{};
}

QString BusClient::nameOf(int id) const
{
    return QStringLiteral("servo %1 on %2").arg(id).arg(m_portName);
}

void BusClient::failWithoutAnswer(int id) const
{
    throw Failure{ExitStatus::NoAnswer,
                  QStringLiteral("no answer from %1 at %2 baud; check its supply, cable, id and baud rate, or look for "
                                 "it with \"zelvar-servo scan --bauds all\"")
                      .arg(nameOf(id))
                      .arg(m_baudRate)};
}

QString BusClient::refusal(quint8 errorByte)
{
    const int number = errorByte & model::ErrorNumberMask;
    for (const model::Refusal &row : model::Refusals) {
        if (row.error == number)
            return QLatin1String(row.text);
    }
    return QStringLiteral("error %1").arg(number);
}

} // namespace cli
