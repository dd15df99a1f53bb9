#pragma once

#include "model/littleendian.h"
#include "model/registerimage.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <memory>
#include <vector>

namespace recording {

using TimePoint = model::RegisterImage::TimePoint;

/**
 * The latest samples of one servo's registers, as compact as they were read: the bytes of the whole table and the time
 * in microseconds. What does not fit any more goes, the oldest first. To be used in one thread.
 */
class SampleStore
{
public:
    /** Of a sample: counted from the first one that was ever added, so that it stays while older ones go. */
    using Number = qint64;

    /** An hour at a hundred samples a second takes 46 MB of the own family. */
    static constexpr qint64 FullCapacity = 64'000'000; ///< bytes
    /** Ten minutes at a hundred samples a second. */
    static constexpr qint64 SmallCapacity = 8'000'000; ///< bytes

    explicit SampleStore(const model::Family &family, qint64 capacity = FullCapacity);

    const model::Family &family() const { return *m_family; }
    /** Bytes that samples may take; those that do not fit go at once. */
    void setCapacity(qint64 bytes);

    /** Takes what @p image has, dated by its last reply; what it does not know counts as 0. REQUIRES: it is of the
     *  store's family, and not older than the sample before. */
    void add(const model::RegisterImage &image);
    /** The sample that comes next does not continue the one before: polls have been lost between them. */
    void markGap() { m_isAfterGap = true; }

    bool isEmpty() const { return m_first == m_end; }
    /** The oldest sample that is still there. */
    Number first() const { return m_first; }
    /** One past the newest sample. */
    Number end() const { return m_end; }
    /** The first sample that is not before @p when; end() if there is none. */
    Number lowerBound(TimePoint when) const;
    /** The sample that is nearest to @p when. REQUIRES: !isEmpty(). */
    Number nearest(TimePoint when) const;

    // REQUIRES of each: the sample is there.
    /** Since the clock's origin. */
    std::chrono::microseconds microsecondsOf(Number number) const
    {
        return std::chrono::microseconds(chunkOf(number).times[indexOf(number)] >> 1);
    }
    TimePoint timeOf(Number number) const { return TimePoint(microsecondsOf(number)); }
    /** Whether polls have been lost right before the sample. */
    bool followsGap(Number number) const { return (chunkOf(number).times[indexOf(number)] & GapBit) != 0; }
    qint32 raw(Number number, const model::Field &field) const
    {
        return model::rawValue(field, model::littleEndian(bytesOf(number) + field.address, field.size));
    }
    model::RegisterImage image(Number number) const;

    /** What visit() tells of a sample. */
    struct Visited
    {
        qint64 microseconds; ///< since the clock's origin
        bool followsGap;
        qint32 raw; ///< of the field
    };
    /** Hands the samples from @p begin to before @p end on to @p take, faster than one by one. */
    template <class Take>
    void visit(Number begin, Number end, const model::Field &field, Take take) const
    {
        while (begin < end) {
            const Chunk &chunk = chunkOf(begin);
            const std::size_t first = indexOf(begin);
            const auto last = std::size_t(std::min<qint64>(ChunkSize, qint64(first) + end - begin));
            const quint8 *bytes = bytesOf(begin) + field.address;
            for (std::size_t i = first; i < last; ++i, bytes += m_family->tableSize)
                take(Visited{chunk.times[i] >> 1, (chunk.times[i] & GapBit) != 0,
                             model::rawValue(field, model::littleEndian(bytes, field.size))});
            begin += Number(last - first);
        }
    }

    /** Memory that the samples take. */
    qint64 bytesUsed() const { return qint64(m_chunks.size()) * bytesPerChunk(); }

private:
    static constexpr qint64 ChunkSize = 1024; ///< samples
    static constexpr qint64 GapBit = 1;       ///< in a time, the lowest bit

    struct Chunk
    {
        std::array<qint64, ChunkSize> times; ///< microseconds of the steady clock, twice, and the gap bit
        std::vector<quint8> registers;
    };

    qint64 bytesPerChunk() const { return ChunkSize * (qint64(sizeof(qint64)) + m_family->tableSize); }
    const Chunk &chunkOf(Number number) const { return *m_chunks[std::size_t(quint64(number - m_first) / ChunkSize)]; }
    static std::size_t indexOf(Number number) { return std::size_t(quint64(number) % ChunkSize); }
    const quint8 *bytesOf(Number number) const
    {
        return chunkOf(number).registers.data() + indexOf(number) * std::size_t(m_family->tableSize);
    }
    void dropOldest();

    const model::Family *m_family;
    qint64 m_capacity;
    std::deque<std::unique_ptr<Chunk>> m_chunks; ///< only whole ones go, so that the first sample is a chunk's first
    Number m_first = 0;
    Number m_end = 0;
    bool m_isAfterGap = false;
};

} // namespace recording
