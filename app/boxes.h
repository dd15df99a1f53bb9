#pragma once

#include <QMessageBox>

class QWidget;

/** Message boxes whose text can be selected and copied, by mouse and keyboard. */
namespace boxes {

/** Shows a box with an OK button over @p parent and waits until it is closed. */
void show(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text);
/** Shows a box over @p parent and goes on at once; the box deletes itself when it is closed. */
QMessageBox *tell(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text);
/** As tell(), for what nobody may miss: above every other window, and nothing else can be used until it is closed. */
QMessageBox *tellUrgently(QWidget *parent, const QString &title, const QString &text);

} // namespace boxes
