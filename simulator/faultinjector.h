#pragma once

#include <QByteArray>

#include <chrono>
#include <optional>
#include <random>
#include <vector>

namespace simulator {

/** What goes wrong on the bus; by default nothing. Probabilities are per reply, 0 to 1. */
struct FaultSettings
{
    double drop = 0;                    ///< the reply is lost
    double corrupt = 0;                 ///< one byte of it is changed
    double truncate = 0;                ///< its end is lost
    double garbage = 0;                 ///< stray bytes come before it
    std::chrono::milliseconds delay{0}; ///< from when it would come to when it does; no reply waits for another one
    bool chunk = false;                 ///< it comes in pieces
    bool echo = false;                  ///< every byte that the client sends comes back to it
    std::optional<int> muteAfter;       ///< replies after which none comes any more
    std::optional<int> vanishAfter;     ///< replies after which the port goes away in place of the next one
};

/** Spoils replies as told. The same replies with the same seed are spoilt in the same way, on every machine. */
class FaultInjector
{
public:
    /** Bytes, and how long to wait before they follow the ones before them. */
    struct Piece
    {
        QByteArray bytes;
        std::chrono::microseconds pause{0};
    };

    FaultInjector(const FaultSettings &settings, quint32 seed);

    const FaultSettings &settings() const { return m_settings; }

    /**
     * What of @p reply (not empty) reaches the client, not yet late; nothing when it is lost, or the port has vanished.
     */
    std::vector<Piece> pass(const QByteArray &reply);
    bool hasVanished() const { return m_hasVanished; }

private:
    bool happens(double probability);
    /** A number from 0 to @p end − 1. */
    int drawBelow(int end);
    void corrupt(QByteArray &reply);
    QByteArray strayBytes();
    std::vector<Piece> chunks(const QByteArray &reply);

    FaultSettings m_settings;
    std::mt19937 m_random;
    int m_replies = 0; ///< that were let through, whole or not
    bool m_hasVanished = false;
};

} // namespace simulator
