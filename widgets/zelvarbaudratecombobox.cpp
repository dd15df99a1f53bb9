#include "widgets/zelvarbaudratecombobox.h"

#include "device/idevice.h"
#include "link/serialhelper.h"

ZelvarBaudRateComboBox::ZelvarBaudRateComboBox(QWidget *parent) : ZelvarComboBox(parent) {}

void ZelvarBaudRateComboBox::setEditable(bool enable)
{
    if (enable && !isLocked())
        storeShown();
    ZelvarComboBox::setEditable(enable);
}

int ZelvarBaudRateComboBox::fromRaw(int code) const
{
    const int index = SerialHelper::baudRateIndex(code);
    return index < 0 ? placeholder() : index;
}

bool ZelvarBaudRateComboBox::isEdited() const
{
    return !showsStored() && currentIndex() != placeholder();
}

bool ZelvarBaudRateComboBox::isDefinedBy(const IDevice &device) const
{
    return device.hasRegisterMap();
}
