#pragma once

#include <QString>
#include <QVariant>

#include <memory>

class QSettings;

/**
 * The program's persistent values, confined to one group. Values are stored as they are set; several objects may
 * address the same group and see one another's writes. Nothing else in the program touches QSettings.
 */
class Settings
{
public:
    /** @param group the group that every access is confined to. */
    explicit Settings(const QString &group);
    ~Settings();
    Q_DISABLE_COPY(Settings)

    /** The stored value of @p key, or @p defaultValue when there is none. */
    QVariant value(const QString &key, const QVariant &defaultValue) const;
    void setValue(const QString &key, const QVariant &value);

    /**
     * The stored whole number of @p key, @p defaultValue when there is none. The store is a file that anybody may have
     * edited: what is no number reads as 0, and a number beyond @p minimum or @p maximum ends there.
     */
    int boundedInt(const QString &key, int defaultValue, int minimum, int maximum) const;

private:
    std::shared_ptr<QSettings> m_store;
    QString m_group;
};
