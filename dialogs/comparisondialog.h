#pragma once

#include "dialogs/fieldtext.h"
#include "profile/restoration.h"

#include <QDialog>
#include <QString>
#include <QStringList>

class QCheckBox;
class QLabel;
class QPushButton;
class QTableView;

namespace dialogs {

class ComparisonModel;
class DifferenceFilter;

/** What is compared. */
struct Subject
{
    profile::Profile servo;
    profile::Profile file;
    QString servoName; ///< for example "Servo 3 on zelvar-sim"
    QString fileName;  ///< or whatever else the other values come from
    QString fileTitle; ///< of the column with these values: "File"
    QStringList notes; ///< what the user should know of them
};

/**
 * Shows a servo's parameters beside those of a file, field by field in the user's units, before anything is written;
 * lets fields be left out of a restore, and shows what became of it. Writes nothing itself.
 */
class ComparisonDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Purpose {
        Compare,
        Restore,
        Keep,    ///< of what is in use, in place of what is stored
        Replace, ///< of a servo that is missing: id and baud rate, which a restore leaves out at first, are ticked
    };

    /** @param text must outlive the dialog. */
    ComparisonDialog(const FieldText &text, Subject subject, Purpose purpose, QWidget *parent);
    ~ComparisonDialog() override;

    const Subject &subject() const { return m_subject; }
    /** Without the user's consent nothing is written while the motor is on. */
    void setMotorOn(bool isOn);
    /** Why nothing can be restored now; empty when it can. */
    void setHindrance(const QString &reason);
    /** The restore that was wanted has begun. */
    void showBegun();
    /** It has ended. @p obstacle what was in its way, for the user; empty when nothing was. */
    void showReport(const profile::RestoreReport &report, const QString &obstacle);

    /** The rows that are seen, or those that are selected, with tabs between their cells. */
    QString asText() const;

    void reject() override;

Q_SIGNALS:
    /** The chosen fields are to be restored. */
    void restoreWanted(const profile::RestoreWish &wish);
    /** A restore that has begun is to be ended. */
    void stopWanted();
    /** Of a comparison: the file is to be restored. */
    void restoreOfferWanted();

private:
    void layOut();
    void addNotes(QLayout &layout);
    void makeTable();
    void makeButtons();
    void onChosen();
    void fit();
    void refresh();
    QString countText() const;
    QString resultText(const profile::RestoreReport &report, int leftOut) const;
    void copy() const;
    void onRestore();

    const Subject m_subject;
    const bool m_isWriting; ///< its purpose
    const Purpose m_purpose;
    ComparisonModel *m_model; ///< as all below children
    DifferenceFilter *m_filter;
    QTableView *m_table;
    QLabel *m_statement;
    QCheckBox *m_onlyDifferences;
    QCheckBox *m_stopMotor;
    QPushButton *m_restore = nullptr;
    QPushButton *m_close = nullptr;
    QString m_hindrance;
    QString m_obstacle; ///< what was in the way of the latest restore, until the user changes something
    bool m_isMotorOn = false;
    bool m_isRunning = false;
    bool m_isDone = false;
};

} // namespace dialogs
