// Samples over time: what is written of them, kept of them, and read from them.

#include "model/families.h"
#include "recording/csvreader.h"
#include "recording/csvwriter.h"
#include "recording/decimation.h"
#include "recording/filerecording.h"
#include "recording/sampler.h"
#include "recording/stepresponse.h"
#include "serialport/servobus.h"
#include "session/applyproof.h"
#include "tests/support/fakeline.h"
#include "tests/support/testenvironment.h"

using namespace recording;
using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace {

constexpr TimePoint Start{std::chrono::seconds(1000)};

TimeOrigin origin()
{
    return {Start, QDateTime({2026, 3, 29}, {1, 59, 59, 500}, Qt::OffsetFromUTC, 3600)};
}

/** Registers of @p family that differ with @p seed. */
QByteArray registers(const model::Family &family, quint32 seed)
{
    QRandomGenerator random(seed);
    QByteArray bytes;
    for (int i = 0; i < family.tableSize; ++i)
        bytes.append(char(random.bounded(256)));
    return bytes;
}

/** Takes half of what it is given. */
struct FullDevice : QIODevice
{
    FullDevice() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override
    {
        setErrorString("No space left on device");
        return size / 2;
    }
};

constexpr int LinesBeforeKill = 100;

/** What another process does until it is killed. */
int recordUntilKilled(const QString &path)
{
    FileRecording recording(origin());
    if (!recording.begin(path, allColumns(model::ZelvarV1Family, [](model::FieldKind) { return 0; })).isEmpty())
        return 1;
    model::RegisterImage image(&model::ZelvarV1Family);
    for (quint32 i = 0;; ++i) {
        image.take(0, registers(model::ZelvarV1Family, i), Start + milliseconds(i));
        recording.add(image);
        if (i == LinesBeforeKill) {
            QFile out;
            out.open(stdout, QIODevice::WriteOnly);
            out.write("recording\n");
        }
    }
}

int secondUnit(model::FieldKind)
{
    return 1;
}

} // namespace

