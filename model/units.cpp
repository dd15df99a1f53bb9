#include "model/units.h"

#include <QCoreApplication>

namespace model {

namespace {

constexpr Unit None = {"", "", 0, 0.0, 0};

// Twelve decimals, not the full precision: the servo's own scale is built on this value.
constexpr double TwoPi = 6.283185307178;
// One position count is 2π / 4096 rad, the step of an angle. Degrees have no step of their own.
constexpr double OneCount = 0.001533980787885254;

// By kind. The base unit of currents is the second unit, mA, so there the first one converts.
// clang-format off
constexpr Unit Units[][2] = {
    // text, in ASCII, decimals, step, flag, multiplier, divisor, offset
    {{"rad/s",                                     "rad/s",   2, 0.1,      1},
     {"rpm",                                       "rpm",     1, 1.0,      0, 60.0, TwoPi}},
    {{QT_TRANSLATE_NOOP("UnitsHelper", "radians"), "rad",     3, OneCount, 1},
     {QT_TRANSLATE_NOOP("UnitsHelper", "degrees"), "deg",     2, 0.0,      0, 360.0, TwoPi}},
    {{"rad/s²",                                    "rad/s^2", 2, 0.01,     0},
     None},
    {{"Nm",                                        "Nm",      2, 0.1,      1},
     {"kg-cm",                                     "kg-cm",   2, 0.1,      0, 10.19716}},
    {{"V",                                         "V",       1, 0.5,      0},
     None},
    {{"A",                                         "A",       3, 0.1,      1, 1.0, 1000.0},
     {"mA",                                        "mA",      0, 1.0,      0}},
    {{"°C",                                        "degC",    0, 1.0,      1},
     {"°F",                                        "degF",    1, 1.0,      0, 1.8, 1.0, 32.0}},
    {{"μs",                                        "us",      0, 1.0,      0},
     None},
};
// clang-format on

} // namespace

const Unit &unit(FieldKind kind, int index)
{
    if (!isQuantity(kind) || index < 0 || index > 1)
        return None;
    return Units[static_cast<std::size_t>(kind)][index];
}

const char *asciiUnit(FieldKind kind, int index)
{
    switch (kind) {
    case FieldKind::AngularVelocityProfile:
        return unit(FieldKind::AngularVelocity, 0).ascii;
    case FieldKind::AccelerationProfile:
        return unit(FieldKind::AngularAcceleration, 0).ascii;
    case FieldKind::Share:
        return "%";
    default:
        return unit(kind, index).ascii;
    }
}

} // namespace model
