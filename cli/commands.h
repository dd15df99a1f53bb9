#pragma once

#include "cli/context.h"
#include "model/rows.h"

namespace cli {

ExitStatus listPorts(Context &context);
ExitStatus scanBus(Context &context);
ExitStatus showInfo(Context &context);
ExitStatus getFields(Context &context);
ExitStatus setFields(Context &context);
ExitStatus monitorFields(Context &context);
ExitStatus backUpServos(Context &context);
ExitStatus showDifferences(Context &context);
ExitStatus restoreServos(Context &context);
ExitStatus stopMotors(Context &context);
ExitStatus rebootServos(Context &context);
ExitStatus resetServos(Context &context);

/** A command of the program. */
struct Command
{
    const char *name;
    ExitStatus (*run)(Context &context);
    const char *summary;
};

// clang-format off
inline constexpr Command Commands[] = {
    {"ports",         listPorts,       "List the serial ports that are there"},
    {"scan",          scanBus,         "Find the servos on the bus"},
    {"info",          showInfo,        "Tell model, firmware, address, motor and errors"},
    {"get",           getFields,       "Read fields"},
    {"set",           setFields,       "Write fields and read them back"},
    {"monitor",       monitorFields,   "Read fields again and again, one line a sample"},
    {"backup",        backUpServos,    "Keep the non-volatile fields of servos in files"},
    {"diff",          showDifferences, "Compare a servo with a file, or two files"},
    {"restore",       restoreServos,   "Give servos what a file has, and read it back"},
    {"stop",          stopMotors,      "Switch the motors off and prove it"},
    {"reboot",        rebootServos,    "Restart servos"},
    {"factory-reset", resetServos,     "Set servos back to their factory values"},
};
// clang-format on

} // namespace cli
