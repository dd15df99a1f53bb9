#include "app/mainwindow.h"
#include "ui_mainwindow.h"

#include "app/backups.h"
#include "app/boxes.h"
#include "app/linkline.h"
#include "app/linkreporter.h"
#include "app/motorcontrol.h"
#include "app/plotting.h"
#include "app/polltarget.h"
#include "app/screenfit.h"
#include "app/scrolleddialog.h"
#include "controllers/inputmodecontroller.h"
#include "controllers/operationmodecontroller.h"
#include "device/devicehelper.h"
#include "device/fieldhelper.h"
#include "device/statushelper.h"
#include "device/uiregisterhelper.h"
#include "guide/guidekey.h"
#include "guide/guidewindow.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "link/uischeduler.h"
#include "search/searchdialog.h"
#include "serialport/replybytes.h"
#include "serialport/servobus.h"
#include "session/applyproof.h"
#include "session/connection.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "views/editview.h"
#include "views/registerview.h"
#include "widgets/uigrouphelper.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPointer>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimerEvent>
#include <QToolButton>
#include <QWhatsThis>

#include <functional>
#include <optional>
#include <utility>

// Outside any namespace, since that is where the resource compiler puts what this calls.
static void initialiseResources()
{
    Q_INIT_RESOURCE(resources); // they sit in a static library, which would leave them out
}

namespace {

const QString SettingsGroup = QStringLiteral("main window settings");
const QString GeometryKey = QStringLiteral("geometry");
const QString WindowStateKey = QStringLiteral("windowState");
const QString PollingIntervalKey = QStringLiteral("pollingInterval");
const QString ServoIdKey = QStringLiteral("servoId");

/** Range and default of a number that the toolbar shows. */
struct NumberRange
{
    int minimum;
    int maximum;
    int initial;
};
constexpr NumberRange PollingInterval{10, 5000, 500}; // ms
constexpr int PollingIntervalStep = 10;               // ms
constexpr NumberRange ServoId{0, 253, 0};

/**
 * Kilobytes that Qt may keep drawn controls in. Under a style sheet it never finds a spin box again that it has kept,
 * and each one that is drawn drives out what is older: of hundreds that a second of polling brings, none is found. So
 * this is for what is drawn several times in one frame.
 */
constexpr int PixmapCacheLimit = 64;

/** Where an AX-12 is after a factory reset, which leaves it neither id nor baud rate. */
constexpr model::ServoAddress FactoryAx12{1, 1000000};

constexpr int CloseDelay = 100; // ms: lets an exchange under way finish

ModeDependencies makeModeDependencies()
{
    return {std::make_shared<OperationModeController>(), std::make_shared<InputModeController>()};
}

std::shared_ptr<QSpinBox> makeSpinBox(const NumberRange &range, int value)
{
    auto spinBox = std::make_shared<QSpinBox>();
    spinBox->setRange(range.minimum, range.maximum);
    spinBox->setValue(value);
    return spinBox;
}

/** Makes @p label name @p spinBox, without the colon and the blank that only the eye needs. */
void nameAfter(QLabel &label, QSpinBox &spinBox)
{
    label.setBuddy(&spinBox);
    const QString caption = label.text().trimmed();
    spinBox.setAccessibleName(caption.endsWith(QLatin1Char(':')) ? caption.chopped(1) : caption);
}

} // namespace

/** A servo operation that opens the port for itself alone, and what the user is told of it. */
struct MainWindow::OneShotOperation
{
    bool (DeviceHelper::*start)(uint8_t servoId, std::function<void(QByteArray)> callback);
    QString refused;
    QString failed;    ///< %1 is the servo's id
    QString succeeded; ///< %1 is the servo's id
};

MainWindow::MainWindow(QWidget *parent) : MainWindow(parent, nullptr) {}

