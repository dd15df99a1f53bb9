#include "device/devicehelper.h"

#include "device/dynamixelax12.h"
#include "device/zelvarv1.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "serialport/replybytes.h"

#include <QPointer>

#include <utility>

namespace {

bool isFromAx12(const QByteArray &reply)
{
    if (reply.size() < replybytes::ReadFamily + 2)
        return false;
    const auto *bytes = reinterpret_cast<const quint8 *>(reply.constData()) + replybytes::ReadFamily;
    return &model::familyOf(quint16(model::littleEndian(bytes, 2))) == &model::DynamixelAx12Family;
}

} // namespace

DeviceHelper::DeviceHelper(std::shared_ptr<SerialHelper> serialHelper, std::function<void()> deviceLoaded,
                           ModeDependencyFactory makeDependencies)
    : m_serialHelper(std::move(serialHelper)), m_deviceLoaded(std::move(deviceLoaded)),
      m_makeDependencies(std::move(makeDependencies))
{
}

void DeviceHelper::identify(uint8_t servoId)
{
    // The serial helper keeps the callback longer than this object may live.
    const QPointer<DeviceHelper> self(this);
    const model::Field &modelNumber = model::ZelvarV1Family["model_number"]; // where all families have it
    m_serialHelper->readData(servoId, modelNumber.address, modelNumber.size, [self](const QByteArray &reply) {
        if (self)
            self->onModelNumberRead(reply);
    });
}

void DeviceHelper::onModelNumberRead(const QByteArray &reply)
{
    m_device = makeDevice(isFromAx12(reply));
    Q_EMIT loadDeviceMetadata();
    m_deviceLoaded();
}

bool DeviceHelper::reboot(uint8_t servoId, std::function<void(QByteArray)> callback)
{
    const bool isAccepted = m_serialHelper->reboot(servoId, std::move(callback));
    m_serialHelper->closeSerialPort();
    return isAccepted;
}

bool DeviceHelper::factoryReset(uint8_t servoId, std::function<void(QByteArray)> callback)
{
    const bool isAccepted = m_serialHelper->reset(servoId, std::move(callback));
    m_serialHelper->closeSerialPort();
    return isAccepted;
}

std::shared_ptr<IDevice> DeviceHelper::device() const
{
    return m_device;
}

std::shared_ptr<IDevice> DeviceHelper::currentDevice()
{
    const std::shared_ptr<DeviceHelper> helper = ProcessWide<DeviceHelper>::instance();
    return helper ? helper->device() : nullptr;
}

std::shared_ptr<IDevice> DeviceHelper::makeDevice(bool isAx12) const
{
    if (isAx12)
        return std::make_shared<DynamixelAx12>();
    return std::make_shared<ZelvarV1>(m_makeDependencies ? m_makeDependencies() : ModeDependencies());
}
