// The one walk that paints a figure.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include <dg/Box.h>
#include <figrep/Fwd.h>
#include <painters/Painter.h>

namespace fighost {

struct PaintOptions {
    /// What the picture shows; without it the paper, or else all content with a margin.
    std::optional<dg::DBox2D> box;
    std::string title;
    std::string anchor;     ///< the name by which links lead to this sheet; empty for none
    std::size_t depth = 0;  ///< in the tree of sheets, 0 for the root
    /// Answers the anchor of the sheet where a port's node leads; empty for nowhere. May be unset.
    /// Called under the figure's lock, once for each node painted.
    std::function<std::string(figrep::SmartPtr<figrep::PortNode> const&)> linkOf;
};

/// Paints what the figure shows, as its draw states have it; `Figure::UpdateContent` makes the
/// wires' pictures and must have run before.
///
/// Items come in a stable order: frame and free shapes, then the items of the figure in the order
/// of its walk, then free texts. Hidden graphics are left out, and items without a visible graphic
/// are too.
///
/// Every colour comes from the figure's settings: the ground from `BACKGROUND_COLOR` (white without
/// one; with opacity 0 the sheet stays transparent), that of highlighted graphics from
/// `SELECTION_HIGHLIGHT_COLOR` and `PRESELECTION_HIGHLIGHT_COLOR`, all others from the draw states.
///
/// Takes the figure's lock for writing, since a walk turns the wires' trees. A null
/// figure paints an empty sheet. Cost: linear in the content.
void PaintFigure(figrep::SmartPtr<figrep::Figure> const& figure, Painter& painter,
                 PaintOptions const& options = {});

/// The box that `PaintFigure` shows by itself.
dg::DBox2D PictureBox(figrep::SmartPtr<figrep::Figure> const& figure);

}  // namespace fighost
