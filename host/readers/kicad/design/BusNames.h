// Names of buses, taken apart into the nets that they carry.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fighost::kicad {

/// Members of group names that stand for lists of others.
using BusAliases = std::map<std::string, std::vector<std::string>, std::less<>>;

struct BusMember {
    std::string name;   ///< of the net on the sheet, as "MEM.D0"
    std::string local;  ///< the same without the group's prefix, as "D0"
};

struct BusName {
    enum Kind { NONE, VECTOR, GROUP };
    Kind kind = NONE;
    std::string prefix;  ///< of a vector `D` in "D[0..7]", of a group `MEM` in "MEM{A B}"
    std::vector<BusMember> members;
};

/// `P[a..b]` in either direction, `{A B[0..3]}`, `P{A B}` with blanks or commas between. Kind NONE
/// when the text names a single net. Mark-up (`~{}`, `_{}`) and escapes are part of a name. Vectors
/// run upward whichever way they are written. No more than `limit` members are made; `exceeded` is
/// set when there would be more.
BusName ParseBusName(std::string_view text, BusAliases const& aliases, std::size_t limit,
                     bool& exceeded);

/// True when the text names a bus; cheaper than taking it apart.
bool IsBusName(std::string_view text);

}  // namespace fighost::kicad
