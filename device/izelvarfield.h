#pragma once

#include <QString>

/** A control or caption that belongs to a servo field and that a mode controller can take out of use. */
class IZelvarField
{
public:
    virtual ~IZelvarField() = default;

    /** The Qt object name, which is the key the field is bound by. */
    virtual QString objectName() const = 0;
    /** Takes the control out of use (true) or puts it back into use (false). */
    virtual void setLocked(bool lock) = 0;
};
