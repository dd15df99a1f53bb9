#pragma once

#include "device/ifielddependency.h"

/** Makes the locks follow the operating mode that is shown when a value for it arrives. */
class OperationModeController : public IFieldDependency
{
public:
    /**
     * Runs the controller of the mode shown now. Unknown modes and the placeholder run the Joint controller.
     * Callers run it before they show the arriving value, so the locks follow a change one value late.
     */
    void applyDependency() override;
};
