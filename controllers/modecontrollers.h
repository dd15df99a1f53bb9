#pragma once

#include "controllers/controllerbase.h"

/** The controller of one operating mode: the mode's column of the lock table. */
template <OperatingMode mode>
class ModeController final : public ControllerBase
{
public:
    void apply() override { applyLocks(mode); }
};

using TorqueModeController = ModeController<OperatingMode::Torque>;
using WheelModeController = ModeController<OperatingMode::Wheel>;
using JointModeController = ModeController<OperatingMode::Joint>;
using MultiTurnModeController = ModeController<OperatingMode::MultiTurn>;
using StepperModeController = ModeController<OperatingMode::Stepper>;
