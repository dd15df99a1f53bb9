#include "widgets/uigrouphelper.h"

#include "device/igroupinputcomponent.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "widgets/groupkeys.h"
#include "widgets/saveblock.h"
#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvargrouptoolbutton.h"
#include "widgets/zelvarparametersgroupbox.h"

#include <QIcon>

#include <utility>

struct UiGroupHelper::GroupRow
{
    const char *objectName;
    /** Empty for a group that must never be saved. */
    SaveOperation save;
};

// clang-format off
const UiGroupHelper::GroupRow UiGroupHelper::Groups[] = {
    {"realtimeInformationGroupBox", &UiGroupHelper::saveNothing    },
    {"versionInfoGroupBox",         &UiGroupHelper::saveNothing    },
    {"nonVolatileParamsGroupBox",   &UiGroupHelper::saveNonVolatile},
    {"volatileParamsGroupBox",      &UiGroupHelper::saveVolatile   },
    {"zelvarHardwareErrorGroupBox", nullptr                        },
    {"zelvarPacketStatusGroupBox",  nullptr                        },
};
// clang-format on

namespace {

ZelvarGroupToolButton *buttonOf(const QObject &group, ZelvarGroupToolButton::Role role)
{
    for (QObject *child : group.children()) {
        auto *button = qobject_cast<ZelvarGroupToolButton *>(child);
        if (button && button->role() == role)
            return button;
    }
    return nullptr;
}

template <class Call>
void forEachInput(const QObject &group, Call call)
{
    for (QObject *child : group.children()) {
        if (auto *input = dynamic_cast<IGroupInputComponent *>(child))
            call(child, *input);
    }
}

ZelvarParametersGroupBox *parentGroup(QObject *button)
{
    return button ? qobject_cast<ZelvarParametersGroupBox *>(button->parent()) : nullptr;
}

} // namespace

UiGroupHelper::UiGroupHelper(QWidget *view) : m_view(view)
{
    if (!view)
        return;
    for (const GroupRow &row : Groups)
        setUpGroup(row);
    refreshInhibition();
    if (const auto *enableMotor = view->findChild<ZelvarCheckBox *>(QStringLiteral("enableMotorCheckBox")))
        connect(enableMotor, SIGNAL(toggled(bool)), this, SLOT(on_enableMotorCheckBox_toggled(bool)));
}

void UiGroupHelper::setUpGroup(const GroupRow &row)
{
    ZelvarParametersGroupBox *box = group(row.objectName);
    if (!box)
        return;
    connect(this, &UiGroupHelper::linkWentUp, box, &ZelvarParametersGroupBox::connected);
    connect(this, &UiGroupHelper::linkWentDown, box, &ZelvarParametersGroupBox::disconnected);
    setUpButtons(*box, row.save);
}

void UiGroupHelper::setUpButtons(ZelvarParametersGroupBox &group, SaveOperation operation)
{
    ZelvarGroupToolButton *cancel = buttonOf(group, ZelvarGroupToolButton::Cancel);
    if (cancel)
        connect(cancel, SIGNAL(pressed()), this, SLOT(on_limitsCancelToolButton_pressed()));

    ZelvarGroupToolButton *editSave = buttonOf(group, ZelvarGroupToolButton::EditSave);
    if (!editSave)
        return;
    connect(this, &UiGroupHelper::linkWentUp, editSave, &ZelvarGroupToolButton::connected);
    connect(this, &UiGroupHelper::linkWentDown, editSave, &ZelvarGroupToolButton::disconnected);
    connect(editSave, SIGNAL(toggled(bool)), this, SLOT(on_editSaveToolButton_toggled(bool)));
    connect(editSave, SIGNAL(pressed()), this, SLOT(on_editSaveToolButton_pressed()));
    if (cancel)
        new GroupKeys(group, *editSave, *cancel); // after the connections, which change the texts
    if (operation)
        editSave->setSaveAction([this, operation] { (this->*operation)(); });
    forEachInput(group, [editSave](QObject *input, IGroupInputComponent &) {
        connect(input, SIGNAL(setIsDirty(bool)), editSave, SLOT(incrementReferenceCount(bool)));
    });
}

ZelvarParametersGroupBox *UiGroupHelper::group(const char *objectName) const
{
    return m_view ? m_view->findChild<ZelvarParametersGroupBox *>(QLatin1String(objectName)) : nullptr;
}

QStringList UiGroupHelper::editedControls() const
{
    QStringList controls;
    for (const GroupRow &row : Groups) {
        const ZelvarParametersGroupBox *box = group(row.objectName);
        if (!box)
            continue;
        forEachInput(*box, [&controls](const QObject *input, const IGroupInputComponent &component) {
            if (component.isDirty())
                controls.append(input->objectName());
        });
    }
    return controls;
}

void UiGroupHelper::linkUp()
{
    setServoReachable(true);
    Q_EMIT linkWentUp();
}

void UiGroupHelper::linkDown()
{
    for (const GroupRow &row : Groups) {
        ZelvarParametersGroupBox *box = group(row.objectName);
        if (box && box->editMode())
            cancelEditing(*box);
    }
    Q_EMIT linkWentDown();
}

void UiGroupHelper::endPending()
{
    for (const GroupRow &row : Groups) {
        if (const ZelvarParametersGroupBox *box = group(row.objectName))
            forEachInput(*box, [](QObject *, IGroupInputComponent &input) { input.endPending(); });
    }
}

