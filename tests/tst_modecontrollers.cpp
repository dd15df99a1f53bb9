#include "tests/support/connectededitview.h"

#include <map>

namespace {

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
    const char kind = pattern[mode >= Placeholder ? int(Joint) : mode];
    if (kind == 'x')
        return wasUsed;
    return (kind == 'u' || (kind == 't' && inputMode == 0)) != (mode == Unknown);
}

QByteArray tableWith(int mode, int inputMode)
{
    return ConnectedEditView::jointTable({{6, 1, quint32(mode)}, {26, 1, quint32(inputMode)}});
}

} // namespace

class TestModeControllers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locks()
    {
        // clang-format off
        const std::tuple<const char *, int, int, int> rows[] = {
            {"torque after wheel",                  Wheel,   Torque,      0},
            {"torque after joint",                  Joint,   Torque,      0},
            {"torque after reversed joint",         Unknown, Torque,      0},
            {"wheel",                               Torque,  Wheel,       1},
            {"joint, trajectory",                   Stepper, Joint,       0},
            {"joint, position",                     Stepper, Joint,       1},
            {"multi-turn, trajectory, after wheel", Wheel,   MultiTurn,   0},
            {"multi-turn, position, after joint",   Joint,   MultiTurn,   1},
            {"stepper",                             Joint,   Stepper,     0},
            {"placeholder shown",                   Torque,  Placeholder, 0},
            {"mode that is not in the list",        Torque,  Unknown,     0},
        };
        // clang-format on
        for (const auto &[name, before, mode, inputMode] : rows) {
            const InRow row(name);
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
    }

    void locksFollowOneValueLate()
    {
        ConnectedEditView fixture(tableWith(Joint, 0));
        for (const bool isFirst : {true, false}) {
            fixture.feed(tableWith(Wheel, 0));
            QCOMPARE(fixture.child("targetPositionLabel").isEnabled(), isFirst);
        }
        fixture.groups().linkDown();
        QVERIFY(fixture.child("targetPositionLabel").isEnabled());
    }
};

ZELVAR_TEST_MAIN(TestModeControllers)
#include "tst_modecontrollers.moc"
