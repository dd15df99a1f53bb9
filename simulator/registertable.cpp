#include "simulator/registertable.h"

#include <algorithm>

namespace simulator {

namespace {

constexpr quint32 DirectionBit = 0x8000;

qint32 valueIn(const QByteArray &bytes, const RegisterRow &row)
{
    quint32 value = 0;
    for (int i = 0; i < row.size; ++i)
        value |= quint32{static_cast<quint8>(bytes[row.address + i])} << (8 * i);
    if (row.kind == RegisterKind::Signed && row.size == 2)
        return static_cast<qint16>(value);
    return static_cast<qint32>(value);
}

void putValue(QByteArray &bytes, const RegisterRow &row, qint32 value)
{
    for (int i = 0; i < row.size; ++i)
        bytes[row.address + i] = static_cast<char>(static_cast<quint32>(value) >> (8 * i));
}

bool accepts(const RegisterRow &row, qint32 value)
{
    if (row.kind == RegisterKind::Direction)
        value &= ~DirectionBit;
    return value >= row.minimum && value <= row.maximum;
}

bool overlaps(const RegisterRow &row, int address, int length)
{
    return row.address < address + length && address < row.address + row.size;
}

} // namespace

RegisterTable::RegisterTable(const RegisterRow *rows, std::size_t count, int size)
    : m_rows(rows), m_count(count), m_bytes(size, '\0'), m_rowByAddress(static_cast<std::size_t>(size), nullptr)
{
    for (std::size_t i = 0; i < m_count; ++i) {
        m_rowByAddress[m_rows[i].address] = &m_rows[i];
        putValue(m_bytes, m_rows[i], m_rows[i].defaultValue);
    }
}

const RegisterRow *RegisterTable::rowAt(int address) const
{
    return contains(address, 1) ? m_rowByAddress[static_cast<std::size_t>(address)] : nullptr;
}

qint32 RegisterTable::value(int address) const
{
    const RegisterRow *row = rowAt(address);
    Q_ASSERT(row);
    return valueIn(m_bytes, *row);
}

void RegisterTable::setValue(int address, qint32 value)
{
    const RegisterRow *row = rowAt(address);
    Q_ASSERT(row);
    putValue(m_bytes, *row, value);
}

bool RegisterTable::contains(int address, int length) const
{
    return address >= 0 && length >= 0 && address <= size() - length;
}

std::vector<const RegisterRow *> RegisterTable::written(int address, int length) const
{
    std::vector<const RegisterRow *> rows;
    for (std::size_t i = 0; i < m_count; ++i) {
        if (m_rows[i].access != RegisterAccess::ReadOnly && overlaps(m_rows[i], address, length))
            rows.push_back(&m_rows[i]);
    }
    return rows;
}

Outcome RegisterTable::judge(int address, const QByteArray &data, NonVolatile nonVolatile) const
{
    if (!contains(address, data.size()))
        return Outcome::OutsideTable;
    const auto rows = written(address, data.size());
    if (rows.empty())
        return Outcome::NothingWritable;
    const auto isNonVolatile = [](const RegisterRow *row) { return row->access == RegisterAccess::NonVolatile; };
    if (nonVolatile == NonVolatile::Locked && std::any_of(rows.begin(), rows.end(), isNonVolatile))
        return Outcome::NonVolatileLocked;

    QByteArray image = m_bytes;
    image.replace(address, data.size(), data);
    const auto isAccepted = [&image](const RegisterRow *row) { return accepts(*row, valueIn(image, *row)); };
    return std::all_of(rows.begin(), rows.end(), isAccepted) ? Outcome::Done : Outcome::OutOfRange;
}

void RegisterTable::write(int address, const QByteArray &data)
{
    QByteArray image = m_bytes;
    image.replace(address, data.size(), data);
    for (const RegisterRow *row : written(address, data.size()))
        putValue(m_bytes, *row, valueIn(image, *row));
}

void RegisterTable::resetToDefaults(RegisterAccess access)
{
    for (std::size_t i = 0; i < m_count; ++i) {
        if (m_rows[i].access == access)
            putValue(m_bytes, m_rows[i], m_rows[i].defaultValue);
    }
}

RegisterValues RegisterTable::nonVolatileValues() const
{
    RegisterValues values;
    for (std::size_t i = 0; i < m_count; ++i) {
        if (m_rows[i].access == RegisterAccess::NonVolatile)
            values.emplace(m_rows[i].address, valueIn(m_bytes, m_rows[i]));
    }
    return values;
}

void RegisterTable::restoreNonVolatileValues(const RegisterValues &values)
{
    for (const auto &[address, value] : values) {
        const RegisterRow *row = rowAt(address);
        if (row && row->access == RegisterAccess::NonVolatile && accepts(*row, value))
            putValue(m_bytes, *row, value);
    }
}

} // namespace simulator
