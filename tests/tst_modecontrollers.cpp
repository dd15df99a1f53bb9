#include "tests/support/connectededitview.h"
#include "tests/support/testenvironment.h"

#include <map>

namespace {

constexpr int OperatingModeRegister = 6;
constexpr int InputModeRegister = 26;

// Controls by what the modes make of them: L locked, u in use, t in use at input mode 0, x kept from the mode
// before; one letter for each of Torque, Wheel, Joint, Multi-turn and Stepper.
// clang-format off
const std::map<QByteArray, QByteArrayList> ControlsByPattern = {
    {"LLuuL", {"inputModeLabel", "velocityFeedforwardTermLabel", "angularVelocityProfileLabel", "targetPositionLabel",
               "inputModeComboBox", "positionProportionalTermDoubleSpinBox", "velocityFeedforwardTermDoubleSpinBox",
               "angularVelocityProfileDoubleSpinBox", "targetPositionDoubleSpinBox"}},
    {"LLuLL", {"clockwiseAngleLimitLabel", "counterClockwiseAngleLimitLabel", "clockwiseLimitDoubleSpinBox",
               "counterClockwiseLimitDoubleSpinBox"}},
    {"LuuuL", {"velocityProportionalTermLabel", "currentFeedforwardTermLabel", "velocityIntegralTermLabel",
               "currentFeedforwardTermDoubleSpinBox", "velocityProportionalTermDoubleSpinBox",
               "velocityIntegralTermDoubleSpinBox"}},
    {"LuLLL", {"targetAngularVelocityLabel", "targetAngularVelocityDirectionLabel",
               "targetAngularVelocityDoubleSpinBox", "targetAngularVelocityDirectionComboBox"}},
    {"LuttL", {"accelerationProfileLabel", "accelerationProfileDoubleSpinBox"}},
    {"uLLLL", {"targetTorqueLabel", "targetTorqueDirectionLabel", "targetTorqueDoubleSpinBox",
               "targetTorqueDirectionComboBox"}},
    {"uuuuu", {"quadratureCurrentLimitLabel", "angularVelocityLimitLabel", "hornPositionOffsetLabel",
               "quadratureCurrentLimitDoubleSpinBox", "angularVelocityLimitDoubleSpinBox",
               "hornPositionOffsetDoubleSpinBox", "enableMotorCheckBox"}},
    {"xuuuu", {"accelerationLimitLabel", "accelerationLimitDoubleSpinBox"}},
    {"xLuxL", {"positionProportionalTermLabel"}},
    {"uuuuL", {"pendingShadowInstructionCheckBox"}},
    {"LLuuu", {"defPositionProportionalTermLabel", "defVelocityFeedforwardTermLabel", "defAngularVelocityProfileLabel",
               "defPositionProportionalTermDoubleSpinBox", "defVelocityFeedforwardTermDoubleSpinBox",
               "defAngularVelocityProfileDoubleSpinBox"}},
    {"Luuuu", {"defVelocityProportionalTermLabel", "defVelocityIntegralTermLabel", "defCurrentFeedforwardTermLabel",
               "defAccelerationProfileLabel", "defVelocityProportionalTermDoubleSpinBox",
               "defVelocityIntegralTermDoubleSpinBox", "defCurrentFeedforwardTermDoubleSpinBox",
               "defAccelerationProfileDoubleSpinBox"}},
};
// clang-format on

enum Mode { Torque, Wheel, Joint, MultiTurn, Stepper, Placeholder, Unknown };

/** Whether a control of @p pattern is in use after @p mode, when it was in use (or not) before. */
bool isUsed(const QByteArray &pattern, int mode, int inputMode, bool wasUsed)
{
    const bool reversed = mode == Unknown;
    switch (pattern[mode >= Placeholder ? int(Joint) : mode]) {
    case 'u':
        return !reversed;
    case 't':
        return (inputMode == 0) != reversed;
    case 'x':
        return wasUsed;
    default:
        return reversed;
    }
}

QByteArray tableWith(int mode, int inputMode)
{
    QByteArray table(ConnectedEditView::TableSize, '\0');
    table[OperatingModeRegister] = char(mode);
    table[InputModeRegister] = char(inputMode);
    return table;
}

} // namespace

class TestModeControllers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locks_data();
    void locks();
    void locksFollowOneValueLate();
};

void TestModeControllers::locks_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("inputMode");

    QTest::newRow("torque after wheel") << int(Wheel) << int(Torque) << 0;
    QTest::newRow("torque after joint") << int(Joint) << int(Torque) << 0;
    QTest::newRow("torque after reversed joint") << int(Unknown) << int(Torque) << 0;
    QTest::newRow("wheel") << int(Torque) << int(Wheel) << 1;
    QTest::newRow("joint, trajectory") << int(Stepper) << int(Joint) << 0;
    QTest::newRow("joint, position") << int(Stepper) << int(Joint) << 1;
    QTest::newRow("multi-turn, trajectory, after wheel") << int(Wheel) << int(MultiTurn) << 0;
    QTest::newRow("multi-turn, position, after joint") << int(Joint) << int(MultiTurn) << 1;
    QTest::newRow("stepper") << int(Joint) << int(Stepper) << 0;
    QTest::newRow("placeholder shown") << int(Torque) << int(Placeholder) << 0;
    QTest::newRow("mode that is not in the list") << int(Torque) << int(Unknown) << 0;
}

void TestModeControllers::locks()
{
    QFETCH(int, before);
    QFETCH(int, mode);
    QFETCH(int, inputMode);

    ConnectedEditView fixture;
    fixture.connectTo(0x0102);
    for (const QByteArray &table : {tableWith(Joint, 0), tableWith(before, 0), tableWith(mode, inputMode)}) {
        fixture.feed(table);
        fixture.feed(table);
    }
    // While their groups are edited, the inputs that are in use are enabled, too.
    fixture.editSave("nv").setChecked(true);
    fixture.editSave("v").setChecked(true);

    int checked = 0;
    for (const auto &[pattern, controls] : ControlsByPattern) {
        checked += controls.size();
        const bool wasUsed = isUsed(pattern, before, 0, true);
        for (const QByteArray &control : controls) {
            const bool used = isUsed(pattern, mode, inputMode, wasUsed);
            QVERIFY2(fixture.child(control).isEnabled() == used, control);
        }
    }
    QCOMPARE(checked, 54); // all but the operating mode itself
}

void TestModeControllers::locksFollowOneValueLate()
{
    ConnectedEditView fixture;
    fixture.connectAndFeed(tableWith(Joint, 0));
    fixture.feed(tableWith(Wheel, 0));
    QVERIFY(fixture.child("targetPositionLabel").isEnabled());
    fixture.feed(tableWith(Wheel, 0));
    QVERIFY(!fixture.child("targetPositionLabel").isEnabled());
}

ZELVAR_TEST_MAIN(TestModeControllers)
#include "tst_modecontrollers.moc"
