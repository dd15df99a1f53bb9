#pragma once

#include <memory>

class QWidget;
class UnitsHelper;

/** The units that the user has chosen by now; the first unit of each quantity while there is no settings
 * dialog. */
std::unique_ptr<const UnitsHelper> currentUnits();

/** Calls the slot on_deviceLoaded() of @p widget each time a device model is loaded, until cutDeviceLoaded(). */
void followDeviceLoaded(QWidget &widget);

/**
 * Cuts every receiver of the device helper's signals, not only one widget's: the link is down for all of
 * them, and each follows again when it is told that the link is up.
 */
void cutDeviceLoaded();
