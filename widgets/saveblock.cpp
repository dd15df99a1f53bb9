#include "widgets/saveblock.h"

#include "device/igroupinputcomponent.h"
#include "device/iunitdatafield.h"
#include "link/serialhelper.h"

#include <QWidget>

namespace {

using Content = SaveBlock::Content;

constexpr quint32 DirectionBit = 0x8000;

// clang-format off
constexpr SaveBlock::Entry NonVolatileEntries[] = {
    // offset, register, bytes, control, content
    {0,  3,  1, "idSpinBox"},
    {1,  4,  1, "baudRateComboBox", Content::BaudRate},
    {2,  5,  1, "ackResponseTimeSpinBox"},
    {3,  6,  1, "operatingModeComboBox"},
    {4,  7,  2, "clockwiseLimitDoubleSpinBox"},
    {6,  9,  2, "counterClockwiseLimitDoubleSpinBox"},
    {8,  11, 1, "temperatureLimitDoubleSpinBox"},
    {9,  12, 1, "minVoltageLimitDoubleSpinBox"},
    {10, 13, 1, "maxVoltageLimitDoubleSpinBox"},
    {11, 14, 2, "quadratureCurrentLimitDoubleSpinBox"},
    {13, 16, 2, "angularVelocityLimitDoubleSpinBox"},
    {15, 18, 2, "accelerationLimitDoubleSpinBox"},
    {17, 20, 4, "hornPositionOffsetDoubleSpinBox"},
    {21, 24, 2, "movingThresholdDoubleSpinBox"},
    {23, 26, 1, "inputModeComboBox"},
    {24, 27, 2, "defPositionProportionalTermDoubleSpinBox"},
    {26, 29, 2, "defVelocityFeedforwardTermDoubleSpinBox"},
    {28, 31, 2, "defCurrentFeedforwardTermDoubleSpinBox"},
    {30, 33, 2, "defVelocityIntegralTermDoubleSpinBox"},
    {32, 35, 2, "defVelocityProportionalTermDoubleSpinBox"},
    {34, 37, 2, "defAngularVelocityProfileDoubleSpinBox"},
    {36, 39, 2, "defAccelerationProfileDoubleSpinBox"},
};
// clang-format on

// The registers between the fields and after the last one belong to the block, too, and are written back as
// read.
// clang-format off
constexpr SaveBlock::Entry VolatileEntries[] = {
    // offset, register, bytes, control, content
    {0,  48, 1, "enableMotorCheckBox"},
    {1,  49, 1, "pendingShadowInstructionCheckBox"},
    {6,  54, 2, "positionProportionalTermDoubleSpinBox"},
    {8,  56, 2, "velocityFeedforwardTermDoubleSpinBox"},
    {10, 58, 2, "currentFeedforwardTermDoubleSpinBox"},
    {12, 60, 2, "velocityIntegralTermDoubleSpinBox"},
    {14, 62, 2, "velocityProportionalTermDoubleSpinBox"},
    {20, 68, 2, "angularVelocityProfileDoubleSpinBox"},
    {22, 70, 2, "accelerationProfileDoubleSpinBox"},
    {30, 78, 4, "targetPositionDoubleSpinBox"},
    {34, 82, 2, "targetAngularVelocityDoubleSpinBox", Content::Magnitude},
    {34, 82, 2, "targetAngularVelocityDirectionComboBox", Content::Direction},
    {36, 84, 2, "targetTorqueDoubleSpinBox", Content::Magnitude},
    {36, 84, 2, "targetTorqueDirectionComboBox", Content::Direction},
};
// clang-format on

/** The bits of its registers that a control stands for. */
quint32 mask(Content content)
{
    switch (content) {
    case Content::Magnitude:
        return ~DirectionBit;
    case Content::Direction:
        return DirectionBit;
    case Content::Value:
    case Content::BaudRate:
        break;
    }
    return ~quint32(0);
}

quint32 registerBits(Content content, int value)
{
    switch (content) {
    case Content::Direction:
        return value > 0 ? DirectionBit : 0;
    case Content::BaudRate:
        return quint32(SerialHelper::baudRateRegisterValue(value));
    case Content::Value:
    case Content::Magnitude:
        break;
    }
    return quint32(value);
}

bool isDirty(const IUnitDataField &field)
{
    const auto *input = dynamic_cast<const IGroupInputComponent *>(&field);
    return input && input->isDirty();
}

} // namespace

const SaveBlock &SaveBlock::nonVolatile()
{
    static constexpr SaveBlock block(3, 38, NonVolatileEntries);
    return block;
}

const SaveBlock &SaveBlock::volatileParameters()
{
    static constexpr SaveBlock block(48, 60, VolatileEntries);
    return block;
}

QByteArray SaveBlock::bytes(const QWidget &view, const LastByte &lastByte) const
{
    QByteArray block(m_size, '\0');
    for (int offset = 0; offset < m_size; ++offset)
        block[offset] = char(lastByte(quint8(m_firstAddress + offset)).value_or(0));

    for (std::size_t i = 0; i < m_entryCount; ++i) {
        const Entry &entry = m_entries[i];
        const auto *field =
            dynamic_cast<const IUnitDataField *>(view.findChild<QWidget *>(QLatin1String(entry.control)));
        if (!field || (!isDirty(*field) && lastByte(entry.address)))
            continue;
        const quint32 changed = mask(entry.content);
        const quint32 bits = registerBits(entry.content, field->value()) & changed;
        for (int byte = 0; byte < entry.bytes; ++byte) {
            const quint8 kept = quint8(block[entry.offset + byte]) & quint8(~changed >> (8 * byte));
            block[entry.offset + byte] = char(kept | quint8(bits >> (8 * byte)));
        }
    }
    return block;
}
