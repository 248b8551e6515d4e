// Groups of graphics that stand on a figure itself, as against those of its items.
#pragma once

#include <figk/Group.h>
#include <figrep/Fwd.h>

namespace figrep {

/// The figure whose own labels the group holds; null for any other group.
SmartPtr<Figure> FigureOfLabels(SmartPtr<figk::Group> const& group);

/// The group that the graphic shares with others on a figure: one between it and the figure's
/// labels. Null for a graphic that stands among the labels by itself or belongs to an item.
SmartPtr<GraphicGroup> GroupOnFigure(GraphicGroupMember const& graphic);

}  // namespace figrep
