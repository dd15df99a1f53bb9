#pragma once

#include "device/fieldbinding.h"

#include <QByteArray>
#include <QtGlobal>

#include <functional>
#include <optional>
#include <vector>

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

    static const SaveBlock &nonVolatile();
    static const SaveBlock &volatileParameters();

    quint8 firstAddress() const { return m_firstAddress; }
    int size() const { return m_size; }
    /** What of the block the user can change. */
    const std::vector<FieldBinding> &bindings() const { return m_bindings; }

    /**
     * The bytes to write from firstAddress() for the controls below @p view. A field that the user has not
     * changed goes in only where the register has not been read; a register that has neither is written as 0.
     */
    QByteArray bytes(const QWidget &view, const LastByte &lastByte) const;

private:
    /** The fields of @p access, and the registers between them up to the end of the field @p last. */
    SaveBlock(model::Access access, const char *last);

    quint8 m_firstAddress;
    int m_size;
    std::vector<FieldBinding> m_bindings;
};
