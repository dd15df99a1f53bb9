// Parameter files: what is written is read again, what is damaged is not taken, and restoring ends in what a file says.

#include "model/baudrates.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "profile/profilefile.h"
#include "profile/restoration.h"
#include "simulator/ax12servo.h"
#include "simulator/zelvarservo.h"
#include "tests/support/fakeline.h"
#include "tests/support/testenvironment.h"

#include <memory>

using namespace profile;

namespace {

constexpr const char *ItsLimit = "acceleration_limit";
constexpr const char *Limited = "default_acceleration_profile";
const QDateTime Noon({2026, 11, 22}, {12, 0}, Qt::UTC);

/** A simulated servo that is written to and looked into without a line. */
class Bench
{
public:
    explicit Bench(const model::Family &family) : m_family(family)
    {
        if (&family == &model::DynamixelAx12Family)
            m_servo = std::make_unique<simulator::Ax12Servo>(quint8(3), quint8(1));
        else
            m_servo = std::make_unique<simulator::ZelvarServo>(quint8(3), quint8(1));
    }

    void write(int address, const QByteArray &bytes)
    {
        wire::Packet request;
        request.id = m_servo->id();
        request.instruction = wire::Write;
        request.parameters = m_servo->framing() == wire::Framing::Protocol2
                                 ? wire::protocol2::writeParameters(quint16(address), bytes)
                                 : wire::protocol1::writeParameters(quint8(address), bytes);
        m_servo->execute(request);
    }
    void write(const Block &block) { write(block.address(), block.bytes()); }

    /** Gives every parameter some value, the own family's operating mode @p mode. */
    void fill(QRandomGenerator &random, qint32 mode)
    {
        std::vector<Pair> pairs;
        for (const model::Field *field : nonVolatileFields(m_family)) {
            qint32 raw = random.bounded(field->range.rawMin, field->range.rawMax + 1);
            if (field->kind == model::FieldKind::OperatingMode)
                raw = mode;
            if (qstrcmp(field->key, Limited) == 0)
                raw = std::min(raw, valueOf(ItsLimit));
            if (qstrcmp(field->key, "status_return_level") == 0)
                raw = std::max(raw, 1); // else it could not be read
            write(Block{{{field, 0, raw}}});
        }
    }
    qint32 valueOf(const char *key) const { return m_servo->registerValue(m_family[key].address); }

    Profile parameters() const
    {
        QByteArray bytes(m_family.tableSize, '\0');
        for (const model::Field &field : m_family.fields)
            model::putLittleEndian(quint32(m_servo->registerValue(field.address)), field.size,
                                   reinterpret_cast<quint8 *>(bytes.data()) + field.address);
        model::RegisterImage image(&m_family);
        image.take(0, bytes, {});
        return Profile::of(image, Noon);
    }

    model::ServoAddress address() const { return {m_servo->id(), model::nominalBaudRate(m_servo->baudCode())}; }
    /** What it says to @p packet, which comes at @p baudRate. */
    QByteArray answerTo(const wire::Packet &packet, int baudRate)
    {
        const bool isHeard = packet.framing == m_servo->framing() && packet.id == m_servo->id();
        return isHeard && baudRate == address().baudRate ? m_servo->execute(packet) : QByteArray();
    }

private:
    const model::Family &m_family;
    std::unique_ptr<simulator::RegisterServo> m_servo;
};

/** A servo at the end of a line, and the restores that are tried on it. */
class Line
{
public:
    explicit Line(Bench &servo)
        : m_servo(servo),
          m_line(new FakeLine(m_clock, [this](const wire::Packet &packet) { return answerTo(packet); })),
          m_bus(std::unique_ptr<BusLine>(m_line), m_clock)
    {
    }

    int repliesLeft = 1000;             ///< before the line is dead
    int requestsLeft = -1;              ///< before the user stops the restore, while the last one is answered
    QRandomGenerator *faults = nullptr; ///< spoils half of the exchanges

