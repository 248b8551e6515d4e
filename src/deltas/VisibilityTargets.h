// Which items a change of visibility concerns.
#pragma once

#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// The items that have to change so that all of `items`, and all blocks and sub-nets inside blocks
/// among them, are shown (`visible`) or hidden: those that say otherwise now, and those of `items`
/// of which nothing says either. Each once, what a block holds before the block.
std::vector<SmartPtr<AbstractFigureItem>> FindVisibilityTargets(
    std::vector<SmartPtr<AbstractFigureItem>> const& items, bool visible);

}  // namespace figrep
