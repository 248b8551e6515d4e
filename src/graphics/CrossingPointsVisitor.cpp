#include <figrep/CrossingPointsVisitor.h>

#include "CrossingSegments.h"

#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>

namespace figrep {

CrossingPointsVisitor::CrossingPointsVisitor(Figure* figure)
    : figure_(figure),
      highways_(std::make_unique<CrossingSegments>()),
      nets_(std::make_unique<CrossingSegments>()) {}

CrossingPointsVisitor::~CrossingPointsVisitor() = default;

CrossingSegments* CrossingPointsVisitor::SegmentsOf(AbstractFigureItem const& owner) const {
    switch (owner.GetType()) {
        case AbstractFigureItem::ITEM_SUB_NET:
            return nets_.get();
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
            return highways_.get();
        default:
            return nullptr;
    }
}

void CrossingPointsVisitor::Update() {
    bool found = false;
    for (CrossingSegments* segments : {highways_.get(), nets_.get()}) {
        TakeInNoted(*segments);
        found = segments->Update() || found;
    }
    if (found && figure_) figure_->SetProfileRequiresGraphicalRegeneration(true);
}

void CrossingPointsVisitor::TakeInNoted(CrossingSegments& segments) {
    for (SmartPtr<AbstractFigureItem> const& owner : segments.GetNotedOwners()) {
        owner->Accept(*this);
    }
}

void CrossingPointsVisitor::NoteChanged(AbstractFigureItem const& wire) {
    if (CrossingSegments* const segments = SegmentsOf(wire)) segments->Note(wire);
}

void CrossingPointsVisitor::MarkPartners(AbstractFigureItem const& wire) {
    if (auto const* netSegment = dynamic_cast<NetSegment const*>(&wire)) {
        if (auto const subNet = netSegment->GetSubNet()) nets_->MarkPartners(*subNet);
    } else if (auto const* highwaySegment = dynamic_cast<HighwaySegment const*>(&wire)) {
        if (auto const owner = highwaySegment->GetSubHighway()) highways_->MarkPartners(*owner);
    } else if (CrossingSegments* const segments = SegmentsOf(wire)) {
        segments->MarkPartners(wire);
    }
}

void CrossingPointsVisitor::Reset() {
    mode_ = Mode::COLLECT;
    inHighway_ = false;
    highways_->Clear();
    nets_->Clear();
}

bool CrossingPointsVisitor::HasCrossingPoints(SmartPtr<AbstractFigureItem> const& owner) {
    if (!owner || !SegmentsOf(*owner)) return false;
    mode_ = Mode::QUERY;
    found_ = false;
    owner->Accept(*this);
    mode_ = Mode::COLLECT;
    return found_;
}

void CrossingPointsVisitor::Remove(SmartPtr<AbstractFigureItem> const& owner) {
    if (!owner) return;
    CrossingSegments* const segments = SegmentsOf(*owner);
    if (!segments) return;
    segments->Remove(*owner);
    // What a host put on wires that were never taken in goes as well.
    mode_ = Mode::REMOVE;
    owner->Accept(*this);
    mode_ = Mode::COLLECT;
}

// The walk.

bool CrossingPointsVisitor::Visit(SmartPtr<Figure> const&) {
    if (mode_ == Mode::COLLECT) {
        highways_->BeginPass();
        nets_->BeginPass();
    }
    return true;
}

void CrossingPointsVisitor::VisitComplete(SmartPtr<Figure> const&) {
    if (mode_ != Mode::COLLECT) return;
    highways_->EndPass();
    nets_->EndPass();
}

bool CrossingPointsVisitor::VisitOwner(SmartPtr<AbstractFigureItem> const& owner,
                                       CrossingSegments& segments) {
    if (!owner) return false;
    return mode_ != Mode::COLLECT || segments.Begin(owner);
}

bool CrossingPointsVisitor::Visit(SmartPtr<SubNet> const& subNet) {
    inHighway_ = false;
    return VisitOwner(subNet, *nets_);
}

bool CrossingPointsVisitor::Visit(SmartPtr<SubHighway> const& subHighway) {
    inHighway_ = true;
    return VisitOwner(subHighway, *highways_);
}

void CrossingPointsVisitor::VisitComplete(SmartPtr<SubNet> const&) {
    nets_->Finish();
}

void CrossingPointsVisitor::VisitComplete(SmartPtr<SubHighway> const&) {
    highways_->Finish();
}

bool CrossingPointsVisitor::VisitSegment(SmartPtr<Segment> const& segment,
                                         CrossingSegments& segments) {
    if (!segment) return true;
    if (mode_ == Mode::COLLECT) {
        segments.Add(segment);
        return true;
    }
    if (mode_ == Mode::REMOVE) {
        if (segment->HasCrossingPoints()) segment->RemoveAllCrossingPoints();
        return true;
    }
    found_ = found_ || segment->HasCrossingPoints();
    return !found_;
}

bool CrossingPointsVisitor::Visit(SmartPtr<NetSegment> const& segment) {
    return VisitSegment(segment, *nets_);
}

bool CrossingPointsVisitor::Visit(SmartPtr<HighwaySegment> const& segment) {
    // A net's own walk passes along highways whose segments are taken in with these.
    if (mode_ != Mode::QUERY && !inHighway_) return true;
    return VisitSegment(segment, *highways_);
}

}  // namespace figrep
