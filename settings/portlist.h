#pragma once

#include <memory>
#include <vector>

class QComboBox;
class QString;
class SerialPortItem;

/** What stands where in the string list that each entry of a list of ports carries as its data. */
enum class PortDetail {
    PortName,
    Description,
    Manufacturer,
    Location,
    VendorIdentifier,  ///< hexadecimal
    ProductIdentifier, ///< hexadecimal
};

/** Gives the entry under the pointer a ground of its own; the ground that a dialog gives its lists would cover it else.
 */
void markCurrentEntry(QComboBox &list);

/**
 * Fills @p list with @p ports, in place of what it had; the text chosen in it stays chosen while it is among them.
 * Where a port has no such detail, the text is @p notAvailable.
 */
void fillPortList(QComboBox &list, const std::vector<std::shared_ptr<SerialPortItem>> &ports,
                  const QString &notAvailable);
