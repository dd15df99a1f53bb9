#include "recording/samplestore.h"

#include <utility>

namespace recording {

SampleStore::SampleStore(const model::Family &family, qint64 capacity) : m_family(&family), m_capacity(capacity) {}

void SampleStore::setCapacity(qint64 bytes)
{
    m_capacity = bytes;
    dropOldest();
}

void SampleStore::add(const model::RegisterImage &image)
{
    const std::size_t index = indexOf(m_end);
    if (index == 0) {
        m_chunks.push_back(std::make_unique<Chunk>());
        m_chunks.back()->registers.resize(std::size_t(ChunkSize * m_family->tableSize));
    }
    Chunk &chunk = *m_chunks.back();
    const auto when = std::chrono::duration_cast<std::chrono::microseconds>(image.lastRead().time_since_epoch());
    chunk.times[index] = when.count() * 2 + (std::exchange(m_isAfterGap, false) ? GapBit : 0);
    quint8 *bytes = chunk.registers.data() + index * std::size_t(m_family->tableSize);
    for (int address = 0; address < m_family->tableSize; ++address)
        bytes[address] = image.byte(address).value_or(0);
    ++m_end;
    dropOldest();
}

void SampleStore::dropOldest()
{
    // The newest chunk stays: it is the one that is being filled.
    while (m_chunks.size() > 1 && bytesUsed() > m_capacity) {
        m_chunks.pop_front();
        m_first += ChunkSize;
    }
}

SampleStore::Number SampleStore::lowerBound(TimePoint when) const
{
    Number low = m_first;
    Number high = m_end;
    while (low < high) {
        const Number middle = low + (high - low) / 2;
        if (timeOf(middle) < when)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

SampleStore::Number SampleStore::nearest(TimePoint when) const
{
    const Number after = lowerBound(when);
    if (after == m_end)
        return m_end - 1;
    if (after == m_first)
        return after;
    return when - timeOf(after - 1) < timeOf(after) - when ? after - 1 : after;
}

model::RegisterImage SampleStore::image(Number number) const
{
    model::RegisterImage image(m_family);
    image.take(0, QByteArray(reinterpret_cast<const char *>(bytesOf(number)), m_family->tableSize), timeOf(number));
    return image;
}

} // namespace recording
