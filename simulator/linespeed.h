#pragma once

namespace simulator {

/** The speed (bits per second) that the client of a pseudo terminal has set, seen from its master end; 0 if
 * unknown. */
int lineSpeed(int masterDescriptor);

} // namespace simulator
