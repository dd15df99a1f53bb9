#pragma once

#include "model/fieldkind.h"

namespace model {

/** A value of a choice by the name that it has in files and on command lines. */
struct Choice
{
    FieldKind kind;
    qint32 value;
    const char *name;
};

/** Baud rates have a table of their own. */
// clang-format off
inline constexpr Choice Choices[] = {
    {FieldKind::OperatingMode, 0, "torque"    },
    {FieldKind::OperatingMode, 1, "wheel"     },
    {FieldKind::OperatingMode, 2, "joint"     },
    {FieldKind::OperatingMode, 3, "multi-turn"},
    {FieldKind::OperatingMode, 4, "stepper"   },
    {FieldKind::InputMode,     0, "trajectory"},
    {FieldKind::InputMode,     1, "position"  },
};
// clang-format on

} // namespace model
