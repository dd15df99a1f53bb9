#include "widgets/modelnotice.h"

#include "device/devicehelper.h"
#include "link/processwide.h"
#include "widgets/followeddevice.h"
#include "widgets/uigrouphelper.h"

namespace {

constexpr int Margin = 8; // pixels

} // namespace

ModelNotice::ModelNotice(const QString &notice, QWidget *parent) : QLabel(notice, parent)
{
    setObjectName(QStringLiteral("modelNotice"));
    setWordWrap(true);
    setMargin(Margin);
    hide();
    if (const auto &groups = ProcessWide<UiGroupHelper>::instance()) {
        connect(groups.get(), &UiGroupHelper::linkWentUp, this, &ModelNotice::connected);
        connect(groups.get(), &UiGroupHelper::linkWentDown, this, &QWidget::hide);
    }
}

void ModelNotice::connected()
{
    followDeviceLoaded(*this);
}

void ModelNotice::on_deviceLoaded()
{
    const auto device = DeviceHelper::currentDevice();
    setVisible(device && !device->hasRegisterMap());
}
