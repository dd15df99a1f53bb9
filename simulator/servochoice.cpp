#include "simulator/servochoice.h"

#include "simulator/ax12servo.h"
#include "simulator/baudcode.h"
#include "simulator/zelvarservo.h"

#include <QStringList>

namespace simulator {

namespace {

struct ModelName
{
    ServoChoice::Model model;
    const char *name;
};

// clang-format off
constexpr ModelName ModelNames[] = {
    {ServoChoice::Model::Zelvar, "zelvar"},
    {ServoChoice::Model::Ax12,   "ax12"  },
};
// clang-format on

std::optional<ServoChoice::Model> modelNamed(const QString &name)
{
    for (const ModelName &row : ModelNames) {
        if (name == QLatin1String(row.name))
            return row.model;
    }
    return std::nullopt;
}

std::optional<ServoChoice> failure(QString *error, const QString &text)
{
    *error = text;
    return std::nullopt;
}

} // namespace

std::optional<ServoChoice> ServoChoice::fromText(const QString &text, QString *error)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() < 2 || parts.size() > 3)
        return failure(error, QStringLiteral("\"%1\" is no servo: expected MODEL:ID or MODEL:ID:BAUD").arg(text));

    ServoChoice choice;
    const auto model = modelNamed(parts[0]);
    if (!model)
        return failure(error, QStringLiteral("unknown servo model \"%1\": expected zelvar or ax12").arg(parts[0]));
    choice.model = *model;

    bool isNumber = false;
    const int id = parts[1].toInt(&isNumber);
    if (!isNumber || id < 0 || id > wire::MaximumId)
        return failure(error,
                       QStringLiteral("\"%1\" is no servo id: expected 0 to %2").arg(parts[1]).arg(wire::MaximumId));
    choice.id = static_cast<quint8>(id);

    choice.baudCode = baudcode::DefaultCode;
    if (parts.size() == 3) {
        const auto code = baudcode::nearestCode(parts[2].toInt(&isNumber));
        if (!isNumber || !code)
            return failure(
                error,
                QStringLiteral("\"%1\" is no baud rate that a servo has, such as 57600 or 1000000").arg(parts[2]));
        choice.baudCode = *code;
    }
    return choice;
}

QString ServoChoice::label() const
{
    for (const ModelName &row : ModelNames) {
        if (row.model == model)
            return QStringLiteral("%1:%2").arg(QLatin1String(row.name)).arg(id);
    }
    return {};
}

std::unique_ptr<ISimulatedServo> ServoChoice::makeServo() const
{
    switch (model) {
    case Model::Zelvar:
        return std::make_unique<ZelvarServo>(id, baudCode);
    case Model::Ax12:
        return std::make_unique<Ax12Servo>(id, baudCode);
    }
    return nullptr;
}

} // namespace simulator
