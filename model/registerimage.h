#pragma once

#include "model/family.h"

#include <QByteArray>

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>

namespace model {

/**
 * The registers of one servo as they were read last: which bytes are known, since when, and what values they make. The
 * one place where bytes become numbers. A value; used in one thread at a time.
 */
class RegisterImage
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /** Registers that can be kept, more than any family has. */
    static constexpr int Capacity = 128;

    /** Nothing is known of a servo of @p family, which is the own one without it. */
    explicit RegisterImage(const Family *family = nullptr);

    const Family &family() const { return *m_family; }

    /** Takes @p bytes, read from @p address on by a reply that was complete at @p when; what lies beyond the family's
     *  table is passed over. */
    void take(int address, const QByteArray &bytes, TimePoint when);
    /** Takes @p bytes, written from @p address on, for what the registers hold until they are read again; those of
     *  registers that have not been read are passed over. */
    void assumeWritten(int address, const QByteArray &bytes);

    /** Whether all @p size registers from @p address on have been read. */
    bool isKnown(int address, int size) const;
    bool isKnown(const Field &field) const { return isKnown(field.address, field.size); }
    /** When the register @p address was read last. REQUIRES: isKnown(). */
    TimePoint readAt(int address) const { return m_readAt[std::size_t(address)]; }
    /** When a reply brought something last; the clock's origin before the first one. */
    TimePoint lastRead() const { return m_lastRead; }

    std::optional<quint8> byte(int address) const;
    /** The bytes of @p size registers (1 to 4) from @p address on as one unsigned number; nothing unless all are known.
     */
    std::optional<quint32> bits(int address, int size) const;
    std::optional<quint32> bits(const Field &field) const { return bits(field.address, field.size); }
    /** The value of @p field: with its sign, and negative when it is directed clockwise. */
    std::optional<qint32> raw(const Field &field) const;
    /** The same in the base unit of the field's kind. */
    std::optional<double> physical(const Field &field) const;
    /** As above, by key; nothing for a key that the family does not have. */
    std::optional<qint32> raw(QLatin1String key) const;
    std::optional<double> physical(QLatin1String key) const;

private:
    const Family *m_family;
    std::array<quint8, Capacity> m_bytes{};
    std::array<bool, Capacity> m_known{};
    std::array<TimePoint, Capacity> m_readAt{};
    TimePoint m_lastRead{};
};

/** The number that @p bits, the bytes of @p field, stand for: see RegisterImage::raw(). */
qint32 rawValue(const Field &field, quint32 bits);
/** The inverse: bits that @p raw gives the bytes of @p field. */
quint32 bitsOf(const Field &field, qint32 raw);
/** @p raw in the base unit of the field's kind; the sign of a directed value is its direction. */
double physicalValue(const Field &field, qint32 raw);
/** The raw value at @p physical, truncated toward zero. */
qint32 rawAt(const Field &field, double physical);
/** Whether @p raw is in the range of @p field, that of its magnitude when it is directed. */
bool isInRange(const Field &field, qint32 raw);

} // namespace model
