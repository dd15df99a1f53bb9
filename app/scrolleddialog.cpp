#include "app/scrolleddialog.h"

#include "app/screenfit.h"

#include <QDialog>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

ScrolledDialog::ScrolledDialog(QDialog &dialog) : QObject(&dialog), m_dialog(dialog)
{
    dialog.installEventFilter(this);
}

bool ScrolledDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && !event->spontaneous())
        fit();
    return QObject::eventFilter(watched, event);
}

void ScrolledDialog::fit()
{
    const QSize whole =
        m_area ? m_area->widget()->minimumSize() : m_dialog.size().expandedTo(m_dialog.minimumSizeHint());
    const QSize room = sizeOnScreen(whole);
    if (!m_area && room == whole)
        return;
    if (!m_area)
        moveContents();
    m_area->widget()->setMinimumSize(whole);
    m_area->verticalScrollBar()->ensurePolished();
    const int bar = m_area->verticalScrollBar()->sizeHint().width();
    const QSize bars(room.height() < whole.height() ? bar : 0, room.width() < whole.width() ? bar : 0);
    m_dialog.resize(sizeOnScreen(whole + bars));
}

/** As much of @p wanted as the screen has room for. */
QSize ScrolledDialog::sizeOnScreen(const QSize &wanted) const
{
    return screenfit::onScreen(m_dialog, QRect(m_dialog.pos(), wanted)).size();
}

/** Puts all that the form has placed in the dialog, as it is, into a page that scrolls. */
void ScrolledDialog::moveContents()
{
    auto *page = new QWidget;
    if (QLayout *layout = m_dialog.layout())
        page->setLayout(layout);
    const auto placed = m_dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : placed)
        child->setParent(page);
    // What the form or the layout has set is for the contents, not for the contents and scroll bars.
    m_dialog.setMinimumSize(0, 0);
    m_dialog.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

    m_area = new QScrollArea(&m_dialog);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    m_area->setWidget(page);
    auto *layout = new QVBoxLayout(&m_dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_area);
}
