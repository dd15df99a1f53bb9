#include "simulator/simulator.h"

namespace simulator {

namespace {

constexpr int BitsPerByte = 1 + 8 + 1; ///< on the wire: start bit, data, stop bit
/** How often moving servos are brought up to date when nobody asks; only keeps the catching up short. */
constexpr std::chrono::milliseconds MotionInterval(100);

std::chrono::microseconds wireTime(int bytes, int baudRate)
{
    constexpr qint64 MicrosecondsPerSecond = 1000000;
    if (baudRate <= 0)
        return {};
    return std::chrono::microseconds(MicrosecondsPerSecond * BitsPerByte * bytes / baudRate);
}

SimulatedBus::Servos makeServos(const std::vector<ServoChoice> &choices)
{
    SimulatedBus::Servos servos;
    for (const ServoChoice &choice : choices)
        servos.push_back(choice.makeServo());
    return servos;
}

} // namespace

Simulator::Simulator(const SimulatorOptions &options, QObject *parent)
    : QObject(parent), m_options(options), m_bus(makeServos(options.servos)), m_faults(options.faults, options.seed),
      m_schedule(options.faults.delay), m_replies([this] { return now(); })
{
    m_motionTimer.setInterval(MotionInterval);
    connect(&m_motionTimer, &QTimer::timeout, this, &Simulator::keepMoving);
    for (const SelfMotionChoice &choice : options.motions)
        setInMotion(choice);
    connect(&m_replies, &ReplyQueue::send, &m_port, &PtyPort::write);
    connect(&m_port, &PtyPort::received, this, &Simulator::onReceived);
    connect(&m_port, &PtyPort::clientChanged, this, &Simulator::onClientChanged);
    connect(&m_port, &PtyPort::failed, this, &Simulator::finished);
}

QString Simulator::start()
{
    QString error = claimName();
    if (error.isEmpty())
        error = openStateFile();
    if (error.isEmpty())
        error = m_port.open();
    if (error.isEmpty())
        error = m_publication.publish(m_port.devicePath());
    if (error.isEmpty() && !m_options.link.isEmpty())
        error = m_publication.publishAt(m_options.link, m_port.devicePath());
    return error;
}

/** The servos are still where the options have them. */
void Simulator::setInMotion(const SelfMotionChoice &choice)
{
    for (std::size_t i = 0; i < m_options.servos.size(); ++i) {
        if (m_options.servos[i].id == choice.servoId)
            m_bus.servos()[i]->moveBySelf(choice.motion);
    }
    m_motionTimer.start();
}

QString Simulator::claimName()
{
    QString error;
    const auto claim = m_options.isNameGiven ? m_publication.claim(m_options.name, &error)
                                             : m_publication.claimAny(m_options.name, &error);
    if (claim == BusPublication::Claim::Taken)
        return error;
    if (claim == BusPublication::Claim::NoFolder)
        Q_EMIT noticed(error); // whoever knows the device file can do without the list
    return {};
}

QString Simulator::openStateFile()
{
    if (m_options.stateFile.isEmpty())
        return {};
    std::vector<StateFile::Entry> entries;
    for (std::size_t i = 0; i < m_options.servos.size(); ++i)
        entries.push_back({m_options.servos[i].label(), m_bus.servos()[i].get()});
    m_stateFile.emplace(m_options.stateFile, std::move(entries));
    QString error = m_stateFile->open();
    for (const auto &servo : m_bus.servos())
        servo->setMemory([this] { return keepState(); });
    return error;
}

SimulationTime Simulator::now() const
{
    return std::chrono::duration_cast<SimulationTime>(std::chrono::steady_clock::now() - m_start);
}

void Simulator::onReceived(const QByteArray &bytes)
{
    const SimulationTime received = now();
    const int baudRate = m_port.baudRate();
    if (m_faults.settings().echo)
        m_replies.push(bytes, received);
    const std::vector<BusReply> replies = m_bus.receive(bytes, baudRate, received);
    for (const BusReply &reply : replies) {
        queueReply(reply, baudRate, received);
        if (m_faults.hasVanished()) {
            Q_EMIT finished({});
            return;
        }
    }
    if (m_bus.isActive() && !m_motionTimer.isActive())
        m_motionTimer.start();
}

void Simulator::queueReply(const BusReply &reply, int baudRate, SimulationTime received)
{
    if (m_replies.isFull())
        return; // a line that is asked for more than it can carry; what it drops takes no time
    SimulationTime duration{0};
    if (m_options.isPaced)
        duration = wireTime(reply.requestSize + reply.bytes.size(), baudRate) + reply.acknowledgeTime;
    for (const FaultInjector::Piece &piece : m_faults.pass(reply.bytes)) {
        m_replies.push(piece.bytes, m_schedule.arrival(received, duration + piece.pause));
        duration = {};
    }
}

void Simulator::onClientChanged()
{
    m_bus.forgetPartialPacket();
    m_replies.clear();
    m_schedule.clear();
}

/** Before anything is answered, so that what was answered survives whatever happens then. */
bool Simulator::keepState()
{
    const QString error = m_stateFile->save();
    if (!error.isEmpty() && !m_hasMemoryFailed) // once, since clients repeat what was refused
        Q_EMIT noticed(error + QStringLiteral(" (the servo answers with a failure)"));
    m_hasMemoryFailed = !error.isEmpty();
    return !m_hasMemoryFailed;
}

void Simulator::keepMoving()
{
    m_bus.advance(now());
    if (!m_bus.isActive())
        m_motionTimer.stop();
}

} // namespace simulator
