#include "widgets/followeddevice.h"

#include "device/devicehelper.h"
#include "device/unitshelper.h"
#include "link/processwide.h"
#include "settings/settingsdialog.h"

#include <QWidget>

std::unique_ptr<const UnitsHelper> currentUnits()
{
    const SettingsDialog *dialog = SettingsDialog::instance();
    const PhysicalQuantities quantities = dialog ? dialog->units() : PhysicalQuantities();
    return std::make_unique<const UnitsHelper>(std::make_shared<const PhysicalQuantities>(quantities));
}

void followDeviceLoaded(QWidget &widget)
{
    if (const auto &helper = ProcessWide<DeviceHelper>::instance()) {
        QObject::connect(helper.get(), SIGNAL(loadDeviceMetadata()), &widget, SLOT(on_deviceLoaded()),
                         Qt::UniqueConnection);
    }
}

void cutDeviceLoaded()
{
    if (const auto &helper = ProcessWide<DeviceHelper>::instance())
        QObject::disconnect(helper.get(), nullptr, nullptr, nullptr);
}
