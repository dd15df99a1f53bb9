#pragma once

#include <QWidget>

class ElidedLabel;
class QAbstractButton;
class QLabel;
class QToolButton;

/**
 * What the status bar does not say of the connection, at its right: which servo, what is wrong with it, what happened
 * last, how good the link is, and what its motor does. Empty where there is nothing to tell, but for the motor. Never
 * blinks, and never takes more of the status bar than it needs. At its right end, always at the same place, are the
 * button that stops the motor and, away from it, the one that opens the user guide.
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
    /** As tell(), with a button called @p actionText beside it until the next event. */
    void offer(const QString &text, const QString &tip, const QString &actionText);
    /** @param text empty while the link is good. @param tip figures. */
    void showQuality(const QString &text, const QString &tip);
    /** @param text of a recording that is running; empty without one. @param tip its file. */
    void showRecording(const QString &text, const QString &tip);
    /** @param text of what a restart of the servo would lose; empty when it would lose nothing. @param tip all of it.
     */
    void showUnkept(const QString &text, const QString &tip);
    /** What is known of the motor, for example "motor on". */
    void showMotor(const QString &text);

    /** Can be pressed at any time. */
    QAbstractButton &stopButton() const;

Q_SIGNALS:
    /** The button beside the latest event was pressed. */
    void offerAccepted();
    /** The user guide is wanted. */
    void helpRequested();

private:
    ElidedLabel *m_servo;
    ElidedLabel *m_fault;
    ElidedLabel *m_event;
    QToolButton *m_offer;
    ElidedLabel *m_quality;
    ElidedLabel *m_unkept;
    QLabel *m_recording;
    QLabel *m_motor;
    QToolButton *m_stop;
    QToolButton *m_help;
};
