// An item in words: what it is, what it is wired to, and why it looks as it does.
#pragma once

#include <session/query/FindItems.h>
#include <session/query/SettingChain.h>
#include <session/query/SheetPlace.h>

#include <string>
#include <utility>
#include <vector>

namespace fighost {

struct ItemStatus {
    using Pairs = std::vector<std::pair<std::string, std::string>>;

    std::string type;
    std::string id;
    std::string name;
    std::string partOf;  ///< "BlockInstance U2": what it belongs to and inherits from; else empty
    SheetPlace place;    ///< the middle of what it shows
    bool isVisible = true;
    std::vector<std::string> nets;     ///< that it is wired to, each once, sorted
    std::vector<std::string> cables;   ///< that carry them on this sheet
    std::vector<std::string> members;  ///< of a highway: the nets that run along here
    Pairs pins;                        ///< of a block: pin and net, in the block's order
    Pairs attributes;                  ///< name and value, in the order of the names
    std::vector<SettingStatus> settings;
};

/// Tells the status of an item of one of its sheet's. No walk may be under way.
ItemStatus StatusOf(SheetItem const& item);

/// The names of the nets that the item is wired to or that run along it, each once, sorted.
std::vector<std::string> NetsOf(figrep::AbstractFigureItem const& item);

}  // namespace fighost
