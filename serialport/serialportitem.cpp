#include "serialport/serialportitem.h"

SerialPortItem::SerialPortItem(const QString &portName, const QString &description, const QString &manufacturer,
                               const QString &systemLocation, quint16 vendorIdentifier, quint16 productIdentifier)
    : m_portName(portName), m_description(description), m_manufacturer(manufacturer), m_systemLocation(systemLocation),
      m_vendorIdentifier(vendorIdentifier), m_productIdentifier(productIdentifier)
{
}

SerialPortItem::~SerialPortItem() = default;

const QString SerialPortItem::getPortName()
{
    return m_portName;
}

const QString SerialPortItem::getDescription()
{
    return m_description;
}

const QString SerialPortItem::getManufacturer()
{
    return m_manufacturer;
}

const QString SerialPortItem::getSystemLocation()
{
    return m_systemLocation;
}

quint16 SerialPortItem::getVendorIdentifier() const
{
    return m_vendorIdentifier;
}

quint16 SerialPortItem::getProductIdentifier() const
{
    return m_productIdentifier;
}
