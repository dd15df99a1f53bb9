#pragma once

/** The parent widget of fields that are edited together. */
class IEditGroup
{
public:
    virtual ~IEditGroup() = default;

    /** Whether the user edits the group now; values from the servo must not overwrite the edits then. */
    virtual bool isEditing() const = 0;
};
