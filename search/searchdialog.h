#pragma once

#include <QDialog>
#include <QThread>
#include <QVector>

#include <memory>

class QAbstractButton;
class QButtonGroup;
class QTreeWidgetItem;
class ScanReport;
class SearchHelper;
class SerialHelper;
class Settings;

namespace Ui {
class SearchDialog;
}

/**
 * Finds the servos on a bus: probes every id of a range at every chosen baud rate and lists those that answer.
 *
 * A scan runs inside scan(), one probe at a time on a worker thread, and the program's events are processed only
 * between two baud rates. There the dialog may be closed or even destroyed, which ends the scan. There is one per
 * process.
 */
class SearchDialog : public QDialog
{
    Q_OBJECT

public:
    SearchDialog();
    /** Lists the ports of @p serialHelper in place of one of its own. */
    explicit SearchDialog(std::shared_ptr<SerialHelper> serialHelper);
    ~SearchDialog() override;

    /** The process-wide dialog; null while there is none. */
    static SearchDialog *instance();

    /** The port on which the servo was found that was chosen last; empty when none was. */
    QString selectedPort() const { return m_selectedPort; }

    /** Each time that the dialog is shown it starts over: no baud rate, ids 1 to 10, nothing found. */
    void setVisible(bool visible) override;

Q_SIGNALS:
    /** Asks the current probe's helper, in its thread, for servo @p id at @p baudRate bits per second. */
    void doScanServo(int id, int baudRate);
    /** The baud rate of the servo that was chosen, in bits per second. */
    void updateBaudRate(int baudRate);
    /** The id of the servo that was chosen. */
    void updateId(int id);

public Q_SLOTS:
    void select();
    void cancel();
    /** Returns when the scan is over; does nothing while one is running. */
    void scan();
    /** The scan ends when the ids of the baud rate that it is at, or is about to begin with, are through. */
    void abortScan();
    void show();
    void on_lowerIdValueChanged(int value);
    void on_upperIdValueChanged(int value);
    void on_serialPortTextChanged(QString text);
    void on_selectStateChanged(int state);
    void on_baudRateCheckBoxToggled(int id, bool checked);
    void on_itemClicked();
    QTreeWidgetItem *addTreeRoot(QString baudRate);
    void addTreeChild(QTreeWidgetItem *parent, QString id, QString model);

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void groupBaudRates();
    void makeConnections();
    void listPorts();
    void reset();
    int checkedBaudRates(int firstButton = 0) const;
    void showSelectAll(Qt::CheckState state);
    void updateScanButtons();
    void setScanning(bool scanning);
    bool scanBaudRates(const QVector<int> &ids, ScanReport &report);
    void sweep(const QVector<int> &ids, int baudRate, ScanReport &report);
    QByteArray probe(int id, int baudRate, ScanReport &report);
    void showResult(const ScanReport &report);
    void tell(const QString &text);

    std::unique_ptr<Ui::SearchDialog> m_ui;
    std::shared_ptr<SerialHelper> m_serialHelper; ///< lists the ports, opens none
    std::shared_ptr<Settings> m_settings;
    int m_rememberedLower = 0;
    int m_rememberedUpper = 0;
    bool m_scanning = false;
    bool m_abortRequested = false;
    bool m_isAbandoned = false; ///< the dialog was closed while scanning: nobody waits for the rest of the scan
    QString m_selectedPort;
    std::shared_ptr<QButtonGroup> m_baudRateButtons;
    bool m_updatingSelectAll = true; ///< false while the tri-state box follows the baud rates and not the user
    std::shared_ptr<SearchHelper> m_searchHelper; ///< null but during a probe
    QThread m_thread;                             ///< runs only during a probe
};
