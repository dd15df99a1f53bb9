#pragma once

#include "app/applytext.h"
#include "app/historykeeper.h"
#include "dialogs/comparisondialog.h"
#include "dialogs/historydialog.h"
#include "model/servoaddress.h"
#include "profile/history.h"
#include "settings/settings.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class LinkLine;
class QAction;
class QMenu;
class QWidget;
class ServoBus;

namespace session {
class ApplyProof;
class Connection;
enum class State;
} // namespace session

/**
 * The connected servo's parameters as files, and back: actions, file dialogs, boxes, what the link line says of them,
 * the history, and the restore itself, for which the connection gives the bus away and is made again behind it. GUI
 * thread only.
 */
class Backups : public QObject
{
    Q_OBJECT

public:
    /** What the window does for a restore. */
    struct Port
    {
        std::function<QString()> name;             ///< of the port that the connection has
        std::function<void()> takeOver;            ///< ends the connection and leaves its port open
        std::function<QString(int baudRate)> open; ///< empty, or what is wrong, for the user
        std::function<void(const model::ServoAddress &)> reconnect;
    };

    /** What a connection is made of; all must outlive this object. */
    struct Link
    {
        session::Connection &connection;
        session::ApplyProof &proof;
        ServoBus &bus;
        std::shared_ptr<const model::RegisterImage> image; ///< what the polls keep
    };

    /** @param window gets dialogs and boxes, and owns the actions. @param view has the lists whose entries are told.
     * Both must outlive this object. */
    Backups(QWidget &window, const QWidget &view, LinkLine &line, const Link &link, Port port);
    ~Backups() override;

    /** Puts the actions into @p menu. */
    void addTo(QMenu &menu);

    /** Writes what the servo has to the file @p path. */
    void backUp(const QString &path);
    /** Shows what the file @p path and the servo have, to be compared only or to be restored. */
    void open(const QString &path, dialogs::ComparisonDialog::Purpose purpose);
    /** Shows what is kept of the servos, the connected one first. */
    void showHistory(dialogs::HistoryDialog::Purpose purpose);
    /** Shows the gains and profiles in use beside the stored ones, to be stored. */
    void showTunedGains();

private:
    using Purpose = dialogs::ComparisonDialog::Purpose;

    /** What is shown beside the servo's values. */
    struct Source
    {
        profile::Profile file;
        QString name;
        QString columnTitle;
        QStringList notes;
        Purpose next = Purpose::Restore; ///< of what its comparison leads to
    };

    QAction *makeAction(const char *name, const QString &text, const std::function<void()> &act);
    void makeActions();
    void onStateChanged(session::State state);
    void onPolled(const model::RegisterImage &image);
    void refresh();
    void tellGains(const model::RegisterImage &image);
    void onDiffers(int count, const profile::Profile &before);
    void askAndBackUp();
    void askAndWrite(profile::Profile profile);
    void write(const QString &path, const profile::Profile &profile);
    void askAndOpen(const QString &title, Purpose purpose);
    QString folder() const;
    void rememberFolder(const QString &path);
    profile::Profile servo() const;
    QString servoName() const;
    profile::ServoKey servoKey() const;
    profile::ServoKey missingServo() const;
    static QString keptName(const profile::Profile &profile, const QString &title);
    static QStringList notesOn(const profile::Profile &file, const profile::Profile &servo);
    void show(const Source &source, Purpose purpose);
    void restore(const profile::RestoreWish &wish);
    void onRestored();
    QString obstacleText(const profile::RestoreReport &report) const;
    void tellError(const QString &title, const QString &path, const QString &reason);

    QWidget &m_window;
    LinkLine &m_line;
    Link m_link;
    Port m_port;
    ApplyText m_text;
    Settings m_settings;
    profile::History m_history;
    HistoryKeeper m_keeper;
    std::vector<QAction *> m_servoActions; ///< of use while a servo is there; as the others the window's
    QAction *m_keepGains = nullptr;
    QAction *m_showHistory = nullptr;
    bool m_isServoThere = false;              ///< it answers, and all of it has been read
    std::vector<profile::Pair> m_unkept;      ///< gains and profiles in use that are stored otherwise
    std::optional<profile::Profile> m_before; ///< what the servo's id had, when that is offered for comparison
    bool m_isMotorOn = false;
    QPointer<dialogs::HistoryDialog> m_historyDialog;
    QPointer<dialogs::ComparisonDialog> m_dialog;
    std::unique_ptr<profile::Restoration> m_restoration; ///< the latest one
    int m_openBaudRate = 0;                              ///< of the port, during a restore
};
