#include "widgets/zelvargrouptoolbutton.h"

#include "device/devicehelper.h"
#include "widgets/followeddevice.h"

ZelvarGroupToolButton::ZelvarGroupToolButton(QWidget *parent) : QToolButton(parent)
{
    setEnabled(false);
}

ZelvarGroupToolButton::Role ZelvarGroupToolButton::role() const
{
    return m_role;
}

void ZelvarGroupToolButton::setRole(Role role)
{
    m_role = role;
}

const std::function<void()> &ZelvarGroupToolButton::saveAction() const
{
    return m_saveAction;
}

void ZelvarGroupToolButton::setSaveAction(std::function<void()> saveAction)
{
    m_saveAction = std::move(saveAction);
}

void ZelvarGroupToolButton::setInhibited(bool inhibited)
{
    m_inhibited = inhibited;
    refreshEnabled();
}

void ZelvarGroupToolButton::refreshEnabled()
{
    setEnabled(m_deviceLoaded && !m_inhibited && (!isChecked() || m_referenceCount != 0));
}

void ZelvarGroupToolButton::connected()
{
    followDeviceLoaded(*this);
}

void ZelvarGroupToolButton::disconnected()
{
    cutDeviceLoaded();
    m_deviceLoaded = false;
    setEnabled(false);
}

void ZelvarGroupToolButton::incrementReferenceCount(bool dirty)
{
    m_referenceCount += dirty ? 1 : -1;
    setEnabled(m_referenceCount != 0 && !m_inhibited);
}

void ZelvarGroupToolButton::clearReferenceCount()
{
    m_referenceCount = 0;
}

// A block laid out for the own family must never reach a servo with another register table.
void ZelvarGroupToolButton::on_deviceLoaded()
{
    const std::shared_ptr<const IDevice> device = DeviceHelper::currentDevice();
    m_deviceLoaded = device && device->hasRegisterMap();
    refreshEnabled();
}
