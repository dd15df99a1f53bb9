#include "settings/settings.h"

#include <QSettings>

namespace {

const QString Organisation = QStringLiteral("Ostravel");
const QString Application = QStringLiteral("Zelvar Servo Manager");

} // namespace

Settings::Settings(const QString &group)
    : m_store(std::make_shared<QSettings>(Organisation, Application)), m_group(group)
{
}

Settings::~Settings() = default;

QVariant Settings::value(const QString &key, const QVariant &defaultValue) const
{
    m_store->beginGroup(m_group);
    QVariant value = m_store->value(key, defaultValue);
    m_store->endGroup();
    return value;
}

void Settings::setValue(const QString &key, const QVariant &value)
{
    m_store->beginGroup(m_group);
    m_store->setValue(key, value);
    m_store->endGroup();
}

int Settings::boundedInt(const QString &key, int defaultValue, int minimum, int maximum) const
{
    // QVariant::toInt() would cut a larger number down to its low 32 bits, which may well lie in the range.
    const qlonglong number = value(key, defaultValue).toLongLong();
    return static_cast<int>(qBound(qlonglong(minimum), number, qlonglong(maximum)));
}
