#pragma once

/** A control that shows one status bit. */
class IStatusIndicator
{
public:
    virtual ~IStatusIndicator() = default;

    virtual void setStatus(bool on) = 0;
};
