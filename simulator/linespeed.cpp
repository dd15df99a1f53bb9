#include "simulator/linespeed.h"

#include <QtGlobal>

// The kernel's own terminal headers, which know any speed, clash with the C library's <termios.h>: hence this file.
#ifdef Q_OS_LINUX
#    include <asm/ioctls.h>
#    include <asm/termbits.h>
#    include <sys/ioctl.h>
#else
#    include <termios.h>
#endif

namespace simulator {

#ifdef Q_OS_LINUX

int lineSpeed(int masterDescriptor)
{
    termios2 settings{};
    if (ioctl(masterDescriptor, TCGETS2, &settings) != 0)
        return 0;
    return static_cast<int>(settings.c_ospeed);
}

#else

int lineSpeed(int masterDescriptor)
{
    // Where speeds are numbers, B9600 is 9600.
    static_assert(B9600 == 9600 && B38400 == 38400, "this system counts its speeds in another way");
    termios settings{};
    if (tcgetattr(masterDescriptor, &settings) != 0)
        return 0;
    return static_cast<int>(cfgetospeed(&settings));
}

#endif

} // namespace simulator
