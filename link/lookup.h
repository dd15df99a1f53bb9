#pragma once

#include <map>
#include <stdexcept>

/**
 * The value that @p table holds for @p key.
 *
 * @throws std::out_of_range with the text "invalid map<K, T> key" when there is none. std::map::at() throws the
 *         same type with another text, which is why every lookup in the program's tables goes through here.
 */
template <typename Key, typename Value, typename Compare>
const Value &lookup(const std::map<Key, Value, Compare> &table, const Key &key)
{
    const auto found = table.find(key);
    if (found == table.end())
        throw std::out_of_range("invalid map<K, T> key");
    return found->second;
}
