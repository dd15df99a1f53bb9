#include "serialport/lowlatency.h"

#ifdef Q_OS_LINUX
#    include <linux/serial.h>
#    include <sys/ioctl.h>
#endif

void requestLowLatency(qintptr descriptor)
{
#ifdef Q_OS_LINUX
    serial_struct settings{};
    const int device = static_cast<int>(descriptor);
    if (ioctl(device, TIOCGSERIAL, &settings) != 0)
        return;
    settings.flags |= ASYNC_LOW_LATENCY;
    ioctl(device, TIOCSSERIAL, &settings); // a refusal does no harm: replies just come later
#else
    Q_UNUSED(descriptor) // the adapter's latency is a setting of its driver there
#endif
}
