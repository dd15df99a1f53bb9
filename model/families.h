#pragma once

#include "model/family.h"

namespace model {

/** The own family; its servos answer with many model numbers. */
extern const Family ZelvarV1Family;
/** Model number 12. */
extern const Family DynamixelAx12Family;

/** A family whose servos are recognised by their model number. */
struct NumberedFamily
{
    quint16 modelNumber;
    const Family *family;
};
inline constexpr NumberedFamily NumberedFamilies[] = {
    {12, &DynamixelAx12Family},
};

/** The family of the servos that answer with @p modelNumber: the own one, unless another one has the number. */
inline const Family &familyOf(quint16 modelNumber)
{
    for (const NumberedFamily &row : NumberedFamilies) {
        if (row.modelNumber == modelNumber)
            return *row.family;
    }
    return ZelvarV1Family;
}

} // namespace model
