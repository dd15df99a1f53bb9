#pragma once

#include "dialogs/fieldtext.h"
#include "profile/history.h"

#include <QDialog>

class QAbstractButton;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace dialogs {

class HistoryModel;

/**
 * What the history has of each servo, with what was changed and when, and the ways from there. Opens no boxes and
 * touches no servo: whoever shows it does what its signals ask for.
 */
class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    /** What it is opened for, which its title and its first line say. */
    enum class Purpose {
        Look,
        Restore,
        Replace, ///< to give a new servo what a missing one had
    };

    /** @param text, @param history must outlive the dialog. */
    HistoryDialog(const FieldText &text, profile::History &history, Purpose purpose, QWidget *parent);
    ~HistoryDialog() override;

    /** Shows @p servo, also when nothing is kept of it yet. */
    void showServo(const profile::ServoKey &servo);
    /** Looks for what has been kept since; what is selected stays so. */
    void reload();
    /** A servo of @p family is connected now; none when it is null. */
    void setConnected(const model::Family *family);

Q_SIGNALS:
    /** @p profile, called @p title, is to be compared with the connected servo, which is of its family. */
    void compareWanted(const profile::Profile &profile, const QString &title);
    /** The same, to be restored. */
    void restoreWanted(const profile::Profile &profile, const QString &title);
    /** What a file of the user's has is to be restored. */
    void restoreFileWanted();
    /** @p profile is to be written to a file of the user's. */
    void saveWanted(const profile::Profile &profile, const QString &title);

protected:
    void showEvent(QShowEvent *event) override;

private:
    using Signal = void (HistoryDialog::*)(const profile::Profile &, const QString &);

    void makeTable();
    QPushButton *makeButton(const char *name, const QString &text, Signal wanted);
    void layOut(Purpose purpose);
    void fillServos(const profile::ServoKey &shown);
    void onServoChosen();
    void togglePin();
    void renameSelected();
    void updateButtons();
    void showMessage();
    int selectedRow() const;
    QString whyNotWithServo() const;

    profile::History &m_history;
    HistoryModel *m_model;
    QComboBox *m_servos;
    QTableView *m_table;
    QLabel *m_message;
    QPushButton *m_compare;
    QPushButton *m_restore;
    QPushButton *m_save;
    QPushButton *m_fromFile;
    const model::Family *m_connected = nullptr;
};

} // namespace dialogs
