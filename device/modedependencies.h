#pragma once

#include "device/ifielddependency.h"

#include <functional>
#include <memory>

/** What depends on the two mode combo boxes. Either may be empty. */
struct ModeDependencies
{
    std::shared_ptr<IFieldDependency> operatingMode;
    std::shared_ptr<IFieldDependency> inputMode;
};

/**
 * Makes the dependencies of one device model. The mode controllers live in a module above, hence a factory.
 */
using ModeDependencyFactory = std::function<ModeDependencies()>;
