#pragma once

#include "serialport/serialportexport.h"

#include <QString>

/** One serial port that is present, as the port list describes it. A value: copy it freely. */
class ZELVAR_SERIALPORT_EXPORT SerialPortItem
{
public:
    SerialPortItem() = default;
    /** @param systemLocation the path or device name that the system knows the port by. */
    SerialPortItem(const QString &portName, const QString &description, const QString &manufacturer,
                   const QString &systemLocation, quint16 vendorIdentifier, quint16 productIdentifier);
    SerialPortItem(const SerialPortItem &) = default;
    SerialPortItem &operator=(const SerialPortItem &) = default;
    virtual ~SerialPortItem();

    /** The name to open the port by. */
    const QString getPortName();
    const QString getDescription();
    const QString getManufacturer();
    const QString getSystemLocation();
    /** The USB vendor identifier; 0 when the port has none. */
    quint16 getVendorIdentifier() const;
    /** The USB product identifier; 0 when the port has none. */
    quint16 getProductIdentifier() const;

private:
    QString m_portName;
    QString m_description;
    QString m_manufacturer;
    QString m_systemLocation;
    quint16 m_vendorIdentifier = 0;
    quint16 m_productIdentifier = 0;
};
