#include <figrep/ArrowPatternGenerator.h>

#include <dg/Angle.h>
#include <figrep/ArrowInfo.h>
#include <figrep/NetSegment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace figrep {

ArrowPatternGenerator::ArrowPatternGenerator() = default;

ArrowPatternGenerator::~ArrowPatternGenerator() = default;

void ArrowPatternGenerator::Remove(SmartPtr<SubNet> const& subNet) {
    appliedStyles_.erase(subNet.Get());
}

void ArrowPatternGenerator::NoteChanged(AbstractFigureItem const& wire) {
    auto const entry = appliedStyles_.find(dynamic_cast<SubNet const*>(&wire));
    if (entry != appliedStyles_.end()) entry->second.changed = true;
}

bool ArrowPatternGenerator::IsStale(Applied const& applied) {
    if (applied.changed) return true;
    if (!applied.subNet->GetGraphicalUpdateNeeded()) return false;
    figk::ArrowStyle style;
    return !applied.subNet->GetArrowStyleSetting(Setting::ARROW_STYLE, style) ||
           style != applied.style;
}

void ArrowPatternGenerator::RemoveArrows(SmartPtr<SubNet> const& subNet) {
    SmartPtr<ConnectionNode> const head = subNet->GetHead();
    if (!head) return;
    auto const end = head->End();
    for (auto node = head->Begin(); node != end; ++node) {
        auto const segment = du::DynamicCast<NetSegment>(*node);
        if (segment && segment->HasArrows()) segment->RemoveAllArrows();
    }
}

void ArrowPatternGenerator::ForgetChanged() {
    std::vector<SmartPtr<SubNet>> stale;
    for (auto const& [key, applied] : appliedStyles_) {
        if (IsStale(applied)) stale.push_back(applied.subNet);
    }
    // Taking arrows off turns trees, so the order must not be that of addresses.
    std::sort(stale.begin(), stale.end(),
              [](auto const& a, auto const& b) { return a->GetId() < b->GetId(); });
    for (SmartPtr<SubNet> const& subNet : stale) {
        RemoveArrows(subNet);
        appliedStyles_.erase(subNet.Get());
    }
}

void ArrowPatternGenerator::Reset() {
    appliedStyles_.clear();
    currentSubNet_.Reset();
    centreSegment_.Reset();
}

// The walk.

bool ArrowPatternGenerator::Visit(SmartPtr<SubNet> const& subNet) {
    currentSubNet_.Reset();
    centreSegment_.Reset();
    figk::ArrowStyle style;
    if (!subNet || !subNet->GetArrowStyleSetting(Setting::ARROW_STYLE, style)) return false;
    auto const applied = appliedStyles_.find(subNet.Get());
    bool const known = applied != appliedStyles_.end();
    if (known && !(applied->second.style != style)) return false;
    style_ = style;
    currentSubNet_ = subNet;
    ReassertStartSegment(subNet);
    if (!known) {
        Applied const record{subNet, style, false};
        appliedStyles_.emplace(subNet.Get(), record);
    }
    if (style_.GetPattern() == figk::ArrowStyle::PATTERN_CENTRE) {
        FindCentrePoint(subNet->GetHead(), centreSegment_, centrePoint_);
    }
    return true;
}

bool ArrowPatternGenerator::Visit(SmartPtr<SubHighway> const&) {
    currentSubNet_.Reset();
    return false;
}

void ArrowPatternGenerator::ReassertStartSegment(SmartPtr<SubNet> const& subNet) {
    // Turned to its own head first: what lies before the start segment must not depend on whoever
    // turned the tree last.
    SmartPtr<ConnectionNode> const head = subNet->GetHead();
    SmartPtr<ConnectionNode> node = subNet->GetStartNode();
    if (!node) node = FindStartNode(subNet);
    if (node && node != head) subNet->SetHead(node);
}

namespace {

/// Whether the way from the start segment to its first leaf leaves by the first end, so that flow
/// enters there once that leaf is head. Where all that touches the segment does so at its second
/// end, turning would never come to rest.
bool TurningHelps(NetSegment const& segment, DPoint2D const& firstEnd) {
    std::vector<SmartPtr<figk::BaseConnectionNode>> following;
    segment.GetNonJunctionSuccessors(following);
    if (following.empty()) return true;
    auto const next = du::DynamicCast<ConnectionNode>(following.front());
    return next && next->Contacts(firstEnd);
}

}  // namespace

