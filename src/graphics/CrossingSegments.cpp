#include "CrossingSegments.h"

#include <figrep/Figure.h>
#include <figrep/Segment.h>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace figrep {

namespace {

constexpr unsigned char DIRTY = 1;
constexpr unsigned char TOUCHED = 2;

constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr WireSpan NO_SPAN{{NO_NUMBER, NO_NUMBER}, {NO_NUMBER, NO_NUMBER}};

/// The place that a segment's list takes for one.
bool SamePlace(DPoint2D const& a, DPoint2D const& b) {
    return a.y == b.y && dg::CloseCoordinate(a.x, b.x);
}

struct Box {
    double xmin, ymin, xmax, ymax;

    explicit Box(WireSpan const& wire)
        : xmin(std::min(wire.start.x, wire.end.x)),
          ymin(std::min(wire.start.y, wire.end.y)),
          xmax(std::max(wire.start.x, wire.end.x)),
          ymax(std::max(wire.start.y, wire.end.y)) {}

    bool Meets(WireSpan const& wire) const {
        Box const other(wire);
        return xmin <= other.xmax && other.xmin <= xmax && ymin <= other.ymax && other.ymin <= ymax;
    }
};

}  // namespace

CrossingSegments::CrossingSegments() = default;

CrossingSegments::~CrossingSegments() {
    Clear();
}

// Taking segments in.

void CrossingSegments::BeginPass() {
    ++pass_;
}

bool CrossingSegments::Begin(SmartPtr<AbstractFigureItem> const& owner) {
    Finish();
    auto const known = ownerIndex_.find(owner.Get());
    if (known == ownerIndex_.end()) {
        owners_.push_back({});
        owners_.back().item = owner;
        ownerIndex_.emplace(owner.Get(), std::prev(owners_.end()));
        current_ = &owners_.back();
    } else {
        Owner& record = *known->second;
        record.pass = pass_;
        if (!record.noted && owner->GetFigure()) return false;
        current_ = &record;
    }
    current_->pass = pass_;
    current_->noted = false;
    return true;
}

void CrossingSegments::Add(SmartPtr<Segment> const& segment) {
    if (current_) collected_.push_back(segment);
}

void CrossingSegments::Finish() {
    if (!current_) return;
    Owner& owner = *std::exchange(current_, nullptr);
    owner.slots = MatchSlots(owner.slots);
    collected_.clear();
    for (Slot slot : owner.slots)
        ReadEnds(slot);
}

std::vector<CrossingSegments::Slot> CrossingSegments::MatchSlots(std::vector<Slot> const& before) {
    std::vector<Slot> after(collected_.size());
    std::unordered_map<Segment const*, Slot> others;
    std::size_t same = 0;
    while (same < before.size() && same < after.size() &&
           segments_[before[same]] == collected_[same]) {
        after[same] = before[same];
        ++same;
    }
    for (std::size_t i = same; i < before.size(); ++i) {
        others.emplace(segments_[before[i]].Get(), before[i]);
    }
    std::vector<std::size_t> unknown;
    for (std::size_t i = same; i < after.size(); ++i) {
        auto const found = others.find(collected_[i].Get());
        if (found == others.end()) {
            unknown.push_back(i);
            continue;
        }
        after[i] = found->second;
        others.erase(found);
    }
    for (std::size_t i = same; i < before.size(); ++i) {
        if (others.count(segments_[before[i]].Get()) != 0) DropSlot(before[i]);
    }
    for (std::size_t i : unknown)
        after[i] = NewSlot(collected_[i]);
    return after;
}

void CrossingSegments::EndPass() {
    Finish();
    for (auto owner = owners_.begin(); owner != owners_.end();) {
        auto const next = std::next(owner);
        if (owner->pass != pass_) DropOwner(*owner);
        owner = next;
    }
}

