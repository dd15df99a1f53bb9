#pragma once

#include <QtGlobal>

/**
 * Asks the driver of the open serial device @p descriptor to hand received bytes on at once, in place of gathering
 * them for up to 16 ms. Drivers that cannot are left as they are; on systems other than Linux this does nothing.
 */
void requestLowLatency(qintptr descriptor);
