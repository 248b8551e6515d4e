#include <figrep/HighwaySegment.h>

#include <figk/HighwaySegment.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include "Ids.h"
#include "settings/Inheritance.h"

namespace figrep {

HighwaySegment::HighwaySegment(SmartPtr<SubHighway> const& subHighway,
                               SmartPtr<zvk::ReadWriteLock> const& lock,
                               SmartPtr<figk::HighwaySegment> const& kernelSegment,
                               SmartPtr<ConnectionNode> const& predecessor)
    : Segment(lock, kernelSegment, predecessor), subHighway_(subHighway) {
    ReadEnds(kernelSegment.Get());
    HighwaySegment::DeriveId();
    HighwaySegment::OwnerWiresChanged();
}

HighwaySegment::HighwaySegment(SmartPtr<SubHighway> const& subHighway,
                               SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start,
                               DPoint2D const& end, SmartPtr<ConnectionNode> const& predecessor)
    : Segment(lock, start, end, predecessor), subHighway_(subHighway) {
    ReadEnds(nullptr);
    HighwaySegment::DeriveId();
    HighwaySegment::OwnerWiresChanged();
}

HighwaySegment::~HighwaySegment() = default;

void HighwaySegment::DeriveId() {
    if (!subHighway_) return;
    SetId(NumberedId(subHighway_->GetId(), "segment", subHighway_->GetNextHighwaySegmentId()));
}

HighwaySegment::FigureItemType HighwaySegment::GetType() const {
    return ITEM_HIGHWAY_SEGMENT;
}

HighwaySegment::ConnectionNodeType HighwaySegment::GetNodeType() const {
    return NODE_HIGHWAY_SEGMENT;
}

std::string HighwaySegment::ToString() const {
    return "HighwaySegment" + Segment::ToString();
}

std::string const& HighwaySegment::GetName() const {
    std::string const& name = Segment::GetName();
    return name.empty() && subHighway_ ? subHighway_->GetName() : name;
}

SmartPtr<Figure> HighwaySegment::GetFigure() const {
    zvk::ReadGuard const guard(GetLock());
    return subHighway_ ? subHighway_->GetFigure() : nullptr;
}

SmartPtr<Figure> HighwaySegment::GetNodeFigure() const {
    return GetFigure();
}

Symbol HighwaySegment::GetTextOwnerId() const {
    zvk::ReadGuard const guard(GetLock());
    return subHighway_ ? subHighway_->GetId() : Symbol::EMPTY;
}

unsigned int HighwaySegment::GetNextTextLabelId() {
    zvk::WriteGuard const guard(GetLock());
    return subHighway_ ? subHighway_->GetNextTextLabelId() : 0;
}

void HighwaySegment::GraphicalUpdateNeeded() {
    if (subHighway_) subHighway_->SetGraphicalUpdateNeeded(true);
}

bool HighwaySegment::FineContentCheck(DBox2D const& box) const {
    zvk::ReadGuard const guard(GetLock());
    return subHighway_ && box.Contains(subHighway_->GetExtents(), 0.0);
}

void HighwaySegment::Add(SmartPtr<SubNet> const& subNet) {
    if (!subNet) return;
    zvk::WriteGuard const guard(GetLock());
    subNets_.Add(subNet);
    if (subHighway_) subHighway_->ForgetExtents();  // a net's box takes in its segments here
}

std::vector<SmartPtr<SubNet>> HighwaySegment::GetSubNets() const {
    zvk::ReadGuard const guard(GetLock());
    return subNets_.GetItems();
}

bool HighwaySegment::Visit(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(GetLock());
    return !subNet || subNets_.Contains(subNet);
}

void HighwaySegment::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetLock());
    subNets_.Remove(subNet);
    if (subHighway_) subHighway_->ForgetExtents();
}

SmartPtr<figk::HighwaySegment> HighwaySegment::GetKernelHighwaySegment() const {
    return GetKernelItemAs<figk::HighwaySegment>();
}

SmartPtr<SubHighway> HighwaySegment::GetSubHighway() const {
    zvk::ReadGuard const guard(GetLock());
    return subHighway_;
}

bool HighwaySegment::AcceptNode(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<HighwaySegment>(this))) return false;
    AcceptContents(visitor);
    return true;
}

ConstSmartPtr<figk::Setting> HighwaySegment::GetInheritedSetting(Setting::RepKey key,
                                                                 unsigned int& depth,
                                                                 bool inheritableOnly) const {
    return subHighway_ ? SettingOf(subHighway_, key, depth, inheritableOnly) : nullptr;
}

void HighwaySegment::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (!subHighway_) return;
    subHighway_->GetAllAttributes(out);
    subHighway_->GetAllInheritedAttributes(out);
}

SmartPtr<figk::Attribute> HighwaySegment::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(subHighway_, name);
}

void HighwaySegment::OwnerWiresChanged() {
    if (subHighway_) subHighway_->WiresChanged();
}

void HighwaySegment::OwnerTextLabelAdded(SmartPtr<TextGraphic> const& text) {
    if (subHighway_) subHighway_->TextLabelAdded(text);
}

}  // namespace figrep