CrossingSegments::Slot CrossingSegments::NewSlot(SmartPtr<Segment> const& segment) {
    Slot slot = 0;
    if (free_.empty()) {
        slot = static_cast<Slot>(segments_.size());
        segments_.emplace_back();
        spans_.push_back(NO_SPAN);
        partners_.emplace_back();
        marks_.push_back(0);
    } else {
        slot = free_.back();
        free_.pop_back();
    }
    segments_[slot] = segment;
    if (segment->HasCrossingPoints()) Touch(slot);
    return slot;
}

void CrossingSegments::ReadEnds(Slot slot) {
    WireSpan ends;
    segments_[slot]->GetEnds(ends.start, ends.end);
    if (ends == spans_[slot]) return;
    spans_[slot] = ends;
    MarkDirty(slot);
}

void CrossingSegments::MarkDirty(Slot slot) {
    if ((marks_[slot] & DIRTY) != 0) return;
    marks_[slot] |= DIRTY;
    dirty_.push_back(slot);
}

void CrossingSegments::Touch(Slot slot) {
    if ((marks_[slot] & TOUCHED) != 0) return;
    marks_[slot] |= TOUCHED;
    touched_.push_back(slot);
}

void CrossingSegments::DropSlot(Slot slot) {
    pairs_ -= partners_[slot].size();
    for (Partner const& partner : partners_[slot]) {
        ErasePartner(partner.slot, slot);
        Touch(partner.slot);
    }
    partners_[slot].clear();
    if (segments_[slot]->HasCrossingPoints()) segments_[slot]->RemoveAllCrossingPoints();
    segments_[slot].Reset();
    spans_[slot] = NO_SPAN;
    free_.push_back(slot);
}

void CrossingSegments::DropOwner(Owner& owner) {
    for (Slot slot : owner.slots)
        DropSlot(slot);
    auto const entry = ownerIndex_.find(owner.item.Get());
    auto const place = entry->second;
    ownerIndex_.erase(entry);
    owners_.erase(place);
}

void CrossingSegments::Note(AbstractFigureItem const& owner) {
    auto const known = ownerIndex_.find(&owner);
    if (known != ownerIndex_.end()) known->second->noted = true;
}

void CrossingSegments::MarkPartners(AbstractFigureItem const& owner) const {
    auto const known = ownerIndex_.find(&owner);
    if (known == ownerIndex_.end()) return;
    for (Slot slot : known->second->slots) {
        for (Partner const& partner : partners_[slot]) {
            segments_[partner.slot]->GraphicalUpdateNeeded();
        }
    }
}

std::vector<SmartPtr<AbstractFigureItem>> CrossingSegments::GetNotedOwners() const {
    std::vector<SmartPtr<AbstractFigureItem>> noted;
    for (Owner const& owner : owners_) {
        if (owner.noted) noted.push_back(owner.item);
    }
    return noted;
}

void CrossingSegments::Remove(AbstractFigureItem const& owner) {
    Finish();
    auto const known = ownerIndex_.find(&owner);
    if (known != ownerIndex_.end()) DropOwner(*known->second);
}

void CrossingSegments::Clear() {
    for (SmartPtr<Segment> const& segment : segments_) {
        if (segment && segment->HasCrossingPoints()) segment->RemoveAllCrossingPoints();
    }
    current_ = nullptr;
    collected_.clear();
    ownerIndex_.clear();
    owners_.clear();
    partners_.clear();
    segments_.clear();
    spans_.clear();
    marks_.clear();
    free_.clear();
    dirty_.clear();
    touched_.clear();
    pairs_ = 0;
}

// Finding pairs.

bool CrossingSegments::Update() {
    Finish();
    if (dirty_.empty() && touched_.empty()) return false;
    if (!dirty_.empty()) Relink();
    std::vector<Missing> missing;
    for (Slot slot : touched_) {
        marks_[slot] = static_cast<unsigned char>(marks_[slot] & ~TOUCHED);
        if (segments_[slot]) RemoveStale(slot, missing);
    }
    touched_.clear();
    for (Missing const& one : missing)
        Show(one);
    return pairs_ > 0;
}

