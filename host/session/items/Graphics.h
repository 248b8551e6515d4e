// What users see of a graphic, and whose it is.
#pragma once

#include <dg/Point.h>
#include <figrep/Fwd.h>

#include <string>
#include <vector>

namespace fighost {

/// Whether the graphic is painted, as far as settings and its owner decide. For the helpers that
/// make wires pickable: whether the wire is.
bool IsShown(figrep::BaseGraphic const& graphic);

/// The item that the graphic belongs to, as a part of its picture or as one of its labels; null
/// for a graphic that stands on the sheet by itself.
figrep::SmartPtr<figrep::AbstractFigureItem> OwnerOf(figrep::BaseGraphic const& graphic);

/// A text as it is painted.
struct ShownText {
    std::string text;  ///< without the signs of mark-up; lines divided by '\n'
    dg::DPoint2D at;   ///< its anchor, in figure coordinates
};

/// The texts in the picture of the graphic, whether it is shown or not.
std::vector<ShownText> TextsIn(figrep::BaseGraphic const& graphic);

}  // namespace fighost
