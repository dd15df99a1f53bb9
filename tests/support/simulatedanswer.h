#pragma once

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/isimulatedservo.h"

/** What @p servo answers to an instruction in its framing; an empty packet when it keeps silent. */
inline wire::Packet answerOf(simulator::ISimulatedServo &servo, quint8 instruction, const QByteArray &parameters)
{
    wire::Packet request;
    request.framing = servo.framing();
    request.id = servo.id();
    request.instruction = instruction;
    request.parameters = parameters;
    const QByteArray reply = servo.execute(request);
    wire::protocol1::Parser parser1;
    wire::protocol2::Parser parser2;
    parser1.append(reply);
    parser2.append(reply);
    const auto answer = request.framing == wire::Framing::Protocol2 ? parser2.next() : parser1.next();
    return answer.value_or(wire::Packet());
}

/** Has @p data written to @p servo. @return its answer. */
inline wire::Packet answerToWrite(simulator::ISimulatedServo &servo, int address, const QByteArray &data)
{
    const bool isSecond = servo.framing() == wire::Framing::Protocol2;
    return answerOf(servo, wire::Write,
                    isSecond ? wire::protocol2::writeParameters(quint16(address), data)
                             : wire::protocol1::writeParameters(quint8(address), data));
}
