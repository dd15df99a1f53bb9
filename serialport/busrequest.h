#pragma once

#include "serialport/packet.h"

#include <QByteArray>
#include <QMetaType>

#include <optional>

/** What is asked of one servo. */
struct BusRequest
{
    /** What each is on the wire stands in serialport/busoperation.cpp. */
    enum class Operation {
        Read,
        Write,
        Reboot,
        FactoryReset,
        Tell, ///< a write that does not count on an answer, and the one thing that may go to everybody
    };

    Operation operation = Operation::Read;
    quint8 id = 0;      ///< servo id, at most wire::MaximumId; wire::BroadcastId is everybody
    quint8 address = 0; ///< first register of a read or write
    quint8 length = 0;  ///< registers to read
    QByteArray data;    ///< bytes to write, in register order; 1 to 252
    /** What it must be framed in; nothing leaves that to what the servo answers in. */
    std::optional<wire::Framing> framing = std::nullopt;

    bool operator==(const BusRequest &other) const
    {
        return operation == other.operation && id == other.id && address == other.address && length == other.length &&
               data == other.data && framing == other.framing;
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
};

Q_DECLARE_METATYPE(BusRequest)
Q_DECLARE_METATYPE(BusResult)
