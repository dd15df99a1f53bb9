#include "device/fieldhelper.h"

#include "link/lookup.h"

namespace {

struct FieldIdRow
{
    const char *objectName;
    qint32 id;
};

// The phase current limit is a torque (3) while its captions are currents (5); the profiles (15, 16) are
// shown without conversion under captions that carry a unit (0, 2). Both are meant so.
// clang-format off
constexpr FieldIdRow FieldIds[] = {
    {"angularVelocityLabel",                     0},
    {"angularVelocityLimitLabel",                0},
    {"movingThresholdLabel",                     0},
    {"defAngularVelocityProfileLabel",           0},
    {"actualAngularVelocityLineEdit",            0},
    {"targetAngularVelocityLabel",               0},
    {"angularVelocityProfileLabel",              0},
    {"targetAngularVelocityDoubleSpinBox",       0},
    {"angularVelocityLimitDoubleSpinBox",        0},
    {"movingThresholdDoubleSpinBox",             0},
    {"positionLabel",                            1},
    {"clockwiseAngleLimitLabel",                 1},
    {"counterClockwiseAngleLimitLabel",          1},
    {"goalPositionLabel",                        1},
    {"hornPositionOffsetLabel",                  1},
    {"actualPositionLineEdit",                   1},
    {"clockwiseLimitDoubleSpinBox",              1},
    {"counterClockwiseLimitDoubleSpinBox",       1},
    {"deadZoneDoubleSpinBox",                    1},
    {"targetPositionLabel",                      1},
    {"targetPositionDoubleSpinBox",              1},
    {"hornPositionOffsetDoubleSpinBox",          1},
    {"accelerationLimitLabel",                   2},
    {"defAccelerationProfileLabel",              2},
    {"accelerationProfileLabel",                 2},
    {"accelerationLimitDoubleSpinBox",           2},
    {"torqueLabel",                              3},
    {"actualTorqueLineEdit",                     3},
    {"targetTorqueLabel",                        3},
    {"targetTorqueDoubleSpinBox",                3},
    {"quadratureCurrentLimitDoubleSpinBox",      3},
    {"voltageLabel",                             4},
    {"minVoltageLimitLabel",                     4},
    {"maxVoltageLimitLabel",                     4},
    {"actualVoltageLineEdit",                    4},
    {"minVoltageLimitDoubleSpinBox",             4},
    {"maxVoltageLimitDoubleSpinBox",             4},
    {"quadratureCurrentLabel",                   5},
    {"maxquadratureCurrentLimitLabel",           5},
    {"quadratureCurrentLimitLabel",              5},
    {"actualQuadratureCurrentLineEdit",          5},
    {"temperatureLabel",                         6},
    {"upperTemperatureLimitLabel",               6},
    {"actualTemperatureLineEdit",                6},
    {"temperatureLimitDoubleSpinBox",            6},
    {"ackResponseTimeLabel",                     7},
    {"ackResponseTimeSpinBox",                   7},
    {"idSpinBox",                                8},
    {"positionProportionalTermDoubleSpinBox",    9},
    {"defPositionProportionalTermDoubleSpinBox", 9},
    {"velocityFeedforwardTermDoubleSpinBox",     10},
    {"defVelocityFeedforwardTermDoubleSpinBox",  10},
    {"currentFeedforwardTermDoubleSpinBox",      11},
    {"defCurrentFeedforwardTermDoubleSpinBox",   11},
    {"velocityProportionalTermDoubleSpinBox",    13},
    {"defVelocityProportionalTermDoubleSpinBox", 13},
    {"velocityIntegralTermDoubleSpinBox",        14},
    {"defVelocityIntegralTermDoubleSpinBox",     14},
    {"angularVelocityProfileDoubleSpinBox",      15},
    {"defAngularVelocityProfileDoubleSpinBox",   15},
    {"accelerationProfileDoubleSpinBox",         16},
    {"defAccelerationProfileDoubleSpinBox",      16},
    {"modelNumberLineEdit",                      17},
    {"baudRateComboBox",                         18},
    {"operatingModeComboBox",                    19},
    {"inputModeLabel",                           20},
    {"inputModeComboBox",                        20},
    {"targetAngularVelocityDirectionComboBox",   21},
    {"targetTorqueDirectionComboBox",            21},
    {"firmwareVersionLineEdit",                  22},
    {"pendingShadowInstructionCheckBox",         22},
    {"enableMotorCheckBox",                      22},
    {"isMovingCheckBox",                         22},
    {"inputVoltageStatusCheckBox",               22},
    {"overheatingStatusCheckBox",                22},
    {"encoderStatusCheckBox",                    22},
    {"hallStatusCheckBox",                       22},
    {"angleLimitStatusCheckBox",                 22},
    {"idLabel",                                  23},
};
// clang-format on

std::map<QString, qint32> fieldIdsByName()
{
    std::map<QString, qint32> ids;
    for (const FieldIdRow &row : FieldIds)
        ids.emplace(QLatin1String(row.objectName), row.id);
    return ids;
}

} // namespace

FieldHelper::FieldHelper(const QObjectList &children)
{
    collect(children);
}

qint32 FieldHelper::fieldIdOf(const QString &objectName)
{
    static const std::map<QString, qint32> ids = fieldIdsByName();
    return lookup(ids, objectName);
}

IZelvarField *FieldHelper::field(const QString &name) const
{
    const auto found = m_fields.find(name);
    return found == m_fields.end() ? nullptr : found->second.get();
}

void FieldHelper::collect(const QObjectList &children)
{
    for (QObject *child : children) {
        const Tracked<IZelvarField> field(child);
        if (field.get())
            m_fields.emplace(field.get()->objectName(), field);
        collect(child->children());
    }
}
