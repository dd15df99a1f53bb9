// The register tables: where a byte goes, how it reads, and that a hidden view costs nothing and loses
// nothing.

#include "device/devicehelper.h"
#include "device/idevice.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"
#include "views/registerview.h"

#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTableWidget>

namespace {

enum Column
{
    Address,
    Value,
    Description,
};

QByteArray modelNumber(char low, char high)
{
    QByteArray reply(13, '\0');
    reply[5] = low;
    reply[6] = high;
    return reply;
}
const QByteArray OwnFamily = modelNumber(2, 1);
const QByteArray Ax12 = modelNumber(12, 0);

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

    void load(const QByteArray &reply = OwnFamily)
    {
        view.connectDevice();
        helper->onModelNumberRead(reply);
    }
    QTableWidget *table(int bank) const
    {
        static const char *const names[] = {"eepromRegisterBank1Widget", "eepromRegisterBank2Widget",
                                            "ramRegisterBank1TableWidget", "ramRegisterBank2TableWidget"};
        return view.findChild<QTableWidget *>(names[bank]);
    }
    QTableWidgetItem *cell(int bank, int row, Column column) const { return table(bank)->item(row, column); }
    QString text(int bank, int row, Column column) const
    {
        const QTableWidgetItem *item = cell(bank, row, column);
        return item ? item->text() : QString();
    }
    QList<int> rowCounts() const
    {
        QList<int> counts;
        for (int bank = 0; bank < 4; ++bank)
            counts.append(table(bank)->rowCount());
        return counts;
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
    void choose(const char *radioButton)
    {
        settings.findChild<QRadioButton *>(radioButton)->click();
        settings.apply();
    }
};

const QList<int> NoRows{0, 0, 0, 0};
const QList<int> OwnRows{27, 14, 24, 22};

} // namespace

