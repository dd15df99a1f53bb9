#include "device/devicehelper.h"
#include "device/dynamixelax12.h"
#include "device/statushelper.h"
#include "device/zelvarv1.h"
#include "link/serialhelper.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

#include <QWidget>
#include <QtTest>

#include <stdexcept>

namespace {
class StatusBox : public QWidget, public IStatusIndicator
{
public:
    StatusBox(const QString &name, QWidget *parent) : QWidget(parent) { setObjectName(name); }
    void setStatus(bool on) override { isOn = on; }

    bool isOn = true;
};

QByteArray modelNumberReply(char low, char high)
{
    QByteArray reply(13, '\0');
    reply[5] = low;
    reply[6] = high;
    return reply;
}

} // namespace

class TestDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void identification_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<bool>("isOwnFamily");

        QTest::newRow("12, 0: AX-12") << modelNumberReply(12, 0) << false;
        QTest::newRow("12, 1") << modelNumberReply(12, 1) << true;
        QTest::newRow("upper byte with the top bit") << modelNumberReply(12, char(0x80)) << true;
        QTest::newRow("short: only the lower byte 12") << modelNumberReply(12, 0).left(6) << true;
    }

    void identification()
    {
        QFETCH(QByteArray, reply);
        QFETCH(bool, isOwnFamily);

        DeviceHelper helper(nullptr, [] {});
        helper.onModelNumberRead(reply);
        QCOMPARE(helper.device()->hasRegisterMap(), isOwnFamily);
        QCOMPARE(helper.device()->controlTableSize(), isOwnFamily ? 118u : 50u);
    }

    void identificationOverTheLink()
    {
        const auto port = std::make_shared<FakeSerialPort>();
        const auto link = std::make_shared<SerialHelper>(port);
        int loaded = 0;
        auto helper = std::make_unique<DeviceHelper>(link, [&] { ++loaded; });
        connect(helper.get(), &DeviceHelper::loadDeviceMetadata, this, [&] { QCOMPARE(loaded, 0); });
        helper->identify(3);
        QCOMPARE(port->calls.last().id, 3);
        QCOMPARE(port->calls.last().length, 2);
        port->deliver(modelNumberReply(6, 0));
        QVERIFY(helper->device());
        QCOMPARE(loaded, 1);
        helper->identify(3);
        helper.reset();
        port->deliver(modelNumberReply(6, 0)); // too late for anybody
        QCOMPARE(loaded, 1);
    }

    void limitsOfDefinedFields()
    {
        const ZelvarV1 device;
        QCOMPARE(device.limits("targetPositionDoubleSpinBox").rawMin, -1044479);
        QCOMPARE(device.limits("targetPositionDoubleSpinBox").physicalMax, 1602.2107193496022);
        QCOMPARE(device.limits("ackResponseTimeSpinBox").physicalMax, 508.0);
        QCOMPARE(DynamixelAx12().limits("positionLineEdit").rawMax, 2047);
        QVERIFY(device.definesField("idSpinBox") && !DynamixelAx12().definesField("idSpinBox"));
        QVERIFY(!device.definesField("baudRateComboBox"));
        try {
            device.limits("baudRateComboBox");
            QFAIL("the baud rate has no limits");
        } catch (const std::out_of_range &error) {
            QCOMPARE(error.what(), "invalid map<K, T> key");
        }
    }

    void errorByte_data()
    {
        QTest::addColumn<int>("errorByte");
        QTest::addColumn<QString>("box");
        const char *const boxes[] = {"",      "process",    "instruction", "checksum",
                                     "range", "dataLength", "dataLimit",   "access"};
        for (int error = 0; error < 8; ++error)
            QTest::addRow("%d", error) << error << boxes[error];
        QTest::newRow("alert hides the number") << 0x82 << "alert";
    }

    void errorByte()
    {
        QFETCH(int, errorByte);
        QFETCH(QString, box);
        auto view = std::make_unique<QWidget>();
        QWidget group(view.get());
        for (const char *name :
             {"process", "instruction", "checksum", "range", "dataLength", "dataLimit", "access", "alert"})
            new StatusBox(QLatin1String(name) + QLatin1String("StatusCheckBox"), &group);
        StatusHelper helper(view.get());
        helper.update(qint8(errorByte));
        const QString expected = box + "StatusCheckBox";
        for (const QObject *child : group.children())
            QCOMPARE(dynamic_cast<const StatusBox *>(child)->isOn, child->objectName() == expected);
        qDeleteAll(group.children());
        helper.update(qint8(errorByte)); // the view is gone
    }
};

ZELVAR_TEST_MAIN(TestDevices)

#include "tst_devices.moc"
