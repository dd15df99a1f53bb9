#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <cstdint>

class QWidget;
class SaveBlock;
class ZelvarGroupToolButton;
class ZelvarParametersGroupBox;

/**
 * Wires the groups of an edit view: the link to their fields, their buttons to editing, applying and cancelling.
 *
 * It may outlive the view and then does nothing. GUI thread only.
 */
class UiGroupHelper : public QObject
{
    Q_OBJECT

public:
    /** @param view the edit view, which stays its owner's; without one there are no groups. */
    explicit UiGroupHelper(QWidget *view = nullptr);

    /**
     * From now on what is applied is shown as pending until endPending() is called. Without a caller that has the servo
     * asked, it counts as the servo's at once.
     */
    void expectProofs() { m_expectsProofs = true; }

    /** The object names of the fields that were changed and not applied. */
    QStringList editedControls() const;

Q_SIGNALS:
    /** Write @p data to the registers from @p address of the connected servo. */
    void addQueueRequest(uint8_t address, const QByteArray &data);
    /** For the groups, whose slots are named after the state reached. */
    void linkWentUp();
    void linkWentDown();

public Q_SLOTS:
    /** The port is open: the groups get ready for the device model and the values that follow. */
    void linkUp();
    /** The port is closed or lost: edits are dropped and the groups show nothing any more. */
    void linkDown();
    /** What was applied is proved, or will not be: what is read from now on is shown again. */
    void endPending();
    /** While the servo listens elsewhere than it is asked, nothing can be edited or applied: it would be lost. */
    void setServoReachable(bool reachable);
    /** The motor has been told to stop: an edit that is open would switch it on again only if its user says so anew. */
    void motorStopped();

private Q_SLOTS:
    void on_editSaveToolButton_toggled(bool checked);
    void on_editSaveToolButton_pressed();
    void on_limitsCancelToolButton_pressed();
    void on_enableMotorCheckBox_toggled(bool checked);

private:
    using SaveOperation = void (UiGroupHelper::*)();

    struct GroupRow;
    static const GroupRow Groups[];

    void setUpGroup(const GroupRow &row);
    void setUpButtons(ZelvarParametersGroupBox &group, SaveOperation operation);
    ZelvarParametersGroupBox *group(const char *objectName) const;
    void cancelEditing(ZelvarParametersGroupBox &group);
    void applyMotorRule();
    void refreshInhibition();

    void saveNothing();
    void saveNonVolatile();
    void saveVolatile();
    void save(const SaveBlock &block);

    QPointer<QWidget> m_view;
    bool m_isServoReachable = true;
    bool m_isMotorOn = false;
    bool m_expectsProofs = false;
};
