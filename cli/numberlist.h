#pragma once

#include <QString>

#include <chrono>
#include <vector>

namespace cli {

/** The ids in a text like "1,3,5-9", ascending and each once. Throws a Failure when it is none. */
std::vector<int> idsIn(const QString &text);

/** The baud rates in a text like "57600,1000000", or all that servos know for "all". Throws a Failure. */
std::vector<int> baudRatesIn(const QString &text);

/** A time like "10s", "500ms" or "2min", greater than 0. Throws a Failure. */
std::chrono::milliseconds durationIn(const QString &text);

} // namespace cli
