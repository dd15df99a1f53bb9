#pragma once

#include <QStringList>

namespace cli {

/** The program: does what @p arguments, which begin with its name, say. @return what it exits with. Once a process. */
int run(const QStringList &arguments);

} // namespace cli
