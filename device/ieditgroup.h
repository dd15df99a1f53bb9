#pragma once

/** The parent widget of fields that are edited together. */
class IEditGroup
{
public:
    virtual ~IEditGroup() = default;

    /** Whether the group is between Edit and Apply or Cancel. */
    virtual bool editMode() const = 0;
    /**
     * Whether values from the servo must not be shown, since they could overwrite an edit: in edit mode, but for the
     * first values of a connection, before which no field can be edited.
     */
    virtual bool withholdsValues() const = 0;
};
