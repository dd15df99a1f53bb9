#pragma once

#include "simulator/isimulatedservo.h"

#include <QByteArray>
#include <QtGlobal>

#include <vector>

namespace simulator {

/** How a register may be written and whether it survives without power. */
enum class RegisterAccess : quint8 {
    ReadOnly,
    NonVolatile,
    Volatile,
};

/** How the bytes of a register make up its value. */
enum class RegisterKind : quint8 {
    Unsigned,
    Signed,    ///< two's complement
    Direction, ///< 16 bits: bit 15 the direction, the others the magnitude, which the range applies to
};

/** What becomes of an instruction; each family has its own error bytes for these. */
enum class Outcome : quint8 {
    Done,
    UnknownInstruction,
    WrongSize, ///< of the parameters
    OutsideTable,
    NothingWritable,   ///< only gaps and read-only registers
    NonVolatileLocked, ///< reaches a non-volatile register while they are locked
    OutOfRange,
    BeyondAngleLimits,
    NothingKept, ///< an action without a kept write
    MemoryFailed,
};

/** One register; a table of them describes a servo. Low bytes are at low addresses. */
struct RegisterRow
{
    quint8 address;
    quint8 size; ///< bytes: 1, 2 or 4
    RegisterAccess access;
    RegisterKind kind;
    qint32 minimum; ///< least value that a write may bring
    qint32 maximum; ///< greatest value that a write may bring
    qint32 defaultValue;
};

/** The registers of a servo as bytes; addresses that no row covers are gaps that read as 0 and ignore writes. */
class RegisterTable
{
public:
    enum class NonVolatile {
        Writable,
        Locked,
    };

    /** A table of @p size bytes at their defaults. REQUIRES: @p rows live as long as the table. */
    template <std::size_t Count>
    RegisterTable(const RegisterRow (&rows)[Count], int size) : RegisterTable(rows, Count, size)
    {
    }

    int size() const { return m_bytes.size(); }

    /** The value of the register that begins at @p address, extended to 32 bits. REQUIRES: there is one. */
    qint32 value(int address) const;
    /** Sets the register that begins at @p address, whatever its access and range. REQUIRES: there is one. */
    void setValue(int address, qint32 value);

    /** Whether @p length bytes from @p address are inside the table. */
    bool contains(int address, int length) const;
    /** REQUIRES: contains(). */
    QByteArray read(int address, int length) const { return m_bytes.mid(address, length); }
    /**
     * What becomes of @p data when a client writes it from @p address on. A register that the block covers in part
     * is judged by the value that it would have afterwards. If anything of it is refused, all is.
     */
    Outcome judge(int address, const QByteArray &data, NonVolatile nonVolatile) const;
    /** Takes it over, gaps and read-only registers left out. REQUIRES: judge() gave Done. */
    void write(int address, const QByteArray &data);

    void resetToDefaults(RegisterAccess access);

    RegisterValues nonVolatileValues() const;
    /** Values without a non-volatile register at their address or out of its range are passed over. */
    void restoreNonVolatileValues(const RegisterValues &values);

private:
    RegisterTable(const RegisterRow *rows, std::size_t count, int size);

    const RegisterRow *rowAt(int address) const;
    /** The registers that a write of @p length bytes at @p address changes. */
    std::vector<const RegisterRow *> written(int address, int length) const;

    const RegisterRow *m_rows;
    std::size_t m_count;
    QByteArray m_bytes;
    std::vector<const RegisterRow *> m_rowByAddress; ///< null where no register begins
};

} // namespace simulator
