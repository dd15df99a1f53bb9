// What the tables say of the servos, held against the simulated ones, and how bytes become values.

#include "model/families.h"
#include "model/littleendian.h"
#include "model/rawscale.h"
#include "model/registerimage.h"
#include "model/units.h"
#include "simulator/ax12servo.h"
#include "simulator/zelvarservo.h"
#include "tests/support/simulatedanswer.h"
#include "tests/support/testenvironment.h"

#include <limits>

using model::Field;
using model::FieldKind;

namespace {

constexpr qint32 IntMin = std::numeric_limits<qint32>::min();
constexpr qint32 IntMax = std::numeric_limits<qint32>::max();

const model::Range Position = {-1044479, 1044479, -1602.2107193496022, 1602.2107193496022};
const model::Range Gain = {0, 1000, 0.0, 1.0};
const model::Range Shifted = {100, 300, 1.0, 5.0};
const model::Range NoRange = {7, 7, 2.0, 2.0};

/** @return whether @p servo has taken @p bits for @p field. */
bool write(simulator::ISimulatedServo &servo, const Field &field, quint32 bits)
{
    QByteArray data(field.size, '\0');
    model::putLittleEndian(bits, field.size, reinterpret_cast<quint8 *>(data.data()));
    const wire::Packet answer = answerToWrite(servo, field.address, data);
    if (answer.framing == wire::Framing::Protocol1) // its instruction holds the error bits
        return !(answer.instruction & (wire::RangeErrorBit | wire::InstructionErrorBit));
    return (answer.error & ~wire::AlertBit) == wire::NoError; // also of none: a servo may be set to keep silent
}

/** Whether @p raw fits into the bytes of @p field, beside the direction bit. */
bool fits(const Field &field, qint32 raw)
{
    const int bits = field.isDirected() ? field.encoding.directionBit : 8 * field.size;
    const bool isSigned = field.encoding.form == model::Encoding::Form::Signed;
    const qint64 end = qint64(1) << (isSigned ? bits - 1 : bits);
    return raw < end && raw >= (isSigned ? -end : 0);
}

/** The values that @p field just takes, and those just beyond. */
template <class Servo>
void checkField(const Field &field)
{
    Servo servo(3, 1);
    const auto takes = [&](qint32 raw) {
        const bool isTaken = write(servo, field, model::bitsOf(field, raw));
        return isTaken && model::rawValue(field, quint32(servo.registerValue(field.address))) == raw;
    };
    const model::Range &range = field.range;
    QVERIFY(!fits(field, range.rawMax + 1) || !takes(range.rawMax + 1));
    QVERIFY(!fits(field, range.rawMin - 1) || !takes(range.rawMin - 1));
    if (field.isDirected() && field.isWritable())
        QVERIFY(takes(-range.rawMax));
    QCOMPARE(takes(range.rawMin), field.isWritable());
    QCOMPARE(takes(range.rawMax), field.isWritable()); // last: some locks cannot be opened again
}

} // namespace

class TestModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAgreeWithTheSimulatedServos()
    {
        for (const Field &field : model::ZelvarV1Family.fields) {
            const InRow row(field.key);
            checkField<simulator::ZelvarServo>(field);
        }
        simulator::ZelvarServo own(3, 1);
        QVERIFY(write(own, model::ZelvarV1Family["control_enable"], 1));
        for (const Field &field : model::ZelvarV1Family.fields) {
            const InRow row(QString("%1, motor on").arg(field.key));
            const auto bits = model::bitsOf(field, own.registerValue(field.address));
            QCOMPARE(write(own, field, bits), field.access == model::Access::Volatile);
        }
        for (const Field &field : model::DynamixelAx12Family.fields) {
            const InRow row(QString("%1 of the AX-12").arg(field.key));
            checkField<simulator::Ax12Servo>(field);
        }
        QCOMPARE(model::DynamixelAx12Family.fields.size(), std::size_t(32));
    }

    void keysAreAlone()
    {
        for (const model::Family *family : {&model::ZelvarV1Family, &model::DynamixelAx12Family}) {
            for (const Field &field : family->fields) {
                QCOMPARE(family->field(QLatin1String(field.key)), &field);
                QVERIFY(QRegularExpression("^[a-z0-9_]+$").match(field.key).hasMatch());
            }
            QVERIFY(!family->field(QLatin1String("no_such_field")));
            QVERIFY(!family->fieldAt(family->tableSize));
        }
    }

    void imageValues()
    {
        constexpr int OfZelvar = 0x0102; // model numbers
        constexpr int OfAx12 = 12;
        constexpr double Turn = 6.283185307178;
        // clang-format off
        const std::tuple<const char *, quint16, const char *, const char *, qint32, double> rows[] = {
            {"four bytes, signed",      OfZelvar, "target_position",       "00f0ffff", -4096, -Turn            },
            {"two bytes, signed",       OfZelvar, "clockwise_angle_limit", "01f8",     -2047, -Turn / 2        },
            {"directed, clockwise",     OfZelvar, "target_torque",         "dc85",     -1500, -1.5             },
            {"directed, the other way", OfZelvar, "target_torque",         "dc05",     1500,  1.5              },
            {"two bytes, unsigned",     OfZelvar, "acceleration_limit",    "80bb",     48000, 48.0             },
            {"AX-12: the far end",      OfAx12,   "goal_position",         "ff03",     1023,  Turn * 150 / 360 },
            {"AX-12: clockwise speed",  OfAx12,   "present_speed",         "6404",     -100,  -11.1 * Turn / 60},
            {"AX-12: half the load",    OfAx12,   "present_load",          "f401",     500,   50.0             },
            {"AX-12: voltage",          OfAx12,   "present_voltage",       "78",       120,   12.0             },
        };
        // clang-format on
        for (const auto &[name, modelNumber, key, bytes, raw, physical] : rows) {
            const InRow row(name);
            const model::Family &family = model::familyOf(modelNumber);
            const Field &field = family[key];
            const QLatin1String fieldName(key);
            model::RegisterImage image(&family);
            QVERIFY(!image.raw(fieldName) && !image.physical(fieldName));
            const model::RegisterImage::TimePoint when(std::chrono::seconds(7));
            image.take(field.address, QByteArray::fromHex(bytes), when);
            QCOMPARE(image.raw(fieldName), std::optional<qint32>(raw));
            QVERIFY(qAbs(*image.physical(fieldName) - physical) < 1e-9);
            QVERIFY(image.readAt(field.address) == when && image.lastRead() == when);
            QCOMPARE(model::rawAt(field, *image.physical(fieldName) * (1 + 1e-12)), raw);
        }
    }

    void imageKnowsOnlyWhatWasRead()
    {
        model::RegisterImage image(&model::DynamixelAx12Family);
        const QByteArray table(118, '\x55');
        image.take(48, table.left(1), {});
        QVERIFY(image.byte(48) && !image.byte(49) && !image.raw(QLatin1String("punch")));
        image.assumeWritten(48, "\x01\x02");
        QCOMPARE(image.byte(48), std::optional<quint8>(1));
        QVERIFY(!image.byte(49));
        image.take(0, table, {}); // past the end of the table
        QVERIFY(image.byte(49) && !image.byte(50) && !image.byte(-1) && !image.byte(1000));
    }

    void conversions()
    {
        // clang-format off
        const std::tuple<const char *, FieldKind, int, double, double> rows[] = {
            {"rpm, with the literal 2 pi", FieldKind::AngularVelocity, 1, 1.0,            9.549296585516132},
            {"degrees",                    FieldKind::Angle,           1, 6.283185307178, 360.0            },
            {"A is what converts",         FieldKind::Current,         0, 250.0,          0.25             },
            {"no kind at all",             FieldKind(-1),              1, 3.5,            3.5              },
        };
        // clang-format on
        for (const auto &[name, kind, index, base, display] : rows) {
            const InRow row(name);
            // Exact: the literal differs from the full-precision 2π in the twelfth digit only.
            QVERIFY(model::unit(kind, index).fromBase(base) == display);
            QCOMPARE(model::unit(kind, index).toBase(display), base);
        }
    }

    void scalesGoBothWays()
    {
        enum Way { ToRaw, ToPhysical, Both };
        // clang-format off
        const std::tuple<const char *, model::Range, Way, double, qint32> rows[] = {
            {"one turn",                    Position,       ToPhysical, 6.283185307178, 4096  },
            {"truncated, not rounded",      Position,       ToRaw,      0.0019,         1     },
            {"truncated toward zero",       Position,       ToRaw,      -0.0019,        -1    },
            {"rawMin is physicalMin",       Shifted,        Both,       1.0,            100   },
            {"from rawMin",                 Shifted,        Both,       3.0,            200   },
            {"beyond the range is kept",    Gain,           Both,       2.0,            2000  },
            {"far above 32 bits",           Gain,           ToRaw,      1e300,          IntMax},
            {"not a number",                Gain,           ToRaw,      qQNaN(),        0     },
            {"differences wrap at 32 bits", Shifted,        ToPhysical, 42949671.96,    IntMin},
            {"no range",                    NoRange,        ToRaw,      99.0,           7     },
            {"no range",                    NoRange,        ToPhysical, 2.0,            500   },
            {"no record",                   model::Range(), ToPhysical, 0.0,            500   },
        };
        // clang-format on
        for (const auto &[name, range, way, physical, raw] : rows) {
            const InRow row(name);
            const model::RawScale scale(range);
            QVERIFY(way == ToPhysical || scale.toRaw(physical) == raw);
            if (way != ToRaw)
                QCOMPARE(scale.toPhysical(raw), physical);
        }
        QCOMPARE(model::RawScale::fromZero(Shifted).toPhysical(100), 3.0);
        QCOMPARE(model::RawScale::fromZero(Shifted).toRaw(3.0), 100);
    }
};

ZELVAR_TEST_MAIN(TestModel)

#include "tst_model.moc"
