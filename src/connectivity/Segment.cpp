#include <figrep/Segment.h>

#include <dg/Close.h>
#include <figk/Segment.h>
#include <figrep/ArrowInfo.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zv2d/LineAttributes.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "CrossingList.h"
#include "Transforms.h"

namespace figrep {

namespace {

/// The kind of line weight whose stored width counts.
constexpr int STORED_WIDTH = 3;

bool StrictlyBetween(double value, double a, double b) {
    return std::min(a, b) < value && value < std::max(a, b);
}

}  // namespace

struct Segment::Extras {
    CrossingList crossings;
    std::vector<ArrowInfo> arrows;
};

Segment::Segment(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::AbstractItem> const& item,
                 SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, item),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock) {}

Segment::Segment(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start,
                 DPoint2D const& end, SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, std::string()),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock),
      start_(start),
      end_(end) {}

Segment::~Segment() = default;

void Segment::ZeroReferenceCountHook() {
    if (!HasCrossingPoints()) {
        du::RefCounted::ZeroReferenceCountHook();
        return;
    }
    SmartPtr<Segment> const self(this);  // letting go of it comes back here without crossings
    std::vector<SmartPtr<CrossingPoint>> crossings;
    GetCrossingPoints(crossings);
    RemoveAllCrossingPoints();
    for (auto const& crossing : crossings)
        crossing->Forget(*this);
}

Segment::Extras& Segment::GetExtras() {
    if (!extras_) extras_ = std::make_unique<Extras>();
    return *extras_;
}

void Segment::ReadEnds(figk::Segment const* kernelSegment) {
    if (kernelSegment) kernelSegment->GetEnds(start_, end_);
    SetCachedExtents(DBox2D(start_, end_));
}

// The item.

void Segment::SetHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    highlighted_ = on;
    GraphicalFigureItem::SetHighlight(on);
    SetTextHighlight(on);
}

void Segment::SetPreselectHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    preselected_ = on;
    GraphicalFigureItem::SetPreselectHighlight(on);
    SetTextPreselectHighlight(on);
}

void Segment::SetVisibility(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetVisibility(on);
    SetTextVisibility(on);
}

void Segment::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Move(dx, dy);
}

