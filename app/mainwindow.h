#pragma once

#include <QMainWindow>

#include <memory>
#include <vector>

class Backups;
class LinkLine;
class LinkReporter;
class MotorControl;
class Plotting;
class PollTarget;
class QAction;
class QLabel;
class QSpinBox;
class RegisterView;
class SearchDialog;
class SerialHelper;
class Settings;
class SettingsDialog;
class UiRegisterHelper;
class UiScheduler;
struct BusResult;

namespace guide {
class GuideKey;
}

namespace Ui {
class MainWindow;
}

namespace model {
struct ServoAddress;
}

namespace session {
class ApplyProof;
class Connection;
enum class State;
struct AppliedField;
struct Block;
} // namespace session

/**
 * The program's window. Owns every long-lived object, drives the connection lifecycle from its actions, and releases
 * the process-wide helpers when it goes. There is one per process.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent);
    /** Works on @p serialHelper in place of one of its own. */
    MainWindow(QWidget *parent, std::shared_ptr<SerialHelper> serialHelper);
    ~MainWindow() override;

    /** What the connected servo does and has; lives as long as the window. */
    const session::Connection &connection() const { return *m_connection; }

    /** The plot pane and the recordings; lives as long as the window. */
    Plotting &plotting() const { return *m_plotting; }

    /** The servo's parameters as files; lives as long as the window. */
    Backups &backups() const { return *m_backups; }

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private Q_SLOTS:
    void on_actionConnect_triggered();
    void on_actionDisconnect_triggered();
    void on_idSpinBoxValueChanged(int value);
    void on_pollingIntervalSpinBoxValueChanged(int value);
    void on_updateId(int value);
    void on_actionReboot_triggered();
    void on_actionReset_triggered();

private:
    struct OneShotOperation;

    void addViews();
    void bindConnectionMachinery();
    void addBackups();
    void fillToolBar();
    void fillMenus();
    void addLinkLine();
    void fitLinkLine();
    void makeConnections();
    void restoreWindow();
    bool openPort();
    QString openStoredPort();
    void stopClosingPort();
    void onDeviceLoaded();
    void identify();
    void onProofRead(const QByteArray &registers);
    void endPending();
    void undoLastApply();
    void writeGains(const std::vector<session::AppliedField> &gains);
    void write(const session::Block &block);
    void onStateChanged(session::State state, session::State before);
    void onAnswersBack();
    void onServoMoved();
    void takeOverAddress(const model::ServoAddress &address);
    void onConnectionLost(const QString &reason);
    void setLinkUp(bool up);
    void run(const OneShotOperation &operation);
    void showResult(const OneShotOperation &operation, const QByteArray &reply, const BusResult &result);
    void tellNoAnswer(int servoId);
    void releaseHelpers();

    std::unique_ptr<Ui::MainWindow> m_ui;
    RegisterView *m_registerView = nullptr; ///< a child
    std::shared_ptr<Settings> m_settings;
    std::shared_ptr<SettingsDialog> m_settingsDialog;
    std::shared_ptr<SearchDialog> m_searchDialog;
    std::shared_ptr<QLabel> m_idLabel;
    std::shared_ptr<QSpinBox> m_idSpinBox;
    std::shared_ptr<QLabel> m_pollingIntervalLabel;
    std::shared_ptr<QSpinBox> m_pollingIntervalSpinBox;
    std::shared_ptr<UiRegisterHelper> m_registerHelper;
    std::shared_ptr<SerialHelper> m_serialHelper;
    std::unique_ptr<PollTarget> m_pollTarget;
    std::shared_ptr<UiScheduler> m_scheduler;
    std::unique_ptr<session::Connection> m_connection;
    std::unique_ptr<session::ApplyProof> m_proof;
    LinkLine *m_linkLine = nullptr; ///< a child
    std::unique_ptr<LinkReporter> m_reporter;
    std::unique_ptr<MotorControl> m_motor;
    std::unique_ptr<guide::GuideKey> m_guide;
    std::unique_ptr<Plotting> m_plotting;
    std::unique_ptr<Backups> m_backups;
    QAction *m_undo = nullptr;    ///< a child
    int m_closeTimerId = 0;       ///< 0 while no close is pending
    bool m_isPortReleased = true; ///< nothing that happens to the port concerns the user
};
