#include "CrossingList.h"

#include <dg/Close.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Segment.h>

#include <algorithm>
#include <utility>

namespace figrep {

namespace {

bool Before(DPoint2D const& a, DPoint2D const& b) {
    return a.x != b.x ? a.x < b.x : a.y > b.y;
}

/// The first entry that doesn't come before `place`.
template <class Items>
auto FindPlace(Items& items, DPoint2D const& place) {
    return std::lower_bound(items.begin(), items.end(), place,
                            [](SmartPtr<CrossingPoint> const& item, DPoint2D const& at) {
                                return Before(item->GetPosition(), at);
                            });
}

}  // namespace

bool CrossingList::HoldsPlace(DPoint2D const& place) const {
    // From the left end of what is close, one look into each column of equal x.
    auto it = std::partition_point(items_.begin(), items_.end(), [&](auto const& item) {
        double const x = item->GetPosition().x;
        return x < place.x && !dg::CloseCoordinate(x, place.x);
    });
    while (it != items_.end() && dg::CloseCoordinate((*it)->GetPosition().x, place.x)) {
        double const x = (*it)->GetPosition().x;
        auto const same = FindPlace(items_, DPoint2D(x, place.y));
        if (same != items_.end() && (*same)->GetPosition() == DPoint2D(x, place.y)) return true;
        it = std::partition_point(it, items_.end(),
                                  [&](auto const& item) { return item->GetPosition().x <= x; });
    }
    return false;
}

bool CrossingList::Insert(SmartPtr<CrossingPoint> const& crossing) {
    DPoint2D const place = crossing->GetPosition();
    if (HoldsPlace(place)) return false;
    items_.insert(FindPlace(items_, place), crossing);
    return true;
}

bool CrossingList::Erase(SmartPtr<CrossingPoint> const& crossing) {
    if (!crossing) return false;
    auto it = FindPlace(items_, crossing->GetPosition());
    if (it == items_.end() || !(*it == crossing)) {
        it = std::find(items_.begin(), items_.end(), crossing);
    }
    if (it == items_.end()) return false;
    SmartPtr<CrossingPoint> const held = *it;
    items_.erase(it);
    return true;
}

CrossingList::Items CrossingList::TakeAll() {
    return std::exchange(items_, {});
}

}  // namespace figrep
