#pragma once

#include <QSerialPort>
#include <QString>
#include <QtGlobal>

/** What the serial port is opened with, and the texts that the settings dialog showed for it. */
struct PortSettings
{
    QString portName;
    qint32 baudRate = 1000000; ///< bits per second
    QString baudRateText;
    qint32 dataBits = 8;
    QString dataBitsText;
    qint32 parity = QSerialPort::NoParity;
    QString parityText;
    qint32 stopBits = QSerialPort::OneStop;
    QString stopBitsText;
    // Part of the record, but nothing in the program sets or reads them.
    qint32 flowControl = 0;
    QString flowControlText;
    bool localEchoEnabled = false;
};
