// What lies under a point or in a window of a figure.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <figrep/Fwd.h>
#include <figrep/KdTree.h>

#include <unordered_map>
#include <vector>

namespace fighost {

/// Picks in a figure as it was when the picker was made; make a new one after a change.
///
/// What is hidden isn't picked. A pick on a graphic answers with what a user means by it, as
/// `Figure::GetHigherLevelContent` says: the block, pin, port node or piece of wire that it belongs
/// to, or the graphic itself where it stands free or is a label. Wires are picked by the helpers
/// that stand for them, so each piece by itself, and crossing symbols and arrows don't count.
///
/// Units: figure units (millimetres). Locking: takes the figure's lock for writing, since boxes are
/// computed on demand; no walk of the figure may be under way. Making one walks the figure; a pick
/// costs the logarithm of its graphics and what it finds.
class Picker {
public:
    /// A null figure has nothing to pick.
    explicit Picker(figrep::SmartPtr<figrep::Figure> const& figure);
    ~Picker();
    Picker(Picker const&) = delete;
    Picker& operator=(Picker const&) = delete;

    struct Hit {
        figrep::SmartPtr<figrep::AbstractFigureItem> item;
        /// From the point to what is drawn, along the farther axis; of a wire its true distance.
        double distance = 0;
        /// The point lies in the block but on nothing that is drawn.
        bool isAround = false;
    };

    /// Everything drawn within `tolerance` of the point, the nearest first and of equally near ones
    /// the topmost; then the blocks around it, the smallest first. Nothing for a point or tolerance
    /// that isn't a finite number.
    std::vector<Hit> At(dg::DPoint2D const& point, double tolerance);

    /// What lies wholly in the window, from the back to the front. Wires are taken as whole nets or
    /// highways: a piece counts when all of its net's pieces on the sheet lie in the window.
    std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>> Inside(dg::DBox2D const& window);

    /// What is drawn at least partly in the window, and the blocks around it, from the back to the
    /// front.
    std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>> Touching(dg::DBox2D const& window);

private:
    using Graphic = figrep::SmartPtr<figrep::BaseGraphic>;
    using Item = figrep::SmartPtr<figrep::AbstractFigureItem>;

    void Collect();
    std::vector<Graphic> Near(dg::DBox2D const& box);
    Item ItemOf(Graphic const& graphic) const;
    std::size_t OrderOf(Graphic const& graphic) const;

    figrep::SmartPtr<figrep::Figure> figure_;
    figrep::KdTree<Graphic> tree_;
    std::unordered_map<figrep::BaseGraphic const*, std::size_t> order_;  // of painting
};

}  // namespace fighost
