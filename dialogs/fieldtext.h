#pragma once

#include "model/field.h"

#include <QString>

/** What the user is shown of a servo's parameters as a whole: comparison, restore, history. */
namespace dialogs {

/** How the user is told of a field: as the tabs show it, in the language and the units of the window. */
class FieldText
{
public:
    FieldText() = default;
    Q_DISABLE_COPY(FieldText)
    virtual ~FieldText();

    /** For example "CW angle limit". */
    virtual QString caption(const model::Field &field) const = 0;
    /** @p raw, a value of @p field, for example "2.499 radians" or "Joint". */
    virtual QString value(const model::Field &field, qint32 raw) const = 0;
    /** What a servo means by the error number of @p errorByte, and what to do about it. */
    virtual QString refusal(quint8 errorByte) const = 0;
};

} // namespace dialogs
