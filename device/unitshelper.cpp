#include "device/unitshelper.h"

#include <QCoreApplication>

#include <utility>

namespace {

struct Unit
{
    const char *text;
    int decimals;
    double singleStep;
    /** Set for the default of a quantity that offers a choice. Part of the table; nothing asks for it yet. */
    quint64 flag;
};

struct QuantityRow
{
    qint32 PhysicalQuantities::*choice;
    Unit units[2];
};

constexpr Unit None = {"", 0, 0.0, 0};

// One position count is 2π / 4096 rad, the step of an angle. Degrees have no step of their own.
constexpr double OneCount = 0.001533980787885254;

// By field id.
// clang-format off
constexpr QuantityRow Quantities[] = {
    {&PhysicalQuantities::angularVelocity,     {{"rad/s",   2, 0.1,      1}, {"rpm",     1, 1.0, 0}}},
    {&PhysicalQuantities::angle,               {{QT_TRANSLATE_NOOP("UnitsHelper", "radians"), 3, OneCount, 1},
                                                {QT_TRANSLATE_NOOP("UnitsHelper", "degrees"), 2, 0.0, 0}}},
    {&PhysicalQuantities::angularAcceleration, {{"rad/s²",  2, 0.01,     0}, None}},
    {&PhysicalQuantities::torque,              {{"Nm",      2, 0.1,      1}, {"kg-cm",   2, 0.1, 0}}},
    {&PhysicalQuantities::voltage,             {{"V",       1, 0.5,      0}, None}},
    {&PhysicalQuantities::current,             {{"A",       3, 0.1,      1}, {"mA",      0, 1.0, 0}}},
    {&PhysicalQuantities::temperature,         {{"°C",      0, 1.0,      1}, {"°F",      1, 1.0, 0}}},
    {&PhysicalQuantities::returnDelay,         {{"μs",      0, 1.0,      0}, None}},
};
// clang-format on

constexpr qint32 QuantityCount = sizeof(Quantities) / sizeof(Quantities[0]);

bool isQuantity(qint32 fieldId)
{
    return fieldId >= 0 && fieldId < QuantityCount;
}

const Unit &unitOf(qint32 fieldId, qint32 unitIndex)
{
    return isQuantity(fieldId) ? Quantities[fieldId].units[unitIndex] : None;
}

} // namespace

UnitsHelper::UnitsHelper(std::shared_ptr<const PhysicalQuantities> quantities)
    : m_quantities(std::move(quantities)), m_conversion(std::make_shared<ConversionHelper>())
{
    if (!m_quantities)
        m_quantities = std::make_shared<PhysicalQuantities>();
}

double UnitsHelper::toDisplay(double value, qint32 fieldId) const
{
    return m_conversion->toDisplay(value, fieldId, unitIndex(fieldId));
}

double UnitsHelper::fromDisplay(double value, qint32 fieldId) const
{
    return m_conversion->fromDisplay(value, fieldId, unitIndex(fieldId));
}

qint32 UnitsHelper::unitIndex(qint32 fieldId) const
{
    if (!isQuantity(fieldId))
        return 0;
    const QuantityRow &quantity = Quantities[fieldId];
    const bool isOffered = *quantity.units[1].text != '\0';
    // The choices come from a file that anybody can edit.
    return isOffered && (*m_quantities).*quantity.choice == 1 ? 1 : 0;
}

QString UnitsHelper::unitName(qint32 fieldId) const
{
    return QCoreApplication::translate("UnitsHelper", unitOf(fieldId, unitIndex(fieldId)).text);
}

int UnitsHelper::decimals(qint32 fieldId) const
{
    return unitOf(fieldId, unitIndex(fieldId)).decimals;
}

double UnitsHelper::singleStep(qint32 fieldId) const
{
    return unitOf(fieldId, unitIndex(fieldId)).singleStep;
}
