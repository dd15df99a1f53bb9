#include "serialport/zelvarserialportinterface.h"

#include "serialport/busengine.h"
#include "serialport/simulatedbuses.h"

#include <QSerialPortInfo>

ZelvarSerialPortInterface::ZelvarSerialPortInterface(QObject *parent, unsigned char protocolGeneration)
    : QObject(parent), m_engine(std::make_unique<BusEngine>(protocolGeneration == 1 ? wire::Framing::Protocol1
                                                                                    : wire::Framing::Protocol2))
{
    m_engine->setParent(this); // so that it follows this object into another thread
    connect(m_engine.get(), &BusEngine::connectionLost, this, &ZelvarSerialPortInterface::connectionLost);
}

ZelvarSerialPortInterface::~ZelvarSerialPortInterface() = default;

QString ZelvarSerialPortInterface::openSerialPort(QString portName, int baudRate)
{
    return m_engine->open(portName, baudRate);
}

void ZelvarSerialPortInterface::closeSerialPort()
{
    m_engine->close();
}

std::vector<std::shared_ptr<SerialPortItem>> ZelvarSerialPortInterface::getSerialPortList()
{
    std::vector<std::shared_ptr<SerialPortItem>> items;
    for (const simulatedbuses::Bus &bus : simulatedbuses::published()) {
        items.push_back(std::make_shared<SerialPortItem>(bus.name, tr("Simulated servo bus"), QString(), bus.device,
                                                         quint16(0), quint16(0)));
    }
    const auto systemPorts = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &port : systemPorts) {
        items.push_back(std::make_shared<SerialPortItem>(port.portName(), port.description(), port.manufacturer(),
                                                         port.systemLocation(), port.vendorIdentifier(),
                                                         port.productIdentifier()));
    }
    return items;
}

bool ZelvarSerialPortInterface::readData(unsigned char id, unsigned char address, unsigned char length,
                                         std::function<void()> onData)
{
    return m_engine->submit({BusRequest::Operation::Read, id, address, length, {}}, std::move(onData));
}

bool ZelvarSerialPortInterface::writeData(unsigned char id, unsigned char address, const QByteArray &data,
                                          std::function<void()> onData)
{
    return m_engine->submit({BusRequest::Operation::Write, id, address, 0, data}, std::move(onData));
}

bool ZelvarSerialPortInterface::reboot(unsigned char id, std::function<void()> onData)
{
    return m_engine->runToEnd({BusRequest::Operation::Reboot, id, 0, 0, {}}, std::move(onData));
}

bool ZelvarSerialPortInterface::reset(unsigned char id, std::function<void()> onData)
{
    return m_engine->runToEnd({BusRequest::Operation::FactoryReset, id, 0, 0, {}}, std::move(onData));
}

QByteArray ZelvarSerialPortInterface::readPendingSerialData()
{
    return m_engine->takeReply();
}

void ZelvarSerialPortInterface::cleanUp()
{
    m_engine->takeReply();
}
