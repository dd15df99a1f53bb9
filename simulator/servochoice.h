#pragma once

#include "simulator/isimulatedservo.h"

#include <QString>

#include <memory>
#include <optional>

namespace simulator {

/** What a user asks for with one --servo option. */
struct ServoChoice
{
    enum class Model {
        Zelvar,
        Ax12,
    };

    Model model = Model::Zelvar;
    quint8 id = 0;
    quint8 baudCode = 0;

    /** Reads MODEL:ID[:BAUD]; nothing, and @p error one line for the user, when it is none. */
    static std::optional<ServoChoice> fromText(const QString &text, QString *error);
    /** MODEL:ID, under which the servo's state is kept. */
    QString label() const;
    std::unique_ptr<ISimulatedServo> makeServo() const;
};

} // namespace simulator
