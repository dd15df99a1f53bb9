#include "device/devicebase.h"

#include "link/lookup.h"

#include <utility>

FieldLimits DeviceBase::limits(const QString &objectName) const
{
    return lookup(m_limits, objectName);
}

bool DeviceBase::definesField(const QString &objectName) const
{
    return m_limits.count(objectName) != 0;
}

void DeviceBase::setRange(const QString &objectName, const model::Range &range)
{
    m_limits[objectName] = FieldLimits{range, nullptr};
}

void DeviceBase::setRanges(model::Rows<LimitsRow> rows)
{
    for (const LimitsRow &row : rows)
        setRange(QLatin1String(row.objectName), row.range);
}

void DeviceBase::setController(const QString &objectName, std::shared_ptr<IFieldDependency> controller)
{
    m_limits[objectName].controller = std::move(controller);
}
