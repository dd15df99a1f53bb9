#pragma once

#include "device/registerdescription.h"

#include <QWidget>

#include <array>
#include <map>
#include <memory>

class QTableWidget;
class QTableWidgetItem;

namespace Ui {
class RegisterView;
}

/**
 * Shows the connected servo's registers, one byte a row, in one table for each bank. Read-only. There is one view per
 * process. GUI thread only.
 *
 * Values that arrive while the view is hidden are kept and written into the tables when it is shown.
 */
class RegisterView : public QWidget
{
    Q_OBJECT

public:
    explicit RegisterView(QWidget *parent);
    ~RegisterView() override;

    /** The view of this process; null while there is none. */
    static RegisterView *instance();

    /** A connection has been opened; to be called before its device model is loaded. */
    void connectDevice();
    /**
     * The connection is gone: empties the tables and cuts every receiver of the device helper's signal, so that
     * whoever else follows it has to connect anew with the next connection.
     */
    void disconnectDevice();

    /**
     * Shows the bytes of @p value from @p address on, lowest first: one, two, or with a @p size of exactly 4 four.
     */
    void updateRegister(quint16 address, quint8 size, quint32 value);
    /** Shows one byte; does nothing for a register that the device does not describe. */
    void setRegisterByte(quint16 address, quint8 value);

public Q_SLOTS:
    /** Sizes the tables for the device model just loaded. */
    void on_deviceLoaded();

protected:
    void showEvent(QShowEvent *event) override;

private:
    static constexpr int BankCount = 4;

    struct Row
    {
        RegisterDescription description;
        quint8 value = 0;       ///< last read
        bool isPending = false; ///< the value has come while the view was hidden
        bool isShown = false;   ///< the table has shownValue
        quint8 shownValue = 0;
        bool isShownDecimal = false;
    };

    void styleTables();
    void nameTables();
    void clearRows();
    void write(quint16 address, Row &row);
    void setCell(const RegisterDescription &description, int column, const QString &text);

    std::unique_ptr<Ui::RegisterView> m_ui;
    std::array<QTableWidget *, BankCount> m_tables; ///< by bank; owned by the form
    std::map<quint16, Row> m_rows;                  ///< the device's described registers by address
};
