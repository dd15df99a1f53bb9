#pragma once

/** What depends on a field's value, run each time a value for the field arrives and before it is shown. */
class IFieldDependency
{
public:
    virtual ~IFieldDependency() = default;

    virtual void applyDependency() = 0;
};
