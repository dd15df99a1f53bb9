#include "widgets/switchonmark.h"

#include "device/uiregisterhelper.h"
#include "device/unitshelper.h"
#include "link/processwide.h"
#include "model/families.h"
#include "widgets/followeddevice.h"
#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvargrouptoolbutton.h"
#include "widgets/zelvarlineedit.h"
#include "widgets/zelvarparametersgroupbox.h"

#include <QEvent>
#include <QLocale>
#include <QMenu>

#include <cstdlib>

namespace {

constexpr int Noise = 10; ///< counts that a position at rest may be off
constexpr int RoomForIndicator = 24;

/** Operating modes in which the servo goes to its target position. */
constexpr int PositionModes[] = {2, 3};

std::shared_ptr<const model::RegisterImage> image()
{
    const auto registers = ProcessWide<UiRegisterHelper>::instance();
    return registers ? registers->image() : nullptr;
}

const model::Field &position()
{
    return model::ZelvarV1Family["actual_position"];
}

double shown(int raw)
{
    return currentUnits()->toDisplay(model::physicalValue(position(), raw), qint32(position().kind));
}

} // namespace

SwitchOnMark::SwitchOnMark(QWidget &view)
    : QToolButton(view.findChild<QWidget *>(QStringLiteral("volatileParamsGroupBox"))),
      m_group(static_cast<ZelvarParametersGroupBox *>(parentWidget())),
      m_enableMotor(m_group->findChild<ZelvarCheckBox *>(QStringLiteral("enableMotorCheckBox"))),
      m_target(m_group->findChild<ZelvarDoubleSpinBox *>(QStringLiteral("targetPositionDoubleSpinBox")))
{
    setObjectName(QStringLiteral("switchOnMark"));
    setPopupMode(QToolButton::InstantPopup);
    setStyleSheet(QStringLiteral("QToolButton { color: #a00000; font-weight: bold; }"));
    auto *menu = new QMenu(this);
    menu->addAction(tr("&Set the target to the position first"), this, &SwitchOnMark::setTargetToPosition);
    setMenu(menu);
    hide();

    connect(m_enableMotor, &QCheckBox::toggled, this, &SwitchOnMark::refresh);
    connect(m_target, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &SwitchOnMark::refresh);
    if (const auto *edit = m_group->findChild<ZelvarGroupToolButton *>(QStringLiteral("vParamsEditSaveToolButton")))
        connect(edit, &QToolButton::toggled, this, &SwitchOnMark::refresh);
    if (const auto *actual = view.findChild<ZelvarLineEdit *>(QStringLiteral("actualPositionLineEdit")))
        connect(actual, &QLineEdit::textChanged, this, &SwitchOnMark::refresh);
    m_enableMotor->installEventFilter(this);
}

bool SwitchOnMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        place();
    return QToolButton::eventFilter(watched, event);
}

void SwitchOnMark::refresh()
{
    const int away = distance();
    setVisible(away != 0);
    if (away == 0)
        return;
    const auto units = currentUnits();
    const auto kind = qint32(position().kind);
    const QString text =
        QLocale().toString(shown(away), 'f', units->decimals(kind)) + QLatin1Char(' ') + units->unitName(kind);
    setText(QStringLiteral("\u26A0 ") + text);
    setToolTip(tr("The servo will move by %1 as soon as this is applied.").arg(text));
    setAccessibleName(toolTip());
    place();
}

void SwitchOnMark::place()
{
    const QRect box = m_enableMotor->geometry();
    resize(sizeHint().width(), box.height());
    move(box.right() - RoomForIndicator - width(), box.top());
    raise();
}

int SwitchOnMark::distance() const
{
    const auto registers = image();
    if (!registers || !m_group->editMode() || !m_enableMotor->isChecked() || !m_enableMotor->isEnabled())
        return 0;
    const auto mode = registers->raw(QLatin1String("operating_mode"));
    const bool goesToPosition = mode == PositionModes[0] || mode == PositionModes[1];
    const auto actual = registers->raw(QLatin1String(position().key));
    if (!goesToPosition || !actual || registers->raw(QLatin1String("control_enable")) != 0)
        return 0;
    const int away = m_target->value() - *actual;
    return std::abs(away) > Noise ? away : 0;
}

void SwitchOnMark::setTargetToPosition()
{
    const auto registers = image();
    const auto actual = registers ? registers->raw(QLatin1String(position().key)) : std::nullopt;
    if (actual)
        m_target->QDoubleSpinBox::setValue(shown(*actual)); // as an edit, and not as the servo's value
}
