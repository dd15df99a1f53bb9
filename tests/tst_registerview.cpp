// The register tables: where a byte goes, how it reads, and that a hidden view costs nothing and loses nothing.

#include "device/devicehelper.h"
#include "device/idevice.h"
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

    void valuesGoIntoTheirRows()
    {
        // clang-format off
        const std::tuple<const char *, int, int, int, int, QStringList, QStringList> rows[] = {
            {"first",        0,   2, 0, 0, {"0x00 0x04", "0x01 0xa3"}, {"0 4", "1 163"}},
            {"bank 1",       27,  1, 1, 0, {"0x1b 0x04"},              {"27 4"}        },
            {"after a gap",  54,  1, 2, 2, {"0x36 0x04"},              {"54 4"}        },
            {"four bytes",   86,  4, 3, 0, {"0x56 0x04", "0x57 0xa3", "0x58 0x02", "0x59 0xf1"},
             {"86 4", "87 163", "88 2", "89 241"}},
            {"gap",          41,  1, 1, 0, {},                         {}              },
            {"past the end", 256, 1, 0, 0, {},                         {}              },
        };
        // clang-format on
        for (const auto &[name, address, size, bank, row, hexadecimal, decimal] : rows) {
            const InRow inRow(name);
            init();
            Fixture fixture;
            fixture.load();
            for (const QStringList &expected : {hexadecimal, decimal}) {
                fixture.view.updateRegister(quint16(address), quint8(size), 0xF102A304);
                QStringList shown;
                for (int i = 0; i < fixture.filledCells(); ++i)
                    shown += fixture.text(bank, row + i, Address) + ' ' + fixture.text(bank, row + i, Value);
                QCOMPARE(shown, expected);
                fixture.settings.findChild<QRadioButton *>("decimalRadioButton")->click();
                fixture.settings.apply();
            }
            if (const auto description = fixture.helper->device()->registerDescription(quint16(address))) {
                QCOMPARE(fixture.text(bank, row, Description), description->description);
                QCOMPARE(fixture.cell(bank, row, Value)->background() == QBrush(), description->writable != 0);
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
