#include "serialport/zelvarserialportinterface.h"

#include "serialport/replylayout.h"
#include "serialport/simulatedbuses.h"

#include <QAbstractEventDispatcher>
#include <QSerialPortInfo>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

using Operation = BusRequest::Operation;

bool isAnswer(const BusResult &result)
{
    return result.outcome == BusResult::Outcome::Answered || result.outcome == BusResult::Outcome::Refused;
}

/**
 * The ports that the system has. Reading them is dear, and the dialogs of a start ask one after the other: until this
 * thread waits for events again, the answer stays the same.
 */
QList<QSerialPortInfo> systemPorts()
{
    static thread_local std::optional<QList<QSerialPortInfo>> known;
    if (known)
        return *known;
    const auto ports = QSerialPortInfo::availablePorts();
    if (auto *dispatcher = QAbstractEventDispatcher::instance()) {
        known = ports;
        QTimer::singleShot(0, dispatcher, [] { known.reset(); });
    }
    return ports;
}

} // namespace

ZelvarSerialPortInterface::ZelvarSerialPortInterface(QObject *parent, unsigned char protocolGeneration)
    : ZelvarSerialPortInterface(parent, std::make_unique<ServoBus>(nullptr, protocolGeneration))
{
}

ZelvarSerialPortInterface::ZelvarSerialPortInterface(QObject *parent, std::unique_ptr<ServoBus> bus)
    : QObject(parent), m_bus(std::move(bus))
{
    m_bus->setParent(this); // so that it follows this object into another thread
    connect(m_bus.get(), &ServoBus::connectionLost, this, &ZelvarSerialPortInterface::connectionLost);
}

ZelvarSerialPortInterface::~ZelvarSerialPortInterface()
{
    forget();
    m_bus.reset(); // its completions reach into this object
}

QString ZelvarSerialPortInterface::openSerialPort(QString portName, int baudRate)
{
    forget();
    return m_bus->open(portName, baudRate);
}

void ZelvarSerialPortInterface::closeSerialPort()
{
    forget();
    m_bus->close();
}

std::vector<std::shared_ptr<SerialPortItem>> ZelvarSerialPortInterface::getSerialPortList()
{
    std::vector<std::shared_ptr<SerialPortItem>> items;
    for (const simulatedbuses::Bus &bus : simulatedbuses::published()) {
        items.push_back(std::make_shared<SerialPortItem>(bus.name, tr("Simulated servo bus"), QString(), bus.device,
                                                         quint16(0), quint16(0)));
    }
    const auto ports = systemPorts();
    for (const QSerialPortInfo &port : ports) {
        items.push_back(std::make_shared<SerialPortItem>(port.portName(), port.description(), port.manufacturer(),
                                                         port.systemLocation(), port.vendorIdentifier(),
                                                         port.productIdentifier()));
    }
    return items;
}

bool ZelvarSerialPortInterface::readData(unsigned char id, unsigned char address, unsigned char length,
                                         std::function<void()> onData)
{
    const BusRequest request{Operation::Read, id, address, length, {}};
    if (!becomesNewest(request, std::move(onData)))
        return false;
    if (joinsRead(request))
        return true;
    const Number number = m_newest;
    const auto ticket = m_bus->request(request, [this, number](const BusResult &result) { endRead(number, result); });
    m_reads.push_back({number, ticket, request});
    return true;
}

bool ZelvarSerialPortInterface::writeData(unsigned char id, unsigned char address, const QByteArray &data,
                                          std::function<void()> onData)
{
    const BusRequest request{Operation::Write, id, address, 0, data};
    if (!becomesNewest(request, std::move(onData)))
        return false;
    m_bus->request(request, [this, number = m_newest](const BusResult &result) {
        if (isAnswer(result))
            handOver(number, replylayout::shortReply(result.answer.id, result.error));
    });
    return true;
}

bool ZelvarSerialPortInterface::reboot(unsigned char id, std::function<void()> onData)
{
    return carryOut(Operation::Reboot, id, std::move(onData));
}

bool ZelvarSerialPortInterface::reset(unsigned char id, std::function<void()> onData)
{
    return carryOut(Operation::FactoryReset, id, std::move(onData));
}

QByteArray ZelvarSerialPortInterface::readPendingSerialData()
{
    return std::exchange(m_reply, {});
}

void ZelvarSerialPortInterface::cleanUp()
{
    m_reply.clear();
}

bool ZelvarSerialPortInterface::becomesNewest(const BusRequest &request, std::function<void()> onData)
{
    // Refused or not: whoever asks has no use any more for a reply to what was asked before.
    m_newest = ++m_made;
    m_onData = std::move(onData);
    for (const Read &read : m_reads)
        m_bus->withdraw(read.ticket);
    return m_bus->accepts(request);
}

bool ZelvarSerialPortInterface::joinsRead(const BusRequest &request)
{
    const auto found = std::find_if(m_reads.begin(), m_reads.end(), [&](const Read &read) {
        return read.request == request && m_bus->reclaim(read.ticket);
    });
    if (found == m_reads.end())
        return false;
    m_newest = found->number;
    return true;
}

bool ZelvarSerialPortInterface::carryOut(Operation operation, quint8 id, std::function<void()> onData)
{
    const BusRequest request{operation, id, 0, 0, {}};
    if (!becomesNewest(request, std::move(onData)))
        return false;
    return m_bus->carryOut(request, [this, number = m_newest](const BusResult &result) {
        // The alert bit speaks of the hardware's state, which these two are used to get out of, and not of the command.
        if (isAnswer(result))
            handOver(number, replylayout::shortReply(result.answer.id, result.error & ~wire::AlertBit));
    });
}

void ZelvarSerialPortInterface::endRead(Number number, const BusResult &result)
{
    const auto found =
        std::find_if(m_reads.begin(), m_reads.end(), [&](const Read &read) { return read.number == number; });
    if (found != m_reads.end())
        m_reads.erase(found);
    if (result.outcome == BusResult::Outcome::Answered)
        handOver(number, replylayout::readReply(result.answer));
}

void ZelvarSerialPortInterface::handOver(Number number, const QByteArray &reply)
{
    if (number != m_newest)
        return;
    m_reply = reply;
    // It may make the next request, and may destroy this object.
    const std::function<void()> onData = std::exchange(m_onData, nullptr);
    if (onData)
        onData();
}

void ZelvarSerialPortInterface::forget()
{
    m_newest = ++m_made;
    m_onData = nullptr;
    m_reads.clear();
    m_reply.clear();
}