MainWindow::MainWindow(QWidget *parent, std::shared_ptr<SerialHelper> serialHelper) : QMainWindow(parent)
{
    initialiseResources();
    QPixmapCache::setCacheLimit(PixmapCacheLimit);
    m_ui = std::make_unique<Ui::MainWindow>();
    m_settings = std::make_shared<Settings>(SettingsGroup);
    m_settingsDialog = std::make_shared<SettingsDialog>();
    m_searchDialog = std::make_shared<SearchDialog>();
    new ScrolledDialog(*m_settingsDialog);
    new ScrolledDialog(*m_searchDialog);
    m_serialHelper = serialHelper ? std::move(serialHelper) : std::make_shared<SerialHelper>();

    m_ui->setupUi(this);
    m_ui->tabWidget->setAutoFillBackground(true);
    addViews();
    bindConnectionMachinery();
    setLinkUp(false);
    fillToolBar();
    addLinkLine();
    addBackups();
    fillMenus();
    makeConnections();
    addAction(QWhatsThis::createAction(this)); // in no menu: Shift+F1 calls it
    restoreWindow();
    m_ui->statusBar->showMessage(tr("Disconnected"));
}

MainWindow::~MainWindow()
{
    m_serialHelper->disconnect(this);
    m_serialHelper->closeSerialPort();
    m_backups.reset();
    m_plotting.reset();
    m_motor.reset();
    m_reporter.reset();
    m_proof.reset();
    m_connection.reset();
    m_scheduler.reset();
    m_pollTarget.reset();
    // The views, their controls first, while the helpers that they are registered with are still there.
    delete centralWidget();
    releaseHelpers();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_settings->setValue(GeometryKey, saveGeometry());
    m_settings->setValue(WindowStateKey, saveState());
    m_plotting->store();
    QMainWindow::closeEvent(event);
}

/** Leaves the status bar's own message, at the left, the place that it needs. */
void MainWindow::fitLinkLine()
{
    const QStatusBar &bar = *m_ui->statusBar;
    const int message = bar.fontMetrics().horizontalAdvance(bar.currentMessage());
    const int margins = 4 * bar.fontMetrics().averageCharWidth();
    m_linkLine->setMaximumWidth(qMax(bar.width() - message - margins, m_linkLine->minimumSizeHint().width()));
}

bool MainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::Resize && m_linkLine)
        fitLinkLine();
    // The status bar tells the state of the connection, which a pointer on its way over the actions must not wipe out.
    if (event->type() == QEvent::StatusTip)
        return true;
    return QMainWindow::event(event);
}

void MainWindow::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_closeTimerId) {
        QMainWindow::timerEvent(event);
        return;
    }
    m_serialHelper->closeSerialPort();
    killTimer(std::exchange(m_closeTimerId, 0));
    if (m_connection->isUp())
        m_connection->portClosed(); // of a connection that was made before this timer fired
}

void MainWindow::on_actionConnect_triggered()
{
    if (!openPort())
        return;
    const auto servoId = static_cast<uint8_t>(m_idSpinBox->value());
    auto &groups = ProcessWide<UiGroupHelper>::instance();
    groups->linkUp();
    m_registerView->connectDevice();
    const auto port = m_settingsDialog->portSettings();
    m_reporter->setPortName(port.portName);
    m_connection->begin({servoId, port.baudRate});
    m_scheduler = std::make_shared<UiScheduler>(servoId, m_serialHelper, *m_pollTarget, groups.get());
    m_motor->setScheduler(m_scheduler);
    setLinkUp(true);
    // Last, so that everything is there when the answer comes, however soon that is.
    identify();
}

void MainWindow::on_actionDisconnect_triggered()
{
    m_connection->end();
    if (m_scheduler)
        m_scheduler->stopScheduler();
    m_reporter->tellDropped(ProcessWide<UiGroupHelper>::instance()->editedControls());
    ProcessWide<UiGroupHelper>::instance()->linkDown();
    m_registerView->disconnectDevice();
    setLinkUp(false);
    stopClosingPort();
    m_closeTimerId = startTimer(CloseDelay);
    m_isPortReleased = true;
    m_ui->statusBar->showMessage(tr("Disconnected"));
}

void MainWindow::on_idSpinBoxValueChanged(int value)
{
    m_settings->setValue(ServoIdKey, value);
}

void MainWindow::on_pollingIntervalSpinBoxValueChanged(int value)
{
    m_settings->setValue(PollingIntervalKey, value);
}

void MainWindow::on_updateId(int value)
{
    const QString port = m_searchDialog->selectedPort();
    if (!port.isEmpty())
        m_settingsDialog->usePort(port);
    m_idSpinBox->setValue(value);
}

void MainWindow::on_actionReboot_triggered()
{
    run({&DeviceHelper::reboot, tr("Error occurred during reboot operation"),
         tr("Error during reboot of Zelvar servo id:%1"), tr("Zelvar servo id:%1 was rebooted successfully")});
}

