#include "controllers/operationmodecontroller.h"

#include "controllers/modecontrollers.h"
#include "device/fieldhelper.h"
#include "device/iunitdatafield.h"
#include "link/processwide.h"

void OperationModeController::applyDependency()
{
    const auto &fields = ProcessWide<FieldHelper>::instance();
    const auto *shownMode =
        fields ? dynamic_cast<const IUnitDataField *>(fields->field(QStringLiteral("operatingModeComboBox"))) : nullptr;
    if (!shownMode)
        return;
    switch (static_cast<OperatingMode>(shownMode->value())) {
    case OperatingMode::Torque:
        return TorqueModeController().apply();
    case OperatingMode::Wheel:
        return WheelModeController().apply();
    case OperatingMode::MultiTurn:
        return MultiTurnModeController().apply();
    case OperatingMode::Stepper:
        return StepperModeController().apply();
    case OperatingMode::Joint:
        break;
    }
    JointModeController().apply();
}
