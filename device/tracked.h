#pragma once

#include <QObject>
#include <QPointer>

/**
 * An interface of a QObject that somebody else owns; reads as null once the object is destroyed. Views come
 * and go while the process-wide helpers stay, which is why none of these keeps a bare pointer.
 */
template <typename Interface>
class Tracked
{
public:
    Tracked() = default;
    /** Tracks @p object when it has the interface, nothing otherwise. @p object may be null. */
    explicit Tracked(QObject *object)
        : m_interface(dynamic_cast<Interface *>(object)), m_object(m_interface ? object : nullptr)
    {
    }

    Interface *get() const { return m_object ? m_interface : nullptr; }
    QObject *object() const { return m_object; }

private:
    Interface *m_interface = nullptr;
    QPointer<QObject> m_object;
};
