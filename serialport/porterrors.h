#pragma once

#include "serialport/serialportexport.h"

#include <QCoreApplication>
#include <QFileDevice>
#include <QSerialPort>
#include <QString>

/** Texts for the user about a port: what went wrong and what to do about it. */
class ZELVAR_SERIALPORT_EXPORT PortErrors
{
    Q_DECLARE_TR_FUNCTIONS(PortErrors)

public:
    static QString noPortChosen();
    static QString baudRateRefused(const QString &portName, int baudRate);
    /**
     * Why the port @p portName could not be opened.
     * @param device its device file, or that file's name in the system's folder of devices.
     * @param systemText the system's own words, for what is not told apart here.
     */
    static QString notOpened(const QString &portName, const QString &device, QSerialPort::SerialPortError error,
                             const QString &systemText);
    /** The user may not use the port @p portName, whose device file has this @p group and these @p permissions. */
    static QString noPermission(const QString &portName, const QString &group, QFileDevice::Permissions permissions);
    /** The port went away while it was in use. */
    static QString lost(const QString &portName);
    /** Somebody else takes what arrives at the port, which is not exclusive for everybody. */
    static QString readByOthers(const QString &portName);
};
