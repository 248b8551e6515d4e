#include <figrep/CrossingPoint.h>

#include <dg/CircularArc.h>
#include <figrep/Segment.h>
#include <zv2d/Attributes.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zvk/ReadWriteLock.h>

#include <numbers>

namespace figrep {

namespace {

/// The free space on either side of the line that passes, in figure units.
constexpr float CLEARANCE = 1.0F;
/// Lines wider than this push an arc outward by half their width.
constexpr float WIDE = 1.0F;

/// What one segment says about a crossing.
template <typename Value>
struct Choice {
    bool set = false;
    Value value{};
    figk::Setting::Level level{};
    unsigned depth = 0;
};

ConstSmartPtr<zv2d::Attributes> GetSymbolAttributes() {
    zv2d::LineAttributes const line(
        zv2d::LineAttributes::JOIN_ROUND, zv2d::LineAttributes::CAP_ROUND,
        zv2d::LineStyleList::GetDefault(), 0.0F, zv2d::LineAttributes::KIND_DEVICE, 0.0F,
        zv2d::LineAttributes::KIND_DEVICE, Color::BLACK, Color::BLACK);
    return zv2d::Attributes::Get(zv2d::Attributes(line));
}

}  // namespace

CrossingPoint::CrossingPoint(Free, SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<Segment> const& segment1, SmartPtr<Segment> const& segment2,
                             DPoint2D const& position)
    : segment1_(segment1.Get()),
      segment2_(segment2.Get()),
      refused1_(segment1),
      refused2_(segment2),
      position_(position),
      lock_(lock) {}

CrossingPoint::CrossingPoint(SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<Segment> const& segment1, SmartPtr<Segment> const& segment2,
                             DPoint2D const& position)
    : CrossingPoint(Free(), lock, segment1, segment2, position) {
    du::ConstructionGuard guard(this);
    if (segment1) Join(*segment1);
    if (segment2) Join(*segment2);
}

CrossingPoint::CrossingPoint(CrossingPoint const& other)
    : du::RefCounted(other),
      segment1_(other.segment1_),
      segment2_(other.segment2_),
      refused1_(other.segment1_),
      refused2_(other.segment2_),
      position_(other.position_),
      lock_(other.lock_) {}

CrossingPoint::~CrossingPoint() = default;

SmartPtr<CrossingPoint> CrossingPoint::CreateFree(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                  SmartPtr<Segment> const& segment1,
                                                  SmartPtr<Segment> const& segment2,
                                                  DPoint2D const& position) {
    return new CrossingPoint(Free(), lock, segment1, segment2, position);
}

SmartPtr<Segment>& CrossingPoint::HoldOf(Segment const& segment) {
    return &segment == segment1_ ? refused1_ : refused2_;
}

void CrossingPoint::Join(Segment& segment) {
    auto const before = GetRefCount();
    segment.Add(SmartPtr<CrossingPoint>(this));
    bool const accepted = GetRefCount() > before;
    SmartPtr<Segment>& hold = HoldOf(segment);
    if (accepted) {
        hold.Reset();
    } else {
        hold = &segment;
    }
}

void CrossingPoint::Leave(Segment& segment) {
    HoldOf(segment) = &segment;
    segment.Remove(SmartPtr<CrossingPoint>(this));
}

void CrossingPoint::Forget(Segment const& segment) {
    if (segment1_ == &segment) segment1_ = nullptr;
    if (segment2_ == &segment) segment2_ = nullptr;
}

DPoint2D CrossingPoint::GetPosition() const {
    zvk::ReadGuard guard(lock_);
    return position_;
}

SmartPtr<Segment> CrossingPoint::GetSegment1() const {
    return segment1_;
}

SmartPtr<Segment> CrossingPoint::GetSegment2() const {
    return segment2_;
}

bool CrossingPoint::Involves(ConstSmartPtr<Segment> const& segment) const {
    return segment && (segment.Get() == segment1_ || segment.Get() == segment2_);
}

SmartPtr<Segment> CrossingPoint::GetOtherSegment(ConstSmartPtr<Segment> const& segment) const {
    if (!Involves(segment)) return nullptr;
    return segment.Get() == segment1_ ? segment2_ : segment1_;
}

// Settings of both segments.

figk::CrossingPointStyle CrossingPoint::AcquireStyleFromSettings() const {
    using Style = Choice<figk::CrossingPointStyle>;
    auto const ask = [](Segment const& segment) {
        Style choice;
        choice.set = segment.GetCrossingPointStyleSetting(Setting::CROSSING_POINT_STYLE,
                                                          choice.value, choice.level, choice.depth);
        return choice;
    };
    Style const first = ask(*segment1_);
    Style const second = ask(*segment2_);
    if (!second.set) return first.value;
    if (!first.set || first.value == second.value) return second.value;
    if (first.level != second.level) {
        return first.level > second.level ? first.value : second.value;
    }
    return second.depth < first.depth ? second.value : first.value;
}

bool CrossingPoint::AcquireTopSegmentFromSettings() const {
    using Top = Choice<bool>;
    auto const ask = [](Segment const& segment) {
        Top choice;
        choice.set = segment.GetBooleanSetting(Setting::TOP_SEGMENT_VERTICAL, choice.value,
                                               choice.level, choice.depth);
        return choice;
    };
    Top const first = ask(*segment1_);
    Top const second = ask(*segment2_);
    if (second.set && !first.set) return second.value;
    if (first.value == second.value) return first.value;
    if (second.level > first.level) return second.value;
    if (second.level < first.level) return first.value;
    // Two equal voices that disagree put the vertical one on top.
    return second.depth < first.depth ? second.value : true;
}

SmartPtr<Segment> CrossingPoint::GetTopSegment() const {
    zvk::ReadGuard guard(lock_);
    if (!segment1_ || !segment2_) return nullptr;
    bool const verticalOnTop = AcquireTopSegmentFromSettings();
    return segment1_->IsVertical() == verticalOnTop ? segment1_ : segment2_;
}

// Symbols.

bool CrossingPoint::AddGraphic(ConstSmartPtr<Segment> const& segment,
                               SmartPtr<zv2d::Definition> const& definition, DPoint2D& gapStart,
                               DPoint2D& gapEnd) const {
    if (!Involves(segment) || !GetOtherSegment(segment)) return false;
    zvk::ReadGuard guard(lock_);
    figk::CrossingPointStyle const style = AcquireStyleFromSettings();
    if (style == figk::CROSSING_NONE) return false;
    bool const isTop = GetTopSegment().Get() == segment.Get();
    if (style == figk::CROSSING_ARC && isTop) {
        AddArcSymbol(segment, definition, gapStart, gapEnd);
        return true;
    }
    if (style == figk::CROSSING_GAP && !isTop) {
        AddGapSymbol(segment, gapStart, gapEnd);
        return true;
    }
    return false;
}

float CrossingPoint::GetGapRadius(ConstSmartPtr<Segment> const& segment) const {
    return GetOtherSegment(segment)->GetWidth() * 0.5F + CLEARANCE;
}

void CrossingPoint::AddGapSymbol(ConstSmartPtr<Segment> const& segment, DPoint2D& gapStart,
                                 DPoint2D& gapEnd) const {
    double const r = GetGapRadius(segment);
    DVec2 const reach = segment->IsVertical() ? DVec2(0.0, -r) : DVec2(r, 0.0);
    gapStart = position_ - reach;
    gapEnd = position_ + reach;
}

void CrossingPoint::AddArcSymbol(ConstSmartPtr<Segment> const& segment,
                                 SmartPtr<zv2d::Definition> const& definition, DPoint2D& gapStart,
                                 DPoint2D& gapEnd) const {
    AddGapSymbol(segment, gapStart, gapEnd);
    if (!definition) return;
    bool const vertical = segment->IsVertical();
    double const start = vertical ? std::numbers::pi * 0.5 : 0.0;
    double const end = vertical ? std::numbers::pi * 1.5 : std::numbers::pi;
    float radius = GetGapRadius(segment);
    DPoint2D centre = position_;
    float const width = segment->GetWidth();
    if (width > WIDE) {
        double const shift = width * 0.5F;
        centre += vertical ? DVec2(shift, 0.0) : DVec2(0.0, -shift);
        radius += width * 0.5F;
    }
    dg::CircularArc<double, 2> const arc(centre, static_cast<double>(radius), start, end);
    definition->Add(new zv2d::CircularArc(arc, zv2d::CircularArc::OPEN, GetSymbolAttributes()));
}

}  // namespace figrep
