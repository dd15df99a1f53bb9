#pragma once

#include "device/ifielddependency.h"
#include "model/field.h"

#include <memory>

/**
 * How the raw register range of a control maps onto a physical range (base units: rad, rad/s, rad/s², N·m, V, mA, °C,
 * μs).
 */
struct FieldLimits : model::Range
{
    /** What to run before a new value is shown; only the mode combo boxes have one. */
    std::shared_ptr<IFieldDependency> controller;
};
