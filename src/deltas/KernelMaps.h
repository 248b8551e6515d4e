// Small helpers for maps from kernel records to what a figure made of them.
#pragma once

#include <figrep/Fwd.h>

namespace figrep {

/// The value under `key`, or null; also for a null key.
template <typename Map, typename Key>
typename Map::mapped_type LookUp(Map const& map, Key const& key) {
    auto const entry = map.find(key);
    return entry == map.end() ? typename Map::mapped_type() : entry->second;
}

/// Empties a map together with its buckets. Clearing keeps the buckets and touches each of them, so
/// that one large net would make every small one behind it dear.
template <typename Map>
void Renew(Map& map) {
    map = Map();
}

}  // namespace figrep
