#include "device/unitshelper.h"

#include <QCoreApplication>

#include <utility>

namespace {

using Choice = qint32 PhysicalQuantities::*;

/** The user's choice for each quantity, by kind. */
constexpr Choice Choices[] = {
    &PhysicalQuantities::angularVelocity, &PhysicalQuantities::angle,       &PhysicalQuantities::angularAcceleration,
    &PhysicalQuantities::torque,          &PhysicalQuantities::voltage,     &PhysicalQuantities::current,
    &PhysicalQuantities::temperature,     &PhysicalQuantities::returnDelay,
};

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
    const auto kind = model::FieldKind(fieldId);
    if (!model::isQuantity(kind) || !model::unit(kind, 1).isOffered())
        return 0;
    // The choices come from a file that anybody can edit.
    return (*m_quantities).*Choices[fieldId] == 1 ? 1 : 0;
}

QString UnitsHelper::unitName(qint32 fieldId) const
{
    return QCoreApplication::translate("UnitsHelper", unit(fieldId).text);
}

int UnitsHelper::decimals(qint32 fieldId) const
{
    return unit(fieldId).decimals;
}

double UnitsHelper::singleStep(qint32 fieldId) const
{
    return unit(fieldId).singleStep;
}

const model::Unit &UnitsHelper::unit(qint32 fieldId) const
{
    return model::unit(model::FieldKind(fieldId), unitIndex(fieldId));
}
