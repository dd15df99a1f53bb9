// The registers of a connected servo: what it is taken for, what was read of it last, and the tables that show them.

#include "device/devicehelper.h"
#include "device/idevice.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"
#include "views/registerview.h"

namespace {
enum Column { Address, Value, Description };

/** A shown view on a device helper, and what a test looks at. */
struct Fixture
{
    std::shared_ptr<SerialHelper> link = std::make_shared<SerialHelper>(std::make_shared<FakeSerialPort>());
    std::shared_ptr<DeviceHelper> helper = std::make_shared<DeviceHelper>(link, [] {});
    SettingsDialog settings{link};
    RegisterView view{nullptr};

    Fixture()
    {
        ProcessWide<DeviceHelper>::instance() = helper;
        view.show();
    }
    ~Fixture() { ProcessWide<DeviceHelper>::instance().reset(); }

    /** Whatever is no AX-12 has the register map. */
    void load()
    {
        view.connectDevice();
        helper->onModelNumberRead({});
    }
    QTableWidget *table(int bank) const
    {
        return view.findChild<QTableWidget *>(QStringList{"eepromRegisterBank1Widget", "eepromRegisterBank2Widget",
                                                          "ramRegisterBank1TableWidget",
                                                          "ramRegisterBank2TableWidget"}[bank]);
    }
    QTableWidgetItem *cell(int bank, int row, Column column) const { return table(bank)->item(row, column); }
    QString text(int bank, int row, Column column) const
    {
        const QTableWidgetItem *item = cell(bank, row, column);
        return item ? item->text() : QString();
    }
    int filledCells() const
    {
        int filled = 0;
        for (int bank = 0; bank < 4; ++bank) {
            for (int row = 0; row < table(bank)->rowCount(); ++row)
                filled += cell(bank, row, Value) ? 1 : 0;
        }
        return filled;
    }
};

} // namespace

class TestRegisterView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void identification()
    {
        const QByteArray zeros(13, '\0');
        // clang-format off
        const std::tuple<const char *, QByteArray, bool> rows[] = {
            {"12, 0: AX-12",                      QByteArray(zeros).replace(5, 1, "\x0C"),        false},
            {"12, 1",                             QByteArray(zeros).replace(5, 2, "\x0C\x01"),    true },
            {"upper byte with the top bit",       QByteArray(zeros).replace(5, 2, "\x0C\x80"),    true },
            {"short: only the lower byte, of 12", QByteArray(zeros).replace(5, 1, "\x0C").left(6), true },
        };
        // clang-format on
        for (const auto &[name, reply, isOwnFamily] : rows) {
            const InRow row(name);
            DeviceHelper helper(nullptr, [] {});
            helper.onModelNumberRead(reply);
            QCOMPARE(helper.device()->hasRegisterMap(), isOwnFamily);
            QCOMPARE(helper.device()->controlTableSize(), isOwnFamily ? 118u : 50u);
        }
    }

    void whatWasReadIsTheServosThatIsConnected()
    {
        Fixture fixture;
        fixture.load();
        UiRegisterHelper helper;
        helper.take(QByteArray(120, '\5'), {}); // two more than there are
        QCOMPARE(helper.lastByte(117), std::optional<quint8>(5));
        QVERIFY(!helper.lastByte(118));
        fixture.load(); // another connection's
        QVERIFY(!helper.lastByte(3));
        helper.bindings().at(7)->handler(0x0102); // a value that came without a table
        QVERIFY(!helper.lastByte(3));
        QCOMPARE(helper.lastByte(8), std::optional<quint8>(1));
        helper.forgetValues();
        QVERIFY(!helper.lastByte(8));
    }

    void everyRegisterHasARowOfItsOwn()
    {
        const int rowCounts[] = {27, 14, 24, 22};
        Fixture fixture;
        fixture.load();
        for (int address = 0; address < 256; ++address)
            fixture.view.setRegisterByte(quint16(address), quint8(address));
        int previous = -1;
        for (int bank = 0; bank < 4; ++bank) {
            QCOMPARE(fixture.table(bank)->rowCount(), rowCounts[bank]);
            for (int row = 0; row < rowCounts[bank]; ++row) {
                const int address = fixture.text(bank, row, Address).toInt(nullptr, 16);
                const InRow inRow(QString("register %1").arg(address));
                QVERIFY(address > std::exchange(previous, address));
                QCOMPARE(fixture.text(bank, row, Value), fixture.text(bank, row, Address));
                QCOMPARE(fixture.text(bank, row, Description),
                         fixture.helper->device()->registerDescription(quint16(address))->description);
                const bool isWritable = address > 2 && address < 86;
                QCOMPARE(fixture.cell(bank, row, Value)->background() == QBrush(), isWritable);
            }
        }
        QCOMPARE(previous, 117);
    }

    void valuesAreShownBytewiseInTheChosenBase()
    {
        // clang-format off
        const std::tuple<const char *, int, int, QStringList, QStringList> rows[] = {
            {"two bytes",    0,   2, {"0x00 0x04", "0x01 0xa3"}, {"0 4", "1 163"}},
            {"one byte",     1,   1, {"0x01 0x04"},              {"1 4"}         },
            {"four bytes",   11,  4, {"0x0b 0x04", "0x0c 0xa3", "0x0d 0x02", "0x0e 0xf1"}, {"11 4", "12 163", "13 2", "14 241"}},
            {"gap",          41,  1, {},                         {}              },
            {"past the end", 256, 1, {},                         {}              },
        };
        // clang-format on
        for (const auto &[name, address, size, hexadecimal, decimal] : rows) {
            const InRow inRow(name);
            init();
            Fixture fixture;
            fixture.load();
            for (const QStringList &expected : {hexadecimal, decimal}) {
                fixture.view.updateRegister(quint16(address), quint8(size), 0xF102A304);
                QStringList shown;
                for (int i = 0; i < fixture.filledCells(); ++i)
                    shown += fixture.text(0, address + i, Address) + ' ' + fixture.text(0, address + i, Value);
                QCOMPARE(shown, expected);
                fixture.settings.findChild<QRadioButton *>("decimalRadioButton")->click();
                fixture.settings.apply();
            }
        }
    }

    void aHiddenViewWritesWhenItIsShown()
    {
        Fixture fixture;
        fixture.load();
        fixture.view.setRegisterByte(3, 1);
        fixture.view.hide();
        fixture.view.setRegisterByte(3, 2);
        fixture.view.setRegisterByte(4, 2);
        fixture.view.setRegisterByte(4, 3);
        QCOMPARE(fixture.text(0, 3, Value), QString("0x01"));
        QVERIFY(!fixture.cell(0, 4, Value));
        fixture.view.show();
        QCOMPARE(fixture.text(0, 3, Value), QString("0x02"));
        QCOMPARE(fixture.text(0, 4, Value), QString("0x03"));
        QCOMPARE(fixture.filledCells(), 2);
    }
};

ZELVAR_TEST_MAIN(TestRegisterView)
#include "tst_registerview.moc"
