// How a bus label spells its members.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace oracle {

using Aliases = std::map<std::string, std::vector<std::string>>;

/// A bus label taken apart. `members` are net names, `shortNames` the same without the group's
/// prefix.
struct BusName {
    bool vector = false;
    std::string prefix;
    std::vector<std::string> members;
    std::vector<std::string> shortNames;
};

/// The label text with `{slash}` and its like replaced.
std::string Unescape(std::string const& text);

/// False when `text` is the name of a single net.
bool ParseBus(std::string const& text, Aliases const& aliases, BusName& out);

}  // namespace oracle
