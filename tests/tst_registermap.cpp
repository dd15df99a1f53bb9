// What a servo is taken for, and its registers.

#include "device/devicehelper.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "tests/support/testenvironment.h"

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
};

ZELVAR_TEST_MAIN(TestRegisterMap)

#include "tst_registermap.moc"
