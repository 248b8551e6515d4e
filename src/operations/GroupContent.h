// Graphics that stand on a figure in a group are shown and hidden together.
#pragma once

#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// The group that the item shares with other graphics on this very figure; null for any item that
/// isn't such a graphic.
SmartPtr<GraphicGroup> GroupOnFigure(Figure const& figure,
                                     SmartPtr<AbstractFigureItem> const& item);

/// Appends the graphics that the group itself holds; those of groups inside it are apart.
void AppendContent(GraphicGroup const& group, std::vector<SmartPtr<AbstractFigureItem>>& items);

}  // namespace figrep
