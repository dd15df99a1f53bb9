#include "device/conversionhelper.h"
#include "device/fieldhelper.h"
#include "device/rawscale.h"
#include "device/unitshelper.h"
#include "tests/support/testenvironment.h"

#include <QtTest>

#include <limits>
#include <stdexcept>

namespace {
/** Every quantity has the unit @p index. */
UnitsHelper unitsWith(qint32 index)
{
    return UnitsHelper(std::make_shared<PhysicalQuantities>(
        PhysicalQuantities{index, index, index, index, index, index, index, index, index}));
}

constexpr qint32 IntMin = std::numeric_limits<qint32>::min();
constexpr qint32 IntMax = std::numeric_limits<qint32>::max();

const FieldLimits Position = {-1044479, 1044479, -1602.2107193496022, 1602.2107193496022, nullptr};
const FieldLimits Gain = {0, 1000, 0.0, 1.0, nullptr};
const FieldLimits Shifted = {100, 300, 1.0, 5.0, nullptr};
const FieldLimits NoRange = {7, 7, 2.0, 2.0, nullptr};

} // namespace

Q_DECLARE_METATYPE(FieldLimits)

class TestUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conversions_data()
    {
        QTest::addColumn<qint32>("fieldId");
        QTest::addColumn<qint32>("unitIndex");
        QTest::addColumn<double>("base");
        QTest::addColumn<double>("display");

        QTest::newRow("rpm, with the literal 2 pi") << 0 << 1 << 1.0 << 9.549296585516132;
        QTest::newRow("degrees") << 1 << 1 << 6.283185307178 << 360.0;
        QTest::newRow("kg-cm") << 3 << 1 << 2.0 << 20.39432;
        QTest::newRow("A is the unit that converts") << 5 << 0 << 250.0 << 0.25;
        QTest::newRow("deg F") << 6 << 1 << 100.0 << 212.0;
        QTest::newRow("no id at all") << -1 << 1 << 3.5 << 3.5;
    }

    void conversions()
    {
        QFETCH(qint32, fieldId);
        QFETCH(qint32, unitIndex);
        QFETCH(double, base);
        QFETCH(double, display);

        // Exact: the literal differs from the full-precision 2π in the twelfth digit only.
        QVERIFY(ConversionHelper().toDisplay(base, fieldId, unitIndex) == display);
        QCOMPARE(ConversionHelper().fromDisplay(display, fieldId, unitIndex), base);
    }

    void unitTable_data()
    {
        QTest::addColumn<qint32>("fieldId");
        QTest::addColumn<qint32>("index");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("step");

        QTest::newRow("degrees have no step") << 1 << 1 << "degrees" << 2 << 0.0;
        QTest::newRow("deg F") << 6 << 1 << QStringLiteral("\u00b0F") << 1 << 1.0;
        QTest::newRow("index out of the table") << 0 << 7 << "rad/s" << 2 << 0.1;
    }

    void unitTable()
    {
        QFETCH(qint32, fieldId);
        QFETCH(qint32, index);
        const UnitsHelper units = unitsWith(index);

        QTEST(units.unitName(fieldId), "name");
        QTEST(units.decimals(fieldId), "decimals");
        QTEST(units.singleStep(fieldId), "step");
    }

    void physicalToRaw_data()
    {
        QTest::addColumn<FieldLimits>("limits");
        QTest::addColumn<double>("physical");
        QTest::addColumn<qint32>("raw");

        QTest::newRow("truncated, not rounded") << Position << 0.0019 << 1;
        QTest::newRow("truncated toward zero") << Position << -0.0019 << -1;
        QTest::newRow("from rawMin") << Shifted << 3.0 << 200;
        QTest::newRow("beyond the range is kept") << Gain << 2.0 << 2000;
        QTest::newRow("far above 32 bits") << Gain << 1e300 << IntMax;
        QTest::newRow("not a number") << Gain << std::numeric_limits<double>::quiet_NaN() << 0;
        QTest::newRow("no range") << NoRange << 99.0 << 7;
    }

    void physicalToRaw()
    {
        QFETCH(FieldLimits, limits);
        QFETCH(double, physical);
        QTEST(RawScale(limits).toRaw(physical), "raw");
    }

    void rawToPhysical_data()
    {
        QTest::addColumn<FieldLimits>("limits");
        QTest::addColumn<qint32>("raw");
        QTest::addColumn<double>("physical");

        QTest::newRow("one count") << Position << 4096 << 6.283185307178;
        QTest::newRow("rawMin is physicalMin") << Shifted << 100 << 1.0;
        QTest::newRow("differences wrap at 32 bits") << Shifted << IntMin << 42949671.96;
        QTest::newRow("no range") << NoRange << 500 << 2.0;
        QTest::newRow("no record") << FieldLimits() << 500 << 0.0;
    }

    void rawToPhysical()
    {
        QFETCH(FieldLimits, limits);
        QFETCH(qint32, raw);
        QTEST(RawScale(limits).toPhysical(raw), "physical");
    }

    void fieldIds()
    {
        QCOMPARE(FieldHelper::fieldIdOf(QStringLiteral("quadratureCurrentLimitDoubleSpinBox")), 3);
        QCOMPARE(FieldHelper::fieldIdOf(QStringLiteral("quadratureCurrentLimitLabel")), 5);
        QCOMPARE(FieldHelper::fieldIdOf(QStringLiteral("velocityIntegralTermDoubleSpinBox")), 14);
        QCOMPARE(FieldHelper::fieldIdOf(QStringLiteral("idLabel")), 23);
        QVERIFY_EXCEPTION_THROWN(FieldHelper::fieldIdOf(QStringLiteral("label")), std::out_of_range);
    }
};

ZELVAR_TEST_MAIN(TestUnits)

#include "tst_units.moc"