void CrossingSegments::Relink() {
    if (dirty_.size() <= FEW_CHANGES) {
        for (Slot slot : dirty_)
            TakeOldPartners(slot);
        FindNearDirty();
    } else {
        for (Slot slot = 0; slot < partners_.size(); ++slot) {
            if (!partners_[slot].empty()) old_[slot].swap(partners_[slot]);
        }
        pairs_ = 0;
        sweep_.Find(spans_, found_);
        std::sort(found_.begin(), found_.end());
    }
    for (WireCrossing const& found : found_)
        Link(found);
    for (auto const& [slot, partners] : old_) {
        for (Partner const& partner : partners) {
            if (partner.kept) continue;
            Touch(slot);
            Touch(partner.slot);
        }
    }
    old_.clear();
    for (Slot slot : dirty_)
        marks_[slot] = static_cast<unsigned char>(marks_[slot] & ~DIRTY);
    dirty_.clear();
}

void CrossingSegments::TakeOldPartners(Slot slot) {
    if (partners_[slot].empty()) return;
    std::vector<Partner>& old = old_[slot];
    old.swap(partners_[slot]);
    for (Partner const& partner : old) {
        bool const firstTime = (marks_[partner.slot] & DIRTY) == 0 || !old_.count(partner.slot);
        if (firstTime) --pairs_;
        if ((marks_[partner.slot] & DIRTY) == 0) ErasePartner(partner.slot, slot);
    }
}

void CrossingSegments::FindNearDirty() {
    found_.clear();
    WireCrossing crossing;
    for (Slot slot : dirty_) {
        Box const box(spans_[slot]);
        for (Slot other = 0; other < spans_.size(); ++other) {
            if (!box.Meets(spans_[other]) || other == slot) continue;
            if ((marks_[other] & DIRTY) != 0 && other < slot) continue;
            if (FindCrossing(spans_, slot, other, crossing)) found_.push_back(crossing);
        }
    }
}

void CrossingSegments::Link(WireCrossing const& found) {
    DPoint2D const position = CrossingPosition(spans_, found);
    SmartPtr<CrossingPoint> known = TakeKnown(found.horizontal, found.vertical, position);
    SmartPtr<CrossingPoint> const same = TakeKnown(found.vertical, found.horizontal, position);
    if (!known) known = same;
    // Which of several crossings at one place shows depends on the ends, not on the place alone.
    unsigned const marks = marks_[found.horizontal] | marks_[found.vertical];
    if (!known || (marks & DIRTY) != 0) {
        Touch(found.horizontal);
        Touch(found.vertical);
    }
    InsertPartner(found.horizontal, {found.vertical, false, known});
    InsertPartner(found.vertical, {found.horizontal, false, known});
    ++pairs_;
}

SmartPtr<CrossingPoint> CrossingSegments::TakeKnown(Slot slot, Slot partner,
                                                    DPoint2D const& position) {
    auto const entry = old_.find(slot);
    if (entry == old_.end()) return nullptr;
    std::vector<Partner>& partners = entry->second;
    auto const place = std::lower_bound(partners.begin(), partners.end(), partner,
                                        [](Partner const& p, Slot s) { return p.slot < s; });
    if (place == partners.end() || place->slot != partner) return nullptr;
    if (!place->crossing || !(place->crossing->GetPosition() == position)) return nullptr;
    place->kept = true;
    return place->crossing;
}

void CrossingSegments::InsertPartner(Slot slot, Partner const& partner) {
    std::vector<Partner>& partners = partners_[slot];
    auto const place = std::lower_bound(partners.begin(), partners.end(), partner.slot,
                                        [](Partner const& p, Slot s) { return p.slot < s; });
    partners.insert(place, partner);
}

CrossingSegments::Partner* CrossingSegments::FindPartner(Slot slot, Slot partner) {
    std::vector<Partner>& partners = partners_[slot];
    auto const place = std::lower_bound(partners.begin(), partners.end(), partner,
                                        [](Partner const& p, Slot s) { return p.slot < s; });
    return place != partners.end() && place->slot == partner ? &*place : nullptr;
}

