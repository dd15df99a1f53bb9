#include "controllers/controllerbase.h"

#include "device/fieldhelper.h"
#include "device/iunitdatafield.h"
#include "link/processwide.h"

#include <QComboBox>

#include <algorithm>

namespace {

IZelvarField *fieldNamed(const QString &name)
{
    const auto &fields = ProcessWide<FieldHelper>::instance();
    return fields ? fields->field(name) : nullptr;
}

/** The controls of modelocks::Rows as they are looked up, which happens with each poll. */
const std::array<QString, modelocks::Count> &lockedNames()
{
    static const auto names = [] {
        std::array<QString, modelocks::Count> converted;
        std::transform(std::begin(modelocks::Rows), std::end(modelocks::Rows), converted.begin(),
                       [](const ModeLockRow &row) { return QString::fromLatin1(row.control); });
        return converted;
    }();
    return names;
}

bool showsPlaceholder(const IUnitDataField &field)
{
    const auto *list = dynamic_cast<const QComboBox *>(&field);
    return list && list->currentIndex() == list->count() - 1;
}

} // namespace

ControllerBase::ControllerBase()
    : m_operatingMode(dynamic_cast<const IUnitDataField *>(fieldNamed(QStringLiteral("operatingModeComboBox")))),
      m_inputMode(dynamic_cast<const IUnitDataField *>(fieldNamed(QStringLiteral("inputModeComboBox"))))
{
    std::transform(lockedNames().begin(), lockedNames().end(), m_controls.begin(), fieldNamed);
}

void ControllerBase::applyLocks(OperatingMode mode) const
{
    const bool active = isActive(mode);
    for (std::size_t i = 0; i < modelocks::Count; ++i) {
        const ModeLock lock = modelocks::Rows[i].byMode[static_cast<std::size_t>(mode)];
        if (m_controls[i] && lock != ModeLock::Untouched)
            m_controls[i]->setLocked(isUsed(lock) != active);
    }
}

bool ControllerBase::isActive(OperatingMode mode) const
{
    return m_operatingMode &&
           (m_operatingMode->value() == static_cast<qint32>(mode) || showsPlaceholder(*m_operatingMode));
}

bool ControllerBase::isUsed(ModeLock lock) const
{
    if (lock == ModeLock::InputModeZero)
        return m_inputMode && m_inputMode->value() == 0;
    return lock == ModeLock::Unlocked;
}
