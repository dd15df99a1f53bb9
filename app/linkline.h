#pragma once

#include <QWidget>

class ElidedLabel;
class QLabel;

/**
 * What the status bar does not say of the connection, at its right: which servo, what is wrong with it, what happened
 * last, and how good the link is. Empty where there is nothing to tell. Never blinks, and never takes more of the
 * status bar than it needs.
 */
class LinkLine : public QWidget
{
    Q_OBJECT

public:
    explicit LinkLine(QWidget *parent = nullptr);

    /** For example "servo 3 · 1000000 baud · zelvar-sim". */
    void showServo(const QString &text);
    /** What is wrong, told apart by a sign and not by its colour alone. @param tip what it means and what to do. */
    void showFault(const QString &text, const QString &tip = {});
    /** The latest event; stays until the next one. @param tip all of it, where @p text tells only how much. */
    void tell(const QString &text, const QString &tip = {});
    /** @param text empty while the link is good. @param tip figures. */
    void showQuality(const QString &text, const QString &tip);

private:
    QLabel *m_servo;
    ElidedLabel *m_fault;
    ElidedLabel *m_event;
    QLabel *m_quality;
};
