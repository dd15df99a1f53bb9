#pragma once

#include <QtGlobal>

namespace model {

/** What a servo means by an error number in an answer, in the own family's numbering, and what to do about it. */
struct Refusal
{
    quint8 error;     ///< number in the low seven bits of the error byte
    const char *text; ///< English; translated in the context "ApplyText"
};

inline constexpr quint8 ErrorNumberMask = 0x7F;

// clang-format off
inline constexpr Refusal Refusals[] = {
    {1, QT_TRANSLATE_NOOP("ApplyText", "process failure: the servo could not carry it out; reboot it and try again")},
    {2, QT_TRANSLATE_NOOP("ApplyText", "instruction error: the servo does not know this instruction; is it another model?")},
    {3, QT_TRANSLATE_NOOP("ApplyText", "checksum error: the line garbles packets; check cable and supply")},
    {4, QT_TRANSLATE_NOOP("ApplyText", "data range error: a value is outside what the servo takes; compare each with its range")},
    {5, QT_TRANSLATE_NOOP("ApplyText", "data length error: the servo takes no block of this length; is it another model?")},
    {6, QT_TRANSLATE_NOOP("ApplyText", "data limit error: a value is beyond one of the servo's limits; change the limit first")},
    {7, QT_TRANSLATE_NOOP("ApplyText", "access error: turn the motor off first")},
};
// clang-format on

} // namespace model
