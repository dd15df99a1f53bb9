#pragma once

#include <QtGlobal>

/** The servo's operating modes, by their register value, which is also their entry in the operating-mode
 * list. */
enum class OperatingMode : qint32 { Torque, Wheel, Joint, MultiTurn, Stepper };
