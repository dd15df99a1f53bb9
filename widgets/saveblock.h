#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <functional>
#include <optional>

class QWidget;

/**
 * The registers of an edit/save group as the one block that a save writes.
 *
 * A block starts from the bytes last read from the servo, and over these go the fields that the user has
 * changed, so that saving changes nothing else: not the registers in between, nor what a field cannot show exactly.
 */
class SaveBlock
{
public:
    /** The byte last read from a register; nothing when it has not been read. */
    using LastByte = std::function<std::optional<quint8>(quint8 address)>;

    /** What of its registers a control stands for, and how its value() is put there. */
    enum class Content : quint8 { Value, Magnitude, Direction, BaudRate };

    struct Entry
    {
        quint8 offset;
        quint8 address;
        /** 1, 2 or 4; little-endian. */
        quint8 bytes;
        const char *control;
        Content content = Content::Value;
    };

    static const SaveBlock &nonVolatile();
    static const SaveBlock &volatileParameters();

    quint8 firstAddress() const { return m_firstAddress; }

    /**
     * The bytes to write from firstAddress() for the controls below @p view. A field that the user has not
     * changed goes in only where the register has not been read; a register that has neither is written as 0.
     */
    QByteArray bytes(const QWidget &view, const LastByte &lastByte) const;

private:
    template <std::size_t Count>
    constexpr SaveBlock(quint8 firstAddress, int size, const Entry (&entries)[Count])
        : m_firstAddress(firstAddress), m_size(size), m_entries(entries), m_entryCount(Count)
    {
    }

    quint8 m_firstAddress;
    int m_size;
    const Entry *m_entries;
    std::size_t m_entryCount;
};
