#pragma once

#include <QByteArray>
#include <QtGlobal>

/** Packets of the servo bus as plain values, in both framings; no input or output in here. */
namespace wire {

/** The two framings that servos speak. */
enum class Framing {
    Protocol1, ///< FF FF, one-byte checksum
    Protocol2, ///< FF FF FD 00, byte stuffing, CRC-16
};

/** Instruction codes. Protocol 1.0 has no reboot and no sync read, and no code of its own in a status packet. */
enum Instruction : quint8 {
    Ping = 0x01,
    Read = 0x02,
    Write = 0x03,
    RegWrite = 0x04, ///< a write that is kept until the action
    Action = 0x05,
    FactoryReset = 0x06,
    Reboot = 0x08,
    Status = 0x55,
    SyncRead = 0x82,     ///< the same registers of several servos; as all that follow, to the broadcast id
    SyncWrite = 0x83,    ///< the same registers of several servos
    FastSyncRead = 0x8A, ///< as the sync read, answered by all in one packet
    BulkRead = 0x92,     ///< other registers of each servo
    BulkWrite = 0x93,    ///< other registers of each servo
};

/** Parameter of the 2.0 factory reset: what the servo keeps. */
enum ResetScope : quint8 {
    ResetEverything = 0xFF,
    ResetAllButId = 0x01,
    ResetAllButIdAndBaudRate = 0x02,
};

/** Error numbers in the low seven bits of a 2.0 status packet's error byte. */
enum ErrorNumber : quint8 {
    NoError = 0,
    ProcessFailure = 1,
    InstructionError = 2,
    ChecksumError = 3,
    DataRangeError = 4,
    DataLengthError = 5,
    DataLimitError = 6,
    AccessError = 7,
};
constexpr quint8 AlertBit = 0x80; ///< bit 7 of a 2.0 error byte: the hardware error register is not zero

/** Error bits of a 1.0 status packet. */
enum Protocol1Error : quint8 {
    VoltageErrorBit = 1 << 0,
    AngleLimitErrorBit = 1 << 1,
    OverheatingErrorBit = 1 << 2,
    RangeErrorBit = 1 << 3,
    ChecksumErrorBit = 1 << 4,
    OverloadErrorBit = 1 << 5,
    InstructionErrorBit = 1 << 6,
};

constexpr quint8 BroadcastId = 0xFE;
constexpr quint8 MaximumId = 0xFD; ///< highest id that a single servo can have

/** A packet as it was taken from the wire, checked and unstuffed. */
struct Packet
{
    Framing framing = Framing::Protocol2;
    quint8 id = 0;
    /** 2.0: the instruction code, Status in a reply. 1.0: the instruction of a request or the error bits of a reply. */
    quint8 instruction = 0;
    /** 2.0 status packets: the error byte. 0 in every other packet. */
    quint8 error = 0;
    /** Parameters, unstuffed, without the error byte. */
    QByteArray parameters;
    /** The bytes as they stood on the wire. */
    QByteArray raw;
};

/** @p value as two bytes, low byte first. */
QByteArray littleEndian16(quint16 value);

/** The 16-bit value of the two bytes at @p index, low byte first. REQUIRES: they exist. */
quint16 fromLittleEndian16(const QByteArray &bytes, int index);

} // namespace wire
