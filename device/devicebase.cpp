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

void DeviceBase::setController(const QString &objectName, std::shared_ptr<IFieldDependency> controller)
{
    m_limits[objectName].controller = std::move(controller);
}

void DeviceBase::addLimits(const LimitsRow &row)
{
    m_limits.emplace(QLatin1String(row.objectName),
                     FieldLimits{row.rawMin, row.rawMax, row.physicalMin, row.physicalMax, nullptr});
}
