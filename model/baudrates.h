#pragma once

#include <QtGlobal>

namespace model {

/** A baud rate that servos of both families can be set to. */
struct BaudRate
{
    int bitsPerSecond; ///< nominal
    quint8 code;       ///< of the baud-rate register: the rate is 2000000 / (code + 1)
};

/** In the order in which lists offer them. */
// clang-format off
inline constexpr BaudRate BaudRates[] = {
    {9600,    207},
    {19200,   103},
    {38400,   51 },
    {57600,   34 },
    {115200,  16 },
    {200000,  9  },
    {250000,  7  },
    {400000,  4  },
    {500000,  3  },
    {1000000, 1  },
    {2000000, 0  },
};
// clang-format on

/** The nominal rate, in bits per second, that @p code stands for; 0 when the table has no such code. */
constexpr int baudRateOf(int code)
{
    for (const BaudRate &row : BaudRates) {
        if (row.code == code)
            return row.bitsPerSecond;
    }
    return 0;
}

/** The same also for a code that the table does not have, 0 to 254. */
constexpr int nominalBaudRate(int code)
{
    constexpr int Fastest = 2000000;
    const int listed = baudRateOf(code);
    return listed > 0 ? listed : Fastest / (code + 1);
}

} // namespace model
