#pragma once

#include "device/ifielddependency.h"

#include <QtGlobal>

#include <memory>

/**
 * How the raw register range of a control maps onto a physical range (base units: rad, rad/s, rad/s², N·m, V, mA, °C,
 * μs).
 */
struct FieldLimits
{
    qint32 rawMin = 0;
    qint32 rawMax = 0;
    /** The physical value at rawMin. */
    double physicalMin = 0.0;
    /** The physical value at rawMax. */
    double physicalMax = 0.0;
    /** What to run before a new value is shown; only the mode combo boxes have one. */
    std::shared_ptr<IFieldDependency> controller;
};
