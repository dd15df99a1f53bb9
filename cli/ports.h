#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

namespace cli {

/** A port that is there. Texts are empty and identifiers 0 where it has none. */
struct Port
{
    QString name;
    QString description;
    QString manufacturer;
    QString device;
    quint16 vendor = 0;
    quint16 product = 0;
};

/** The ports that are there: simulated buses first, then the system's. */
std::vector<Port> presentPorts();

/** The port to use: @p given, else the window's if it is there, else the only one there is. Throws a Failure. */
QString chosenPort(const QString &given);
/** The baud rate that the window is set to, in bits per second. */
int storedBaudRate();
/** The port that the window is set to; empty when it never was. */
QString storedPort();

/** Whether what is sent on the port @p name may go through a USB adapter: not where the system says otherwise. */
bool isUsbPort(const QString &name);

/** Why the port @p name was not opened, for which the bus says @p reason: also who uses it, where that can be told. */
QString whyNotOpened(const QString &name, const QString &reason);
/** What to say when the port @p name was lost while it was open. */
QString lossText(const QString &name);

} // namespace cli
