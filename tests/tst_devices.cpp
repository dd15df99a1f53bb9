#include "device/devicehelper.h"
#include "device/dynamixelax12.h"
#include "device/fieldhelper.h"
#include "device/izelvarfield.h"
#include "device/statushelper.h"
#include "device/zelvarv1.h"
#include "link/serialhelper.h"
#include "serialport/zelvarserialportinterface.h"
#include "tests/support/testenvironment.h"

#include <QWidget>
#include <QtTest>

#include <stdexcept>

namespace {

/** A library without a port: keeps what it is asked and answers when told to. */
class FakeInterface : public ZelvarSerialPortInterface
{
public:
    FakeInterface() : ZelvarSerialPortInterface(nullptr, 2) {}

    void closeSerialPort() override { calls << "close"; }
    bool readData(unsigned char id, unsigned char address, unsigned char length,
                  std::function<void()> onData) override
    {
        calls << QStringLiteral("read %1 %2 %3").arg(id).arg(address).arg(length).toLatin1();
        m_onData = std::move(onData);
        return true;
    }
    bool reboot(unsigned char id, std::function<void()> onData) override
    {
        calls << "reboot " + QByteArray::number(id);
        return answerAtOnce(onData);
    }
    bool reset(unsigned char id, std::function<void()> onData) override
    {
        calls << "reset " + QByteArray::number(id);
        return answerAtOnce(onData);
    }
    QByteArray readPendingSerialData() override { return std::exchange(m_pending, QByteArray()); }
    void cleanUp() override {}

    void answer(const QByteArray &reply)
    {
        m_pending = reply;
        m_onData();
    }

    QList<QByteArray> calls;
    bool accepts = true;

private:
    bool answerAtOnce(const std::function<void()> &onData)
    {
        if (!accepts)
            return false;
        m_pending = QByteArray(6, '\0');
        onData();
        return true;
    }

    std::function<void()> m_onData;
    QByteArray m_pending;
};

class CountedDependency : public IFieldDependency
{
public:
    void applyDependency() override {}
};

class StatusBox : public QWidget, public IStatusIndicator
{
public:
    StatusBox(const QString &name, QWidget *parent) : QWidget(parent) { setObjectName(name); }
    void setStatus(bool on) override { isOn = on; }

    bool isOn = true;
};

class Field : public QWidget, public IZelvarField
{
public:
    Field(const QString &name, QWidget *parent) : QWidget(parent) { setObjectName(name); }
    QString objectName() const override { return QWidget::objectName(); }
    void setLocked(bool lock) override { setDisabled(lock); }
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
    void init()
    {
        m_interface = std::make_shared<FakeInterface>();
        m_loaded = 0;
        m_helper = std::make_unique<DeviceHelper>(std::make_shared<SerialHelper>(m_interface),
                                                  [this] { ++m_loaded; });
    }

    void identification_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<bool>("isOwnFamily");

        QTest::newRow("12, 0: AX-12") << modelNumberReply(12, 0) << false;
        QTest::newRow("12, 1") << modelNumberReply(12, 1) << true;
        QTest::newRow("13, 0") << modelNumberReply(13, 0) << true;
        QTest::newRow("upper byte with the top bit") << modelNumberReply(12, char(0x80)) << true;
        QTest::newRow("short: only the lower byte 12") << modelNumberReply(12, 0).left(6) << true;
        QTest::newRow("empty") << QByteArray() << true;
    }

    void identification()
    {
        QFETCH(QByteArray, reply);
        QFETCH(bool, isOwnFamily);

        m_helper->onModelNumberRead(reply);
        QCOMPARE(m_helper->device()->hasRegisterMap(), isOwnFamily);
        QCOMPARE(m_helper->device()->controlTableSize(), isOwnFamily ? 118u : 50u);
        QCOMPARE(m_loaded, 1);
    }

    void identificationOverTheLink()
    {
        QVERIFY(!m_helper->device());
        m_helper->identify(3);
        QCOMPARE(m_interface->calls, QList<QByteArray>{"read 3 0 2"});

        int loadedBeforeSignal = -1;
        connect(m_helper.get(), &DeviceHelper::loadDeviceMetadata, this, [&] {
            QVERIFY(m_helper->device());
            loadedBeforeSignal = m_loaded;
        });
        m_interface->answer(modelNumberReply(6, 0));
        QCOMPARE(loadedBeforeSignal, 0);
        QCOMPARE(m_loaded, 1);
    }

    void replyAfterTheHelperIsGone()
    {
        m_helper = nullptr;
        const auto link = std::make_shared<SerialHelper>(m_interface);
        std::make_unique<DeviceHelper>(link, [this] { ++m_loaded; })->identify(0);
        m_interface->answer(modelNumberReply(6, 0));
        QCOMPARE(m_loaded, 0);
    }

    void rebootAndResetCloseThePort()
    {
        QByteArray reply;
        const auto callback = [&](const QByteArray &bytes) { reply = bytes; };
        QVERIFY(m_helper->reboot(7, callback));
        QCOMPARE(reply.size(), 6);
        m_interface->accepts = false;
        QVERIFY(!m_helper->factoryReset(8, callback));
        QCOMPARE(m_interface->calls, (QList<QByteArray>{"reboot 7", "close", "reset 8", "close"}));
    }

