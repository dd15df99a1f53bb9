#pragma once

#include "serialport/busrequest.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"

#include <QByteArray>

#include <chrono>
#include <optional>
#include <vector>

struct BusOperation;

/**
 * One exchange on the bus, from the first packet to the reply or to giving up, without port and clock: says what to
 * send and how long to wait, and is told what arrived and that the time is over.
 *
 * To a servo whose framing is not known yet, an operation whose framing is guessed goes out in the first framing and,
 * when nothing answers within its answer window, in the other one; an answer in either counts.
 */
class Exchange
{
public:
    using Duration = std::chrono::microseconds;

    /** Bytes to send now and how long to wait from then on. */
    struct Transmission
    {
        QByteArray packet;
        Duration patience{0};
    };

    enum class Progress {
        Waiting,  ///< no answer yet
        Answered, ///< the servo did what it was asked
        Refused,  ///< the servo answered with an error number in place of that
        Garbled,  ///< the servo says that the request reached it damaged: worth repeating
    };

    /**
     * @param request what BusOperation::isPossible() holds for.
     * @param first framing to speak first to a servo of which neither @p request nor @p known says anything.
     * @param baudRate bits per second; greater than 0.
     */
    Exchange(const BusRequest &request, wire::Framing first, std::optional<wire::Framing> known, int baudRate);

    const BusRequest &request() const { return m_request; }
    const BusOperation &operation() const { return m_operation; }

    /** The packet that starts the exchange, or repeats it after a time-out. */
    Transmission begin();
    /** Takes received bytes, in any slices. */
    Progress take(const QByteArray &bytes);
    /**
     * The time is over: what to send or wait for still, or nothing when the attempt has failed. A transmission without
     * a packet means waiting on.
     */
    std::optional<Transmission> timeOut();

    /**
     * Longest time that a healthy servo takes from begin() to the end of its answer, on a port that holds no bytes
     * back: all that has to go over the wire until then, in the other framing after the first one where that is
     * guessed.
     */
    Duration longestAnswer() const;

    /** The latest answer, which is a refusal unless it gave Progress::Answered; nothing until one came. */
    const std::optional<wire::Packet> &answer() const { return m_answer; }

    /** What servos said in answer to whoever is asked for who is there. */
    const std::vector<wire::Packet> &heard() const { return m_heard; }
    /** Whether somebody of those who were asked has answered. */
    bool heardWhoWasAsked() const { return m_answer || (m_request.id == wire::BroadcastId && !m_heard.empty()); }
    bool hasEcho() const { return m_hasEcho; }
    /** Bytes taken that were part of no packet; meaningful when everybody was listened to. */
    int strayBytes() const { return m_strayBytes; }

    /** Longest time from handing @p requestSize bytes to the port until the whole reply of @p replySize is here. */
    static Duration patience(int requestSize, int replySize, int baudRate);
    /** Time that request and reply take on the wire, and a little: when to try the other framing. */
    static Duration answerWindow(int requestSize, int replySize, int baudRate);

private:
    enum class Stage {
        FirstFraming, ///< waiting for the answer window of a servo whose framing is not known
        LastFraming,  ///< nothing else will be sent in this attempt
    };

    Transmission transmit(wire::Framing framing);
    QByteArray encoded(wire::Framing framing) const;
    int dataSize(wire::Framing framing) const;
    int replySize(wire::Framing framing) const;
    bool mayTryOtherFraming() const;
    Duration answerTime(wire::Framing framing) const;
    Duration patienceFor(wire::Framing framing, int packetSize) const;
    bool isInsideFirstAnswer() const;
    std::optional<Progress> examine(wire::Packet &&packet);
    std::optional<Progress> hear(wire::Packet &&packet);
    Duration patienceToFind(wire::Framing framing, int packetSize) const;

    BusRequest m_request;
    const BusOperation &m_operation;
    wire::Framing m_first;
    std::optional<wire::Framing> m_known;
    int m_baudRate;
    Stage m_stage = Stage::LastFraming;
    bool m_windowExtended = false;
    Duration m_waited{0}; ///< patience of the transmissions of this attempt so far
    bool m_listensTo1 = false;
    bool m_listensTo2 = false;
    QByteArray m_unseenEcho; ///< a 1.0 packet that an adapter may echo
    wire::protocol1::Parser m_parser1;
    wire::protocol2::Parser m_parser2;
    std::optional<wire::Packet> m_answer;
    std::vector<wire::Packet> m_heard;
    bool m_hasEcho = false;
    int m_strayBytes = 0;
};
