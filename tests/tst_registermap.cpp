#include "device/devicehelper.h"
#include "device/dynamixelax12.h"
#include "device/ieditgroup.h"
#include "device/uiregisterhelper.h"
#include "device/zelvarv1.h"
#include "link/processwide.h"
#include "tests/support/testenvironment.h"

#include <QWidget>
#include <QtTest>

namespace {
class Group : public QWidget, public IEditGroup
{
public:
    bool isEditing() const override { return editing; }

    bool editing = false;
};

class Field : public QWidget, public IUnitDataField
{
public:
    explicit Field(const QString &name, QWidget *parent = nullptr) : QWidget(parent)
    {
        QWidget::setObjectName(name);
    }

    QString objectName() const override { return QWidget::objectName(); }
    void setLocked(bool) override {}
    qint32 fieldId() const override { return 22; }
    void setValue(int raw) override
    {
        values << raw;
        dependenciesAtValue = dependencies;
    }
    int value() const override { return values.isEmpty() ? 0 : values.last(); }
    void setObjectName(const QString &) override {}
    void applyDependency() override { ++dependencies; }

    QVector<int> values;
    int dependencies = 0;
    int dependenciesAtValue = 0;
};

void identifyOwnFamily()
{
    ProcessWide<DeviceHelper>::instance()->onModelNumberRead({});
}

void receive(const UiRegisterHelper &helper, quint8 address, quint32 raw)
{
    helper.bindings().at(address)->handler(qint32(raw));
}

} // namespace

class TestRegisterMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ProcessWide<DeviceHelper>::instance() = std::make_shared<DeviceHelper>(nullptr, [] {});
        identifyOwnFamily();
    }

    void cleanup() { ProcessWide<DeviceHelper>::instance() = nullptr; }

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
            QVERIFY(rows.at(bank).contains(counts.at(bank) - 1));
        }
        QCOMPARE(device.registerCount(4), 0u);
        QCOMPARE(DynamixelAx12().registerCount(0), 0u);
        QVERIFY(!DynamixelAx12().registerDescription(0));
        QCOMPARE(device.registerDescription(102)->description, QString("Angular velocity profile (upper)"));
        QCOMPARE(device.registerDescription(117)->description, QString("Debug 4 (upper)"));
    }

    void narrowing_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<QString>("field");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<int>("shown");

        QTest::newRow("16-bit signed") << 7 << "clockwiseLimitDoubleSpinBox" << 0x8001u << -32767;
        QTest::newRow("32-bit signed") << 86 << "actualPositionLineEdit" << 0xFFFFFFFFu << -1;
        QTest::newRow("hardware error") << 107 << "encoderStatusCheckBox" << 0xFFu << 8;
        QTest::newRow("velocity") << 82 << "targetAngularVelocityDoubleSpinBox" << 0x87D0u << 2000;
        QTest::newRow("clockwise") << 82 << "targetAngularVelocityDirectionComboBox" << 0x87D0u << 1;
        QTest::newRow("torque") << 84 << "targetTorqueDoubleSpinBox" << 0x7FFFu << 0x7FFF;
        QTest::newRow("counter-clockwise") << 84 << "targetTorqueDirectionComboBox" << 0x7FFFu << 0;
    }

    void narrowing()
    {
        QFETCH(int, address);
        QFETCH(QString, field);
        QFETCH(quint32, raw);
        QFETCH(int, shown);
        UiRegisterHelper helper;
        Group group;
        Field control(field, &group);
        helper.registerField(&control);

        receive(helper, quint8(address), raw);
        QCOMPARE(control.values, QVector<int>{shown});
        QCOMPARE(control.dependenciesAtValue, 1);
        group.editing = true;
        receive(helper, quint8(address), raw);
        QCOMPARE(control.values.size(), 1);
        QCOMPARE(control.dependencies, 2);
    }

    void everyPolledByteIsKept()
    {
        UiRegisterHelper helper;
        for (const auto &[address, item] : helper.bindings()) {
            quint32 raw = 0;
            for (unsigned offset = 0; offset < item->size; ++offset)
                raw += quint32(0x80 + address + offset) << (8 * offset);
            QVERIFY(!helper.lastByte(address));
            item->handler(qint32(raw));
        }
        for (int address = 0; address < 118; ++address)
            QCOMPARE(helper.lastByte(quint8(address)), std::optional<quint8>(0x80 + address));
        QVERIFY(!helper.lastByte(118));

        identifyOwnFamily(); // they belong to the servo before
        QVERIFY(!helper.lastByte(3));
        receive(helper, 4, 2);
        QVERIFY(!helper.lastByte(3) && helper.lastByte(4));
        helper.forgetValues();
        QVERIFY(!helper.lastByte(4));
    }
};

ZELVAR_TEST_MAIN(TestRegisterMap)

#include "tst_registermap.moc"