void Segment::RotateItem(DPoint2D const& about, double radians) {
    if (radians == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Rotate(about, radians);
}

void Segment::MirrorItem(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    Mirror(about, mirrorY);
}

void Segment::Accept(AbstractFigureVisitor& visitor) {
    AcceptTree(visitor);
}

void Segment::AcceptContents(AbstractFigureVisitor& visitor) {
    GraphicalFigureItem::Accept(visitor);
    TextLabelContainer::Accept(visitor);
}

DBox2D Segment::GetExtents() {
    {
        zvk::ReadGuard const guard(GetLock());
        if (!(GetCachedExtents() == DBox2D::EMPTY)) return GetCachedExtents();
    }
    zvk::WriteGuard const guard(GetLock());
    if (GetCachedExtents() == DBox2D::EMPTY) SetCachedExtents(DBox2D(start_, end_));
    return GetCachedExtents();
}

// The node.

std::string Segment::ToString() const {
    DPoint2D start;
    DPoint2D end;
    GetEnds(start, end);
    std::ostringstream text;
    text << "(" << start.x << "," << start.y << ") to (" << end.x << "," << end.y << ")";
    return text.str();
}

bool Segment::Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const {
    if (!other) return false;
    zvk::ReadGuard const guard(GetLock());
    for (DPoint2D const& point : {start_, end_}) {
        if (!other->Contacts(point)) continue;
        at = point;
        return true;
    }
    return false;
}

bool Segment::Contacts(DPoint2D const& point) const {
    zvk::ReadGuard const guard(GetLock());
    return dg::Close(point, start_) || dg::Close(point, end_);
}

void Segment::GeometryChanged() {
    ResetCachedExtents();
    GraphicalUpdateNeeded();
    OwnerWiresChanged();
}

template <class Transform>
void Segment::TransformEnds(Transform const& transform) {
    start_ = transform(start_);
    end_ = transform(end_);
    GeometryChanged();
}

void Segment::Move(double dx, double dy) {
    zvk::WriteGuard const guard(GetLock());
    MoveText(dx, dy);
    TransformEnds([&](DPoint2D const& p) { return p + DVec2(dx, dy); });
}

void Segment::Rotate(DPoint2D const& about, double radians) {
    zvk::WriteGuard const guard(GetLock());
    RotateText(about, radians);
    DMat33 const matrix = DMat33::RotationZ(radians);
    TransformEnds([&](DPoint2D const& p) { return TransformAbout(p, about, matrix); });
}

void Segment::Scale(DPoint2D const& about, double factor) {
    zvk::WriteGuard const guard(GetLock());
    ScaleArrows(about, factor);
    ScaleText(about, factor);
    DMat33 const matrix = DMat33::Scale(factor);
    TransformEnds([&](DPoint2D const& p) { return TransformAbout(p, about, matrix); });
}

void Segment::Mirror(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    MirrorText(about, mirrorY);
    TransformEnds([&](DPoint2D const& p) { return MirrorAbout(p, about, mirrorY); });
}

// Geometry.

void Segment::GetEnds(DPoint2D& start, DPoint2D& end) const {
    zvk::ReadGuard const guard(GetLock());
    start = start_;
    end = end_;
}

DPoint2D Segment::GetOtherEnd(DPoint2D const& p) const {
    zvk::ReadGuard const guard(GetLock());
    return dg::Close(p, start_) ? end_ : start_;
}

void Segment::MoveEnd(DPoint2D const& from, DPoint2D const& to) {
    zvk::WriteGuard const guard(GetLock());
    if (dg::Close(from, start_)) {
        start_ = to;
    } else if (dg::Close(from, end_)) {
        end_ = to;
    }
    GeometryChanged();
}

double Segment::GetLength() const {
    zvk::ReadGuard const guard(GetLock());
    if (IsVertical()) return std::fabs(end_.y - start_.y);
    if (IsHorizontal()) return std::fabs(end_.x - start_.x);
    return (end_ - start_).Norm();
}

bool Segment::HasLength() const {
    zvk::ReadGuard const guard(GetLock());
    return !dg::Close(start_, end_);
}

bool Segment::IsVertical() const {
    zvk::ReadGuard const guard(GetLock());
    return dg::CloseCoordinate(start_.x, end_.x);
}

bool Segment::IsHorizontal() const {
    zvk::ReadGuard const guard(GetLock());
    return dg::CloseCoordinate(start_.y, end_.y);
}

bool Segment::IsNormal() const {
    return IsVertical() || IsHorizontal();
}

bool Segment::Crosses(SmartPtr<Segment> const& other, DPoint2D& at) const {
    if (!other) return false;
    zvk::ReadGuard const guard(GetLock());
    Segment const* vertical = nullptr;
    Segment const* horizontal = nullptr;
    if (IsVertical() && other->IsHorizontal()) {
        vertical = this;
        horizontal = other.Get();
    } else if (IsHorizontal() && other->IsVertical()) {
        vertical = other.Get();
        horizontal = this;
    } else {
        return false;
    }
    DPoint2D const crossing(vertical->start_.x, horizontal->start_.y);
    if (!StrictlyBetween(crossing.x, horizontal->start_.x, horizontal->end_.x) ||
        !StrictlyBetween(crossing.y, vertical->start_.y, vertical->end_.y)) {
        return false;
    }
    at = crossing;
    return true;
}

bool Segment::operator==(Segment const& other) const {
    zvk::ReadGuard const guard(GetLock());
    return (start_ == other.start_ && end_ == other.end_) ||
           (start_ == other.end_ && end_ == other.start_);
}

// Crossing points.

void Segment::Add(SmartPtr<CrossingPoint> const& crossing) {
    if (!crossing) return;
    zvk::WriteGuard const guard(GetLock());
    GetExtras().crossings.Insert(crossing);
    GraphicalUpdateNeeded();
}

void Segment::Remove(SmartPtr<CrossingPoint> const& crossing) {
    zvk::WriteGuard const guard(GetLock());
    if (extras_ && extras_->crossings.Erase(crossing)) GraphicalUpdateNeeded();
}

void Segment::GetCrossingPoints(std::vector<SmartPtr<CrossingPoint>>& out) const {
    zvk::ReadGuard const guard(GetLock());
    out.clear();
    if (extras_) out = extras_->crossings.GetItems();
}

bool Segment::HasCrossingPoints() const {
    zvk::ReadGuard const guard(GetLock());
    return extras_ && !extras_->crossings.GetItems().empty();
}

void Segment::RemoveAllCrossingPoints() {
    zvk::WriteGuard const guard(GetLock());
    if (extras_) {
        SmartPtr<Segment> const self(this);
        auto const crossings = extras_->crossings.TakeAll();
        for (SmartPtr<CrossingPoint> const& crossing : crossings) {
            if (auto const other = crossing->GetOtherSegment(self)) other->Remove(crossing);
        }
    }
    GraphicalUpdateNeeded();
}

void Segment::MarkCrossingPartners() {
    if (auto const figure = GetFigure()) figure->MarkCrossingPartners(*this);
}

// Arrows.

void Segment::Add(ArrowInfo const& arrow) {
    zvk::WriteGuard const guard(GetLock());
    GetExtras().arrows.push_back(arrow);
    GraphicalUpdateNeeded();
}

std::vector<ArrowInfo> Segment::GetArrows() const {
    zvk::ReadGuard const guard(GetLock());
    return extras_ ? extras_->arrows : std::vector<ArrowInfo>();
}

bool Segment::HasArrows() const {
    zvk::ReadGuard const guard(GetLock());
    return extras_ && !extras_->arrows.empty();
}

void Segment::RemoveAllArrows() {
    zvk::WriteGuard const guard(GetLock());
    if (extras_) std::vector<ArrowInfo>().swap(extras_->arrows);
    GraphicalUpdateNeeded();
}

void Segment::ScaleArrows(DPoint2D const& about, double factor) {
    if (!extras_) return;
    DMat33 const matrix = DMat33::Scale(factor);
    for (ArrowInfo& arrow : extras_->arrows) {
        arrow.SetPosition(TransformAbout(arrow.GetPosition(), about, matrix));
    }
}

// Labels.

void Segment::Add(SmartPtr<GraphicGroupMember> const& member) {
    zvk::WriteGuard const guard(GetLock());
    TextLabelContainer::Add(member);
    if (auto const text = du::DynamicCast<TextGraphic>(member)) OwnerTextLabelAdded(text);
}

// Look.

bool Segment::GetHighlight() const {
    zvk::ReadGuard const guard(GetLock());
    return highlighted_ || preselected_;
}

void Segment::SettingsChanged() {
    GraphicalUpdateNeeded();
    OwnerWiresChanged();
    MarkCrossingPartners();
}

ConstSmartPtr<zv2d::LineAttributes> Segment::GetLineAttributes() const {
    ConstSmartPtr<zv2d::LineAttributes> attributes;
    GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, attributes);
    return attributes;
}

float Segment::GetWidth() const {
    ConstSmartPtr<zv2d::LineAttributes> const attributes = GetLineAttributes();
    bool const counts = attributes && attributes->GetWeightKind() == STORED_WIDTH;
    return counts ? static_cast<float>(attributes->GetWeight()) : 0.0F;
}

}  // namespace figrep
