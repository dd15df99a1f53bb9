#pragma once

#include <QtGlobal>

/** One row of the register table. */
struct RegisterRow
{
    quint16 address;
    quint32 bank;
    quint16 row;
    quint32 writable;
    const char *description;
};

/**
 * The control table of the own family, byte by byte; multi-byte values have their lowest byte first.
 * Addresses that are missing here are gaps. The text of 93 and those of 101 and 102 repeat other rows on
 * purpose, because that is how the family has always been labelled.
 */
// clang-format off
inline constexpr RegisterRow ZelvarV1Registers[] = {
    // address, bank, row, writable, description
    // Non-volatile bank 1
    {0,   0, 0,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Model number (lower)")},
    {1,   0, 1,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Model number (upper)")},
    {2,   0, 2,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Firmware version")},
    {3,   0, 3,  1, QT_TRANSLATE_NOOP("ZelvarV1", "ID")},
    {4,   0, 4,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Baud rate")},
    {5,   0, 5,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Acknowledge response time")},
    {6,   0, 6,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Operating mode")},
    {7,   0, 7,  1, QT_TRANSLATE_NOOP("ZelvarV1", "CW angle limit (lower)")},
    {8,   0, 8,  1, QT_TRANSLATE_NOOP("ZelvarV1", "CW angle limit (upper)")},
    {9,   0, 9,  1, QT_TRANSLATE_NOOP("ZelvarV1", "CCW angle limit (lower)")},
    {10,  0, 10, 1, QT_TRANSLATE_NOOP("ZelvarV1", "CCW angle limit (upper)")},
    {11,  0, 11, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Upper temperature limit")},
    {12,  0, 12, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Lower input voltage limit")},
    {13,  0, 13, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Upper input voltage limit")},
    {14,  0, 14, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Torque limit (lower)")},
    {15,  0, 15, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Torque limit (upper)")},
    {16,  0, 16, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity limit (lower)")},
    {17,  0, 17, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity limit (upper)")},
    {18,  0, 18, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration limit (lower)")},
    {19,  0, 19, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration limit (upper)")},
    {20,  0, 20, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Home position offset (byte 0)")},
    {21,  0, 21, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Home position offset (byte 1)")},
    {22,  0, 22, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Home position offset (byte 2)")},
    {23,  0, 23, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Home position offset (byte 3)")},
    {24,  0, 24, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Moving threshold (lower)")},
    {25,  0, 25, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Moving threshold (upper)")},
    {26,  0, 26, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Input mode")},
    // Non-volatile bank 2
    {27,  1, 0,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default position proportional gain (lower)")},
    {28,  1, 1,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default position proportional gain (upper)")},
    {29,  1, 2,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity feedforward gain (lower)")},
    {30,  1, 3,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity feedforward gain (upper)")},
    {31,  1, 4,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default current feedforward gain (lower)")},
    {32,  1, 5,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default current feedforward gain (upper)")},
    {33,  1, 6,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity integral gain (lower)")},
    {34,  1, 7,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity integral gain (upper)")},
    {35,  1, 8,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity proportional gain (lower)")},
    {36,  1, 9,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity proportional gain (upper)")},
    {37,  1, 10, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Default angular velocity profile (lower)")},
    {38,  1, 11, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Default angular velocity profile (upper)")},
    {39,  1, 12, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Default acceleration profile (lower)")},
    {40,  1, 13, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Default acceleration profile (upper)")},
    // Volatile bank 1
    {48,  2, 0,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Control enable")},
    {49,  2, 1,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Pending shadow instruction")},
    {54,  2, 2,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Position proportional gain (lower)")},
    {55,  2, 3,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Position proportional gain (upper)")},
    {56,  2, 4,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity feedforward gain (lower)")},
    {57,  2, 5,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity feedforward gain (upper)")},
    {58,  2, 6,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Current feedforward gain (lower)")},
    {59,  2, 7,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Current feedforward gain (upper)")},
    {60,  2, 8,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity integral gain (lower)")},
    {61,  2, 9,  1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity integral gain (upper)")},
    {62,  2, 10, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity proportional gain (lower)")},
    {63,  2, 11, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Velocity proportional gain (upper)")},
    {68,  2, 12, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile (lower)")},
    {69,  2, 13, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile (upper)")},
    {70,  2, 14, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration profile (lower)")},
    {71,  2, 15, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration profile (upper)")},
    {78,  2, 16, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target position (byte 0)")},
    {79,  2, 17, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target position (byte 1)")},
    {80,  2, 18, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target position (byte 2)")},
    {81,  2, 19, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target position (byte 3)")},
    {82,  2, 20, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target angular velocity (lower)")},
    {83,  2, 21, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target angular velocity (upper)")},
    {84,  2, 22, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target torque (lower)")},
    {85,  2, 23, 1, QT_TRANSLATE_NOOP("ZelvarV1", "Target torque (upper)")},
    // Volatile bank 2
    {86,  3, 0,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual position (byte 0)")},
    {87,  3, 1,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual position (byte 1)")},
    {88,  3, 2,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual position (byte 2)")},
    {89,  3, 3,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual position (byte 3)")},
    {90,  3, 4,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual angular velocity (lower)")},
    {91,  3, 5,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual angular velocity (upper)")},
    {92,  3, 6,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual torque (lower)")},
    {93,  3, 7,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual torque (lower)")},
    {94,  3, 8,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual voltage")},
    {95,  3, 9,  0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual phase current (lower)")},
    {96,  3, 10, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual phase current (upper)")},
    {97,  3, 11, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Actual temperature")},
    {99,  3, 12, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Moving")},
    {101, 3, 13, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile (lower)")},
    {102, 3, 14, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile (upper)")},
    {107, 3, 15, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Hardware error status")},
    {112, 3, 16, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 1 (u8)")},
    {113, 3, 17, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 2 (u8)")},
    {114, 3, 18, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 3 (lower)")},
    {115, 3, 19, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 3 (upper)")},
    {116, 3, 20, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 4 (lower)")},
    {117, 3, 21, 0, QT_TRANSLATE_NOOP("ZelvarV1", "Debug 4 (upper)")},
};
// clang-format on
