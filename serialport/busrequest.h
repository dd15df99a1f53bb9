#pragma once

#include "serialport/packet.h"

#include <QByteArray>
#include <QMetaType>

#include <chrono>
#include <optional>
#include <vector>

/** What is asked of one servo. */
struct BusRequest
{
    /** What each is on the wire stands in serialport/busoperation.cpp. */
    enum class Operation {
        Read,
        Write,
        Reboot,
        FactoryReset,
        Tell, ///< a write that does not count on an answer; may go to everybody
        /**
         * Who is there? Asked in the framing given, 2.0 if none is; everybody may be asked in 2.0. Sent once and not
         * drained for, so that many go out in a row: what is heard of earlier ones comes with the result, too.
         */
        Find,
    };

    Operation operation = Operation::Read;
    quint8 id = 0;      ///< servo id, at most wire::MaximumId; wire::BroadcastId is everybody
    quint8 address = 0; ///< first register of a read or write
    quint8 length = 0;  ///< registers to read
    QByteArray data;    ///< bytes to write, in register order; 1 to 252
    /** What it must be framed in; nothing leaves that to what the servo answers in. */
    std::optional<wire::Framing> framing = std::nullopt;
    /**
     * Of a Find: how long to go on listening when the line is free again, for answers that the adapter holds back or
     * brings late.
     */
    std::chrono::microseconds linger{0};

    bool operator==(const BusRequest &other) const
    {
        return operation == other.operation && id == other.id && address == other.address && length == other.length &&
               data == other.data && framing == other.framing && linger == other.linger;
    }
};

/** What became of a request. */
struct BusResult
{
    enum class Outcome {
        Answered,  ///< the servo did it
        Refused,   ///< the servo answered with an error number instead
        NoAnswer,  ///< nothing valid came in all attempts; a request that changes the servo may have reached it
        PortLost,  ///< the port went away, or was not open when the request was made
        Withdrawn, ///< withdrawn, or the port was closed by its user, or it is no request that a servo can be sent
    };

    Outcome outcome = Outcome::NoAnswer;
    /**
     * The error byte of the last answer, in the own family's numbering (wire::ErrorNumber) and with the alert bit,
     * which may be set in an answer that is no refusal; 0 when no answer came.
     */
    quint8 error = 0;
    QByteArray data;     ///< the registers that were read, in register order; empty unless Answered
    int attempts = 0;    ///< how often the request was sent; 0 means that the servo cannot have seen it
    wire::Packet answer; ///< the last answer as it came, its raw bytes empty when none did
    /**
     * Of a Find: all answers that came meanwhile, whoever's they are. In 2.0 their parameters are model number and
     * firmware, 3 bytes. A 1.0 answer without parameters that is the request byte for byte may be an echo of it.
     */
    std::vector<wire::Packet> heard;
    bool hasEcho = false; ///< of a Find in 2.0: the request came back
    int strayBytes = 0;   ///< of a Find: received bytes that make no packet, as when two servos speak at once
};

Q_DECLARE_METATYPE(BusRequest)
Q_DECLARE_METATYPE(BusResult)
