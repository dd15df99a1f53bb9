#include "model/registerimage.h"

#include "model/families.h"
#include "model/littleendian.h"
#include "model/rawscale.h"

#include <algorithm>

namespace model {

RegisterImage::RegisterImage(const Family *family) : m_family(family ? family : &ZelvarV1Family)
{
    Q_ASSERT(m_family->tableSize <= Capacity);
}

void RegisterImage::take(int address, const QByteArray &bytes, TimePoint when)
{
    const int end = std::min(address + bytes.size(), m_family->tableSize);
    for (int target = address; target < end; ++target) {
        const auto index = std::size_t(target);
        m_bytes[index] = quint8(bytes[target - address]);
        m_known[index] = true;
        m_readAt[index] = when;
    }
    m_lastRead = when;
}

void RegisterImage::assumeWritten(int address, const QByteArray &bytes)
{
    for (int offset = 0; offset < bytes.size(); ++offset) {
        const int target = address + offset;
        if (isKnown(target, 1))
            m_bytes[std::size_t(target)] = quint8(bytes[offset]);
    }
}

bool RegisterImage::isKnown(int address, int size) const
{
    if (address < 0 || size < 1 || address + size > Capacity)
        return false;
    const auto *first = m_known.begin() + address;
    return std::all_of(first, first + size, [](bool known) { return known; });
}

std::optional<quint8> RegisterImage::byte(int address) const
{
    return isKnown(address, 1) ? std::optional<quint8>(m_bytes[std::size_t(address)]) : std::nullopt;
}

std::optional<quint32> RegisterImage::bits(int address, int size) const
{
    return isKnown(address, size) ? std::optional<quint32>(littleEndian(&m_bytes[std::size_t(address)], size))
                                  : std::nullopt;
}

std::optional<qint32> RegisterImage::raw(const Field &field) const
{
    const auto known = bits(field);
    return known ? std::optional<qint32>(rawValue(field, *known)) : std::nullopt;
}

std::optional<double> RegisterImage::physical(const Field &field) const
{
    const auto known = raw(field);
    return known ? std::optional<double>(physicalValue(field, *known)) : std::nullopt;
}

std::optional<qint32> RegisterImage::raw(QLatin1String key) const
{
    const Field *field = m_family->field(key);
    return field ? raw(*field) : std::nullopt;
}

std::optional<double> RegisterImage::physical(QLatin1String key) const
{
    const Field *field = m_family->field(key);
    return field ? physical(*field) : std::nullopt;
}

qint32 rawValue(const Field &field, quint32 bits)
{
    switch (field.encoding.form) {
    case Encoding::Form::Signed:
        return field.size == 1 ? qint8(bits) : field.size == 2 ? qint16(bits) : qint32(bits);
    case Encoding::Form::Directed: {
        const auto magnitude = qint32(bits & ~field.directionMask());
        return bits & field.directionMask() ? -magnitude : magnitude;
    }
    case Encoding::Form::Unsigned:
    case Encoding::Form::Flags:
        break;
    }
    return qint32(bits);
}

quint32 bitsOf(const Field &field, qint32 raw)
{
    if (field.isDirected() && raw < 0)
        return quint32(-raw) | field.directionMask();
    return quint32(raw);
}

double physicalValue(const Field &field, qint32 raw)
{
    const RawScale scale(field.range);
    return field.isDirected() && raw < 0 ? -scale.toPhysical(-raw) : scale.toPhysical(raw);
}

qint32 rawAt(const Field &field, double physical)
{
    const RawScale scale(field.range);
    return field.isDirected() && physical < 0 ? -scale.toRaw(-physical) : scale.toRaw(physical);
}

bool isInRange(const Field &field, qint32 raw)
{
    const qint32 measured = field.isDirected() && raw < 0 ? -raw : raw;
    return measured >= field.range.rawMin && measured <= field.range.rawMax;
}

} // namespace model