class TestRegisterView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void aByteIsShownInItsRow_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("bank");
        QTest::addColumn<int>("row");
        QTest::addColumn<QStringList>("hexadecimal");
        QTest::addColumn<QStringList>("decimal");
        QTest::addColumn<bool>("readOnly");
        using Texts = QStringList;
        QTest::newRow("first") << 0 << 0 << 0 << Texts{"0x00", "0x0c"} << Texts{"0", "12"} << true;
        QTest::newRow("bank 0") << 26 << 0 << 26 << Texts{"0x1a", "0x0c"} << Texts{"26", "12"} << false;
        QTest::newRow("bank 1") << 27 << 1 << 0 << Texts{"0x1b", "0x0c"} << Texts{"27", "12"} << false;
        QTest::newRow("bank 2, after a gap") << 54 << 2 << 2 << Texts{"0x36", "0x0c"} << Texts{"54", "12"} << false;
        QTest::newRow("last") << 117 << 3 << 21 << Texts{"0x75", "0x0c"} << Texts{"117", "12"} << true;
    }

    void aByteIsShownInItsRow()
    {
        QFETCH(int, address);
        QFETCH(int, bank);
        QFETCH(int, row);
        QFETCH(bool, readOnly);
        Fixture fixture;
        fixture.load();
        const QString description = fixture.helper->device()->registerDescription(quint16(address))->description;
        for (const char *radix : {"hexadecimal", "decimal"}) {
            if (QByteArray(radix) == "decimal")
                fixture.choose("decimalRadioButton");
            fixture.view.setRegisterByte(quint16(address), 12);
            QTEST(QStringList({fixture.text(bank, row, Address), fixture.text(bank, row, Value)}), radix);
            QCOMPARE(fixture.text(bank, row, Description), description);
            QCOMPARE(fixture.filledCells(), 1);
            for (Column column : {Address, Value, Description}) {
                QCOMPARE(fixture.cell(bank, row, column)->toolTip(), description);
                const QBrush background = fixture.cell(bank, row, column)->background();
                QCOMPARE(background, readOnly ? QBrush(QColor(227, 235, 240, 150)) : QBrush());
            }
        }
    }

    void valuesAreSplitLowestByteFirst_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QStringList>("bytes");
        QTest::newRow("1 byte") << 1 << QStringList{"0x04", "", "", ""};
        QTest::newRow("2 bytes") << 2 << QStringList{"0x04", "0xa3", "", ""};
        QTest::newRow("3 bytes show two") << 3 << QStringList{"0x04", "0xa3", "", ""};
        QTest::newRow("4 bytes") << 4 << QStringList{"0x04", "0xa3", "0x02", "0xf1"};
        QTest::newRow("5 bytes show two") << 5 << QStringList{"0x04", "0xa3", "", ""};
    }

    void valuesAreSplitLowestByteFirst()
    {
        QFETCH(int, size);
        Fixture fixture;
        fixture.load();
        fixture.view.updateRegister(20, quint8(size), 0xF102A304);
        QStringList values;
        for (int row = 20; row < 24; ++row)
            values.append(fixture.text(0, row, Value));
        QTEST(values, "bytes");
    }

    void aChangeOfFormatComesWithTheNextUpdate()
    {
        Fixture fixture;
        fixture.load();
        fixture.view.updateRegister(10, 2, 0x1234);
        fixture.choose("decimalRadioButton");
        QCOMPARE(fixture.text(0, 10, Value), QString("0x34"));
        fixture.view.setRegisterByte(10, 0x34);
        QCOMPARE(fixture.text(0, 10, Address) + ' ' + fixture.text(0, 10, Value), QString("10 52"));
        QCOMPARE(fixture.text(0, 11, Address) + ' ' + fixture.text(0, 11, Value), QString("0x0b 0x12"));
    }

    void unknownAddressesAreIgnored_data()
    {
        QTest::addColumn<quint16>("address");
        for (quint16 address : {41, 98, 118, 256, 0xFFF0})
            QTest::addRow("%d", address) << address;
    }

    void unknownAddressesAreIgnored()
    {
        QFETCH(quint16, address);
        Fixture fixture;
        fixture.load();
        fixture.view.setRegisterByte(address, 1);
        QCOMPARE(fixture.filledCells(), 0);
    }

    void updatesCountFromTheDeviceModelOn()
    {
        Fixture fixture;
        fixture.view.updateRegister(0, 2, 1);
        fixture.helper->onModelNumberRead(OwnFamily); // before the view was told that the link is up
        QCOMPARE(fixture.rowCounts(), NoRows);
        fixture.load();
        QCOMPARE(fixture.rowCounts(), OwnRows);
        QCOMPARE(fixture.filledCells(), 0);
    }

    void aServoWithoutRegisterMapLeavesTheTablesEmpty()
    {
        Fixture fixture;
        fixture.load(OwnFamily);
        fixture.view.setRegisterByte(0, 1);
        fixture.helper->onModelNumberRead(Ax12);
        QCOMPARE(fixture.rowCounts(), NoRows);
        fixture.view.updateRegister(0, 2, 1);
        QCOMPARE(fixture.filledCells(), 0);
    }

    void disconnectingEmptiesTheTablesAndCutsEveryReceiver()
    {
        Fixture fixture;
        QSignalSpy another(fixture.helper.get(), SIGNAL(loadDeviceMetadata()));
        fixture.load();
        fixture.view.setRegisterByte(0, 1);
        QCOMPARE(another.count(), 1);
        fixture.view.disconnectDevice();
        QCOMPARE(fixture.rowCounts(), NoRows);
        fixture.helper->onModelNumberRead(OwnFamily);
        QCOMPARE(another.count(), 1);
        fixture.view.setRegisterByte(0, 1);
        QCOMPARE(fixture.rowCounts(), NoRows);
        fixture.load();
        QCOMPARE(fixture.rowCounts(), OwnRows);
        QCOMPARE(fixture.filledCells(), 0);
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

    void anUnchangedByteLeavesItsCellsAlone()
    {
        Fixture fixture;
        fixture.load();
        fixture.view.setRegisterByte(3, 7);
        QSignalSpy changes(fixture.table(0), SIGNAL(cellChanged(int, int)));
        fixture.view.setRegisterByte(3, 7);
        QCOMPARE(changes.count(), 0);
        fixture.view.setRegisterByte(3, 8);
        QCOMPARE(changes.count(), 1);
    }

    void theTablesAreReadOnlyAndStyled()
    {
        Fixture fixture;
        for (int bank = 0; bank < 4; ++bank) {
            const QTableWidget *table = fixture.table(bank);
            QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
            QCOMPARE(table->selectionMode(), QAbstractItemView::NoSelection);
            QVERIFY(table->verticalHeader()->isHidden());
            QCOMPARE(QList<int>({table->columnWidth(Address), table->columnWidth(Value)}), QList<int>({80, 40}));
            QCOMPARE(table->styleSheet().size(), 229);
        }
    }

    void withoutHelpersNothingHappens()
    {
        RegisterView view(nullptr);
        QCOMPARE(RegisterView::instance(), &view);
        view.connectDevice();
        view.on_deviceLoaded();
        view.updateRegister(0, 4, 1);
        view.disconnectDevice();
    }
};

ZELVAR_TEST_MAIN(TestRegisterView)
#include "tst_registerview.moc"
