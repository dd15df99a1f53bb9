#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/** Stops the fuzzer when something that must hold does not. */
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/** The fuzzer's bytes, taken one by one as decisions; zeros when they are used up. */
class FuzzInput
{
public:
    FuzzInput(const uint8_t *bytes, std::size_t size) : m_bytes(bytes), m_left(size) {}

    bool isUsedUp() const { return m_left == 0; }

    quint8 byte()
    {
        if (m_left == 0)
            return 0;
        --m_left;
        return *m_bytes++;
    }

    /** At most @p limit bytes. */
    QByteArray bytes(int limit)
    {
        const int size = byte() % (limit + 1);
        QByteArray result;
        for (int i = 0; i < size && !isUsedUp(); ++i)
            result.append(static_cast<char>(byte()));
        return result;
    }

private:
    const uint8_t *m_bytes;
    std::size_t m_left;
};