void CrossingSegments::ErasePartner(Slot slot, Slot partner) {
    if (Partner const* found = FindPartner(slot, partner)) {
        partners_[slot].erase(partners_[slot].begin() + (found - partners_[slot].data()));
    }
}

// Showing them.

DPoint2D CrossingSegments::PositionOf(Slot a, Slot b) const {
    WireCrossing crossing;
    FindCrossing(spans_, a, b, crossing);
    return CrossingPosition(spans_, crossing);
}

bool CrossingSegments::ComesFirst(Slot a, Slot b) const {
    auto const key = [this](Slot slot) {
        WireSpan const& wire = spans_[slot];
        return std::make_tuple(wire.start.x, wire.start.y, wire.end.x, wire.end.y);
    };
    if (key(a) != key(b)) return key(a) < key(b);
    std::string const& nameA = segments_[a]->GetId().GetString();
    std::string const& nameB = segments_[b]->GetId().GetString();
    return nameA != nameB ? nameA < nameB : a < b;
}

std::vector<CrossingSegments::Slot> CrossingSegments::GetShown(Slot slot) const {
    struct Candidate {
        DPoint2D position;
        Slot partner;
    };
    std::vector<Candidate> candidates;
    candidates.reserve(partners_[slot].size());
    for (Partner const& partner : partners_[slot]) {
        candidates.push_back({PositionOf(slot, partner.slot), partner.slot});
    }
    std::sort(candidates.begin(), candidates.end(), [this](Candidate const& a, Candidate const& b) {
        if (a.position.x != b.position.x) return a.position.x < b.position.x;
        if (a.position.y != b.position.y) return a.position.y > b.position.y;
        return ComesFirst(a.partner, b.partner);
    });
    std::vector<Slot> shown;
    DPoint2D last;
    for (Candidate const& candidate : candidates) {
        if (!shown.empty() && SamePlace(last, candidate.position)) continue;
        last = candidate.position;
        shown.push_back(candidate.partner);
    }
    return shown;
}

void CrossingSegments::RemoveStale(Slot slot, std::vector<Missing>& missing) {
    std::vector<SmartPtr<CrossingPoint>> items;
    segments_[slot]->GetCrossingPoints(items);
    std::vector<CrossingPoint const*> present;
    for (auto const& item : items)
        present.push_back(item.Get());
    std::sort(present.begin(), present.end(), std::less<CrossingPoint const*>());
    std::vector<CrossingPoint const*> right;
    for (Slot partner : GetShown(slot)) {
        CrossingPoint const* crossing = FindPartner(slot, partner)->crossing.Get();
        if (crossing && std::binary_search(present.begin(), present.end(), crossing,
                                           std::less<CrossingPoint const*>())) {
            right.push_back(crossing);
        } else {
            missing.push_back({slot, partner});
        }
    }
    std::sort(right.begin(), right.end(), std::less<CrossingPoint const*>());
    for (auto const& item : items) {
        bool const stays = std::binary_search(right.begin(), right.end(), item.Get(),
                                              std::less<CrossingPoint const*>());
        if (!stays) item->Leave(*segments_[slot]);
    }
}

void CrossingSegments::Show(Missing const& missing) {
    Partner* own = FindPartner(missing.slot, missing.partner);
    Partner* other = FindPartner(missing.partner, missing.slot);
    if (!own->crossing) {
        WireCrossing pair;
        FindCrossing(spans_, missing.slot, missing.partner, pair);
        own->crossing = CrossingPoint::CreateFree(
            segments_[missing.slot]->GetLock(), segments_[pair.horizontal],
            segments_[pair.vertical], CrossingPosition(spans_, pair));
        other->crossing = own->crossing;
    }
    own->crossing->Join(*segments_[missing.slot]);
}

}  // namespace figrep
