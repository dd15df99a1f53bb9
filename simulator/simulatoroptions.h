#pragma once

#include "simulator/faultinjector.h"
#include "simulator/selfmotion.h"
#include "simulator/servochoice.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace simulator {

/** What the command line asks of the simulator. */
struct SimulatorOptions
{
    std::vector<ServoChoice> servos;
    std::vector<SelfMotionChoice> motions;
    QString name;             ///< name of the bus in the port list
    bool isNameGiven = false; ///< whether the user insists on that name
    QString link;             ///< another place for a link to the bus; empty: none
    QString stateFile;        ///< where non-volatile registers are kept; empty: nowhere
    bool isPaced = false;     ///< whether replies take the time that they would take on the wire
    quint32 seed = 1;
    FaultSettings faults;
};

/** The outcome of reading a command line: options to run with, or a text to print, or an error. */
struct SimulatorCommandLine
{
    enum class Action {
        Run,
        ShowText,  ///< text: help or version
        ShowError, ///< text: one line
    };

    Action action = Action::Run;
    SimulatorOptions options;
    QString text;

    /** Reads @p arguments, the program's name first. */
    static SimulatorCommandLine parse(const QStringList &arguments);
};

} // namespace simulator
