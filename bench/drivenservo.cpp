#include "bench/drivenservo.h"

#include "bench/measuring.h"
#include "serialport/protocol2.h"
#include "settings/settings.h"

namespace {

constexpr int ReadParameterSize = 4;
constexpr int ServoId = 1;
constexpr int BaudRate = 1000000;

} // namespace

DrivenServo::DrivenServo(Changing changing)
    : m_changing(changing), m_table(m_values.table()),
      m_peer([this](const wire::Packet &request) { return answer(request); })
{
    QString error;
    if (m_publication.claimAny(QStringLiteral("zelvar-bench"), &error) == simulator::BusPublication::Claim::Made)
        error = m_publication.publish(m_peer.path());
    if (!error.isEmpty())
        qFatal("%s", qPrintable(error));
}

void DrivenServo::show(const QByteArray &table)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_table = table;
}

QByteArray DrivenServo::answer(const wire::Packet &request)
{
    if (request.instruction == wire::Write)
        m_writtenAt = wallTime();
    if (request.framing != wire::Framing::Protocol2 || request.instruction != wire::Read ||
        request.parameters.size() != ReadParameterSize)
        return {};
    const int address = wire::fromLittleEndian16(request.parameters, 0);
    const int length = wire::fromLittleEndian16(request.parameters, 2);
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (length == RegisterValues::TableSize) {
        ++m_pollCount;
        if (m_changing != Changing::Nothing) {
            m_values.change(m_changing);
            m_table = m_values.table();
        }
    }
    return wire::protocol2::encodeStatus(request.id, wire::NoError, m_table.mid(address, length));
}

void chooseInSettings(const DrivenServo &servo, int pollingInterval)
{
    Settings port(QStringLiteral("port settings"));
    port.setValue(QStringLiteral("serialPortName"), servo.busName());
    port.setValue(QStringLiteral("baudRate"), BaudRate);
    Settings window(QStringLiteral("main window settings"));
    window.setValue(QStringLiteral("servoId"), ServoId);
    window.setValue(QStringLiteral("pollingInterval"), pollingInterval);
}
