#include <session/query/Picker.h>

#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/BaseGraphic.h>
#include <figrep/Figure.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Segment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <session/items/Graphics.h>
#include <zv2d/TexPolyline.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::BaseGraphic;
using figrep::SmartPtr;

// Gathers all graphics, pick proxies included, without asking them anything: boxes and checks of
// wires turn trees, which nobody may do under a walk.
class GraphicGatherer : public figrep::AbstractFigureVisitor {
public:
    bool Visit(SmartPtr<figrep::GenericGraphic> const& graphic) override { return Take(graphic); }
    bool Visit(SmartPtr<figrep::TextGraphic> const& text) override { return Take(text); }
    bool Visit(SmartPtr<figrep::PickGraphicProxy> const& proxy) override { return Take(proxy); }

    std::vector<SmartPtr<BaseGraphic>> graphics;

private:
    bool Take(SmartPtr<BaseGraphic> const& graphic) {
        if (seen_.insert(graphic.Get()).second) graphics.push_back(graphic);
        return true;
    }

    std::unordered_set<BaseGraphic const*> seen_;
};

// Pictures of wires have their proxies to be picked by.
bool IsPictureOfWire(BaseGraphic const& graphic) {
    if (graphic.GetType() != AbstractFigureItem::ITEM_GENERIC_GRAPHIC) return false;
    SmartPtr<figrep::GraphicGroup> const owner = graphic.GetOwner();
    return du::DynamicCast<figrep::Segment>(owner) || du::DynamicCast<figrep::SubNet>(owner) ||
           du::DynamicCast<figrep::SubHighway>(owner);
}

// Free shapes lie behind everything and free texts before it, as painters have it.
int LayerOf(BaseGraphic const& graphic) {
    if (OwnerOf(graphic)) return 1;
    return graphic.GetType() == AbstractFigureItem::ITEM_TEXT_GRAPHIC ? 2 : 0;
}

dg::DBox2D Around(dg::DPoint2D const& point, double distance) {
    return {point.x - distance, point.y - distance, point.x + distance, point.y + distance};
}

double DistanceTo(figrep::PickGraphicProxy const& proxy, dg::DPoint2D const& point) {
    dg::DPoint2D const start = proxy.GetStart();
    dg::DVec2 const along = proxy.GetEnd() - start;
    dg::DVec2 const to = point - start;
    double const square = along.x * along.x + along.y * along.y;
    double const share =
        square > 0 ? std::clamp((to.x * along.x + to.y * along.y) / square, 0.0, 1.0) : 0.0;
    return std::hypot(to.x - share * along.x, to.y - share * along.y);
}

// How near the point something is drawn; nothing beyond `tolerance`.
std::optional<double> DistanceTo(BaseGraphic const& graphic, dg::DPoint2D const& point,
                                 double tolerance) {
    if (auto const* proxy = dynamic_cast<figrep::PickGraphicProxy const*>(&graphic)) {
        double const distance = DistanceTo(*proxy, point);
        return distance <= tolerance ? std::optional<double>(distance) : std::nullopt;
    }
    auto const picture = graphic.GetZv2dGraphics();
    if (!picture || !picture->FineOverlapCheck(Around(point, tolerance))) return {};
    if (picture->FineOverlapCheck(Around(point, 0))) return 0.0;
    constexpr int STEPS = 8;  // to a 256th of the tolerance, far below what a hand can point at
    double out = 0;
    double in = tolerance;
    for (int step = 0; step < STEPS; ++step) {
        double const middle = (out + in) / 2;
        (picture->FineOverlapCheck(Around(point, middle)) ? in : out) = middle;
    }
    return in;
}

bool IsDrawnIn(BaseGraphic const& graphic, dg::DBox2D const& window) {
    if (auto const* proxy = dynamic_cast<figrep::PickGraphicProxy const*>(&graphic)) {
        SmartPtr<zv2d::TexPolyline> const line(
            new zv2d::TexPolyline({proxy->GetStart(), proxy->GetEnd()}, nullptr, false));
        return line->Overlaps(window, dg::DMat33());
    }
    auto const picture = graphic.GetZv2dGraphics();
    return picture && picture->FineOverlapCheck(window);
}

bool IsFinite(dg::DBox2D const& box) {
    for (unsigned side = 0; side < 4; ++side) {
        if (!std::isfinite(box[side])) return false;
    }
    return true;
}

double AreaOf(AbstractFigureItem& item) {
    dg::DVec2 const size = item.GetExtents().Size();
    return size.x * size.y;
}

// Each item once, in the order of first arrival.
class ItemList {
public:
    void Add(SmartPtr<AbstractFigureItem> const& item) {
        if (seen_.insert(item.Get()).second) items.push_back(item);
    }
    std::vector<SmartPtr<AbstractFigureItem>> items;

private:
    std::unordered_set<AbstractFigureItem const*> seen_;
};

}  // namespace

