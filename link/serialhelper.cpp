#include "link/serialhelper.h"

#include "model/baudrates.h"
#include "serialport/replybytes.h"
#include "serialport/zelvarserialportinterface.h"

#include <algorithm>
#include <utility>

namespace {

constexpr unsigned char ProtocolGeneration = 2; // spoken first

constexpr int UnknownBaudRateCode = 1; // 1 Mbit/s

} // namespace

SerialHelper::SerialHelper() : m_serialInterface(std::make_shared<ZelvarSerialPortInterface>(this, ProtocolGeneration))
{
    connectInterface();
}

SerialHelper::SerialHelper(std::shared_ptr<ZelvarSerialPortInterface> serialInterface)
    : m_serialInterface(std::move(serialInterface))
{
    connectInterface();
}

SerialHelper::~SerialHelper()
{
    m_replyCallback = nullptr;
    m_serialInterface.reset(); // before QObject deletes it as a child
}

QString SerialHelper::openSerialPort(QString portName, int baudRate)
{
    return m_serialInterface->openSerialPort(portName, baudRate);
}

void SerialHelper::closeSerialPort()
{
    m_serialInterface->closeSerialPort();
}

std::vector<std::shared_ptr<SerialPortItem>> SerialHelper::getSerialPortList()
{
    return m_serialInterface->getSerialPortList();
}

bool SerialHelper::readData(uint8_t id, uint8_t address, uint8_t length, std::function<void(QByteArray)> callback)
{
    expectReply(static_cast<uint8_t>(length + replybytes::ReadOverhead), std::move(callback));
    return m_serialInterface->readData(id, address, length, [this] { onReadyRead(); });
}

bool SerialHelper::writeData(uint8_t id, uint8_t address, const QByteArray &data,
                             std::function<void(QByteArray)> callback)
{
    expectReply(replybytes::ShortSize, std::move(callback));
    return m_serialInterface->writeData(id, address, data, [this] { onWriteReady(); });
}

bool SerialHelper::reboot(uint8_t id, std::function<void(QByteArray)> callback)
{
    expectReply(replybytes::ShortSize, std::move(callback));
    return m_serialInterface->reboot(id, [this] { onReadyRead(); });
}

bool SerialHelper::reset(uint8_t id, std::function<void(QByteArray)> callback)
{
    expectReply(replybytes::ShortSize, std::move(callback));
    return m_serialInterface->reset(id, [this] { onReadyRead(); });
}

int SerialHelper::baudRateRegisterValue(int index)
{
    if (index < 0 || index >= static_cast<int>(std::size(model::BaudRates)))
        return UnknownBaudRateCode;
    return model::BaudRates[index].code;
}

int SerialHelper::baudRateIndex(int registerValue)
{
    const auto *found = std::find_if(std::begin(model::BaudRates), std::end(model::BaudRates),
                                     [registerValue](const model::BaudRate &row) { return row.code == registerValue; });
    return found == std::end(model::BaudRates) ? -1 : static_cast<int>(found - std::begin(model::BaudRates));
}

int SerialHelper::baudRateOf(int registerValue)
{
    return model::baudRateOf(registerValue);
}

ServoBus *SerialHelper::bus() const
{
    return m_serialInterface->bus();
}

void SerialHelper::queueRequest(uint8_t, uint8_t, QByteArray, std::function<void(QByteArray)>) {}

void SerialHelper::startScheduler(int) {}

void SerialHelper::stopScheduler() {}

void SerialHelper::connectInterface()
{
    connect(m_serialInterface.get(), &ZelvarSerialPortInterface::connectionLost, this, &SerialHelper::connectionLost);
}

void SerialHelper::expectReply(uint8_t length, Callback callback)
{
    m_remainingBytes = length;
    m_replyCallback = std::move(callback);
}

bool SerialHelper::gatherReply()
{
    const QByteArray bytes = m_serialInterface->readPendingSerialData();
    if (bytes.isEmpty())
        return false;
    m_remainingBytes = static_cast<uint8_t>(m_remainingBytes - bytes.size());
    m_replyBuffer.append(bytes);
    return m_remainingBytes == 0;
}

void SerialHelper::finishReply()
{
    m_replyBuffer.clear();
    m_serialInterface->cleanUp();
}

void SerialHelper::onReadyRead()
{
    if (!gatherReply())
        return;
    // A copy, since the callback may make the next request and with it replace the one that is running.
    const Callback callback = m_replyCallback;
    const QByteArray reply = m_replyBuffer;
    callback(reply);
    finishReply();
}

void SerialHelper::onWriteReady()
{
    if (gatherReply())
        finishReply();
}
