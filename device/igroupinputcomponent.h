#pragma once

/** An input of an edit/save group. Implementations are widgets with a Qt signal setIsDirty(bool). */
class IGroupInputComponent
{
public:
    virtual ~IGroupInputComponent() = default;

    /** Enables or disables editing and clears the dirty mark; a locked control ignores it. */
    virtual void setEditable(bool enable) = 0;
    /** Puts the last value from the servo back and ends editing. */
    virtual void restoreValue() = 0;
    /** The signal of the concrete widget: it turned dirty (true) or clean again (false). */
    virtual void setIsDirty(bool dirty) = 0;
    /** Whether the user has changed the value away from the servo's. */
    virtual bool isDirty() const = 0;
    /** Whether the connected device has the field but no value of it has arrived yet. */
    virtual bool awaitsValue() const = 0;
    /** What the user has changed is on its way to the servo: it is shown as pending, whatever is read until
     * endPending(). */
    virtual void beginPending() = 0;
    /** It was proved, or will not be: the next value from the servo is shown, and the field pending until it comes. */
    virtual void endPending() = 0;
};
