#pragma once

#include "serialport/zelvarserialportinterface.h"

#include <QByteArray>
#include <QVector>

#include <functional>
#include <utility>

/** A serial-port library that records what it is asked and answers when the test says so. */
class FakeSerialPort : public ZelvarSerialPortInterface
{
public:
    struct Call
    {
        QString operation;
        int id = 0;
        int address = 0;
        int length = 0;
        QByteArray data;
    };

    FakeSerialPort() : ZelvarSerialPortInterface(nullptr, 2) {}

    QVector<Call> calls;
    QString openError;
    bool acceptsRequests = true;
    /** A reply that reboot and reset deliver inside the call; none when empty. */
    QByteArray immediateReply;
    std::vector<std::shared_ptr<SerialPortItem>> ports;

    void listPorts(const QStringList &names)
    {
        for (const QString &name : names)
            ports.push_back(std::make_shared<SerialPortItem>(name, QString(), QString(), "/dev/" + name, 0, 0));
    }
    QStringList operations() const
    {
        QStringList names;
        for (const Call &call : calls)
            names.append(call.operation);
        return names;
    }
    /** Hands @p bytes over as received ones of the latest request. */
    void deliver(const QByteArray &bytes)
    {
        m_pending += bytes;
        m_onData();
    }

    QString openSerialPort(QString portName, int baudRate) override
    {
        calls.append({"open " + portName, 0, 0, baudRate, {}});
        return openError;
    }
    void closeSerialPort() override { calls.append({"close", 0, 0, 0, {}}); }
    std::vector<std::shared_ptr<SerialPortItem>> getSerialPortList() override { return ports; }
    bool readData(unsigned char id, unsigned char address, unsigned char length, std::function<void()> onData) override
    {
        return take({"read", id, address, length, {}}, std::move(onData));
    }
    bool writeData(unsigned char id, unsigned char address, const QByteArray &data,
                   std::function<void()> onData) override
    {
        return take({"write", id, address, data.size(), data}, std::move(onData));
    }
    bool reboot(unsigned char id, std::function<void()> onData) override
    {
        return takeAndAnswer({"reboot", id, 0, 0, {}}, std::move(onData));
    }
    bool reset(unsigned char id, std::function<void()> onData) override
    {
        return takeAndAnswer({"reset", id, 0, 0, {}}, std::move(onData));
    }
    QByteArray readPendingSerialData() override { return std::exchange(m_pending, {}); }
    void cleanUp() override { calls.append({"cleanUp", 0, 0, 0, {}}); }

private:
    bool take(const Call &call, std::function<void()> onData)
    {
        calls.append(call);
        m_onData = std::move(onData);
        return acceptsRequests;
    }
    bool takeAndAnswer(const Call &call, std::function<void()> onData)
    {
        const bool accepted = take(call, std::move(onData));
        if (accepted && !immediateReply.isEmpty())
            deliver(immediateReply);
        return accepted;
    }

    std::function<void()> m_onData;
    QByteArray m_pending;
};
