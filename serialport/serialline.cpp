#include "serialport/serialline.h"

#include "serialport/portdevice.h"
#include "serialport/porterrors.h"
#include "serialport/simulatedbuses.h"

#include <algorithm>
#include <utility>

namespace {

QString devicePath(const QString &name)
{
    const auto buses = simulatedbuses::published();
    const auto bus = std::find_if(buses.begin(), buses.end(),
                                  [&](const simulatedbuses::Bus &candidate) { return candidate.name == name; });
    return bus == buses.end() ? name : bus->device;
}

} // namespace

SerialLine::SerialLine(QObject &owner) : m_port(new QSerialPort(&owner))
{
    QObject::connect(m_port, &QSerialPort::readyRead, m_port, [this] { onReadyRead(); });
    QObject::connect(m_port, &QSerialPort::errorOccurred, m_port,
                     [this](QSerialPort::SerialPortError error) { onError(error); });
}

SerialLine::~SerialLine()
{
    m_port->disconnect();
    m_port->close();
    if (*m_signalDepth == 0) {
        delete m_port;
    } else {
        m_port->setParent(nullptr);
        m_port->deleteLater();
    }
}

QString SerialLine::open(const QString &name, int baudRate)
{
    if (name.isEmpty())
        return PortErrors::noPortChosen();
    if (baudRate <= 0)
        return PortErrors::baudRateRefused(name, baudRate);

    m_name = name;
    m_tookAhead = false;
    m_port->setPortName(devicePath(name));
    m_port->setBaudRate(baudRate);
    if (!m_port->open(QIODevice::ReadWrite))
        return whyNotOpened(name, baudRate);
    portdevice::requestLowLatency(m_port->handle());
    m_port->clear(); // what an earlier client asked for is not for us
    return {};
}

QString SerialLine::whyNotOpened(const QString &name, int baudRate)
{
    const QSerialPort::SerialPortError error = m_port->error();
    const QString systemText = m_port->errorString();
    m_port->clearError();
    if (error != QSerialPort::UnsupportedOperationError)
        return PortErrors::notOpened(name, m_port->portName(), error, systemText);
    // Either the baud rate or every setting is refused, since this is no serial port at all: a rate that each serial
    // port takes tells which.
    m_port->setBaudRate(QSerialPort::Baud9600);
    const bool isSerialPort = m_port->open(QIODevice::ReadWrite);
    if (isSerialPort)
        m_port->close();
    m_port->clearError();
    return isSerialPort ? PortErrors::baudRateRefused(name, baudRate)
                        : PortErrors::notOpened(name, m_port->portName(), error, systemText);
}

void SerialLine::close()
{
    m_port->close();
}

void SerialLine::send(const QByteArray &bytes)
{
    m_port->write(bytes);
    if (m_port->isOpen())
        m_port->flush();
}

QByteArray SerialLine::takeReceived()
{
    return m_port->read(m_port->bytesAvailable()); // readAll() would look once more whether it was all
}

void SerialLine::discardReceived()
{
    const bool systemHasSome = portdevice::hasInput(m_port->handle());
    if (!systemHasSome && m_port->bytesAvailable() == 0)
        return; // nearly always
    m_tookAhead = m_tookAhead || systemHasSome;
    m_port->clear(QSerialPort::Input);
}

bool SerialLine::waitForReceived(Clock::Duration limit)
{
    m_isWaiting = true;
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(limit).count();
    const bool hasReceived = m_port->waitForReadyRead(static_cast<int>(milliseconds));
    m_isWaiting = false;
    m_tookAhead = m_tookAhead || hasReceived;
    return hasReceived;
}

void SerialLine::onReadyRead()
{
    if (m_isWaiting)
        return;
    m_tookAhead = false;
    const std::shared_ptr<int> depth = m_signalDepth;
    ++*depth;
    reportReceived();
    --*depth;
}

void SerialLine::onError(QSerialPort::SerialPortError error)
{
    const bool isLoss =
        error == QSerialPort::ReadError || error == QSerialPort::WriteError || error == QSerialPort::ResourceError;
    if (!isLoss || !m_port->isOpen())
        return;
    const bool isGone = error == QSerialPort::WriteError || !portdevice::isPresent(m_port->handle());
    if (!isGone && std::exchange(m_tookAhead, false))
        return;
    // A broken descriptor reports its error without end: it has to go at once, before the event loop turns again.
    reportLost(isGone ? PortErrors::lost(m_name) : PortErrors::readByOthers(m_name));
}