    void limits_data()
    {
        QTest::addColumn<bool>("isOwnFamily");
        QTest::addColumn<qint32>("rawMin");
        QTest::addColumn<qint32>("rawMax");
        QTest::addColumn<double>("physicalMin");
        QTest::addColumn<double>("physicalMax");

        QTest::newRow("targetPositionDoubleSpinBox")
            << true << -1044479 << 1044479 << -1602.2107193496022 << 1602.2107193496022;
        QTest::newRow("clockwiseLimitDoubleSpinBox")
            << true << -2047 << 2047 << -3.141592653589 << 3.141592653589;
        QTest::newRow("ackResponseTimeSpinBox") << true << 0 << 254 << 0.0 << 508.0;
        QTest::newRow("targetTorqueDirectionComboBox") << true << 0 << 0 << 0.0 << 0.0;
        QTest::newRow("positionLineEdit") << false << 0 << 2047 << -3.141592653589 << 3.141592653589;
        QTest::newRow("positionderivativeTermDoubleSpinBox") << false << 0 << 10 << 0.0 << 10.0;
    }

    void limits()
    {
        QFETCH(bool, isOwnFamily);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        const FieldLimits limits = isOwnFamily ? ZelvarV1().limits(name) : DynamixelAx12().limits(name);
        QTEST(limits.rawMin, "rawMin");
        QTEST(limits.rawMax, "rawMax");
        QTEST(limits.physicalMin, "physicalMin");
        QTEST(limits.physicalMax, "physicalMax");
        QVERIFY(!limits.controller);
    }

    void undefinedField()
    {
        const ZelvarV1 device;
        QVERIFY(device.definesField(QStringLiteral("idSpinBox")));
        QVERIFY(!device.definesField(QStringLiteral("baudRateComboBox")));
        QVERIFY(!DynamixelAx12().definesField(QStringLiteral("idSpinBox")));
        try {
            device.limits(QStringLiteral("baudRateComboBox"));
            QFAIL("the baud rate has no limits");
        } catch (const std::out_of_range &error) {
            QCOMPARE(error.what(), "invalid map<K, T> key");
        }
    }

    void modeDependencies()
    {
        const ModeDependencies made = {std::make_shared<CountedDependency>(),
                                       std::make_shared<CountedDependency>()};
        DeviceHelper helper(nullptr, [] {}, [&] { return made; });
        helper.onModelNumberRead({});
        const std::shared_ptr<IDevice> device = helper.device();
        QCOMPARE(device->limits(QStringLiteral("operatingModeComboBox")).controller, made.operatingMode);
        QCOMPARE(device->limits(QStringLiteral("inputModeComboBox")).controller, made.inputMode);
        QVERIFY(!device->limits(QStringLiteral("targetTorqueDirectionComboBox")).controller);
    }

    void errorByte_data()
    {
        QTest::addColumn<int>("errorByte");
        QTest::addColumn<QString>("box");

        QTest::newRow("none") << 0 << QString();
        QTest::newRow("process") << 1 << "processStatusCheckBox";
        QTest::newRow("instruction") << 2 << "instructionStatusCheckBox";
        QTest::newRow("checksum") << 3 << "checksumStatusCheckBox";
        QTest::newRow("range") << 4 << "rangeStatusCheckBox";
        QTest::newRow("length") << 5 << "dataLengthStatusCheckBox";
        QTest::newRow("limit") << 6 << "dataLimitStatusCheckBox";
        QTest::newRow("access") << 7 << "accessStatusCheckBox";
        QTest::newRow("alert") << 0x80 << "alertStatusCheckBox";
        QTest::newRow("alert hides the number") << 0x82 << "alertStatusCheckBox";
    }

    void errorByte()
    {
        QFETCH(int, errorByte);
        QFETCH(QString, box);
        QWidget view;
        QWidget group(&view);
        for (const char *name : {"process", "instruction", "checksum", "range", "dataLength", "dataLimit",
                                 "access", "alert"})
            new StatusBox(QLatin1String(name) + QLatin1String("StatusCheckBox"), &group);
        StatusHelper helper(&view);

        helper.update(qint8(errorByte));
        for (const QObject *child : group.children())
            QCOMPARE(dynamic_cast<const StatusBox *>(child)->isOn, child->objectName() == box);
    }

    void statusWithoutItsView()
    {
        StatusHelper().update(1);
        auto view = std::make_unique<QWidget>();
        new StatusBox(QStringLiteral("alertStatusCheckBox"), view.get());
        StatusHelper helper(view.get());
        helper.update(-1);
        view.reset();
        helper.update(-1);
    }

    void fieldsOfAView()
    {
        auto view = std::make_unique<QWidget>();
        auto *scrollArea = new QWidget(view.get());
        auto *group = new Field(QStringLiteral("group"), scrollArea);
        auto *field = new Field(QStringLiteral("idLabel"), group);
        auto *dying = new Field(QStringLiteral("torqueLabel"), group);
        new QWidget(group);
        const FieldHelper helper(view->children());

        QCOMPARE(helper.field(QStringLiteral("idLabel")), static_cast<IZelvarField *>(field));
        QVERIFY(helper.field(QStringLiteral("group")));
        QVERIFY(!helper.field(QStringLiteral("voltageLabel")));
        delete dying;
        QVERIFY(!helper.field(QStringLiteral("torqueLabel")));
        view.reset();
        QVERIFY(!helper.field(QStringLiteral("idLabel")));
    }

private:
    std::shared_ptr<FakeInterface> m_interface;
    std::unique_ptr<DeviceHelper> m_helper;
    int m_loaded = 0;
};

ZELVAR_TEST_MAIN(TestDevices)

#include "tst_devices.moc"