Picker::Picker(SmartPtr<figrep::Figure> const& figure) : figure_(figure) {
    if (figure_) Collect();
}

Picker::~Picker() = default;

void Picker::Collect() {
    zvk::WriteGuard const guard(figure_->GetLock());
    GraphicGatherer gatherer;
    figure_->Accept(gatherer);
    // What belongs to one item is painted together, where the item's first graphic comes.
    std::unordered_map<AbstractFigureItem const*, std::size_t> places;
    std::vector<std::tuple<int, std::size_t, std::size_t>> keys;
    std::size_t number = 0;
    for (Graphic const& graphic : gatherer.graphics) {
        SmartPtr<AbstractFigureItem> const owner = OwnerOf(*graphic);
        std::size_t const place =
            places.try_emplace(owner ? owner.Get() : graphic.Get(), number).first->second;
        keys.emplace_back(LayerOf(*graphic), place, number++);
    }
    std::sort(keys.begin(), keys.end());
    for (auto const& [layer, place, index] : keys) {
        Graphic const& graphic = gatherer.graphics[index];
        if (IsPictureOfWire(*graphic) || !IsShown(*graphic)) continue;
        if (!IsFinite(graphic->GetExtents()) || graphic->GetExtents().IsEmpty()) continue;
        order_.emplace(graphic.Get(), order_.size());
        tree_.Add(graphic);
    }
}

std::vector<Picker::Graphic> Picker::Near(dg::DBox2D const& box) {
    std::vector<Graphic> graphics;
    if (order_.empty() || box.IsEmpty()) return graphics;
    tree_.Query(box, graphics);
    std::sort(graphics.begin(), graphics.end(),
              [&](Graphic const& a, Graphic const& b) { return OrderOf(a) < OrderOf(b); });
    return graphics;
}

std::size_t Picker::OrderOf(Graphic const& graphic) const {
    return order_.at(graphic.Get());
}

Picker::Item Picker::ItemOf(Graphic const& graphic) const {
    std::vector<Item> items;
    figure_->GetHigherLevelContent({graphic}, items);
    return items.empty() ? Item() : items.front();
}

std::vector<Picker::Hit> Picker::At(dg::DPoint2D const& point, double tolerance) {
    dg::DBox2D const box = Around(point, std::max(tolerance, 0.0));
    if (!figure_ || !IsFinite(box)) return {};
    zvk::WriteGuard const guard(figure_->GetLock());
    struct Candidate {
        Hit hit;
        std::size_t order;
        double area;
    };
    std::vector<Candidate> candidates;
    for (Graphic const& graphic : Near(box)) {
        Item const item = ItemOf(graphic);
        auto const block = du::DynamicCast<figrep::BaseBlockInstance>(item);
        if (auto const distance = DistanceTo(*graphic, point, std::max(tolerance, 0.0))) {
            candidates.push_back({{item, *distance, false}, OrderOf(graphic), 0});
        } else if (block && block->FineOverlapCheck(point)) {
            candidates.push_back({{item, 0, true}, OrderOf(graphic), AreaOf(*item)});
        }
    }
    std::sort(candidates.begin(), candidates.end(), [](Candidate const& a, Candidate const& b) {
        return std::tuple(a.hit.isAround, a.area, a.hit.distance, b.order) <
               std::tuple(b.hit.isAround, b.area, b.hit.distance, a.order);
    });
    std::vector<Hit> hits;
    std::unordered_set<AbstractFigureItem const*> seen;
    for (Candidate const& candidate : candidates) {
        if (seen.insert(candidate.hit.item.Get()).second) hits.push_back(candidate.hit);
    }
    return hits;
}

std::vector<Picker::Item> Picker::Inside(dg::DBox2D const& window) {
    if (!figure_ || !IsFinite(window)) return {};
    zvk::WriteGuard const guard(figure_->GetLock());
    ItemList list;
    for (Graphic const& graphic : Near(window)) {
        if (!window.Contains(graphic->GetExtents()) || !graphic->FineContentCheck(window)) continue;
        Item const item = ItemOf(graphic);
        bool const isWhole = window.Contains(item->GetExtents()) && item->FineContentCheck(window);
        if (isWhole) list.Add(item);
    }
    return list.items;
}

std::vector<Picker::Item> Picker::Touching(dg::DBox2D const& window) {
    if (!figure_ || !IsFinite(window)) return {};
    zvk::WriteGuard const guard(figure_->GetLock());
    ItemList list;
    for (Graphic const& graphic : Near(window)) {
        Item const item = ItemOf(graphic);
        auto const block = du::DynamicCast<figrep::BaseBlockInstance>(item);
        if (IsDrawnIn(*graphic, window) || (block && block->FineOverlapCheck(window))) {
            list.Add(item);
        }
    }
    return list.items;
}

}  // namespace fighost
