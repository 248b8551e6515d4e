// The crossing points of one wire, in the order in which they are shown.
#pragma once

#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// Crossing points from left to right, and downward on one x. Two on close x and the same y count
/// as one. Sorted by exact coordinates, since an order with a tolerance isn't transitive; the
/// tolerance decides only whether a new one is there already.
/// Cost of a change: logarithmic, plus the shift of a vector of pointers.
class CrossingList {
public:
    using Items = std::vector<SmartPtr<CrossingPoint>>;

    /// False when one stands at the same place.
    bool Insert(SmartPtr<CrossingPoint> const& crossing);
    /// Takes out this very crossing; false when it isn't here.
    bool Erase(SmartPtr<CrossingPoint> const& crossing);
    /// Leaves the list empty and without memory.
    Items TakeAll();
    Items const& GetItems() const { return items_; }

private:
    bool HoldsPlace(DPoint2D const& place) const;

    Items items_;
};

}  // namespace figrep
