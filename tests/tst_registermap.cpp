// What a servo is taken for, its registers, and the errors that it tells of.

#include "device/devicehelper.h"
#include "device/dynamixelax12.h"
#include "device/statushelper.h"
#include "device/uiregisterhelper.h"
#include "device/zelvarv1.h"
#include "link/processwide.h"
#include "tests/support/testenvironment.h"

namespace {
class StatusBox : public QWidget, public IStatusIndicator
{
public:
    StatusBox(const QString &name, QWidget *parent) : QWidget(parent) { setObjectName(name); }
    void setStatus(bool on) override { isOn = on; }

    bool isOn = true;
};

} // namespace

class TestRegisterMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ProcessWide<DeviceHelper>::instance() = std::make_shared<DeviceHelper>(nullptr, [] {});
        ProcessWide<DeviceHelper>::instance()->onModelNumberRead({});
    }

    void cleanup() { ProcessWide<DeviceHelper>::instance() = nullptr; }

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

    void banksAreWhole()
    {
        const ZelvarV1 device;
        const QVector<int> counts = {27, 14, 24, 22};
        QVector<QSet<int>> rows(counts.size());
        for (quint16 address = 0; address < 256; ++address) {
            if (const auto description = device.registerDescription(address)) {
                QVERIFY(address < device.controlTableSize());
                rows[int(description->bank)] << description->row;
                QCOMPARE(description->writable, quint32(address > 2 && address < 86));
            }
        }
        for (int bank = 0; bank < counts.size(); ++bank) {
            QCOMPARE(int(device.registerCount(quint32(bank))), counts.at(bank));
            QCOMPARE(rows.at(bank).size(), counts.at(bank));
        }
        QCOMPARE(DynamixelAx12().registerCount(0), 0u);
        QVERIFY(!DynamixelAx12().registerDescription(0));
    }

    void everyPolledByteIsKept()
    {
        UiRegisterHelper helper;
        QByteArray table(120, '\0'); // two more than there are
        for (int address = 0; address < table.size(); ++address)
            table[address] = char(0x80 + address);
        QVERIFY(!helper.lastByte(0));
        helper.take(table, {});
        for (int address = 0; address < 118; ++address)
            QCOMPARE(helper.lastByte(quint8(address)), std::optional<quint8>(0x80 + address));
        QVERIFY(!helper.lastByte(118));

        ProcessWide<DeviceHelper>::instance()->onModelNumberRead({}); // they belong to the servo before
        QVERIFY(!helper.lastByte(3));
        helper.bindings().at(7)->handler(0x0102); // a value that came without a table
        QVERIFY(!helper.lastByte(3));
        QCOMPARE(helper.lastByte(8), std::optional<quint8>(1));
        helper.forgetValues();
        QVERIFY(!helper.lastByte(8));
    }

    // The scheduler walks from 0 by each item's size and has to meet an item below 120.
    void pollMapHasNoHoles()
    {
        const UiRegisterHelper helper;
        int end = 0;
        for (const auto &[address, item] : helper.bindings()) {
            QCOMPARE(int(address), end);
            end += item->size;
        }
        QCOMPARE(end, 120);
    }

    void errorByte()
    {
        const QStringList names{"process",    "instruction", "checksum", "range",
                                "dataLength", "dataLimit",   "access",   "alert"};
        for (const int error : {0, 1, 2, 3, 4, 5, 6, 7, 0x82}) { // an alert hides the number
            QWidget view;
            for (const QString &name : names)
                new StatusBox(name + "StatusCheckBox", &view);
            StatusHelper helper(&view);
            helper.update(qint8(error));
            for (int box = 0; box < names.size(); ++box)
                QCOMPARE(dynamic_cast<StatusBox *>(view.children()[box])->isOn, box + 1 == qMin(error, 8));
            qDeleteAll(view.children());
            helper.update(qint8(error)); // the boxes are gone
        }
    }
};

ZELVAR_TEST_MAIN(TestRegisterMap)

#include "tst_registermap.moc"
