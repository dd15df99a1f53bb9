#pragma once

#include <QtGlobal>

/**
 * What QSerialPort does not offer: a few questions to the device behind an open port. Each takes
 * QSerialPort::handle().
 */
namespace portdevice {

/** Asks the driver to hand received bytes over at once; on drivers that cannot, nothing changes. */
void requestLowLatency(qintptr handle);

/** Whether received bytes wait in the system. True where that cannot be told. */
bool hasInput(qintptr handle);

/** Whether the device is certainly there and in order. False where that cannot be told. */
bool isPresent(qintptr handle);

} // namespace portdevice
