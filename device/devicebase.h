#pragma once

#include "device/idevice.h"

#include <map>

/** One row of a model's limits table. */
struct LimitsRow
{
    const char *objectName;
    qint32 rawMin;
    qint32 rawMax;
    double physicalMin;
    double physicalMax;
};

/** The part that all models have in common: limits by object name. */
class DeviceBase : public IDevice
{
public:
    FieldLimits limits(const QString &objectName) const override;
    bool definesField(const QString &objectName) const override;

protected:
    template <std::size_t Count>
    explicit DeviceBase(const LimitsRow (&rows)[Count])
    {
        for (const LimitsRow &row : rows)
            addLimits(row);
    }

    /**
     * Runs @p controller before a new value of @p objectName is shown. REQUIRES: definesField(objectName).
     */
    void setController(const QString &objectName, std::shared_ptr<IFieldDependency> controller);

private:
    void addLimits(const LimitsRow &row);

    std::map<QString, FieldLimits> m_limits;
};
