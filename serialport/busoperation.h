#pragma once

#include "serialport/busrequest.h"

#include <QByteArray>

#include <chrono>

/** What an operation is: a row of the table in busoperation.cpp, which is all that a new one needs. */
struct BusOperation
{
    /** What it is in one framing. */
    struct Wire
    {
        quint8 code;                                    ///< of the instruction packet
        QByteArray (*parameters)(const BusRequest &);   ///< of the instruction packet
        int (*answerSize)(const BusRequest &) noexcept; ///< data bytes of the answer
    };

    BusRequest::Operation operation;
    int attempts; ///< how often it is sent at most until an answer comes
    /** How long it is waited for in all; 0: each time as long as an answer takes. */
    std::chrono::milliseconds patience;
    /** Whether a servo whose framing is not known may be sent it in both. */
    bool isFramingGuessed;
    bool carriesData;  ///< whether it has data to write
    bool changesServo; ///< whether a read from before it may be out of date
    /** Whether it may go to everybody, whom nobody answers to anything else than a Find: it is waited for as long as an
     * answer is on the wire. */
    bool mayGoToAll;
    /** Whether it hears everybody who speaks meanwhile, asked or not, and everybody answers it in turn. */
    bool isForWhoeverAnswers;
    Wire inProtocol1;
    Wire inProtocol2;

    const Wire &in(wire::Framing framing) const
    {
        return framing == wire::Framing::Protocol1 ? inProtocol1 : inProtocol2;
    }

    /** The row of @p operation. REQUIRES: there is one. */
    static const BusOperation &of(BusRequest::Operation operation);
    /** Whether @p request can be sent: a known operation, an id that it may go to, data that both framings can carry.
     */
    static bool isPossible(const BusRequest &request);
};
