#pragma once

#include "device/physicalquantities.h"
#include "settings/portsettings.h"

#include <QDialog>

#include <memory>

class QIntValidator;
class SerialHelper;
class Settings;

namespace Ui {
class SettingsDialog;
}

/**
 * The modal dialog in which the user chooses port, baud rate and display units. Holds the live choices and persists
 * them. There is one per process. GUI thread only.
 */
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    SettingsDialog();
    /** Lists the ports that @p serialHelper knows. */
    explicit SettingsDialog(std::shared_ptr<SerialHelper> serialHelper);
    ~SettingsDialog() override;

    /** The dialog of this process; null while there is none. */
    static SettingsDialog *instance();

    /** The port settings last applied or loaded. */
    PortSettings portSettings() const;
    /**
     * The unit choices last applied or loaded. A quantity with one button or none has whatever index the store has; one
     * that is not in the unit table stands for the first unit.
     */
    PhysicalQuantities units() const;
    /** Takes over and persists the port @p portName, on which the search has found a servo. */
    void usePort(const QString &portName);

public Q_SLOTS:
    /** Shows the details of port @p idx of the list; −1 is none. */
    void showPortInfo(int idx);
    /** Takes over what the form shows, persists it, and hides the dialog. */
    void apply();
    /** Closes the dialog and takes nothing over. */
    void cancel();
    /** Lets a baud rate be typed when entry @p idx of the baud-rate list stands for one of the user's own. */
    void checkCustomBaudRatePolicy(int idx);
    /** Refreshes the ports and the units and shows the dialog. */
    void show();
    /** Takes over and persists a @p baudRate that the search has found, in bits per second. */
    void on_updateBaudRate(int baudRate);

private:
    struct UnitRow;

    void makeRoomForTitles();
    void makeConnections();
    void fillParameters();
    void fillPorts();
    void showPortDetails(const QStringList &details);
    void loadPort();
    void loadUnits();
    void showBaudRate(int baudRate);
    void showUnits();
    void readPort();
    void readUnits();
    static const UnitRow UnitRows[];

    std::unique_ptr<Ui::SettingsDialog> m_ui;
    PortSettings m_portSettings;
    QString m_chosenPort; ///< the one to show, which may be unplugged
    PhysicalQuantities m_units;
    std::shared_ptr<Settings> m_portStore;
    std::shared_ptr<Settings> m_unitsStore;
    std::shared_ptr<SerialHelper> m_serialHelper;
    QIntValidator *m_baudRateValidator; ///< owned by the dialog as its parent
};
