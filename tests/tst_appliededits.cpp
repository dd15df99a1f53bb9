// What an applied edit leaves in the servo, seen from the servo's side: the whole window on the device file
// of a bus that lives in this process.

#include "device/igroupinputcomponent.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "serialport/protocol2.h"
#include "simulator/simulator.h"
#include "simulator/zelvarregisters.h"
#include "tests/support/desk.h"
#include "tests/support/editedfield.h"
#include "widgets/fieldmark.h"

using namespace simulator;

namespace {

constexpr int ServoId = 3;
constexpr int Modes = 5;

/** A simulator in this process, whose servo's registers are at hand without the bus. */
class SimulatorInside
{
public:
    explicit SimulatorInside(const QStringList &arguments)
        : m_simulator(SimulatorCommandLine::parse(QStringList("simulator") + arguments).options)
    {
        const QString error = m_simulator.start();
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
        for (const auto &servo : m_simulator.servos()) {
            if (servo->id() == ServoId)
                m_servo = servo.get();
        }
    }

    /** The registers that a client can write, and those below them. */
    QByteArray registers() const
    {
        return ask(wire::Read, wire::protocol2::readParameters(0, zelvar::ActualPosition)).parameters;
    }
    /** @return whether the servo has taken it. */
    bool write(int address, int size, quint32 value) const
    {
        const quint32 bytes = qToLittleEndian(value);
        const QByteArray data(reinterpret_cast<const char *>(&bytes), size);
        const int error = ask(wire::Write, wire::protocol2::writeParameters(quint16(address), data)).error;
        return (error & ~wire::AlertBit) == wire::NoError;
    }

private:
    wire::Packet ask(quint8 instruction, const QByteArray &parameters) const
    {
        wire::Packet request;
        request.instruction = instruction;
        request.parameters = parameters;
        wire::protocol2::Parser parser;
        parser.append(m_servo->execute(request));
        return parser.next().value_or(wire::Packet());
    }

    Simulator m_simulator;
    ISimulatedServo *m_servo = nullptr;
};

using EditingDesk = DeskWith<SimulatorInside>;

/** Waits until the window has got @p count more answers to its polls. @return whether they came in time. */
bool awaitPolls(int count)
{
    const auto window = ProcessWide<UiRegisterHelper>::instance();
    QDeadlineTimer deadline(5000);
    for (int poll = 0; poll < count; ++poll) {
        window->forgetValues();
        while (!window->lastByte(zelvar::Debug4 + 1) && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return !deadline.hasExpired();
}

void chooseUnits(QRandomGenerator &random)
{
    QSettings store("Ostravel", "Zelvar Servo Manager");
    for (const char *quantity : {"angularVelocity", "angle", "torque", "current", "temperature"})
        store.setValue(QString("units settings/%1").arg(quantity), random.bounded(2));
}

/** Small numbers and great ones, of either sign. */
quint32 anyNumber(QRandomGenerator &random)
{
    const quint32 number = random.generate() >> random.bounded(32);
    return random.bounded(2) ? number : ~number;
}

} // namespace

class TestAppliedEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    // Each field that the mode leaves unlocked, over random contents in random units.
    void theServoDiffersInTheEditedFieldOnly()
    {
        QRandomGenerator random(5);
        QSet<QString> edited;
        for (int mode = 0; mode < Modes; ++mode) {
            chooseUnits(random);
            EditingDesk desk(ServoId, {"--servo", QString("zelvar:%1").arg(ServoId)});
            fill(desk.simulator, mode, random);
            QVERIFY(desk.connects());
            for (const EditedField &field : editedFields()) {
                const InRow row(QString("%1 in mode %2").arg(field.control).arg(mode));
                fill(desk.simulator, mode, random);
                // One answer may be older than these contents, and the locks follow the mode one answer later.
                QVERIFY(awaitPolls(3));
                const QByteArray before = desk.simulator.registers();
                auto *control = desk.find<QWidget>(field.control);
                const QByteArray button = field.group() + QByteArray("ParamsEditSaveToolButton");
                QVERIFY(desk.find<QToolButton>(button)->isEnabled());
                desk.click(button);
                if (!control->isEnabled()) {
                    desk.click(field.group() + QByteArray("ParamsCancelToolButton"));
                    continue;
                }
                EditedField::change(*control, random);
                QVERIFY(dynamic_cast<IGroupInputComponent &>(*control).isDirty());
                const int value = dynamic_cast<IUnitDataField &>(*control).value();
                desk.click(button);
                edited << field.control;
                QVERIFY(control->findChild<FieldMark *>());

                const QByteArray after = field.written(before, value);
                const bool isAddress = field.address == zelvar::Id || field.address == zelvar::BaudRate;
                if (isAddress) {
                    QTRY_COMPARE(desk.simulator.registers().toHex(), after.toHex());
                    desk.simulator.write(field.address, field.size,
                                         quint8(before[field.address])); // back to the bus
                    QVERIFY(awaitPolls(1));
                } else {
                    QVERIFY(awaitPolls(2)); // the first one may have been asked for before
                    QCOMPARE(desk.simulator.registers().toHex(), after.toHex());
                }
                QTRY_VERIFY(!control->findChild<FieldMark *>());
                if (isAddress)
                    desk.watcher.boxes.clear(); // the window may have read it back there, and said so
                QCOMPARE(desk.watcher.boxes, QStringList());
            }
        }
        QCOMPARE(edited.size(), int(editedFields().size()));
    }

private:
    /** Random contents, but for @p mode and what would let the servo leave the bus; the motor is off. */
    static void fill(const SimulatorInside &simulator, int mode, QRandomGenerator &random)
    {
        // While the motor is on, the servo takes no non-volatile values.
        simulator.write(zelvar::ControlEnable, 1, 0);
        simulator.write(zelvar::Mode, 1, quint32(mode));
        constexpr int Kept[] = {zelvar::Id, zelvar::BaudRate, zelvar::Mode, zelvar::ControlEnable};
        for (const EditedField &field : editedFields()) {
            if (std::find(std::begin(Kept), std::end(Kept), field.address) != std::end(Kept))
                continue;
            bool isTaken = false; // not every register takes every number
            while (!isTaken)
                isTaken = simulator.write(field.address, field.size, anyNumber(random));
        }
    }
};

ZELVAR_TEST_MAIN(TestAppliedEdits)
#include "tst_appliededits.moc"
