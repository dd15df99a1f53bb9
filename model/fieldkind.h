#pragma once

#include <QtGlobal>

namespace model {

/**
 * What kind of value a field holds. The first eight are the quantities, which have units; the window's controls carry
 * the number of their kind as their field id.
 */
enum class FieldKind : qint32 {
    AngularVelocity = 0,     ///< rad/s
    Angle = 1,               ///< rad
    AngularAcceleration = 2, ///< rad/s²
    Torque = 3,              ///< N·m
    Voltage = 4,             ///< V
    Current = 5,             ///< mA
    Temperature = 6,         ///< °C
    ReturnDelay = 7,         ///< μs

    ServoId = 8,
    PositionGain = 9,
    VelocityFeedforward = 10,
    CurrentFeedforward = 11,
    // 12 has never been given out.
    VelocityGain = 13,
    VelocityIntegralGain = 14,
    AngularVelocityProfile = 15, ///< rad/s, shown without conversion
    AccelerationProfile = 16,    ///< rad/s², shown without conversion
    ModelNumber = 17,
    BaudRate = 18, ///< a code of the table of baud rates
    OperatingMode = 19,
    InputMode = 20,
    Direction = 21,
    PlainValue = 22,
    IdCaption = 23, ///< of a caption; no field has it

    // Kinds that no control of the window shows
    Share = 24, ///< % of the most that the servo can do
};

/** Whether @p kind is a quantity of the unit table. */
constexpr bool isQuantity(FieldKind kind)
{
    return kind >= FieldKind::AngularVelocity && kind <= FieldKind::ReturnDelay;
}

/** Whether @p kind is a number with a range; the others are choices and codes. */
constexpr bool isNumber(FieldKind kind)
{
    return (kind >= FieldKind::AngularVelocity && kind <= FieldKind::CurrentFeedforward) ||
           (kind >= FieldKind::VelocityGain && kind <= FieldKind::AccelerationProfile);
}

/** Whether a value of @p kind is an entry of a list of choices. */
constexpr bool isChoice(FieldKind kind)
{
    return kind == FieldKind::BaudRate || kind == FieldKind::OperatingMode || kind == FieldKind::InputMode ||
           kind == FieldKind::Direction;
}

} // namespace model
