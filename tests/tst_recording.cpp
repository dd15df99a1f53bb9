// Samples over time: what is written of them, kept of them, and read from them.

#include "model/families.h"
#include "recording/csvwriter.h"
#include "tests/support/testenvironment.h"

using namespace recording;

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
        for (const char *locale : {"C", "de_DE", "ar_EG"}) {
            const InRow row(locale);
            QLocale::setDefault(QLocale(locale));
            for (const model::Family *family : {&model::ZelvarV1Family, &model::DynamixelAx12Family}) {
                model::RegisterImage image(family);
                QBuffer file;
                file.open(QIODevice::ReadWrite);
                CsvWriter writer(file, allColumns(*family, secondUnit), origin());
                QVERIFY(writer.writeTitles().isEmpty());
                image.take(0, registers(*family, 1), Start + std::chrono::microseconds(12345678));
                QVERIFY(writer.writeSample(image).isEmpty());
                const QList<QByteArray> lines = file.data().split('\n');
                QVERIFY(lines[0].startsWith("time,elapsed [s],model_number,") && lines[0].endsWith(",event\r"));
                const QList<QByteArray> titles = lines[0].split(',');
                const QList<QByteArray> values = lines[1].split(',');
                QCOMPARE(values.size(), titles.size());
                QCOMPARE(values[0], QByteArray("2026-03-29T02:00:11.845+01:00"));
                QCOMPARE(values[1], QByteArray("12.345678"));
                for (std::size_t i = 0; i < writer.columns().size(); ++i) {
                    const Column &column = writer.columns()[i];
                    QCOMPARE(titles[int(i) + 2], column.title());
                    QCOMPARE(column.rawAt(values[int(i) + 2].toDouble()), *image.raw(*column.field));
                }
            }
        }
        QLocale::setDefault(QLocale::c());
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
    }
};

ZELVAR_TEST_MAIN(TestRecording)
#include "tst_recording.moc"
