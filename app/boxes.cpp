#include "app/boxes.h"

namespace {

void makeCopyable(QMessageBox &box)
{
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

/** A box that deletes itself when it is closed. */
QMessageBox *make(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    auto *box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    makeCopyable(*box);
    return box;
}

} // namespace

void boxes::show(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    QMessageBox box(icon, title, text, QMessageBox::Ok, parent);
    makeCopyable(box);
    box.exec();
}

QMessageBox *boxes::tell(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    QMessageBox *box = make(parent, icon, title, text);
    box->setWindowModality(Qt::NonModal);
    box->show();
    return box;
}

QMessageBox *boxes::tellUrgently(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox *box = make(parent, QMessageBox::Critical, title, text);
    box->setWindowModality(Qt::ApplicationModal);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->show();
    box->activateWindow();
    return box;
}
