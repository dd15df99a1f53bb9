#include "widgets/zelvargrouptoolbutton.h"

#include "device/devicehelper.h"
#include "widgets/followeddevice.h"
#include "widgets/groupbuttonaccess.h"

#include <utility>

ZelvarGroupToolButton::ZelvarGroupToolButton(QWidget *parent) : QToolButton(parent)
{
    setEnabled(false);
    installGroupButtonAccess();
    connect(this, &QAbstractButton::pressed, this, [this] { m_unchecksAtRelease = isChecked(); });
    connect(this, &QAbstractButton::released, this, &ZelvarGroupToolButton::finishPress);
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

// Qt counts the press as taken back when the button is disabled before the release, or the pointer has left it. But
// what the press of a checked button applies is on its way then.
void ZelvarGroupToolButton::finishPress()
{
    if (std::exchange(m_unchecksAtRelease, false))
        setChecked(false);
}

// A block laid out for the own family must never reach a servo with another register table.
void ZelvarGroupToolButton::on_deviceLoaded()
{
    const std::shared_ptr<const IDevice> device = DeviceHelper::currentDevice();
    m_deviceLoaded = device && device->hasRegisterMap();
    refreshEnabled();
}
