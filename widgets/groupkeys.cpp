#include "widgets/groupkeys.h"

#include "device/igroupinputcomponent.h"
#include "widgets/zelvargrouptoolbutton.h"
#include "widgets/zelvarparametersgroupbox.h"

#include <QShortcut>

#include <algorithm>
#include <iterator>

struct GroupKeys::Row
{
    const char *group;
    int edit;
    int apply;
    int cancel;
};

// clang-format off
const GroupKeys::Row GroupKeys::Rows[] = {
    {"volatileParamsGroupBox",    Qt::Key_F2,             Qt::Key_F3,             Qt::Key_F5            },
    {"nonVolatileParamsGroupBox", Qt::SHIFT + Qt::Key_F2, Qt::SHIFT + Qt::Key_F3, Qt::SHIFT + Qt::Key_F5},
};
// clang-format on

namespace {

QString nativeText(const QKeySequence &key)
{
    return key.toString(QKeySequence::NativeText);
}

} // namespace

GroupKeys::GroupKeys(ZelvarParametersGroupBox &group, ZelvarGroupToolButton &editSave, ZelvarGroupToolButton &cancel)
    : QObject(&group), m_group(group), m_editSave(editSave),
      m_row(std::find_if(std::begin(Rows), std::end(Rows),
                         [&](const Row &row) { return group.objectName() == QLatin1String(row.group); }))
{
    if (m_row == std::end(Rows))
        return;
    const auto addKey = [](int key, ZelvarGroupToolButton &button) {
        return new QShortcut(QKeySequence(key), &button);
    };
    connect(addKey(m_row->edit, editSave), &QShortcut::activated, this, &GroupKeys::edit);
    connect(addKey(m_row->apply, editSave), &QShortcut::activated, this, &GroupKeys::apply);
    connect(addKey(m_row->cancel, cancel), &QShortcut::activated, &cancel, &QAbstractButton::click);
    connect(&editSave, &QAbstractButton::toggled, this, &GroupKeys::describeEditSave);
    describeEditSave();
    describe(cancel, m_row->cancel);
    group.setToolTip(tr("%1 edits this group, %2 applies it, and %3 cancels.")
                         .arg(nativeText(m_row->edit), nativeText(m_row->apply), nativeText(m_row->cancel)));
}

/** Begins to edit with the first field that can be edited, which the view then scrolls to. */
void GroupKeys::edit()
{
    if (m_editSave.isChecked())
        return;
    m_editSave.click();
    for (QWidget *next = m_editSave.nextInFocusChain(); next != &m_editSave; next = next->nextInFocusChain()) {
        if (next->parent() == &m_group && next->isEnabled() && dynamic_cast<IGroupInputComponent *>(next)) {
            next->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

void GroupKeys::apply()
{
    if (m_editSave.isChecked())
        m_editSave.click();
}

// Both groups have buttons of the same texts; which group they are of shows only in their places.
void GroupKeys::describe(ZelvarGroupToolButton &button, const QKeySequence &key) const
{
    button.setAccessibleName(tr("%1: %2").arg(button.text(), m_group.title()));
    button.setToolTip(tr("%1 (%2)").arg(button.accessibleName(), nativeText(key)));
}

void GroupKeys::describeEditSave() const
{
    describe(m_editSave, m_editSave.isChecked() ? m_row->apply : m_row->edit);
}
