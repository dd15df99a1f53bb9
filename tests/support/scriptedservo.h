#pragma once

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"

#include <QByteArray>

/** A servo at the other end of a line in memory: its registers, and its own way with what it is asked. */
struct ScriptedServo
{
    /** Which bytes of a write it takes over. */
    enum class Keeps { All, Nothing, FirstHalf };

    wire::Framing framing = wire::Framing::Protocol2;
    QByteArray registers = QByteArray(256, '\0');
    int id = 3;
    bool isMute = false;
    bool answersReads = true;
    bool answersWrites = true;
    int readError = 0;
    int writeError = 0;
    Keeps keeps = Keeps::All;
    int idRegister = -1; ///< where it takes its id from after a write; none when negative

    QByteArray operator()(const wire::Packet &request)
    {
        if (isMute || request.framing != framing || (request.id != id && request.id != wire::BroadcastId))
            return {};
        const int askedId = id;
        const bool isRead = request.instruction == wire::Read;
        const QByteArray data = isRead && readError == 0 ? read(request.parameters) : QByteArray();
        if (request.instruction == wire::Write)
            write(request.parameters);
        if (request.id != askedId || !(isRead ? answersReads : answersWrites))
            return {};
        const auto error = quint8(isRead ? readError : writeError);
        return framing == wire::Framing::Protocol2 ? wire::protocol2::encodeStatus(quint8(askedId), error, data)
                                                   : wire::protocol1::encode(quint8(askedId), error, data);
    }

private:
    bool isOfTwoByteAddresses() const { return framing == wire::Framing::Protocol2; }

    QByteArray read(const QByteArray &parameters) const
    {
        if (isOfTwoByteAddresses())
            return registers.mid(wire::fromLittleEndian16(parameters, 0), wire::fromLittleEndian16(parameters, 2));
        return registers.mid(quint8(parameters[0]), quint8(parameters[1]));
    }

    void write(const QByteArray &parameters)
    {
        const int address = isOfTwoByteAddresses() ? wire::fromLittleEndian16(parameters, 0) : quint8(parameters[0]);
        const QByteArray data = parameters.mid(isOfTwoByteAddresses() ? 2 : 1);
        const int kept = keeps == Keeps::All ? data.size() : keeps == Keeps::Nothing ? 0 : data.size() / 2;
        registers.replace(address, kept, data.left(kept));
        if (idRegister >= 0)
            id = quint8(registers[idRegister]);
    }
};
