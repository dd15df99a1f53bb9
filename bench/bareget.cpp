// The least that reads a servo's table: an empty Qt Core program and one exchange over a bare serial port.

#include "serialport/protocol2.h"

#include <QCoreApplication>
#include <QSerialPort>

int main(int argc, char *argv[])
{
    constexpr quint8 ServoId = 1;
    constexpr int TableSize = 118;
    constexpr int BaudRate = 1000000;
    constexpr int Patience = 1000; // ms
    const QCoreApplication application(argc, argv);
    QSerialPort port(QCoreApplication::arguments().value(1));
    port.setBaudRate(BaudRate);
    if (!port.open(QIODevice::ReadWrite))
        return 1;
    port.clear();
    port.write(wire::protocol2::encodeInstruction(ServoId, wire::Read, wire::protocol2::readParameters(0, TableSize)));
    int received = 0;
    while (received < TableSize + wire::protocol2::StatusOverhead && port.waitForReadyRead(Patience))
        received += port.readAll().size();
    return received >= TableSize + wire::protocol2::StatusOverhead ? 0 : 1;
}
