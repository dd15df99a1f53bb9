#pragma once

#include <QtGlobal>

/** The poll map of the own family: which control gets the value of which registers. */
namespace pollmap {

/**
 * Width and sign that a value is narrowed to before a control gets it; not always the width that is polled.
 */
enum RawType : quint8 { U8, S16, U16, S32, U32 };

struct Item
{
    quint8 address;
    /** Bytes polled: 1, 2 or 4. */
    quint8 size;
    RawType type;
    /** Object name of the control that shows the value; null for registers that are polled only. */
    const char *field = nullptr;
    /** Object name of the control that shows DirectionBit; the field gets the other bits then. */
    const char *directionField = nullptr;
};

constexpr int DirectionBit = 15;

/** Its bits go to the status check boxes. */
constexpr quint8 HardwareErrorRegister = 107;

struct HardwareError
{
    int bit;
    /** Object name of the check box that shows the bit; null for bits that none shows. */
    const char *field;
};

inline constexpr HardwareError HardwareErrors[] = {
    {0, "inputVoltageStatusCheckBox"},
    {1, "hallStatusCheckBox"},
    {2, "overheatingStatusCheckBox"},
    {3, "encoderStatusCheckBox"},
    {4, "angleLimitStatusCheckBox"},
    {5, nullptr},
    {6, nullptr},
};

/**
 * In the order they are entered; the first item of an address counts. The items reach past the control
 * table, and stepping from address 0 by each item's size always meets an item below 120: the scheduler's
 * walk needs both.
 */
// clang-format off
inline constexpr Item Items[] = {
    // address, bytes, type, field, direction field
    {0,   2, U16, "modelNumberLineEdit"},
    {2,   1, U16, "firmwareVersionLineEdit"},
    {3,   1, U8,  "idSpinBox"},
    {4,   1, U8,  "baudRateComboBox"},
    {5,   1, U8,  "ackResponseTimeSpinBox"},
    {6,   1, U8,  "operatingModeComboBox"},
    {7,   2, S16, "clockwiseLimitDoubleSpinBox"},
    {9,   2, S16, "counterClockwiseLimitDoubleSpinBox"},
    {11,  1, U8,  "temperatureLimitDoubleSpinBox"},
    {12,  1, U8,  "minVoltageLimitDoubleSpinBox"},
    {13,  1, U8,  "maxVoltageLimitDoubleSpinBox"},
    {14,  2, U16, "quadratureCurrentLimitDoubleSpinBox"},
    {16,  2, U16, "angularVelocityLimitDoubleSpinBox"},
    {18,  2, U16, "accelerationLimitDoubleSpinBox"},
    {20,  4, S32, "hornPositionOffsetDoubleSpinBox"},
    {24,  2, U16, "movingThresholdDoubleSpinBox"},
    {26,  1, U8,  "inputModeComboBox"},
    {27,  2, U16, "defPositionProportionalTermDoubleSpinBox"},
    {29,  2, U16, "defVelocityFeedforwardTermDoubleSpinBox"},
    {31,  2, U16, "defCurrentFeedforwardTermDoubleSpinBox"},
    {33,  2, U16, "defVelocityIntegralTermDoubleSpinBox"},
    {35,  2, U16, "defVelocityProportionalTermDoubleSpinBox"},
    {37,  2, U16, "defAngularVelocityProfileDoubleSpinBox"},
    {39,  2, U16, "defAccelerationProfileDoubleSpinBox"},
    {41,  1, U8},
    {42,  2, U8},
    {44,  2, U8},
    {46,  2, U8},
    {48,  1, U8,  "enableMotorCheckBox"},
    {49,  1, U8,  "pendingShadowInstructionCheckBox"},
    {107, 1, U8}, // the five status check boxes
    {50,  2, U16},
    {52,  2, U16},
    {54,  2, U16, "positionProportionalTermDoubleSpinBox"},
    {56,  2, U16, "velocityFeedforwardTermDoubleSpinBox"},
    {58,  2, U16, "currentFeedforwardTermDoubleSpinBox"},
    {60,  2, U16, "velocityIntegralTermDoubleSpinBox"},
    {62,  2, U16, "velocityProportionalTermDoubleSpinBox"},
    {64,  2, U16},
    {66,  2, U16},
    {68,  2, U16, "angularVelocityProfileDoubleSpinBox"},
    {70,  2, U16, "accelerationProfileDoubleSpinBox"},
    {72,  2, U16},
    {74,  2, U16},
    {76,  2, U16},
    {78,  4, S32, "targetPositionDoubleSpinBox"},
    {82,  2, U16, "targetAngularVelocityDoubleSpinBox", "targetAngularVelocityDirectionComboBox"},
    {84,  2, U16, "targetTorqueDoubleSpinBox", "targetTorqueDirectionComboBox"},
    {86,  4, S32, "actualPositionLineEdit"},
    {90,  2, U16, "actualAngularVelocityLineEdit"},
    {92,  2, U16, "actualTorqueLineEdit"},
    {94,  1, U8,  "actualVoltageLineEdit"},
    {95,  2, U16, "actualQuadratureCurrentLineEdit"},
    {97,  1, U8,  "actualTemperatureLineEdit"},
    {98,  1, U8},
    {99,  1, U8,  "isMovingCheckBox"},
    {100, 1, U8},
    {101, 2, U16},
    {103, 4, U32},
    {107, 1, U8}, // the five status check boxes
    {108, 1, U8},
    {109, 1, U8},
    {110, 1, U8},
    {111, 1, U8},
    {112, 1, U8},
    {113, 1, U8},
    {114, 2, U16},
    {116, 2, U16},
    {118, 1, U8},
    {119, 1, U8},
};
// clang-format on

} // namespace pollmap
