#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>

/** A write that waits for its tick. */
struct QueueRequest
{
    uint8_t id = 0;      ///< servo id
    uint8_t address = 0; ///< first register to write
    QByteArray data;     ///< bytes in register order
    std::function<void(QByteArray)> callback;
};
