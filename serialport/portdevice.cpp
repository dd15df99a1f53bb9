#include "serialport/portdevice.h"

#ifdef Q_OS_UNIX
#    include <poll.h>
#endif
#ifdef Q_OS_LINUX
#    include <linux/serial.h>
#    include <sys/ioctl.h>
#endif

namespace portdevice {

#ifdef Q_OS_UNIX
namespace {

/** The events of poll() that are so now. */
short eventsOf(qintptr handle)
{
    pollfd descriptor{static_cast<int>(handle), POLLIN, 0};
    return poll(&descriptor, 1, 0) < 0 ? static_cast<short>(POLLERR) : descriptor.revents;
}

} // namespace
#endif

void requestLowLatency(qintptr handle)
{
#ifdef Q_OS_LINUX
    serial_struct settings{};
    const int device = static_cast<int>(handle);
    if (ioctl(device, TIOCGSERIAL, &settings) != 0)
        return;
    settings.flags |= ASYNC_LOW_LATENCY;
    ioctl(device, TIOCSSERIAL, &settings); // a refusal does no harm: replies just come later
#else
    Q_UNUSED(handle) // the adapter's latency is a setting of its driver there
#endif
}

bool hasInput(qintptr handle)
{
#ifdef Q_OS_UNIX
    return (eventsOf(handle) & POLLIN) != 0;
#else
    Q_UNUSED(handle)
    return true;
#endif
}

bool isPresent(qintptr handle)
{
#ifdef Q_OS_UNIX
    return (eventsOf(handle) & (POLLERR | POLLHUP | POLLNVAL)) == 0;
#else
    Q_UNUSED(handle)
    return false;
#endif
}

} // namespace portdevice
