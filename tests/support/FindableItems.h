// What deltas can mean by an id.
#pragma once

#include <vector>

#include <figrep/Fwd.h>

namespace figrep::test {

/// The items that `Figure::Find` answers for their own ids, in the order of a walk: of several
/// items with one id, only the first.
std::vector<SmartPtr<AbstractFigureItem>> FindableItems(SmartPtr<Figure> const& figure);

}  // namespace figrep::test
