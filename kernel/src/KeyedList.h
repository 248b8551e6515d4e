// Numbers gathered under keys, read back key by key.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace figkernel {

/// Which records of a sheet belong to which net or highway. Costs nothing for keys without records,
/// since a sheet has few of a design's nets.
class KeyedList {
public:
    using Entry = std::pair<std::uint32_t, std::uint32_t>;  ///< key, value

    void Add(std::uint32_t key, std::uint32_t value) { entries.emplace_back(key, value); }

    /// Values come in rising order below each key. Comes before the queries.
    void Sort() { std::sort(entries.begin(), entries.end()); }

    std::span<Entry const> At(std::uint32_t key) const {
        auto const first = std::lower_bound(entries.begin(), entries.end(), Entry(key, 0));
        auto last = first;
        while (last != entries.end() && last->first == key)
            ++last;
        return {first, last};
    }

    void AppendKeys(std::vector<std::uint32_t>& keys) const {
        for (Entry const& entry : entries)
            keys.push_back(entry.first);
    }

private:
    std::vector<Entry> entries;
};

/// The keys of all lists, each once, rising.
template <class... Lists>
std::vector<std::uint32_t> AllKeys(Lists const&... lists) {
    std::vector<std::uint32_t> keys;
    (lists.AppendKeys(keys), ...);
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

}  // namespace figkernel
