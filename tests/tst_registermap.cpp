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

void identifyAx12()
{
    ProcessWide<DeviceHelper>::instance()->onModelNumberRead(QByteArray::fromHex("00 00 00 00 00 0c 00"));
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
    }

    void descriptions_data()
    {
        QTest::addColumn<quint16>("address");
        QTest::addColumn<QString>("text");

        QTest::newRow("repeated 93") << quint16(93) << "Actual torque (lower)";
        QTest::newRow("repeated 101") << quint16(101) << "Angular velocity profile (lower)";
        QTest::newRow("repeated 102") << quint16(102) << "Angular velocity profile (upper)";
        QTest::newRow("last") << quint16(117) << "Debug 4 (upper)";
        for (int gap : {41, 47, 50, 53, 64, 67, 72, 77, 98, 100, 103, 106, 108, 111, 118, 256})
            QTest::addRow("gap %d", gap) << quint16(gap) << QString();
    }

    void descriptions()
    {
        QFETCH(quint16, address);
        const auto description = ZelvarV1().registerDescription(address);
        QTEST(description ? description->description : QString(), "text");
    }

    void walkMeetsAnItemEverywhere()
    {
        const UiRegisterHelper helper;
        int steps = 0;
        for (unsigned address = 0; address < 120; ++steps) {
            QVERIFY2(helper.bindings().count(quint8(address)), qPrintable(QString::number(address)));
            address += helper.bindings().at(quint8(address))->size;
        }
        QCOMPARE(steps, int(helper.bindings().size()));
    }

    void narrowing_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<QString>("field");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<int>("shown");

        QTest::newRow("16-bit signed") << 7 << "clockwiseLimitDoubleSpinBox" << 0x8001u << -32767;
        QTest::newRow("16-bit unsigned") << 14 << "quadratureCurrentLimitDoubleSpinBox" << 0x8001u << 0x8001;
        QTest::newRow("32-bit signed") << 86 << "actualPositionLineEdit" << 0xFFFFFFFFu << -1;
        QTest::newRow("8 bits of more") << 3 << "idSpinBox" << 0x1FFu << 255;
        QTest::newRow("wider than polled") << 2 << "firmwareVersionLineEdit" << 0x1FFu << 0x1FF;
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
        Field control(field);
        helper.registerField(&control);

        receive(helper, quint8(address), raw);
        QCOMPARE(control.values, QVector<int>{shown});
        QCOMPARE(control.dependenciesAtValue, 1);
    }

    void hardwareErrors_data()
    {
        QTest::addColumn<quint32>("status");
        QTest::addColumn<QVector<int>>("shown");

        QTest::newRow("none") << 0u << QVector<int>{0, 0, 0, 0, 0};
        QTest::newRow("all five") << 0x1Fu << QVector<int>{1, 2, 4, 8, 16};
        QTest::newRow("bits without a box") << 0xE0u << QVector<int>{0, 0, 0, 0, 0};
    }

    void hardwareErrors()
    {
        QFETCH(quint32, status);
        UiRegisterHelper helper;
        std::vector<std::unique_ptr<Field>> boxes;
        for (const char *name : {"inputVoltage", "hall", "overheating", "encoder", "angleLimit"}) {
            boxes.push_back(std::make_unique<Field>(QLatin1String(name) + QLatin1String("StatusCheckBox")));
            helper.registerField(boxes.back().get());
        }
        Field overload(QStringLiteral("overloadStatusCheckBox"));
        helper.registerField(&overload);

        receive(helper, 107, status);
        QVector<int> shown;
        for (const auto &box : boxes)
            shown += box->values;
        QTEST(shown, "shown");
        QVERIFY(overload.values.isEmpty());
    }

    void editedGroupKeepsItsEdits()
    {
        UiRegisterHelper helper;
        Group group;
        Field field(QStringLiteral("targetPositionDoubleSpinBox"), &group);
        helper.registerField(&field);

        group.editing = true;
        receive(helper, 78, 0x04030201);
        QVERIFY(field.values.isEmpty());
        QCOMPARE(field.dependencies, 1);
        for (quint8 offset = 0; offset < 4; ++offset)
            QCOMPARE(helper.lastByte(78 + offset), std::optional<quint8>(offset + 1));

        group.editing = false;
        receive(helper, 78, 5);
        QCOMPARE(field.values, QVector<int>{5});
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

        helper.forgetValues();
        QVERIFY(!helper.lastByte(0));
    }

    void bytesBelongToOneDevice()
    {
        UiRegisterHelper helper;
        receive(helper, 3, 1);
        identifyOwnFamily();
        QVERIFY(!helper.lastByte(3));
        receive(helper, 4, 2);
        QVERIFY(!helper.lastByte(3));
        QCOMPARE(helper.lastByte(4), std::optional<quint8>(2));
        ProcessWide<DeviceHelper>::instance() = nullptr;
        QVERIFY(!helper.lastByte(4));
    }

    void latestLivingFieldReceives()
    {
        UiRegisterHelper helper;
        const QString name = QStringLiteral("idSpinBox");
        auto first = std::make_unique<Field>(name);
        auto second = std::make_unique<Field>(name);
        helper.registerField(first.get());
        helper.registerField(second.get());

        receive(helper, 3, 1);
        QCOMPARE(second->values, QVector<int>{1});
        QVERIFY(first->values.isEmpty());
        second.reset();
        receive(helper, 3, 2);
        QCOMPARE(first->values, QVector<int>{2});
        first.reset();
        receive(helper, 3, 3);
    }

    void ax12ShowsOnlyWhatItHasInCommon()
    {
        identifyAx12();
        UiRegisterHelper helper;
        Field model(QStringLiteral("modelNumberLineEdit"));
        Field firmware(QStringLiteral("firmwareVersionLineEdit"));
        Field address7(QStringLiteral("clockwiseLimitDoubleSpinBox"));
        Field errors(QStringLiteral("hallStatusCheckBox"));
        for (Field *field : {&model, &firmware, &address7, &errors})
            helper.registerField(field);

        for (const auto &item : helper.bindings())
            item.second->handler(12);
        QCOMPARE(model.values, QVector<int>{12});
        QCOMPARE(firmware.values, QVector<int>{12});
        QVERIFY(address7.values.isEmpty() && errors.values.isEmpty());
        QCOMPARE(address7.dependencies, 0);
        QVERIFY(!helper.lastByte(0) && !helper.lastByte(7));
    }

    void nothingIsShownWithoutADevice()
    {
        UiRegisterHelper helper;
        Field field(QStringLiteral("idSpinBox"));
        helper.registerField(&field);
        ProcessWide<DeviceHelper>::instance() = std::make_shared<DeviceHelper>(nullptr, [] {});
        receive(helper, 3, 1);
        ProcessWide<DeviceHelper>::instance() = nullptr;
        receive(helper, 3, 1);
        QVERIFY(field.values.isEmpty());
        QVERIFY(!helper.lastByte(3));
    }
};

ZELVAR_TEST_MAIN(TestRegisterMap)

#include "tst_registermap.moc"
