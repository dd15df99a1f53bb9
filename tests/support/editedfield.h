#pragma once

#include "device/fieldbinding.h"
#include "link/serialhelper.h"
#include "widgets/zelvarcombobox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvarspinbox.h"

#include <QCheckBox>
#include <QRandomGenerator>

/** A field that users edit, and where its value stands in the servo of the own family. */
struct EditedField
{
    static constexpr int FirstVolatile = 48;
    static constexpr int BaudRateRegister = 4;
    static constexpr quint32 DirectionBit = 0x8000;

    const char *control;
    int address;
    int size; ///< bytes, the lowest one first
    quint32 mask = 0xFFFFFFFF;

    bool isVolatile() const { return address >= FirstVolatile; }
    /** What the names of its group's buttons begin with. */
    const char *group() const { return isVolatile() ? "v" : "nv"; }
    /** The registers of @p table that are written together with it. */
    QByteArray block(const QByteArray &table) const { return isVolatile() ? table.mid(48, 60) : table.mid(3, 38); }

    /** @p table once value() of the control, @p value, has been written to it. */
    QByteArray written(QByteArray table, int value) const
    {
        const quint32 bits = registerBits(value) & mask;
        for (int i = 0; i < size; ++i) {
            const quint8 kept = quint8(table[address + i]) & quint8(~mask >> (8 * i));
            table[address + i] = char(kept | quint8(bits >> (8 * i)));
        }
        return table;
    }

    /** Changes the control to something else, as its user would be able to. */
    static void change(QWidget &control, QRandomGenerator &random)
    {
        if (auto *list = qobject_cast<ZelvarComboBox *>(&control))
            list->setCurrentIndex((list->currentIndex() + 1 + random.bounded(list->count() - 2)) % (list->count() - 1));
        else if (auto *box = qobject_cast<QCheckBox *>(&control))
            box->toggle();
        else if (auto *number = qobject_cast<QAbstractSpinBox *>(&control))
            turn(*number, random);
    }

private:
    static void turn(QAbstractSpinBox &number, QRandomGenerator &random)
    {
        const QString before = number.text();
        while (number.text() == before) {
            if (auto *integer = qobject_cast<QSpinBox *>(&number))
                integer->setValue(random.bounded(integer->minimum(), integer->maximum()));
            else if (auto *real = qobject_cast<QDoubleSpinBox *>(&number))
                real->setValue(real->minimum() + random.generateDouble() * (real->maximum() - real->minimum()));
        }
    }

    quint32 registerBits(int value) const
    {
        if (address == BaudRateRegister)
            return quint32(SerialHelper::baudRateRegisterValue(value));
        return mask == DirectionBit ? (value > 0 ? DirectionBit : 0) : quint32(value);
    }
};

/** Every field that users edit. */
inline std::vector<EditedField> editedFields()
{
    std::vector<EditedField> fields;
    for (const FieldBinding &binding : fieldBindings()) {
        if (binding.field->isWritable())
            fields.push_back({binding.control, binding.field->address, binding.field->size, binding.mask()});
    }
    return fields;
}
