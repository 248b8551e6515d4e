#include <figrep/PortNode.h>

#include <dg/Close.h>
#include <figk/PortNode.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include <sstream>

#include "Ids.h"
#include "Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

namespace {

DPoint2D PositionOf(SmartPtr<figk::PortNode> const& record) {
    return record ? record->GetPosition() : DPoint2D();
}

}  // namespace

PortNode::PortNode(SmartPtr<Port> const& port, SmartPtr<SubHighway> const& subHighway,
                   SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<figk::PortNode> const& kernelNode,
                   SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, kernelNode),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock),
      port_(port),
      subHighway_(subHighway),
      position_(PositionOf(kernelNode)) {
    JoinPort();
}

PortNode::PortNode(SmartPtr<Port> const& port, SmartPtr<SubHighway> const& subHighway,
                   SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
                   SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, std::string()),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock),
      port_(port),
      subHighway_(subHighway),
      position_(position) {
    JoinPort();
}

PortNode::PortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
                   SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<figk::PortNode> const& kernelNode,
                   SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, kernelNode),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock),
      port_(port),
      subNet_(subNet),
      position_(PositionOf(kernelNode)) {
    JoinPort();
}

PortNode::PortNode(SmartPtr<Port> const& port, SmartPtr<SubNet> const& subNet,
                   SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& position,
                   SmartPtr<ConnectionNode> const& predecessor)
    : GraphicalFigureItem(lock, std::string()),
      ConnectionNode(lock, predecessor),
      TextLabelContainer(lock),
      port_(port),
      subNet_(subNet),
      position_(position) {
    JoinPort();
}

PortNode::~PortNode() {
    if (port_) port_->Forget(this);
}

void PortNode::JoinPort() {
    if (port_) port_->Add(this);
    PortNode::DeriveId();
    OwnerExtentsChanged();
}

void PortNode::DeriveId() {
    if (port_) SetId(NumberedId(port_->GetId(), "", port_->GetNextPortNodeId()));
}

void PortNode::OwnerExtentsChanged() {
    if (subHighway_) subHighway_->ForgetExtents();
    if (subNet_) subNet_->ForgetExtents();
}

// The item.

PortNode::FigureItemType PortNode::GetType() const {
    return ITEM_PORT_NODE;
}

SmartPtr<Figure> PortNode::GetFigure() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    if (subHighway_) return subHighway_->GetFigure();
    return subNet_ ? subNet_->GetFigure() : nullptr;
}

void PortNode::SetHighlight(bool on) {
    GraphicalFigureItem::SetHighlight(on);
    SetTextHighlight(on);
}

void PortNode::SetPreselectHighlight(bool on) {
    GraphicalFigureItem::SetPreselectHighlight(on);
    SetTextPreselectHighlight(on);
}

void PortNode::SetVisibility(bool on) {
    GraphicalFigureItem::SetVisibility(on);
    SetTextVisibility(on);
}

void PortNode::MoveItem(double dx, double dy) {
    Move(dx, dy);
}

void PortNode::RotateItem(DPoint2D const& about, double radians) {
    Rotate(about, radians);
}

void PortNode::MirrorItem(DPoint2D const& about, bool mirrorY) {
    Mirror(about, mirrorY);
}

void PortNode::Accept(AbstractFigureVisitor& visitor) {
    AcceptTree(visitor);
}

bool PortNode::AcceptNode(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<PortNode>(this))) return false;
    GraphicalFigureItem::Accept(visitor);
    TextLabelContainer::Accept(visitor);
    return true;
}

// The node.

PortNode::ConnectionNodeType PortNode::GetNodeType() const {
    return NODE_PORT;
}

std::string PortNode::ToString() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    std::ostringstream text;
    text << GetTypeName() << " on " << (port_ ? port_->GetName() : std::string()) << " at "
         << position_.x << ", " << position_.y;
    return text.str();
}

SmartPtr<SubNet> PortNode::GetSubNet() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return subNet_;
}

void PortNode::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    if (subNet_ == subNet) subNet_ = nullptr;
}

bool PortNode::Visit(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    if (subHighway_) return !subNet || highwaySubNets_.Contains(subNet);
    return subNet_ == subNet;
}

SmartPtr<Figure> PortNode::GetNodeFigure() const {
    return GetFigure();
}

bool PortNode::Contacts(SmartPtr<ConnectionNode> const& other, DPoint2D& at) const {
    if (!other) return false;
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    if (!other->Contacts(position_)) return false;
    at = position_;
    return true;
}

bool PortNode::Contacts(DPoint2D const& point) const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return dg::Close(point, position_);
}

void PortNode::Move(double dx, double dy) {
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    MoveGraphics(dx, dy);
    MoveText(dx, dy);
    position_ += DVec2(dx, dy);
    OwnerExtentsChanged();
}

void PortNode::Rotate(DPoint2D const& about, double radians) {
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    RotateGraphics(about, radians);
    RotateText(about, radians);
    position_ = TransformAbout(position_, about, DMat33::RotationZ(radians));
    OwnerExtentsChanged();
}

void PortNode::Scale(DPoint2D const& about, double factor) {
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    ScaleGraphics(about, factor);
    ScaleText(about, factor);
    position_ = TransformAbout(position_, about, DMat33::Scale(factor));
    OwnerExtentsChanged();
}

void PortNode::Mirror(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    MirrorGraphics(about, mirrorY);
    MirrorText(about, mirrorY);
    position_ = MirrorAbout(position_, about, mirrorY);
    OwnerExtentsChanged();
}

// Labels, sub-nets and records.

Symbol PortNode::GetTextOwnerId() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    if (subHighway_) return subHighway_->GetId();
    return subNet_ ? subNet_->GetId() : Symbol::EMPTY;
}

void PortNode::Add(SmartPtr<SubNet> const& subNet) {
    if (!subNet) return;
    zvk::WriteGuard const guard(AbstractFigureItem::GetLock());
    highwaySubNets_.Add(subNet);
}

std::vector<SmartPtr<SubNet>> PortNode::GetHighwaySubNets() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return highwaySubNets_.GetItems();
}

SmartPtr<Port> PortNode::GetPort() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return port_;
}

SmartPtr<SubHighway> PortNode::GetSubHighway() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return subHighway_;
}

SmartPtr<figk::PortNode> PortNode::GetKernelPortNode() const {
    return GetKernelItemAs<figk::PortNode>();
}

DPoint2D PortNode::GetPosition() const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return position_;
}

ConstSmartPtr<figk::Setting> PortNode::GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                           bool) const {
    zvk::ReadGuard const guard(AbstractFigureItem::GetLock());
    return SettingOf(port_, key, depth);
}

void PortNode::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (!port_) return;
    port_->GetAllAttributes(out);
    port_->GetAllInheritedAttributes(out);
}

SmartPtr<figk::Attribute> PortNode::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(port_, name);
}

}  // namespace figrep
