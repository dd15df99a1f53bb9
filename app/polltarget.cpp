#include "app/polltarget.h"

#include "device/devicehelper.h"
#include "device/statushelper.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "views/registerview.h"

#include <utility>

PollTarget::PollTarget(std::shared_ptr<UiRegisterHelper> registerHelper, const Clock &clock)
    : m_registerHelper(std::move(registerHelper)), m_clock(clock)
{
}

PollTarget::~PollTarget() = default;

const RegisterBindings &PollTarget::registerBindings() const
{
    return m_registerHelper->bindings();
}

quint8 PollTarget::readLength() const
{
    const auto device = DeviceHelper::currentDevice();
    return device ? static_cast<quint8>(device->controlTableSize()) : quint8(0);
}

void PollTarget::take(const QByteArray &registers)
{
    m_registerHelper->take(registers, m_clock.now());
}

void PollTarget::updateRegister(quint16 address, quint8 size, quint32 value)
{
    if (RegisterView *view = RegisterView::instance())
        view->updateRegister(address, size, value);
}

void PollTarget::updateStatus(qint8 errorByte)
{
    auto &helper = ProcessWide<StatusHelper>::instance();
    if (!helper)
        helper = std::make_shared<StatusHelper>();
    helper->update(errorByte);
}
