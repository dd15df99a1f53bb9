#pragma once

namespace model {

/** Where a servo is reached on its bus. */
struct ServoAddress
{
    int id = 0;
    int baudRate = 0; ///< bits per second

    bool operator==(const ServoAddress &other) const { return id == other.id && baudRate == other.baudRate; }
    bool operator!=(const ServoAddress &other) const { return !(*this == other); }
};

} // namespace model