void UiGroupHelper::on_editSaveToolButton_toggled(bool checked)
{
    auto *editSave = qobject_cast<ZelvarGroupToolButton *>(sender());
    ZelvarParametersGroupBox *box = parentGroup(editSave);
    if (!box)
        return;
    box->setEditMode(checked);
    if (auto *cancel = buttonOf(*box, ZelvarGroupToolButton::Cancel))
        cancel->setEnabled(checked);
    // A field without a value yet follows with its first one: what has not been read must not be written.
    forEachInput(*box, [checked](QObject *, IGroupInputComponent &input) {
        input.setEditable(checked && !input.awaitsValue());
    });
    editSave->setIcon(QIcon(checked ? QStringLiteral(":/images/apply.png") : QStringLiteral(":/images/edit.png")));
    editSave->setText(checked ? tr("Apply") : tr("Edit"));
    editSave->clearReferenceCount();
    editSave->refreshEnabled();
    applyMotorRule();
}

// The press comes before the toggle that ends editing, so the fields are still as the user left them.
void UiGroupHelper::on_editSaveToolButton_pressed()
{
    const auto *editSave = qobject_cast<ZelvarGroupToolButton *>(sender());
    if (!editSave || !editSave->isChecked() || !editSave->saveAction())
        return;
    editSave->saveAction()();
    if (!m_expectsProofs)
        return;
    forEachInput(*editSave->parent(), [](QObject *, IGroupInputComponent &input) {
        if (input.isDirty())
            input.beginPending();
    });
}

void UiGroupHelper::on_limitsCancelToolButton_pressed()
{
    if (ZelvarParametersGroupBox *box = parentGroup(sender()))
        cancelEditing(*box);
}

void UiGroupHelper::cancelEditing(ZelvarParametersGroupBox &group)
{
    group.setEditMode(false);
    ZelvarGroupToolButton *editSave = buttonOf(group, ZelvarGroupToolButton::EditSave);
    if (!editSave)
        return;
    // Checked first, so that the toggle to unchecked takes place, and puts the group back, whatever was before.
    editSave->setChecked(true);
    forEachInput(group, [](QObject *, IGroupInputComponent &input) { input.restoreValue(); });
    editSave->setChecked(false);
}

void UiGroupHelper::on_enableMotorCheckBox_toggled(bool)
{
    applyMotorRule();
}

// The servo takes non-volatile parameters only while its motor is off. An edit of the volatile group says
// nothing about the motor before it is applied or cancelled.
void UiGroupHelper::applyMotorRule()
{
    const ZelvarParametersGroupBox *source = group("volatileParamsGroupBox");
    if (!source || source->editMode())
        return;
    if (const auto *enableMotor = source->findChild<ZelvarCheckBox *>(QStringLiteral("enableMotorCheckBox")))
        m_isMotorOn = enableMotor->isChecked();
    refreshInhibition();
}

void UiGroupHelper::setServoReachable(bool reachable)
{
    m_isServoReachable = reachable;
    refreshInhibition();
}

void UiGroupHelper::motorStopped()
{
    const ZelvarParametersGroupBox *volatileGroup = group("volatileParamsGroupBox");
    if (!volatileGroup || !volatileGroup->editMode())
        return; // the next values tell
    if (auto *enableMotor = volatileGroup->findChild<ZelvarCheckBox *>(QStringLiteral("enableMotorCheckBox")))
        enableMotor->overrule(0);
}

void UiGroupHelper::refreshInhibition()
{
    const QString unreachable =
        m_isServoReachable ? QString()
                           : tr("The servo listens at another id or baud rate by now: disconnect and connect again.");
    const QString motor = m_isMotorOn
                              ? tr("The motor is on, and the servo takes non-volatile parameters only while it is "
                                   "off: untick \"Enable motor\" and apply that first.")
                              : QString();
    const std::pair<const char *, QString> inhibitions[] = {
        {"nonVolatileParamsGroupBox", m_isServoReachable ? motor : unreachable},
        {"volatileParamsGroupBox", unreachable},
    };
    for (const auto &[name, why] : inhibitions) {
        const ZelvarParametersGroupBox *box = group(name);
        if (ZelvarGroupToolButton *editSave = box ? buttonOf(*box, ZelvarGroupToolButton::EditSave) : nullptr)
            editSave->setInhibition(why);
    }
}

void UiGroupHelper::saveNothing() {}

void UiGroupHelper::saveNonVolatile()
{
    save(SaveBlock::nonVolatile());
}

void UiGroupHelper::saveVolatile()
{
    save(SaveBlock::volatileParameters());
}

void UiGroupHelper::save(const SaveBlock &block)
{
    if (!m_view)
        return;
    const auto registers = ProcessWide<UiRegisterHelper>::instance();
    const auto lastByte = [&registers](quint8 address) {
        return registers ? registers->lastByte(address) : std::nullopt;
    };
    const QByteArray bytes = block.bytes(*m_view, lastByte);
    Q_EMIT addQueueRequest(block.firstAddress(), bytes);
    // A second edit may be applied before the next poll; it must not take back the first.
    if (registers)
        registers->assumeWritten(block.firstAddress(), bytes);
}
