#pragma once

#include "device/idevice.h"

#include <map>

/** Limits that a control has although no register gives it them. */
struct LimitsRow
{
    const char *objectName;
    model::Range range;
};

/** The part that all models have in common: limits by object name. */
class DeviceBase : public IDevice
{
public:
    FieldLimits limits(const QString &objectName) const override;
    bool definesField(const QString &objectName) const override;
    const model::Family &family() const override { return m_family; }

protected:
    /** @param family lives as long as the program. */
    explicit DeviceBase(const model::Family &family) : m_family(family) {}

    /** Gives the control @p objectName @p range, in place of one that it may have already. */
    void setRange(const QString &objectName, const model::Range &range);
    void setRanges(model::Rows<LimitsRow> rows);
    /** Runs @p controller before a new value of @p objectName is shown. REQUIRES: definesField(objectName). */
    void setController(const QString &objectName, std::shared_ptr<IFieldDependency> controller);

private:
    const model::Family &m_family;
    std::map<QString, FieldLimits> m_limits;
};
