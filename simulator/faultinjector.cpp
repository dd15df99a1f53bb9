#include "simulator/faultinjector.h"

#include <algorithm>

namespace simulator {

namespace {

constexpr int MostStrayBytes = 4;
constexpr int LongestChunk = 24;
constexpr int LongestChunkPauseMicroseconds = 1000;

} // namespace

FaultInjector::FaultInjector(const FaultSettings &settings, quint32 seed) : m_settings(settings), m_random(seed) {}

bool FaultInjector::happens(double probability)
{
    // Drawn even where it can't happen, so that one fault's probability does not shift the dice of the
    // others. The standard distributions give other numbers in other libraries; the generator itself does not.
    return m_random() < probability * 4294967296.0;
}

int FaultInjector::drawBelow(int end)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(end));
}

std::vector<FaultInjector::Piece> FaultInjector::pass(const QByteArray &reply)
{
    if (m_settings.vanishAfter && m_replies >= *m_settings.vanishAfter) {
        m_hasVanished = true;
        return {};
    }
    if (m_settings.muteAfter && m_replies >= *m_settings.muteAfter)
        return {};

    const bool isDropped = happens(m_settings.drop);
    const bool isCorrupted = happens(m_settings.corrupt);
    const bool isTruncated = happens(m_settings.truncate);
    const bool hasGarbage = happens(m_settings.garbage);
    if (isDropped)
        return {};

    QByteArray bytes = reply;
    if (isCorrupted)
        corrupt(bytes);
    if (isTruncated && bytes.size() > 1)
        bytes.truncate(1 + drawBelow(bytes.size() - 1));
    if (hasGarbage)
        bytes.prepend(strayBytes());
    ++m_replies;

    return m_settings.chunk ? chunks(bytes) : std::vector<Piece>{{bytes, {}}};
}

void FaultInjector::corrupt(QByteArray &reply)
{
    const int index = drawBelow(reply.size());
    const int flippedBits = 1 + drawBelow(0xFF);
    reply[index] = static_cast<char>(reply[index] ^ flippedBits);
}

QByteArray FaultInjector::strayBytes()
{
    // Mostly the zeros that a line makes when its driver is switched off.
    QByteArray bytes(1 + drawBelow(MostStrayBytes), '\0');
    for (char &byte : bytes) {
        if (happens(0.25))
            byte = static_cast<char>(drawBelow(256));
    }
    return bytes;
}

std::vector<FaultInjector::Piece> FaultInjector::chunks(const QByteArray &reply)
{
    std::vector<Piece> pieces;
    for (int begin = 0; begin < reply.size(); begin += pieces.back().bytes.size()) {
        const QByteArray bytes = reply.mid(begin, 1 + drawBelow(LongestChunk));
        const std::chrono::microseconds pause(begin ? drawBelow(LongestChunkPauseMicroseconds) : 0);
        pieces.push_back({bytes, pause});
    }
    return pieces;
}

} // namespace simulator
