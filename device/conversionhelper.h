#pragma once

#include <QtGlobal>

/** The arithmetic between base units and display units, by field id and unit index. */
class ConversionHelper
{
public:
    /**
     * Base unit (rad/s, rad, rad/s², N·m, V, mA, °C, μs) to the display unit @p unitIndex of the field's
     * quantity. Fields that are no quantity are passed through.
     */
    double toDisplay(double value, qint32 fieldId, qint32 unitIndex) const;
    /** The inverse of toDisplay(). */
    double fromDisplay(double value, qint32 fieldId, qint32 unitIndex) const;
};