SmartPtr<ConnectionNode> ArrowPatternGenerator::FindStartNode(SmartPtr<SubNet> const& subNet) {
    SmartPtr<NetSegment> const segment = subNet->GetStartSegment();
    if (!segment) return nullptr;
    auto const before = du::DynamicCast<ConnectionNode>(segment->GetNonJunctionPredecessor());
    if (!before) return segment;
    DPoint2D start;
    DPoint2D end;
    segment->GetEnds(start, end);
    if (before->Contacts(start)) {
        return du::DynamicCast<ConnectionNode>(before->figk::BaseConnectionNode::GetHead());
    }
    if (before->Contacts(end) && TurningHelps(*segment, start)) {
        return du::DynamicCast<ConnectionNode>(segment->GetFirstLeaf());
    }
    return nullptr;
}

void ArrowPatternGenerator::FindCentrePoint(SmartPtr<ConnectionNode> const& head,
                                            SmartPtr<Segment>& segmentOut, DPoint2D& pointOut) {
    if (!head) return;
    std::vector<SmartPtr<Segment>> path;
    double total = 0.0;
    for (auto node = head->GetFirstLeaf(); node; node = node->GetPredecessor()) {
        if (auto const segment = du::DynamicCast<Segment>(node)) {
            total += segment->GetLength();
            path.push_back(segment);
        }
    }
    double remaining = total * 0.5;
    for (SmartPtr<Segment> const& segment : path) {
        remaining -= segment->GetLength();
        if (!(remaining < 0.0)) continue;
        DPoint2D a;
        DPoint2D b;
        segment->GetEnds(a, b);
        double const d = std::fabs(remaining);
        if (segment->IsHorizontal()) {
            pointOut = DPoint2D(a.x + std::copysign(d, b.x - a.x), a.y);
        } else if (segment->IsVertical()) {
            pointOut = DPoint2D(a.x, a.y + std::copysign(d, b.y - a.y));
        } else {
            pointOut = a + (b - a) * (d / segment->GetLength());
        }
        segmentOut = segment;
        return;
    }
}

// Placing arrows.

void ArrowPatternGenerator::AddArrow(SmartPtr<Segment> const& segment, DPoint2D const& position,
                                     double angle) const {
    segment->Add(ArrowInfo(style_.GetShape(), position, angle, style_.GetAttributes(),
                           style_.GetFillBackground()));
}

void ArrowPatternGenerator::AddSpacedArrows(SmartPtr<Segment> const& segment, DPoint2D const& start,
                                            DPoint2D const& end) const {
    double const length = segment->GetLength();
    double const spacing = style_.GetSpacing();
    if (!(length > 0.0) || !(spacing > 0.0)) return;
    double const fits = std::floor(length / spacing);
    auto const count =
        static_cast<unsigned>(std::min(fits, static_cast<double>(MAX_ARROWS_PER_SEGMENT)));
    double const angle = dg::Angle(end - start);
    DVec2 const step = (end - start) * (spacing / length);
    for (unsigned i = 1; i <= count; ++i) {
        AddArrow(segment, start + step * static_cast<double>(i), angle);
    }
}

bool ArrowPatternGenerator::Visit(SmartPtr<NetSegment> const& segment) {
    if (!currentSubNet_ || !segment) return true;
    DPoint2D start;
    DPoint2D end;
    segment->GetEnds(start, end);
    double const angle = dg::Angle(end - start);
    switch (style_.GetPattern()) {
        case figk::ArrowStyle::PATTERN_SPACED:
            AddSpacedArrows(segment, start, end);
            break;
        case figk::ArrowStyle::PATTERN_CENTRE:
            if (centreSegment_ == SmartPtr<Segment>(segment)) {
                AddArrow(segment, centrePoint_, angle);
            }
            break;
        case figk::ArrowStyle::PATTERN_END: {
            std::vector<SmartPtr<figk::BaseConnectionNode>> following;
            segment->GetNonJunctionSuccessors(following);
            bool const goesOn = std::any_of(following.begin(), following.end(), [](auto const& n) {
                return static_cast<bool>(du::DynamicCast<Segment>(n));
            });
            if (!goesOn) AddArrow(segment, end, angle);
            break;
        }
        case figk::ArrowStyle::PATTERN_FRACTION:
            AddArrow(segment, start + (end - start) * style_.GetSpacing(), angle);
            break;
    }
    return true;
}

}  // namespace figrep
