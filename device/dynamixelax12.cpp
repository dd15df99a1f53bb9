#include "device/dynamixelax12.h"

#include "model/families.h"

namespace {

constexpr double Pi = 3.141592653589;

/**
 * What the window's controls take for an AX-12. These are not the ranges of its registers, which the window does not
 * show: the controls have always been limited so.
 */
// clang-format off
constexpr LimitsRow WindowLimits[] = {
    // object name, {rawMin, rawMax, physicalMin, physicalMax}
    {"positionLineEdit",                      {0, 2047,  -Pi, Pi   }},
    {"speedLineEdit",                         {0, 10000, 0.0, 10.0 }},
    {"temperatureLineEdit",                   {0, 255,   0.0, 255.0}},
    {"torqueLineEdit",                        {0, 10,    0.0, 10.0 }},
    {"voltageLineEdit",                       {0, 10,    0.0, 10.0 }},
    {"currentLineEdit",                       {0, 10,    0.0, 10.0 }},
    {"firmwareVersionLineEdit",               {0, 255,   0.0, 255.0}},
    {"modelNumberLineEdit",                   {0, 255,   0.0, 255.0}},
    {"clockwiseLimitDoubleSpinBox",           {0, 2047,  -Pi, Pi   }},
    {"counterClockwiseLimitDoubleSpinBox",    {0, 2047,  -Pi, Pi   }},
    {"targetAngularVelocityDoubleSpinBox",    {0, 10000, 0.0, 10.0 }},
    {"positionProportionalTermDoubleSpinBox", {0, 10,    0.0, 10.0 }},
    {"positionintegralTermDoubleSpinBox",     {0, 10,    0.0, 10.0 }},
    {"positionderivativeTermDoubleSpinBox",   {0, 10,    0.0, 10.0 }},
};
// clang-format on

} // namespace

DynamixelAx12::DynamixelAx12() : DeviceBase(model::DynamixelAx12Family)
{
    setRanges(WindowLimits);
}

unsigned DynamixelAx12::controlTableSize() const
{
    return unsigned(family().tableSize);
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
