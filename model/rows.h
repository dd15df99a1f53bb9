#pragma once

#include <cstddef>

namespace model {

/** The rows of a table that lives as long as the program: a view, copied freely. */
template <class Row>
class Rows
{
public:
    constexpr Rows() = default;
    template <std::size_t Count>
    constexpr Rows(const Row (&rows)[Count]) // NOLINT(google-explicit-constructor): a table is its rows
        : m_first(rows), m_count(Count)
    {
    }
    /** The @p count rows from @p first on. */
    constexpr Rows(const Row *first, std::size_t count) : m_first(first), m_count(count) {}

    constexpr const Row *begin() const { return m_first; }
    constexpr const Row *end() const { return m_first + m_count; }
    constexpr std::size_t size() const { return m_count; }
    constexpr bool isEmpty() const { return m_count == 0; }

private:
    const Row *m_first = nullptr;
    std::size_t m_count = 0;
};

} // namespace model
