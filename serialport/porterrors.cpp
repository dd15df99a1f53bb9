#include "serialport/porterrors.h"

#include <QDir>
#include <QFileInfo>

QString PortErrors::noPortChosen()
{
    return tr("No serial port is chosen. Choose one in the settings.");
}

QString PortErrors::baudRateRefused(const QString &portName, int baudRate)
{
    return tr("The serial port %1 refuses the baud rate %2. Choose another baud rate in the settings.")
        .arg(portName)
        .arg(baudRate);
}

QString PortErrors::notOpened(const QString &portName, const QString &device, QSerialPort::SerialPortError error,
                              const QString &systemText)
{
    const QFileInfo file(QDir(QStringLiteral("/dev")), device);
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return tr("The serial port %1 was not found. Check that the adapter is plugged in, or choose another port in "
                  "the settings.")
            .arg(portName);
    case QSerialPort::PermissionError:
        // The same error stands for a missing right and for a port that somebody else has locked.
        if (!file.exists() || (file.isReadable() && file.isWritable()))
            return tr("The serial port %1 is in use by another program. Close that program and connect again.")
                .arg(portName);
        return noPermission(portName, file.group(), file.permissions());
    default:
        return tr("The serial port %1 could not be opened: %2. Choose another port in the settings.")
            .arg(portName, systemText);
    }
}

QString PortErrors::noPermission(const QString &portName, const QString &group, QFileDevice::Permissions permissions)
{
    const QFileDevice::Permissions needed = QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    // Who is in the group of the administrators may do anything, which is no way to get at a port.
    const bool isOpenToGroup = (permissions & needed) == needed && !group.isEmpty() && group != QLatin1String("root");
    if (isOpenToGroup)
        return tr("You have no permission to use the serial port %1. Add your user to the group \"%2\" and log in "
                  "again.")
            .arg(portName, group);
    return tr("You have no permission to use the serial port %1. Install the udev rule "
              "70-zelvar-servo-manager.rules, which comes with the program's package, and plug the adapter in again.")
        .arg(portName);
}

QString PortErrors::lost(const QString &portName)
{
    return tr("The connection to the serial port %1 was lost. Check the adapter and its cable, then connect again.")
        .arg(portName);
}

QString PortErrors::readByOthers(const QString &portName)
{
    return tr("Another program reads from the serial port %1 too, so answers go missing. Close that program and "
              "connect "
              "again.")
        .arg(portName);
}
