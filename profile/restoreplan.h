#pragma once

#include "profile/profile.h"

namespace profile {

/** A field as a servo has it and as a file has it, or as two files do. */
struct Pair
{
    const model::Field *field;
    qint32 servo; ///< raw
    qint32 file;  ///< raw

    bool isEqual() const { return servo == file; }
};

/** What two profiles have in common, and what not. */
struct Comparison
{
    std::vector<Pair> pairs;                   ///< what both have, by ascending address
    std::vector<const model::Field *> missing; ///< what was to be compared but one of them has not

    /** Those of the pairs that are not equal. */
    std::vector<Pair> differences() const;
};

/** Compares the fields @p chosen, by ascending address. REQUIRES: both are of one family. */
Comparison compare(const Profile &servo, const Profile &file, const std::vector<const model::Field *> &chosen);

/** A write: fields side by side that the servo takes together or not at all. */
struct Block
{
    std::vector<Pair> fields; ///< by ascending address, without a gap; never empty

    int address() const { return fields.front().field->address; }
    /** What the file has, in register order. */
    QByteArray bytes() const;
};

/**
 * The writes that give a servo what the file has, in an order that the servo can take: a limit that is raised before
 * what it limits, one that is lowered behind it, so that no value is ever beyond its limit; then whether the servo
 * answers; where it is found on the bus last. Only what differs is written. After each of them every field has the
 * value of the servo or that of the file, so that whoever is interrupted compares and goes on.
 */
std::vector<Block> restorePlan(const Comparison &comparison);

} // namespace profile
