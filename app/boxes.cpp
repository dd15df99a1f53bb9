#include "app/boxes.h"

namespace {

void makeCopyable(QMessageBox &box)
{
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
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
    auto *box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::NonModal);
    makeCopyable(*box);
    box->show();
    return box;
}
