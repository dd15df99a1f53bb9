#pragma once

#include <QtWidgets>

/** Answers every message box with its default button as soon as it shows, and keeps what it said. */
class BoxWatcher : public QObject
{
public:
    BoxWatcher() { qApp->installEventFilter(this); }

    /** One line a box: "icon|title|text", icon as QMessageBox::Icon. */
    QStringList boxes;

    static QString critical(const QString &text) { return line(QMessageBox::Critical, "Error", text); }
    static QString success(const QString &text) { return line(QMessageBox::Information, "Success", text); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
        if (box) {
            boxes.append(line(box->icon(), box->windowTitle(), box->text()));
            QTimer::singleShot(0, box, &QDialog::accept);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static QString line(QMessageBox::Icon icon, const QString &title, const QString &text)
    {
        return QString("%1|%2|%3").arg(int(icon)).arg(title, text);
    }
};
