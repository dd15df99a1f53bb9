#pragma once

#include "profile/profile.h"
#include "profile/restoreplan.h"

#include <vector>

namespace profile {

/**
 * The gains and profiles in force as the stored defaults that a restart would take them from: a partial profile that
 * has a value for each non-volatile field "default_X" of a volatile field "X". Without values for a family that has no
 * such fields, and as long as not all registers of @p image have been read.
 */
Profile tunedGains(const model::RegisterImage &image);

/** Those of tunedGains() that the servo has stored otherwise, by ascending address; "servo" is the stored default,
 *  "file" the value in force. */
std::vector<Pair> differingGains(const model::RegisterImage &image);

} // namespace profile
