// Every item of a figure, once.
#pragma once

#include <figrep/Fwd.h>

#include <functional>
#include <string>

namespace fighost {

/// Calls `take` with each item in the order of the figure's walk. The invisible helpers for picking
/// wires are left out. The walk holds the write lock, and no tree may be turned in `take`, so
/// nothing that asks a sub-net for its head or its box belongs there.
void ForEachItem(
    figrep::SmartPtr<figrep::Figure> const& figure,
    std::function<void(figrep::SmartPtr<figrep::AbstractFigureItem> const&)> const& take);

/// What users call an item: the text of a text, else its name.
std::string DisplayNameOf(figrep::AbstractFigureItem const& item);

}  // namespace fighost
