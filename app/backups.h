#pragma once

#include "app/applytext.h"
#include "dialogs/comparisondialog.h"
#include "model/servoaddress.h"
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
class Connection;
enum class State;
} // namespace session

/**
 * The connected servo's parameters as files, and back: actions, file dialogs, boxes, and the restore itself, for which
 * the connection gives the bus away and is made again behind it. GUI thread only.
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
        const session::Connection &connection;
        ServoBus &bus;
    };

    /** @param window gets dialogs and boxes, and owns the actions. @param view has the lists whose entries are told.
     * Both must outlive this object. */
    Backups(QWidget &window, const QWidget &view, const Link &link, Port port);
    ~Backups() override;

    /** Puts the actions into @p menu. */
    void addTo(QMenu &menu);

    /** Writes what the servo has to the file @p path. */
    void backUp(const QString &path);
    /** Shows what the file @p path and the servo have, to be compared only or to be restored. */
    void open(const QString &path, dialogs::ComparisonDialog::Purpose purpose);

private:
    using Purpose = dialogs::ComparisonDialog::Purpose;

    QAction *makeAction(const char *name, const QString &text, void (Backups::*slot)());
    void onStateChanged(session::State state);
    void onPolled(const model::RegisterImage &image);
    void refresh();
    void askAndBackUp();
    void askAndCompare();
    void askAndRestore();
    QString folder() const;
    QString askForFile(const QString &title);
    void rememberFolder(const QString &path);
    QString servoName() const;
    QStringList notesOn(const profile::Profile &file) const;
    void show(const profile::Profile &file, const QString &name, QStringList notes, Purpose purpose);
    void restore(const profile::RestoreWish &wish);
    void onRestored();
    QString obstacleText(const profile::RestoreReport &report) const;
    void tellError(const QString &title, const QString &path, const QString &reason);

    QWidget &m_window;
    Link m_link;
    Port m_port;
    ApplyText m_text;
    Settings m_settings;
    std::vector<QAction *> m_servoActions;   ///< of use while a servo is there; the window's
    std::optional<profile::Profile> m_servo; ///< as it was polled last; nothing while no servo answers
    bool m_isMotorOn = false;
    QPointer<dialogs::ComparisonDialog> m_dialog;
    std::unique_ptr<profile::Restoration> m_restoration; ///< the latest one
    int m_openBaudRate = 0;                              ///< of the port, during a restore
};
