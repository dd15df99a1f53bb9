#pragma once

#include "profile/profile.h"

#include <QString>

/** The file with the parameters of a recorded servo, which lies beside the recording. */
namespace parameterfile {

/**
 * Where to write @p profile for the recording at @p recordingPath: the same name with the suffix "zservo", and a number
 * behind the name where that is taken, so that nothing is written over. Empty when a file under one of these names
 * already has the same parameters.
 */
QString pathFor(const QString &recordingPath, const profile::Profile &profile);

} // namespace parameterfile
