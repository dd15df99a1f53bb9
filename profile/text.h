#pragma once

#include <QCoreApplication>

namespace profile {

/** What the user is told, in the language of the program; English in a program that installs no catalogue. */
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(profile)
};

} // namespace profile
