#include "cli/ports.h"

#include "cli/failure.h"
#include "serialport/zelvarserialportinterface.h"
#include "settings/settings.h"
#include "settings/storedport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace cli {

namespace {

QString deviceOf(const QString &name)
{
    for (const Port &port : presentPorts()) {
        if (port.name == name)
            return port.device;
    }
    return QFileInfo(QDir(QStringLiteral("/dev")), name).filePath();
}

/** Whether one of the open files of the process @p folder is @p path. */
bool hasOpen(const QDir &folder, const QString &path)
{
    const QDir descriptors(folder.filePath(QStringLiteral("fd")));
    const auto links = descriptors.entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    return std::any_of(links.begin(), links.end(),
                       [&path](const QFileInfo &link) { return link.symLinkTarget() == path; });
}

/** The process that has @p device open, as "name (process 123)"; empty where the system does not tell. */
QString holderOf(const QString &device)
{
    const QString target = QFileInfo(device).canonicalFilePath();
    const QDir processes(QStringLiteral("/proc"));
    const QStringList entries = processes.entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString &entry : entries) {
        const QDir folder(processes.filePath(entry));
        // Who simulates a bus has both of its ends open.
        const bool isHolder = !target.isEmpty() && entry != QString::number(QCoreApplication::applicationPid()) &&
                              hasOpen(folder, target) && !hasOpen(folder, QStringLiteral("/dev/ptmx"));
        QFile name(folder.filePath(QStringLiteral("comm")));
        if (isHolder && name.open(QIODevice::ReadOnly))
            return QStringLiteral("%1 (process %2)").arg(QString::fromLocal8Bit(name.readAll()).trimmed(), entry);
    }
    return {};
}

QString listed(const std::vector<Port> &ports)
{
    QStringList names;
    for (const Port &port : ports)
        names.append(port.name);
    return names.isEmpty() ? QStringLiteral("there is none; plug an adapter in")
                           : QStringLiteral("there are: %1").arg(names.join(QLatin1String(", ")));
}

} // namespace

std::vector<Port> presentPorts()
{
    ZelvarSerialPortInterface ports(nullptr, 2);
    std::vector<Port> present;
    for (const auto &item : ports.getSerialPortList())
        present.push_back({item->getPortName(), item->getDescription(), item->getManufacturer(),
                           item->getSystemLocation(), item->getVendorIdentifier(), item->getProductIdentifier()});
    return present;
}

QString storedPort()
{
    return Settings(storedport::Group).value(storedport::NameKey, QString()).toString();
}

int storedBaudRate()
{
    const int stored =
        Settings(storedport::Group)
            .boundedInt(storedport::BaudRateKey, storedport::DefaultBaudRate, 0, storedport::HighestBaudRate + 1);
    const bool isRate = stored > 0 && stored <= storedport::HighestBaudRate;
    return isRate ? stored : storedport::DefaultBaudRate;
}

QString chosenPort(const QString &given)
{
    if (!given.isEmpty())
        return given;
    const std::vector<Port> ports = presentPorts();
    QString stored = storedPort();
    const auto isStored = [&stored](const Port &port) { return port.name == stored; };
    if (std::any_of(ports.begin(), ports.end(), isStored))
        return stored;
    if (ports.size() == 1)
        return ports.front().name;
    throw Failure{ExitStatus::Port, QStringLiteral("which port? Give one with --port; %1").arg(listed(ports))};
}

bool isUsbPort(const QString &name)
{
    const std::vector<Port> ports = presentPorts();
    const auto isOther = [&name](const Port &port) { return port.name == name && port.vendor == 0; };
    return std::none_of(ports.begin(), ports.end(), isOther);
}

QString whyNotOpened(const QString &name, const QString &reason)
{
    const QString device = deviceOf(name);
    if (!QFileInfo::exists(device))
        return QStringLiteral("there is no port %1; %2").arg(name, listed(presentPorts()));
    const QFileInfo file(device);
    const QString holder = file.isReadable() && file.isWritable() ? holderOf(device) : QString();
    if (!holder.isEmpty())
        return QStringLiteral("the port %1 is in use by %2; end that first").arg(name, holder);
    // The bus speaks of the window's settings, which are options here.
    return QString(reason).remove(QStringLiteral(" in the settings"));
}

QString lossText(const QString &name)
{
    return QStringLiteral("the connection to the port %1 was lost; check the adapter and its cable").arg(name);
}

} // namespace cli
