// What the tables say of the servos, held against the simulated ones, and how bytes become values.

#include "model/families.h"
#include "model/littleendian.h"
#include "model/rawscale.h"
#include "model/registerimage.h"
#include "model/units.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/ax12servo.h"
#include "simulator/zelvarservo.h"
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
    wire::Packet request;
    request.id = servo.id();
    request.instruction = wire::Write;
    const bool isSecond = servo.framing() == wire::Framing::Protocol2;
    request.parameters = isSecond ? wire::protocol2::writeParameters(field.address, data)
                                  : wire::protocol1::writeParameters(field.address, data);
    const QByteArray reply = servo.execute(request);
    if (reply.isEmpty())
        return true; // at the lowest return level a servo keeps silent
    if (isSecond) {
        wire::protocol2::Parser parser;
        parser.append(reply);
        return (parser.next()->error & ~wire::AlertBit) == wire::NoError;
    }
    wire::protocol1::Parser parser;
    parser.append(reply);
    return !(parser.next()->instruction & (wire::RangeErrorBit | wire::InstructionErrorBit));
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
        QCOMPARE(&model::familyOf(12), &model::DynamixelAx12Family);
        QCOMPARE(&model::familyOf(0x0102), &model::ZelvarV1Family);
    }

    void imageValues_data()
    {
        QTest::addColumn<bool>("isOwn");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("bytes"); // hexadecimal, as read
        QTest::addColumn<int>("raw");
        QTest::addColumn<double>("physical");
        const double turn = 6.283185307178;
        // clang-format off
        QTest::newRow("four bytes, signed")      << true  << QByteArray("target_position")  << QByteArray("00f0ffff") << -4096 << -turn;
        QTest::newRow("two bytes, signed")       << true  << QByteArray("clockwise_angle_limit") << QByteArray("01f8") << -2047 << -turn / 2;
        QTest::newRow("directed, clockwise")     << true  << QByteArray("target_torque")    << QByteArray("dc85")     << -1500 << -1.5;
        QTest::newRow("directed, the other way") << true  << QByteArray("target_torque")    << QByteArray("dc05")     << 1500  << 1.5;
        QTest::newRow("two bytes, unsigned")     << true  << QByteArray("acceleration_limit") << QByteArray("80bb")   << 48000 << 48.0;
        QTest::newRow("AX-12: the far end")      << false << QByteArray("goal_position")    << QByteArray("ff03")     << 1023  << turn * 150 / 360;
        QTest::newRow("AX-12: clockwise speed")  << false << QByteArray("present_speed")    << QByteArray("6404")     << -100  << -11.1 * turn / 60;
        QTest::newRow("AX-12: half the load")    << false << QByteArray("present_load")     << QByteArray("f401")     << 500   << 50.0;
        QTest::newRow("AX-12: voltage")          << false << QByteArray("present_voltage")  << QByteArray("78")       << 120   << 12.0;
        // clang-format on
    }

    void imageValues()
    {
        QFETCH(bool, isOwn);
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, bytes);
        QFETCH(int, raw);
        QFETCH(double, physical);
        const model::Family &family = isOwn ? model::ZelvarV1Family : model::DynamixelAx12Family;
        const Field &field = family[key.constData()];
        const QLatin1String name(field.key);
        model::RegisterImage image(&family);
        QVERIFY(!image.raw(name) && !image.physical(name));
        const model::RegisterImage::TimePoint when(std::chrono::seconds(7));
        image.take(field.address, QByteArray::fromHex(bytes), when);
        QCOMPARE(image.raw(name), std::optional<qint32>(raw));
        QVERIFY(qAbs(*image.physical(name) - physical) < 1e-9);
        QVERIFY(image.readAt(field.address) == when && image.lastRead() == when);
        QCOMPARE(model::rawAt(field, *image.physical(name) * (1 + 1e-12)), raw);
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

    void physicalToRaw()
    {
        // clang-format off
        const std::tuple<const char *, model::Range, double, qint32> rows[] = {
            {"truncated, not rounded",   Position, 0.0019,  1     },
            {"truncated toward zero",    Position, -0.0019, -1    },
            {"from rawMin",              Shifted,  3.0,     200   },
            {"beyond the range is kept", Gain,     2.0,     2000  },
            {"far above 32 bits",        Gain,     1e300,   IntMax},
            {"not a number",             Gain,     qQNaN(), 0     },
            {"no range",                 NoRange,  99.0,    7     },
        };
        // clang-format on
        for (const auto &[name, range, physical, raw] : rows) {
            const InRow row(name);
            QCOMPARE(model::RawScale(range).toRaw(physical), raw);
        }
    }

    void rawToPhysical()
    {
        // clang-format off
        const std::tuple<const char *, model::Range, qint32, double> rows[] = {
            {"one turn",                    Position,       4096,   6.283185307178},
            {"rawMin is physicalMin",       Shifted,        100,    1.0           },
            {"differences wrap at 32 bits", Shifted,        IntMin, 42949671.96   },
            {"no range",                    NoRange,        500,    2.0           },
            {"no record",                   model::Range(), 500,    0.0           },
        };
        // clang-format on
        for (const auto &[name, range, raw, physical] : rows) {
            const InRow row(name);
            QCOMPARE(model::RawScale(range).toPhysical(raw), physical);
        }
        QCOMPARE(model::RawScale::fromZero(Shifted).toPhysical(100), 3.0);
        QCOMPARE(model::RawScale::fromZero(Shifted).toRaw(3.0), 100);
    }
};

ZELVAR_TEST_MAIN(TestModel)

#include "tst_model.moc"
