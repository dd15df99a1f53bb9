#include "device/zelvarv1.h"

#include "device/fieldbinding.h"
#include "model/families.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/** Limits that the register of the control does not give it, or that a control without a register has. */
constexpr LimitsRow OddLimits[] = {
    {"modelNumberLineEdit", {0, 255, 0.0, 255.0}},              // has always been shown on the scale of one byte
    {"deadZoneDoubleSpinBox", {0, 1024, 0.0, 1.5707963267945}}, // no firmware has had the register yet
};

/** The field that the first row of each bank belongs to. The banks are how the register tables are laid out. */
constexpr const char *BankStarts[] = {"model_number", "default_position_proportional_gain", "control_enable",
                                      "actual_position"};

/** A byte that is labelled like another one of its field, as the family always has been. */
struct MislabelledByte
{
    const char *key;
    int byte;
    int labelledAs;
};
constexpr MislabelledByte MislabelledBytes[] = {{"actual_torque", 1, 0}};

int labelledAs(const model::Field &field, int byte)
{
    for (const MislabelledByte &row : MislabelledBytes) {
        if (row.byte == byte && qstrcmp(row.key, field.key) == 0)
            return row.labelledAs;
    }
    return byte;
}

QString describedByte(const model::Field &field, int byte)
{
    QString label = ZelvarV1::fieldLabel(field);
    const int named = labelledAs(field, byte);
    if (field.size == 1)
        return label;
    if (field.size > 2)
        return QCoreApplication::translate("ZelvarV1", "%1 (byte %2)").arg(label).arg(named);
    return (named == 0 ? QCoreApplication::translate("ZelvarV1", "%1 (lower)")
                       : QCoreApplication::translate("ZelvarV1", "%1 (upper)"))
        .arg(label);
}

/** The range of the control of @p binding; nothing for the list of baud rates, which is not range-mapped. */
std::optional<model::Range> rangeOf(const FieldBinding &binding)
{
    if (binding.kind() == model::FieldKind::BaudRate)
        return std::nullopt;
    if (model::isChoice(binding.kind()))
        return model::Range(); // a list has no numbers to map
    if (binding.part == FieldBinding::Part::Flag)
        return model::Range{0, 1, 0.0, 1.0};
    return binding.field->range;
}

} // namespace

ZelvarV1::ZelvarV1(const ModeDependencies &dependencies) : DeviceBase(model::ZelvarV1Family)
{
    for (const FieldBinding &binding : fieldBindings()) {
        if (const auto range = rangeOf(binding))
            setRange(QLatin1String(binding.control), *range);
    }
    setRanges(OddLimits);
    setController(QStringLiteral("operatingModeComboBox"), dependencies.operatingMode);
    setController(QStringLiteral("inputModeComboBox"), dependencies.inputMode);
    describeRegisters();
}

QString ZelvarV1::fieldLabel(const model::Field &field)
{
    return QCoreApplication::translate("ZelvarV1", field.label);
}

unsigned ZelvarV1::controlTableSize() const
{
    return unsigned(family().tableSize);
}

std::optional<RegisterDescription> ZelvarV1::registerDescription(quint16 address) const
{
    const auto found = m_registers.find(address);
    if (found == m_registers.end())
        return std::nullopt;
    return found->second;
}

unsigned ZelvarV1::registerCount(quint32 bank) const
{
    return unsigned(std::count_if(m_registers.begin(), m_registers.end(),
                                  [bank](const auto &entry) { return entry.second.bank == bank; }));
}

bool ZelvarV1::hasRegisterMap() const
{
    return true;
}

void ZelvarV1::describeRegisters()
{
    quint32 bank = 0;
    quint16 row = 0;
    for (const model::Field &field : family().fields) {
        if (bank + 1 < std::size(BankStarts) && qstrcmp(BankStarts[bank + 1], field.key) == 0) {
            ++bank;
            row = 0;
        }
        for (int byte = 0; byte < field.size; ++byte, ++row) {
            m_registers.emplace(quint16(field.address + byte),
                                RegisterDescription{bank, row, field.isWritable(), describedByte(field, byte)});
        }
    }
}
