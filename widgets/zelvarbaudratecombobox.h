#pragma once

#include "widgets/zelvarcombobox.h"

/** The list of baud rates. Its raw value is the servo's code; value() is the index, which saving turns into
 * the code. */
class ZelvarBaudRateComboBox : public ZelvarComboBox
{
    Q_OBJECT

public:
    explicit ZelvarBaudRateComboBox(QWidget *parent = nullptr);

    void setEditable(bool enable) override;

protected:
    /** The placeholder for a code that is not in the list. */
    int fromRaw(int code) const override;
    bool isEdited() const override;
    /** There are no limits for it; every servo of the own family has it. */
    bool isDefinedBy(const IDevice &device) const override;
};