    RestoreReport restore(const Profile &file, const std::optional<Profile> &seen = std::nullopt)
    {
        const auto open = [this](int baudRate) { return m_bus.open("line", m_baudRate = baudRate); };
        Restoration restoration(m_bus, open, std::chrono::milliseconds(0), m_clock);
        m_running = &restoration;
        restoration.begin(m_servo.address(), {file, nonVolatileFields(file.family()), false, seen});
        while (!restoration.isEnded()) {
            while (m_line->deliver()) {
            }
            QCoreApplication::processEvents();
            if (!restoration.isEnded())
                m_clock.turnToNextAlarm();
        }
        return restoration.report();
    }

private:
    QByteArray answerTo(const wire::Packet &packet)
    {
        const int fault = faults ? faults->bounded(8) : -1;
        if (fault == 0 || repliesLeft == 0)
            return {}; // it never came to the servo
        if (--requestsLeft == 0)
            m_running->stop();
        QByteArray answer = m_servo.answerTo(packet, m_baudRate);
        repliesLeft -= answer.isEmpty() ? 0 : 1;
        if (fault == 1)
            return {};
        if (fault == 2 && !answer.isEmpty())
            answer[faults->bounded(answer.size())] = char(faults->bounded(256));
        return fault == 3 ? answer.left(answer.size() / 2) : answer;
    }

    Bench &m_servo;
    TurnedClock m_clock;
    FakeLine *m_line; ///< the bus's
    ServoBus m_bus;
    int m_baudRate = 0;
    Restoration *m_running = nullptr; ///< meaningful during restore()
};

Comparison compareAll(const Profile &servo, const Profile &file)
{
    return compare(servo, file, nonVolatileFields(file.family()));
}

Profile factoryValues(const model::Family &family = model::ZelvarV1Family)
{
    return Bench(family).parameters();
}

/** The file of a servo as it comes, with @p before, which is there once, replaced. */
QByteArray edited(const char *before, const char *after, const model::Family &family)
{
    const QByteArray text = encoded(factoryValues(family));
    return text.count(before) == 1 ? QByteArray(text).replace(before, after) : QByteArray();
}

} // namespace

class TestProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** Whatever the servos hold, wherever a restore ends and whatever the line does: it ends in what the file says. */
    void whateverIsInterruptedIsFinishedByASecondRun_data()
    {
        QTest::addColumn<bool>("isAx12");
        QTest::addColumn<int>("mode");
        QTest::newRow("AX-12") << true << 0;
        for (int mode = 0; mode <= 4; ++mode)
            QTest::addRow("mode %d", mode) << false << mode;
    }
    void whateverIsInterruptedIsFinishedByASecondRun()
    {
        QFETCH(bool, isAx12);
        QFETCH(int, mode);
        const model::Family &family = isAx12 ? model::DynamixelAx12Family : model::ZelvarV1Family;
        QRandomGenerator random(quint32(mode) + 1);
        for (int round = 0; round < 10; ++round) {
            Bench saved(family);
            saved.fill(random, mode);
            const Reading reading = decoded(encoded(saved.parameters()));
            QVERIFY2(reading.profile && reading.edits.isEmpty(), qPrintable(reading.error));
            const Profile file = *reading.profile;
            QCOMPARE(int(compareAll(saved.parameters(), file).differences().size()), 0);
            QCOMPARE(file.bytes, saved.parameters().bytes);

            const QRandomGenerator contents = random;
            const auto other = [&] {
                Bench servo(family);
                QRandomGenerator same = contents;
                servo.fill(same, random.bounded(5));
                return servo;
            };
            bool isCut = true;
            for (int replies = 0; isCut; ++replies) {
                Bench servo = other();
                const Profile before = servo.parameters();
                Line line(servo);
                line.repliesLeft = replies;
                isCut = !line.restore(file, before).isRestored();
                for (const Pair &pair : compareAll(servo.parameters(), file).pairs)
                    QVERIFY(pair.isEqual() || (isCut && pair.servo == before.raw(*pair.field)));
                QVERIFY(Line(servo).restore(file, before).isRestored());
                QVERIFY(isAx12 || servo.valueOf(Limited) <= servo.valueOf(ItsLimit));
                QCOMPARE(servo.parameters().bytes, file.bytes);
            }
            Bench servo = other();
            Line faulty(servo);
            faulty.faults = &random;
            constexpr int Enough = 9; // of runs that each may be cut off by the faults
            int runs = 1;
            while (!faulty.restore(file).isRestored() && runs < Enough)
                ++runs;
            QCOMPARE(servo.parameters().bytes, file.bytes);
            random.discard(50);
        }
    }

    void whereverAStopComesTheServoIsFoundAgain()
    {
        Bench saved(model::ZelvarV1Family);
        QRandomGenerator random(18);
        saved.fill(random, 1);
        const Profile file = saved.parameters();
        QVERIFY(!(saved.address() == Bench(model::ZelvarV1Family).address()));
        bool isStopped = true;
        for (int requests = 1; isStopped; ++requests) {
            Bench servo(model::ZelvarV1Family);
            Line line(servo);
            line.requestsLeft = requests;
            const RestoreReport report = line.restore(file);
            isStopped = report.obstacle == Obstacle::Stopped;
            QVERIFY(report.address == servo.address());
            QVERIFY(isStopped || report.isRestored());
        }
    }

    void aServoThatWasNotSeenIsLeftAlone()
    {
        Bench saved(model::ZelvarV1Family);
        saved.write(Block{{{&model::ZelvarV1Family[ItsLimit], 0, 5000}}});
        Bench another(model::ZelvarV1Family);
        another.write(Block{{{&model::ZelvarV1Family[ItsLimit], 0, 7000}}});
        const RestoreReport report = Line(another).restore(saved.parameters(), factoryValues());
        QVERIFY(report.obstacle == Obstacle::OtherValues && !report.hasWritten);
        QCOMPARE(another.valueOf(ItsLimit), 7000);
    }

    void addressAndAnswersComeLast()
    {
        Profile file = factoryValues(model::DynamixelAx12Family);
        for (Value &value : file.values)
            ++value.raw;
        const std::vector<Block> plan = restorePlan(compareAll(factoryValues(model::DynamixelAx12Family), file));
        QCOMPARE(plan.back().bytes(), QByteArray("\x04\x02"));
        QCOMPARE(plan[plan.size() - 2].fields.front().field->key, "status_return_level");
    }

    /** Each row: what is replaced in a good file, and what is said of it. */
    void damageIsToldWithItsLine_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QString>("error");
        // clang-format off
        const struct { const char *before; const char *after; const char *error; } rows[] = {
            {"{\n  \"format\"",          "\n  \"format\"",        "line 2: it is no JSON object"},
            {"zelvar-servo-parameters",  "a-recipe",              "line 2: it is no file of servo parameters"},
            {"\"version\": 1",           "\"version\": 2",        "line 3: it has the version 2, which a later program"},
            {"\"model\": 258",           "\"model\": 12",         "line 5: a servo of model 12 is a DynamixelAx12"},
            {"2026-11-22T12",            "soon",                  "line 8: \"time\""},
            {"\"time\"",                 "\"tide\"",              "line 8: \"tide\" means nothing here"},
            {"\"time\"",                 "\"\\u0069d\"",          "line 8: this name is there twice, or"},
            {"\"input_mode\"",           "\"moving_threshold\"",  "line 24: this name is there twice"},
            {"    \"input_mode\": {\"raw\": 0, \"value\": \"trajectory\"},\n", "", "line 9: \"input_mode\" is missing"},
            {"{\"raw\": 0, \"value\": \"trajectory\"}", "0",      "line 24: \"input_mode\" has to be an object"},
            {"\"value\": \"trajectory\"", "\"valeu\": 0",         "line 24: \"valeu\" means nothing here"},
            {"\"raw\": 24000",           "\"raw\": 1e300",        "line 21: \"raw\""},
            {"\"value\": 24,",           "\"value\": 1e300,",     "line 21: .* is outside"},
            {"\"raw\": 24000, \"value\": 24", "\"raw\": 5, \"value\": 7", "line 21: \"raw\" and \"value\" disagree"},
            {"\"unit\": \"degC\"",       "\"unit\": \"V\"",       "line 16: .* needs a unit: degC or degF"},
            {"\"raw\": 70, \"value\": 70", "\"value\": 70.5",     "line 16: 70.5 is no value"},
            {"\"address\": 3",           "\"address\": 4",        "line 33: .* 38 bytes from register 3 on"},
            {"\"data\": \"03 01",        "\"data\": \"03 02",     "line 33: the bytes do not fit their CRC"},
            {"\"time\"",                 "\"partial\": true, \"time\"", "line 33: a partial file has no bytes"},
        };
        // clang-format on
        for (const auto &row : rows)
            QTest::newRow(row.error) << QByteArray(row.before) << QByteArray(row.after) << QString(row.error);
    }
    void damageIsToldWithItsLine()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        QFETCH(QString, error);
        const Reading reading = decoded(edited(before, after, model::ZelvarV1Family));
        QVERIFY(!reading.profile);
        QVERIFY2(QRegularExpression('^' + error).match(reading.error).hasMatch(), qPrintable(reading.error));
    }

    /** Wherever a file ends early or has another byte: it is refused, says that it was edited, or has the same values.
     */
    void noSlipGoesUnnoticed()
    {
        const Profile servo = factoryValues();
        const QByteArray text = encoded(servo);
        QVERIFY(!decoded(QByteArray("{\"a\":").repeated(100000)).profile);
        for (int at = 0; at < text.size() - 2; ++at)
            QVERIFY(!decoded(text.left(at)).profile);
        for (int at = 0; at < text.size(); ++at) {
            for (const char other : {'7', '"', 'x'}) {
                QByteArray slip = text;
                slip[at] = other;
                const Reading reading = decoded(slip);
                if (reading.profile && reading.profile->model == servo.model && reading.edits.isEmpty())
                    QCOMPARE(reading.profile->bytes, servo.bytes);
            }
        }
    }

    void editedValuesAreTakenAndTold()
    {
        // clang-format off
        const struct { const char *before; const char *after; const char *key; qint32 raw; const char *edit; bool isAx12; } rows[] = {
            {"\"raw\": 24000",         "\"raw\": 5000",                     "acceleration_limit", 5000, "line 21: .*: 5rad/s.2 is taken, the servo had 24rad/s.2", false},
            {"\"value\": 24,",         "\"value\": 5.0004,",                "acceleration_limit", 5000, "line 21", false},
            {"\"value\": 24,",         "\"value\": 24.0004,",               "acceleration_limit", 24000, "", false}, // the same step
            {"\"raw\": 24000, \"value\": 24", "\"raw\": 5000, \"value\": 5", "acceleration_limit", 5000, "line 21", false},
            {"\"value\": 70, \"unit\": \"degC\"", "\"value\": 140, \"unit\": \"degF\"", "upper_temperature_limit", 60, "line 16", false},
            {"\"value\": \"joint\"",   "\"value\": \"wheel\"",              "operating_mode", 1, "line 13: .*: \"wheel\" is taken", false},
            {"\"value\": 1000000",     "\"value\": 57600",                  "baud_rate", 34, "line 11", false},
            {"\"alarm_led\": {\"raw\": 36, \"value\": [\"overheating_error\",\"overload_error\"]", "\"alarm_led\": {\"value\": [\"range_error\"]", "alarm_led", 8, "line 20", true},
        };
        // clang-format on
        for (const auto &row : rows) {
            const InRow name(row.after);
            const model::Family &family = row.isAx12 ? model::DynamixelAx12Family : model::ZelvarV1Family;
            const Reading reading = decoded(edited(row.before, row.after, family));
            QVERIFY2(reading.profile, qPrintable(reading.error));
            QCOMPARE(reading.profile->raw(family[row.key]), std::optional<qint32>(row.raw));
            QCOMPARE(reading.edits.isEmpty(), *row.edit == '\0');
            QVERIFY2(QRegularExpression(row.edit).match(reading.edits.join(' ')).hasMatch(),
                     qPrintable(reading.edits.join(' ')));
            QVERIFY(decoded(encoded(*reading.profile)).edits.isEmpty());
        }
    }

    void aPartialFileIsTakenForWhatItHas()
    {
        const Reading reading = decoded("\xEF\xBB\xBF{\"format\": \"zelvar-servo-parameters\", \"version\": 1,"
                                        "\"model\": 258, \"partial\": true, \"comment\": \"slow\","
                                        "\"fields\": {\"acceleration_limit\": {\"value\": 5}}}");
        QVERIFY2(reading.profile, qPrintable(reading.error));
        const Comparison comparison = compareAll(factoryValues(), *reading.profile);
        QCOMPARE(int(comparison.missing.size()), 21);
        QCOMPARE(int(restorePlan(comparison).size()), 1);
        QCOMPARE(restorePlan(comparison).front().bytes(), QByteArray("\x88\x13"));
        QVERIFY(decoded(encoded(*reading.profile)).profile);
        QCOMPARE(checksum("123456789"), QString("906e")); // of the catalogue of parametrised CRC algorithms
    }
};

ZELVAR_TEST_MAIN(TestProfile)
#include "tst_profile.moc"
