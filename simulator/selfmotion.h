#pragma once

#include "simulator/isimulatedservo.h"

#include <QString>

#include <optional>

namespace simulator {

/** How a servo moves without being told to. */
struct SelfMotion
{
    enum class Kind {
        Sine,
        Step,  ///< from one side to the other and back
        Sweep, ///< a sine from slow to fast, over and over
    };

    Kind kind = Kind::Sine;
    double period = 4; ///< seconds, greater than 0; of a sweep until it begins anew

    /** The angle to go to at @p time, in radians from the middle. */
    double angleAt(SimulationTime time) const;
};

/** What a user asks for with one --motion option. */
struct SelfMotionChoice
{
    SelfMotion motion;
    quint8 servoId = 0;

    /** Reads KIND:ID[:SECONDS]; nothing, and @p error one line for the user, when it is none. */
    static std::optional<SelfMotionChoice> fromText(const QString &text, QString *error);
};

} // namespace simulator