class TestRecording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileReadsBackAsItWasSampledInEveryLocale()
    {
        const QTemporaryDir folder;
        for (const char *locale : {"C", "de_DE", "ar_EG"}) {
            for (const model::Family *family : {&model::ZelvarV1Family, &model::DynamixelAx12Family}) {
                const InRow row(QString(locale) + family->name);
                QLocale::setDefault(QLocale(locale));
                FileRecording recording(origin());
                const auto columns = allColumns(*family, secondUnit);
                QCOMPARE(recording.begin(folder.filePath("a.csv"), columns), QString());
                std::vector<model::RegisterImage> images;
                for (quint32 i = 0; i < 3; ++i) {
                    images.emplace_back(family);
                    images.back().take(0, registers(*family, i), Start + microseconds(12345678 * i + i));
                    if (i == 2)
                        recording.add(Mark{Mark::Kind::Gap, Start, {}, {}});
                    recording.add(images.back());
                }
                recording.add(Mark{Mark::Kind::Applied, Start, "target; \"2,5\"\n", {}});
                // While it is still running: a kill of the program would leave the same.
                QFile file(recording.path());
                QVERIFY(file.open(QIODevice::ReadOnly));
                const ReadResult result = readCsv(file.readAll() + "2026-03-29T02:00"); // a torn line
                QCOMPARE(result.error, QString());
                for (std::size_t i = 0; i < columns.size(); ++i)
                    QCOMPARE(result.recording->columns.at(i).title(), columns[i].title());
                QCOMPARE(result.recording->marks.back().detail, QString("target; \"2,5\"\n"));
                const SampleStore &read = *result.recording->samples;
                QCOMPARE(read.end(), 3);
                for (int i = 0; i < 3; ++i) {
                    QVERIFY(read.timeOf(i) - read.timeOf(0) == images[i].lastRead() - Start);
                    QCOMPARE(read.followsGap(i), i == 2);
                    for (const model::Field &field : family->fields)
                        QCOMPARE(read.raw(i, field), *images[i].raw(field));
                }
            }
        }
        QLocale::setDefault(QLocale::c());
    }

    void aRecordingSurvivesAKill()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.csv");
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {"record", path});
        QVERIFY(program.waitForReadyRead());
        program.kill();
        QVERIFY(program.waitForFinished() && program.exitStatus() == QProcess::CrashExit);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const ReadResult result = readCsv(file.readAll());
        QCOMPARE(result.error, QString());
        const SampleStore &samples = *result.recording->samples;
        QVERIFY(samples.end() > LinesBeforeKill);
        model::RegisterImage last(&model::ZelvarV1Family);
        last.take(0, registers(model::ZelvarV1Family, quint32(samples.end() - 1)), Start);
        for (const model::Field &field : model::ZelvarV1Family.fields)
            QCOMPARE(samples.raw(samples.end() - 1, field), *last.raw(field));
    }

    void whatIsNoRecordingIsRefused()
    {
        const QByteArray titles = "time,elapsed [s],actual_position [rad],event\r\n";
        const std::pair<QByteArray, const char *> rows[] = {
            {"", "no recording"},
            {"a,b,c\n", "no recording"},
            {"time,elapsed [s],weight [kg]\n", "no servo known"},
            {titles + "x,1.0,0.5,\r\nx,soon,0.5,\r\n", "Line 3"},
            {titles + "x,1.0,0.5\r\n", "Line 2"},
            {titles + "x,1.0,half,\r\n", "Line 2"},
            {titles + "x,1.0,0.5,\r\nx,0.5,0.5,\r\n", "Line 3"},
        };
        for (const auto &[file, error] : rows) {
            const InRow row(file);
            QVERIFY(readCsv(file).error.contains(error));
        }
    }

    void aLineIsWhatTheFormatSays()
    {
        const model::Family &family = model::ZelvarV1Family;
        const Column position{&family["actual_position"], 1};
        const Column profile{&family["acceleration_profile"], 0};
        const Column moving{&family["moving"], 0};
        model::RegisterImage image(&family);
        image.take(86, QByteArray("\x00\x08\0\0", 4), Start - std::chrono::microseconds(1500));
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        CsvWriter spreadsheet(file, {position, profile, moving}, origin(), {';', "\n"});
        CsvWriter shell(file, {position}, origin(), {'\t', "\n", false});
        for (const QString &error :
             {spreadsheet.writeTitles(), spreadsheet.writeSample(image),
              spreadsheet.writeEvent(Start, "applied: \"a\"; b"), shell.writeTitles(), shell.writeSample(image)})
            QCOMPARE(error, QString());
        QCOMPARE(file.data(),
                 QByteArray("time;elapsed [s];actual_position [deg];acceleration_profile [rad/s^2];moving;event\n"
                            "2026-03-29T01:59:59.498+01:00;-0.001500;180;;;\n"
                            "2026-03-29T01:59:59.500+01:00;0.000000;;;;\"applied: \"\"a\"\"; b\"\n"
                            "time\telapsed [s]\tactual_position [deg]\n"
                            "2026-03-29T01:59:59.498+01:00\t-0.001500\t180\n"));
    }

    void whatCannotBeWrittenIsTold()
    {
        FullDevice device;
        CsvWriter writer(device, {}, origin());
        QCOMPARE(writer.writeTitles(), QString("No space left on device"));

        QTemporaryDir folder;
        FileRecording recording(origin());
        QCOMPARE(recording.begin(folder.filePath("none/a.csv"), {}), QString("No such file or directory"));
        QCOMPARE(recording.begin(folder.filePath("a.csv"), {}), QString());
        QSignalSpy failed(&recording, &FileRecording::failed);
        folder.remove();
        QTRY_COMPARE(failed.count(), 1);
        QVERIFY(!recording.isRunning());
    }

    void theOldestSamplesGoAndTheOthersStayWhatTheyAre()
    {
        constexpr qint64 Hour = 360000; // at a hundred a second
        const model::Family &family = model::ZelvarV1Family;
        SampleStore store(family);
        model::RegisterImage image(&family);
        image.take(0, registers(family, 1), Start);
        for (qint64 i = 0; i < Hour * 3 / 2; ++i) {
            QByteArray position(4, '\0');
            qToLittleEndian(qint32(i), position.data());
            image.take(86, position, Start + milliseconds(10 * i));
            store.add(image);
        }
        const auto checkNewest = [&](qint64 least, qint64 capacity) {
            QVERIFY(store.end() - store.first() >= least);
            QVERIFY(store.bytesUsed() <= capacity);
            for (const qint64 number : {store.first(), store.end() - 1}) {
                QCOMPARE(store.raw(number, family["actual_position"]), qint32(number));
                QVERIFY(store.timeOf(number) == Start + milliseconds(10 * number));
                QCOMPARE(store.nearest(store.timeOf(number) + milliseconds(4)), number);
                QCOMPARE(store.image(number).bits(0, 4), image.bits(0, 4));
            }
            QCOMPARE(store.lowerBound(Start), store.first());
            QCOMPARE(store.nearest(TimePoint::max()), store.end() - 1);
        };
        checkNewest(Hour, 64000000);
        store.setCapacity(SampleStore::SmallCapacity);
        checkNewest(60000, 8000000);
    }

    void aSpikeIsSeenAtEveryZoomAndAGapIsAGap()
    {
        constexpr int Samples = 60000;
        constexpr int Spike = 31415;
        constexpr int Gap = 40000;
        const model::Family &family = model::DynamixelAx12Family;
        const Column column{&family["present_position"], 1};
        SampleStore store(family);
        model::RegisterImage image(&family);
        for (int i = 0; i < Samples; ++i) {
            const int position = i == Spike ? 1000 : i % 7;
            image.take(36, QByteArray(1, char(position)) + QByteArray(1, char(position >> 8)),
                       Start + milliseconds(10 * i));
            if (i == Gap)
                store.markGap();
            store.add(image);
        }
        const auto at = [&](int number) { return store.timeOf(std::clamp(number, 0, Samples - 1)); };
        for (int reach = 1; reach < Samples; reach = reach * 5 / 2) {
            for (const int pixels : {1, 60, 1300}) {
                const InRow row(QString("%1 samples at %2 pixels").arg(reach).arg(pixels));
                const TimeSpan span{at(Spike - reach / 3), at(Spike + reach)};
                const Polylines lines = decimated(store, column, span, pixels, Start);
                QCOMPARE(extentOf(lines)->greatest, column.value(1000));
                QVERIFY(int(lines.points.size()) <= 4 * (pixels + 4));
                QCOMPARE(lines.starts.size(), std::size_t(Spike + reach >= Gap ? 2 : 1));
                if (lines.starts.size() == 2) {
                    QCOMPARE(lines.points[lines.starts[1]].x(), Gap / 100.0);
                    QCOMPARE(lines.points[lines.starts[1] - 1].x(), (Gap - 1) / 100.0);
                }
                for (const QPointF &point : lines.points) {
                    const qint64 number = qRound64(point.x() * 100);
                    QCOMPARE(point.y(), column.value(store.raw(number, *column.field)));
                }
            }
        }
        QVERIFY(!extentOf(decimated(SampleStore(family), column, {Start, Start}, 100, Start)));
    }

    void whatHappensToAConnectionIsMarkedAtItsTime()
    {
        TurnedClock clock;
        ServoBus bus(std::make_unique<FakeLine>(clock, [](const wire::Packet &) { return QByteArray(); }), clock);
        const auto image = std::make_shared<model::RegisterImage>();
        session::Connection connection(image, &bus, clock);
        session::ApplyProof proof(connection, bus, image, clock);
        Sampler sampler(connection, proof, secondUnit, clock);
        QStringList marks;
        connect(&sampler, &Sampler::marked, &sampler, [&](const Mark &mark) {
            marks.append(sampler.origin().seconds(mark.when).left(4) + ' ' + mark.fileText());
        });
        const auto poll = [&](const model::Family &family, char errors) {
            model::RegisterImage polled(&family);
            polled.take(0, QByteArray(family.tableSize, '\0').replace(107, 1, QByteArray(1, errors)), clock.now());
            Q_EMIT connection.polled(polled);
            clock.turn(milliseconds(100));
        };
        poll(model::ZelvarV1Family, 0);
        poll(model::ZelvarV1Family, 6);
        poll(model::ZelvarV1Family, 4);
        Q_EMIT connection.pollLost();
        Q_EMIT connection.pollLost();
        clock.turn(milliseconds(100));
        session::ApplyReport report;
        report.verdict = session::ApplyReport::Verdict::Applied;
        report.sentAt = clock.now() - milliseconds(50);
        report.edited = {{&model::ZelvarV1Family["target_position"], 1024U, 0U, 1024U},
                         {&model::ZelvarV1Family["velocity_proportional_gain"], 250U, 0U, 250U}};
        Q_EMIT proof.reported(report);
        poll(model::ZelvarV1Family, 4);
        connection.begin({3, 1000000});
        sampler.tellPortLost("the adapter is gone");
        connection.end();
        poll(model::ZelvarV1Family, 4);
        QCOMPARE(marks, QStringList({"0.10 fault: hall_sensor_error", "0.10 fault: overheating_error", "0.30 gap",
                                     "0.35 applied: target_position 90 deg, velocity_proportional_gain 0.25",
                                     "0.50 link: the adapter is gone", "0.50 gap: disconnected"}));
        QCOMPARE(sampler.samples()->end(), 5);
        for (const int number : {0, 1, 2, 3, 4})
            QCOMPARE(sampler.samples()->followsGap(number), number > 2);
        poll(model::DynamixelAx12Family, 0);
        QCOMPARE(sampler.samples()->end(), 1);
    }

    void stepFiguresAreThoseOfTheTextbook()
    {
        const auto response = [](double from, double to, double damping, double end) {
            constexpr double Frequency = 10; // rad/s
            std::vector<TimedValue> values;
            for (int i = 0; i * 0.001 <= end; ++i) {
                const double t = i * 0.001;
                const double d = Frequency * std::sqrt(1 - damping * damping);
                const double share = 1 - std::exp(-damping * Frequency * t) *
                                             (std::cos(d * t) + damping * Frequency / d * std::sin(d * t));
                values.push_back({t, from + (to - from) * share});
            }
            return values;
        };
        // A second-order system goes past its target by exp(-π ζ / √(1 - ζ²)).
        for (const auto &[from, to] : {std::pair(0.0, 2.5), std::pair(1.0, -3.0)}) {
            const auto figures = stepFigures(response(from, to, 0.5, 3), to);
            QVERIFY(std::abs(figures->overshoot - 16.30) < 0.01);
            QVERIFY(std::abs(*figures->riseTime - 0.1639) < 0.001);
            QVERIFY(std::abs(*figures->settlingTime - 0.8076) < 0.001);
            QVERIFY(std::abs(figures->remaining) < 0.001);
        }
        const auto early = stepFigures(response(0, 1, 0.5, 0.2), 1);
        QVERIFY(!early->settlingTime && !early->riseTime && early->overshoot == 0);
        QVERIFY(!stepFigures({{0, 1}, {1, 1}}, 1) && !stepFigures({{0, 0}}, 1) && !stepFigures({}, 1));
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "record") == 0)
        return recordUntilKilled(QFile::decodeName(argv[2]));
    TestEnvironment environment;
    QApplication application(argc, argv);
    TestRecording test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_recording.moc"
