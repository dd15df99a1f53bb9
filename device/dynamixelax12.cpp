#include "device/dynamixelax12.h"

namespace {

constexpr unsigned ControlTableSize = 50;

// clang-format off
constexpr LimitsRow Limits[] = {
    // object name, rawMin, rawMax, physicalMin, physicalMax
    {"positionLineEdit",                      0, 2047,  -3.141592653589, 3.141592653589},
    {"speedLineEdit",                         0, 10000, 0.0,             10.0},
    {"temperatureLineEdit",                   0, 255,   0.0,             255.0},
    {"torqueLineEdit",                        0, 10,    0.0,             10.0},
    {"voltageLineEdit",                       0, 10,    0.0,             10.0},
    {"currentLineEdit",                       0, 10,    0.0,             10.0},
    {"firmwareVersionLineEdit",               0, 255,   0.0,             255.0},
    {"modelNumberLineEdit",                   0, 255,   0.0,             255.0},
    {"clockwiseLimitDoubleSpinBox",           0, 2047,  -3.141592653589, 3.141592653589},
    {"counterClockwiseLimitDoubleSpinBox",    0, 2047,  -3.141592653589, 3.141592653589},
    {"targetAngularVelocityDoubleSpinBox",    0, 10000, 0.0,             10.0},
    {"positionProportionalTermDoubleSpinBox", 0, 10,    0.0,             10.0},
    {"positionintegralTermDoubleSpinBox",     0, 10,    0.0,             10.0},
    {"positionderivativeTermDoubleSpinBox",   0, 10,    0.0,             10.0},
};
// clang-format on

} // namespace

DynamixelAx12::DynamixelAx12() : DeviceBase(Limits) {}

unsigned DynamixelAx12::controlTableSize() const
{
    return ControlTableSize;
}

std::optional<RegisterDescription> DynamixelAx12::registerDescription(quint16) const
{
    return std::nullopt;
}

unsigned DynamixelAx12::registerCount(quint32) const
{
    return 0;
}

bool DynamixelAx12::hasRegisterMap() const
{
    return false;
}
