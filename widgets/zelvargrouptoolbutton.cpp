#include "widgets/zelvargrouptoolbutton.h"

#include "device/devicehelper.h"
#include "device/ieditgroup.h"
#include "widgets/followeddevice.h"
#include "widgets/groupbuttonaccess.h"

#include <utility>

#include <QEvent>

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

void ZelvarGroupToolButton::setInhibition(const QString &why)
{
    m_inhibition = why;
    refreshEnabled();
}

void ZelvarGroupToolButton::refreshEnabled()
{
    enable(m_link == Link::Up && m_inhibition.isEmpty() && (!isChecked() || m_referenceCount != 0));
}

void ZelvarGroupToolButton::setToolTip(const QString &tip)
{
    m_toolTip = tip;
    refreshToolTip();
}

// The first values of a group may have come since.
bool ZelvarGroupToolButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip)
        refreshToolTip();
    return QToolButton::event(event);
}

void ZelvarGroupToolButton::enable(bool enabled)
{
    setEnabled(enabled);
    refreshToolTip();
}

void ZelvarGroupToolButton::refreshToolTip()
{
    const QString why = isEnabled() || m_role != EditSave ? QString() : whyDisabled();
    const bool areBoth = !m_toolTip.isEmpty() && !why.isEmpty();
    QToolButton::setToolTip(areBoth ? m_toolTip + QLatin1Char('\n') + why : m_toolTip + why);
    setAccessibleDescription(why);
}

QString ZelvarGroupToolButton::whyDisabled() const
{
    switch (m_link) {
    case Link::Down:
        return tr("No servo is connected.");
    case Link::Unanswered:
        return tr("The servo has not answered yet.");
    case Link::Unsupported:
        return tr("The parameters of this model cannot be edited.");
    case Link::Up:
        break;
    }
    if (!m_inhibition.isEmpty())
        return m_inhibition;
    const auto *group = dynamic_cast<const IEditGroup *>(parent());
    const bool isWaiting = group && group->editMode() && !group->withholdsValues();
    return isWaiting ? tr("The first values of the servo have not come yet.") : tr("Nothing has been changed yet.");
}

void ZelvarGroupToolButton::connected()
{
    followDeviceLoaded(*this);
    m_link = Link::Unanswered;
    refreshToolTip();
}

void ZelvarGroupToolButton::disconnected()
{
    cutDeviceLoaded();
    m_link = Link::Down;
    enable(false);
}

void ZelvarGroupToolButton::incrementReferenceCount(bool dirty)
{
    m_referenceCount += dirty ? 1 : -1;
    enable(m_referenceCount != 0 && m_inhibition.isEmpty());
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
    m_link = device && device->hasRegisterMap() ? Link::Up : Link::Unsupported;
    refreshEnabled();
}