void MainWindow::on_actionReset_triggered()
{
    run({&DeviceHelper::factoryReset, tr("Error occurred during factory reset operation"),
         tr("Error during factory reset of Zelvar servo id:%1"),
         tr("Factory reset of Zelvar servo id:%1 was successful")});
}

/** Fills the tabs; not in the form, which would make each view outside its tab and style all of it anew inside. */
void MainWindow::addViews()
{
    auto *editView = new EditView(m_ui->unitFieldsTab);
    editView->setObjectName(QStringLiteral("editView"));
    m_ui->gridLayout->addWidget(editView);
    m_registerView = new RegisterView(m_ui->registerFieldsTab);
    m_registerView->setObjectName(QStringLiteral("registerView"));
    m_ui->gridLayout_2->addWidget(m_registerView);
}

void MainWindow::bindConnectionMachinery()
{
    ProcessWide<DeviceHelper>::instance() = std::make_shared<DeviceHelper>(
        m_serialHelper, [this] { onDeviceLoaded(); }, makeModeDependencies);
    auto &registerHelper = ProcessWide<UiRegisterHelper>::instance();
    if (!registerHelper)
        registerHelper = std::make_shared<UiRegisterHelper>();
    m_registerHelper = registerHelper;
    m_pollTarget = std::make_unique<PollTarget>(m_registerHelper);
    m_connection = std::make_unique<session::Connection>(m_registerHelper->image(), m_serialHelper->bus());
    m_proof = std::make_unique<session::ApplyProof>(*m_connection, *m_serialHelper->bus(), m_registerHelper->image());
}

