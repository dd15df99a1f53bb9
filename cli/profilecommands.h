#pragma once

#include "cli/context.h"
#include "profile/restoreplan.h"

namespace cli {

/** The profile in the file @p path; what a person has changed in it is told. Throws a Failure. */
profile::Profile loadProfile(const QString &path);
/** What servo @p id has. Throws a Failure. */
profile::Profile profileOf(Context &context, int id);

/** Throws a Failure unless @p one and @p other, called so, are of one model; tells where their firmware differs. */
void checkModels(const profile::Profile &one, const QString &oneName, const profile::Profile &other,
                 const QString &otherName);

/** The non-volatile fields that the command line asks for with --only, by ascending address. */
std::vector<const model::Field *> askedFor(const Options &options, const model::Family &family);

/** What the servo has of @p pair; "wanted" is what the file has. */
QJsonObject fieldObject(const profile::Pair &pair, const recording::UnitChoice &unitOf);
/** The same of each of @p pairs, by key. */
QJsonObject fieldObjects(const std::vector<profile::Pair> &pairs, const recording::UnitChoice &unitOf);
/** Prints a line for each of @p pairs: the key, what servo @p id has and what the file has. */
void print(Context &context, int id, const std::vector<profile::Pair> &pairs);

} // namespace cli
