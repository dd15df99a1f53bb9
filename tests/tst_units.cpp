#include "device/conversionhelper.h"
#include "device/rawscale.h"
#include "tests/support/testenvironment.h"

#include <limits>

namespace {
constexpr qint32 IntMin = std::numeric_limits<qint32>::min();
constexpr qint32 IntMax = std::numeric_limits<qint32>::max();

const FieldLimits Position = {-1044479, 1044479, -1602.2107193496022, 1602.2107193496022, nullptr};
const FieldLimits Gain = {0, 1000, 0.0, 1.0, nullptr};
const FieldLimits Shifted = {100, 300, 1.0, 5.0, nullptr};
const FieldLimits NoRange = {7, 7, 2.0, 2.0, nullptr};

} // namespace

class TestUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conversions()
    {
        // clang-format off
        const std::tuple<const char *, qint32, qint32, double, double> rows[] = {
            {"rpm, with the literal 2 pi", 0,  1, 1.0,            9.549296585516132},
            {"degrees",                    1,  1, 6.283185307178, 360.0            },
            {"A is what converts",         5,  0, 250.0,          0.25             },
            {"no id at all",               -1, 1, 3.5,            3.5              },
        };
        // clang-format on
        for (const auto &[name, fieldId, unitIndex, base, display] : rows) {
            const InRow row(name);
            // Exact: the literal differs from the full-precision 2π in the twelfth digit only.
            QVERIFY(ConversionHelper().toDisplay(base, fieldId, unitIndex) == display);
            QCOMPARE(ConversionHelper().fromDisplay(display, fieldId, unitIndex), base);
        }
    }

    void physicalToRaw()
    {
        // clang-format off
        const std::tuple<const char *, FieldLimits, double, qint32> rows[] = {
            {"truncated, not rounded",   Position, 0.0019,  1     },
            {"truncated toward zero",    Position, -0.0019, -1    },
            {"from rawMin",              Shifted,  3.0,     200   },
            {"beyond the range is kept", Gain,     2.0,     2000  },
            {"far above 32 bits",        Gain,     1e300,   IntMax},
            {"not a number",             Gain,     qQNaN(), 0     },
            {"no range",                 NoRange,  99.0,    7     },
        };
        // clang-format on
        for (const auto &[name, limits, physical, raw] : rows) {
            const InRow row(name);
            QCOMPARE(RawScale(limits).toRaw(physical), raw);
        }
    }

    void rawToPhysical()
    {
        // clang-format off
        const std::tuple<const char *, FieldLimits, qint32, double> rows[] = {
            {"one turn",                    Position,      4096,   6.283185307178},
            {"rawMin is physicalMin",       Shifted,       100,    1.0           },
            {"differences wrap at 32 bits", Shifted,       IntMin, 42949671.96   },
            {"no range",                    NoRange,       500,    2.0           },
            {"no record",                   FieldLimits(), 500,    0.0           },
        };
        // clang-format on
        for (const auto &[name, limits, raw, physical] : rows) {
            const InRow row(name);
            QCOMPARE(RawScale(limits).toPhysical(raw), physical);
        }
        QCOMPARE(RawScale::fromZero(Shifted).toPhysical(100), 3.0);
        QCOMPARE(RawScale::fromZero(Shifted).toRaw(3.0), 100);
    }
};

ZELVAR_TEST_MAIN(TestUnits)

#include "tst_units.moc"
