#pragma once

#include "device/ifielddependency.h"

/** Nothing of its own: the input mode acts through the Joint and Multi-turn controllers, which read it. */
class InputModeController : public IFieldDependency
{
public:
    void applyDependency() override {}
};