void MainWindow::fillToolBar()
{
    m_pollingIntervalLabel = std::make_shared<QLabel>(tr("Polling interval (ms): "));
    m_pollingIntervalSpinBox =
        makeSpinBox(PollingInterval, m_settings->boundedInt(PollingIntervalKey, PollingInterval.initial,
                                                            PollingInterval.minimum, PollingInterval.maximum));
    m_pollingIntervalSpinBox->setSingleStep(PollingIntervalStep);
    m_idLabel = std::make_shared<QLabel>(tr("Servo address: "));
    m_idSpinBox =
        makeSpinBox(ServoId, m_settings->boundedInt(ServoIdKey, ServoId.initial, ServoId.minimum, ServoId.maximum));

    nameAfter(*m_pollingIntervalLabel, *m_pollingIntervalSpinBox);
    nameAfter(*m_idLabel, *m_idSpinBox);
    m_ui->toolBar->addWidget(m_pollingIntervalLabel.get());
    m_ui->toolBar->addWidget(m_pollingIntervalSpinBox.get());
    m_ui->toolBar->addSeparator();
    m_ui->toolBar->addWidget(m_idLabel.get());
    m_ui->toolBar->addWidget(m_idSpinBox.get());
    // Shows what a narrow window has no room for; Qt leaves it without a name.
    if (auto *more = m_ui->toolBar->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")))
        more->setAccessibleName(tr("More"));
}

/** What is not in the form: the menus "Servo" and "View" hold what would else be in the tool bar only. */
void MainWindow::fillMenus()
{
    QAction *help = m_ui->menuHelp->menuAction();
    auto *servo = new QMenu(tr("&Servo"), this);
    servo->setObjectName(QStringLiteral("menuServo"));
    m_motor->addTo(*servo);
    servo->addSeparator();
    m_undo = servo->addAction(tr("&Undo the last Apply"), this, &MainWindow::undoLastApply);
    m_undo->setObjectName(QStringLiteral("actionUndo"));
    servo->addSeparator();
    m_backups->addTo(*servo);
    servo->addSeparator();
    servo->addActions({m_ui->actionSearch, m_ui->actionReboot, m_ui->actionReset});
    servo->addSeparator();
    servo->addAction(m_ui->actionSettings);
    m_ui->menuBar->insertMenu(help, servo);

    auto *view = new QMenu(tr("&View"), this);
    view->setObjectName(QStringLiteral("menuView"));
    QAction *toolBar = m_ui->toolBar->toggleViewAction();
    toolBar->setText(tr("&Tool bar"));
    view->addAction(toolBar);
    m_plotting->addTo(*view);
    view->addSeparator();
    QAction *guide = view->addAction(tr("User &guide") + QLatin1String("\tF1"));
    guide->setObjectName(QStringLiteral("actionGuide"));
    connect(guide, &QAction::triggered, m_guide.get(), &guide::GuideKey::open);
    m_ui->menuBar->insertMenu(help, view);
}

void MainWindow::addLinkLine()
{
    m_linkLine = new LinkLine(this);
    m_ui->statusBar->addPermanentWidget(m_linkLine);
    connect(m_ui->statusBar, &QStatusBar::messageChanged, this, &MainWindow::fitLinkLine);
    m_guide = std::make_unique<guide::GuideKey>(*this, guide::GuideWindow::installedFolder());
    connect(m_linkLine, &LinkLine::helpRequested, m_guide.get(), &guide::GuideKey::open);
    m_reporter = std::make_unique<LinkReporter>(*this, *m_ui->tabWidget, *m_connection, *m_proof, *m_linkLine);
    m_plotting = std::make_unique<Plotting>(*this, *m_linkLine, *m_connection, *m_proof);
    const MotorControl::Port port{[this] {
                                      stopClosingPort();
                                      return openStoredPort();
                                  },
                                  [this] { m_serialHelper->closeSerialPort(); },
                                  [this] { return static_cast<quint8>(m_idSpinBox->value()); }};
    m_motor = std::make_unique<MotorControl>(
        *this, *m_ui->tabWidget, *m_linkLine,
        MotorControl::Link{*m_connection, *m_proof, *m_serialHelper->bus(), *m_registerHelper}, port);
}

void MainWindow::addBackups()
{
    const Backups::Port port{
        [this] { return m_settingsDialog->portSettings().portName; },
        [this] {
            on_actionDisconnect_triggered();
            stopClosingPort();
        },
        [this](int baudRate) {
            return m_serialHelper->openSerialPort(m_settingsDialog->portSettings().portName, baudRate);
        },
        [this](const model::ServoAddress &address) {
            takeOverAddress(address);
            if (m_motor->isUsingPort())
                return;
            m_reporter->setGoingOn(true);
            on_actionConnect_triggered();
            m_reporter->setGoingOn(false);
        },
    };
    const Backups::Link link{*m_connection, *m_proof, *m_serialHelper->bus(), m_registerHelper->image()};
    m_backups = std::make_unique<Backups>(*this, *m_ui->tabWidget, *m_linkLine, link, port);
}

void MainWindow::makeConnections()
{
    connect(m_pollingIntervalSpinBox.get(), SIGNAL(valueChanged(int)), this,
            SLOT(on_pollingIntervalSpinBoxValueChanged(int)));
    connect(m_idSpinBox.get(), SIGNAL(valueChanged(int)), this, SLOT(on_idSpinBoxValueChanged(int)));
    connect(m_ui->actionQuit, SIGNAL(triggered()), this, SLOT(close()));
    connect(m_ui->actionSettings, SIGNAL(triggered()), m_settingsDialog.get(), SLOT(show()));
    connect(m_ui->actionSearch, SIGNAL(triggered()), m_searchDialog.get(), SLOT(show()));
    connect(m_searchDialog.get(), SIGNAL(updateBaudRate(int)), m_settingsDialog.get(), SLOT(on_updateBaudRate(int)));
    connect(m_searchDialog.get(), SIGNAL(updateId(int)), this, SLOT(on_updateId(int)));
    connect(m_connection.get(), &session::Connection::stateChanged, this, &MainWindow::onStateChanged);
    connect(m_connection.get(), &session::Connection::identificationDue, this, &MainWindow::identify);
    connect(m_proof.get(), &session::ApplyProof::read, this, &MainWindow::onProofRead);
    connect(m_proof.get(), &session::ApplyProof::reported, this, &MainWindow::endPending);
    UiGroupHelper &groups = *ProcessWide<UiGroupHelper>::instance();
    connect(&groups, &UiGroupHelper::addQueueRequest, m_proof.get(), &session::ApplyProof::expect);
    groups.expectProofs();
    connect(m_plotting.get(), &Plotting::gainsWanted, this, &MainWindow::writeGains);
    connect(m_motor.get(), &MotorControl::read, this, &MainWindow::onProofRead);
    connect(m_serialHelper.get(), &SerialHelper::connectionLost, this, &MainWindow::onConnectionLost);
}

void MainWindow::restoreWindow()
{
    m_plotting->restore();
    const bool isStored = restoreGeometry(m_settings->value(GeometryKey, QByteArray()).toByteArray());
    restoreState(m_settings->value(WindowStateKey, QByteArray()).toByteArray());
    if (isMaximized() || isFullScreen())
        return;
    // Smaller than this it would become larger, and hang over the edge, as soon as it shows.
    const QRect wanted(geometry().topLeft(), size().expandedTo(minimumSizeHint()));
    const QRect fitting = screenfit::onScreen(*this, wanted);
    if (isStored)
        setGeometry(fitting);
    else
        resize(fitting.size()); // where to is the window manager's choice
}

/** Opens the port that the settings name; tells the user when it cannot be opened. */
bool MainWindow::openPort()
{
    const QString error = openStoredPort();
    if (!error.isEmpty())
        boxes::show(this, QMessageBox::Critical, tr("Error"), error);
    return error.isEmpty();
}

/** @return an empty text, or why the port that the settings name cannot be opened. */
QString MainWindow::openStoredPort()
{
    const auto port = m_settingsDialog->portSettings();
    QString error = m_serialHelper->openSerialPort(port.portName, port.baudRate);
    if (error.isEmpty())
        m_isPortReleased = false;
    return error;
}

void MainWindow::stopClosingPort()
{
    if (m_closeTimerId != 0)
        killTimer(std::exchange(m_closeTimerId, 0));
}

void MainWindow::identify()
{
    ProcessWide<DeviceHelper>::instance()->identify(static_cast<uint8_t>(m_connection->address().id));
}

void MainWindow::onDeviceLoaded()
{
    // The answer may come in the time that Disconnect leaves the port open for.
    if (!m_connection->isUp())
        return;
    m_ui->statusBar->showMessage(tr("Connected"));
    m_scheduler->startScheduler(m_pollingIntervalSpinBox->value());
    m_connection->follow(*m_scheduler, DeviceHelper::currentDevice()->family(), m_pollingIntervalSpinBox->value());
}

void MainWindow::onStateChanged(session::State state, session::State before)
{
    switch (state) {
    case session::State::Silent:
        m_ui->statusBar->showMessage(tr("No answer from servo %1").arg(m_scheduler->servoId()));
        return;
    case session::State::Refusing:
        m_ui->statusBar->showMessage(tr("Servo %1 refuses to be read").arg(m_scheduler->servoId()));
        return;
    case session::State::Moved:
        onServoMoved();
        return;
    case session::State::Connected:
        if (before != session::State::Identifying)
            onAnswersBack();
        return;
    case session::State::Identifying:
    case session::State::Unanswered:
    case session::State::PortClosed:
    case session::State::Disconnected:
        return; // the link line tells, and Connect and Disconnect see to what is shown
    }
}

void MainWindow::onProofRead(const QByteArray &registers)
{
    endPending(); // first, for the fields to show what was read
    m_pollTarget->take(registers);
    UiScheduler::passOn(registers, *m_pollTarget);
}

void MainWindow::endPending()
{
    // What is read before the last of several blocks is written is older than what that one asks for.
    if (!m_proof->isPending())
        ProcessWide<UiGroupHelper>::instance()->endPending();
}

void MainWindow::undoLastApply()
{
    if (!m_proof->canUndo()) {
        m_linkLine->tell(tr("not undone: the servo has other values by now"));
        return;
    }
    write(m_proof->undo());
}

void MainWindow::writeGains(const std::vector<session::AppliedField> &gains)
{
    const bool isConnected = m_connection->state() == session::State::Connected;
    if (isConnected && !gains.empty())
        write(session::blockOf(*m_registerHelper->image(), gains));
    else
        m_linkLine->tell(tr("not written: no servo is connected"));
}

void MainWindow::write(const session::Block &block)
{
    Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(block.address, block.data);
    m_registerHelper->assumeWritten(block.address, block.data);
}

void MainWindow::onAnswersBack()
{
    m_ui->statusBar->showMessage(tr("Connected"));
    ProcessWide<UiGroupHelper>::instance()->setServoReachable(true);
    takeOverAddress(m_connection->address());
}

void MainWindow::onServoMoved()
{
    const model::ServoAddress &address = m_connection->servoAddress();
    m_ui->statusBar->showMessage(tr("The servo now listens at address %1 and %2 baud: disconnect and connect again")
                                     .arg(address.id)
                                     .arg(address.baudRate));
    ProcessWide<UiGroupHelper>::instance()->setServoReachable(false);
    takeOverAddress(address);
}

/** Makes @p address the one that the next connection is made to. */
void MainWindow::takeOverAddress(const model::ServoAddress &address)
{
    m_idSpinBox->setValue(address.id);
    if (m_settingsDialog->portSettings().baudRate != address.baudRate)
        m_settingsDialog->on_updateBaudRate(address.baudRate);
}

void MainWindow::onConnectionLost(const QString &reason)
{
    const bool isConnected = m_connection->isUp();
    if (!isConnected && m_isPortReleased)
        return; // nobody uses it any more
    if (isConnected)
        on_actionDisconnect_triggered();
    m_plotting->tellPortLost(reason);
    m_isPortReleased = true; // told here, and once is enough
    boxes::show(this, QMessageBox::Critical, tr("Error"), reason);
}

void MainWindow::setLinkUp(bool up)
{
    const auto actions = {m_ui->actionConnect, m_ui->actionSettings, m_ui->actionSearch, m_ui->actionReboot,
                          m_ui->actionReset};
    for (QAction *action : actions)
        action->setEnabled(!up);
    m_ui->actionDisconnect->setEnabled(up);
    for (const auto &spinBox : {m_pollingIntervalSpinBox, m_idSpinBox}) {
        if (spinBox)
            spinBox->setEnabled(!up);
    }
}

void MainWindow::run(const OneShotOperation &operation)
{
    if (!openPort())
        return;
    BusResult result;
    const auto keepResult = [&result](const BusRequest &, const BusResult &ended) { result = ended; };
    const auto watch = connect(m_serialHelper->bus(), &ServoBus::requestFinished, this, keepResult);
    std::optional<QByteArray> reply;
    const auto keepReply = [&reply](const QByteArray &bytes) { reply = bytes; };
    DeviceHelper &device = *ProcessWide<DeviceHelper>::instance();
    const auto servoId = static_cast<uint8_t>(m_idSpinBox->value());
    const bool isAccepted = (device.*operation.start)(servoId, keepReply);
    disconnect(watch);
    if (!reply && isAccepted && result.outcome == BusResult::Outcome::PortLost)
        return; // which is told of by itself
    const bool isLossTold = std::exchange(m_isPortReleased, true);
    if (reply)
        showResult(operation, *reply, result);
    else if (!isLossTold && !isAccepted)
        boxes::show(this, QMessageBox::Critical, tr("Error"), operation.refused);
    else if (!isLossTold)
        tellNoAnswer(servoId);
}

void MainWindow::showResult(const OneShotOperation &operation, const QByteArray &reply, const BusResult &result)
{
    const QString servoId = QString::number(static_cast<quint8>(reply[replybytes::ShortId]));
    if (reply[replybytes::ShortError] != 0) {
        boxes::show(this, QMessageBox::Critical, tr("Error"), operation.failed.arg(servoId));
        return;
    }
    const bool isFirstFraming = !result.answer.raw.isEmpty() && result.answer.framing == wire::Framing::Protocol1;
    if (operation.start == &DeviceHelper::factoryReset && isFirstFraming) {
        takeOverAddress(FactoryAx12);
        m_linkLine->tell(tr("the AX-12 is now servo %1 at %2 baud").arg(FactoryAx12.id).arg(FactoryAx12.baudRate));
    }
    boxes::show(this, QMessageBox::Information, tr("Success"), operation.succeeded.arg(servoId));
}

void MainWindow::tellNoAnswer(int servoId)
{
    const auto port = m_settingsDialog->portSettings();
    boxes::show(this, QMessageBox::Critical, tr("Error"),
                tr("Servo %1 did not answer at %2 baud on %3. Check its supply, the cable, its address and its baud "
                   "rate; Search finds servos at other ones.")
                    .arg(servoId)
                    .arg(port.baudRate)
                    .arg(port.portName));
}

void MainWindow::releaseHelpers()
{
    ProcessWide<UiGroupHelper>::instance().reset();
    ProcessWide<StatusHelper>::instance().reset();
    ProcessWide<FieldHelper>::instance().reset();
    ProcessWide<DeviceHelper>::instance().reset();
    ProcessWide<UiRegisterHelper>::instance().reset();
}
