#pragma once

#include <QtGlobal>

/** The user's unit choices: 0 or 1 per quantity, an index into the quantity's row of the unit table. */
struct PhysicalQuantities
{
    qint32 angularVelocity = 0;
    qint32 angle = 0;
    qint32 angularAcceleration = 0;
    qint32 torque = 0;
    qint32 voltage = 0;
    qint32 current = 0;
    qint32 temperature = 0;
    qint32 returnDelay = 0;
    /** How raw register values are shown: 1 decimal, 0 hexadecimal. */
    qint32 servoData = 0;
};
