// What a spatial tree asks of its elements, and the order in which such a tree is built.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <du/RefCounted.h>

namespace figrep {

using dg::DBox2D;
using dg::DPoint2D;

/// An element that has a box and that can be tested exactly once its box has been hit.
///
/// Units: figure units (millimetres), y upward. The three fine checks are asked only of elements
/// whose box already matched; their defaults say that the box decides.
class TreeInterface : virtual public du::RefCounted {
public:
    /// The element's box; `DBox2D::EMPTY` for an element without extent. May fill a cache.
    virtual DBox2D GetExtents() = 0;

    /// Whether the element lies wholly inside `box`.
    virtual bool FineContentCheck(DBox2D const& box) const;
    /// Whether the element touches the point.
    virtual bool FineOverlapCheck(DPoint2D const& point) const;
    /// Whether the element and `box` have anything in common.
    virtual bool FineOverlapCheck(DBox2D const& box) const;

protected:
    TreeInterface() = default;
    TreeInterface(TreeInterface const&) = default;
    TreeInterface& operator=(TreeInterface const&) = default;
    ~TreeInterface() override = default;
};

/// Orders elements by one of the four numbers of their boxes: 0 xmin, 1 ymin, 2 xmax, 3 ymax.
/// Equal numbers leave the order to the sort; elements must not be null.
class TreeEntryComparator {
public:
    explicit TreeEntryComparator(int axis) : axis_(axis) {}

    template <typename Element>
    bool operator()(Element const& a, Element const& b) const {
        auto const index = static_cast<unsigned>(axis_);
        return a->GetExtents()[index] < b->GetExtents()[index];
    }

private:
    int axis_;
};

}  // namespace figrep
