// Where an item's display settings come from, in words.
#pragma once

#include <figrep/Fwd.h>

#include <string>
#include <vector>

namespace fighost {

/// A display setting that counts for an item.
struct SettingStatus {
    std::string name;  ///< "color", "line weight", "visible" and so on
    std::string value;
    int level = 0;  ///< 1 to 7, the higher wins
    std::string levelName;
    /// Who holds it: "itself", "its record" (which comes with the design), "SubNet /SDA",
    /// "CableInstance W1", "figure", "kernel" and so on.
    std::string from;
    unsigned steps = 0;  ///< from the item up to the holder
};

/// The settings that are set anywhere for the item, in a fixed order.
std::vector<SettingStatus> SettingsOf(figrep::AbstractFigureItem const& item);

/// The item from which `item` inherits first; null where that is the figure, or nothing.
figrep::SmartPtr<figrep::AbstractFigureItem> ParentOf(figrep::AbstractFigureItem const& item);

/// "SubNet /SDA": kind and name, or the kind alone.
std::string KindAndName(figrep::AbstractFigureItem const& item);

}  // namespace fighost
