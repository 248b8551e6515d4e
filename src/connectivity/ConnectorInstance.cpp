#include <figrep/ConnectorInstance.h>

#include <du/Upward.h>
#include <figk/ConnectorInstance.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <sstream>

#include "Ids.h"
#include "Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

ConnectorInstance::ConnectorInstance(SmartPtr<BaseBlockInstance> const& block,
                                     SmartPtr<zvk::ReadWriteLock> const& lock,
                                     SmartPtr<figk::ConnectorInstance> const& kernelConnector)
    : GraphicalFigureItem(lock, kernelConnector),
      TextLabelContainer(lock),
      blockInstance_(block.Get()) {
    du::ConstructionGuard const guard(this);
    if (kernelConnector) position_ = kernelConnector->GetPosition();
    if (block) block->Add(SmartPtr<ConnectorInstance>(this));
    ConnectorInstance::DeriveId();
}

ConnectorInstance::ConnectorInstance(SmartPtr<BaseBlockInstance> const& block,
                                     SmartPtr<zvk::ReadWriteLock> const& lock,
                                     std::string const& name, DPoint2D const& position)
    : GraphicalFigureItem(lock, name),
      TextLabelContainer(lock),
      blockInstance_(block.Get()),
      position_(position) {
    du::ConstructionGuard const guard(this);
    if (block) block->Add(SmartPtr<ConnectorInstance>(this));
}

ConnectorInstance::~ConnectorInstance() = default;

void ConnectorInstance::DeriveId() {
    auto const block = GetBlockInstance();
    if (!block) return;
    auto const record = GetKernelItem();
    std::string const name = record ? record->GetName() : std::string();
    SetId(name.empty() ? NumberedId(block->GetId(), "", block->GetNumConnectorInstances() - 1)
                       : Symbol(block->GetId().GetString() + "/" + name));
}

ConnectorInstance::FigureItemType ConnectorInstance::GetType() const {
    return ITEM_CONNECTOR_INSTANCE;
}

SmartPtr<Figure> ConnectorInstance::GetFigure() const {
    zvk::ReadGuard const guard(GetLock());
    return blockInstance_ ? blockInstance_->GetFigure() : nullptr;
}

SmartPtr<BaseBlockInstance> ConnectorInstance::GetBlockInstance() const {
    zvk::ReadGuard const guard(GetLock());
    return du::Upward(blockInstance_);
}

SmartPtr<figk::ConnectorInstance> ConnectorInstance::GetKernelConnectorInstance() const {
    return GetKernelItemAs<figk::ConnectorInstance>();
}

bool ConnectorInstance::GetHidden() const {
    zvk::ReadGuard const guard(GetLock());
    auto const record = GetKernelConnectorInstance();
    return record && record->GetHidden();
}

DBox2D ConnectorInstance::GetExtents() {
    {
        zvk::ReadGuard const guard(GetLock());
        if (GetHidden()) return DBox2D::EMPTY;
        if (!(GetCachedExtents() == DBox2D::EMPTY)) return GetCachedExtents();
    }
    zvk::WriteGuard const guard(GetLock());
    DBox2D box = GraphicalFigureItem::GetExtents();
    if (box == DBox2D::EMPTY) box.Enclose(position_);
    SetCachedExtents(box);
    return box;
}

std::string ConnectorInstance::ToString() const {
    zvk::ReadGuard const guard(GetLock());
    std::ostringstream text;
    text << "ConnectorInstance " << (blockInstance_ ? blockInstance_->GetName() : std::string())
         << ":" << GetName() << " at " << position_.x << "," << position_.y;
    return text.str();
}

// Nets.

SmartPtr<ConnectorInstanceNode> ConnectorInstance::FindSubNetConnection(
    SmartPtr<SubNet> const& subNet) const {
    for (auto const& connection : connections_) {
        if (connection->GetSubNet() == subNet) return connection;
    }
    return nullptr;
}

void ConnectorInstance::Attach(SmartPtr<ConnectionNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<SubNet> const subNet = node ? node->GetSubNet() : nullptr;
    if (!subNet) return;
    SmartPtr<ConnectorInstanceNode> connection = FindSubNetConnection(subNet);
    if (!connection) {
        connection = new ConnectorInstanceNode(SmartPtr<ConnectorInstance>(this), subNet, GetLock(),
                                               nullptr);
        Add(connection);
    }
    connection->Pivot(nullptr);
    if (connection->IsSuccessor(node)) return;
    node->Pivot(node->GetPredecessor());
    connection->AddSuccessor(node);
    subNet->SetHead(connection);
}

void ConnectorInstance::Add(SmartPtr<ConnectorInstanceNode> const& node) {
    if (!node) return;
    zvk::WriteGuard const guard(GetLock());
    connections_.push_back(node);
}

void ConnectorInstance::Disconnect(SmartPtr<ConnectorInstanceNode> const& node) {
    auto const it = std::find(connections_.begin(), connections_.end(), node);
    if (it != connections_.end()) connections_.erase(it);
}

std::vector<SmartPtr<ConnectorInstanceNode>> ConnectorInstance::GetConnections() const {
    zvk::ReadGuard const guard(GetLock());
    return connections_;
}

// Transforms and looks.

void ConnectorInstance::GeometryChanged() {
    ResetCachedExtents();
    if (blockInstance_) blockInstance_->ForgetExtents();
}

void ConnectorInstance::MemberExtentsChanged() {
    zvk::WriteGuard const guard(GetLock());
    GeometryChanged();
}

void ConnectorInstance::Move(SmartPtr<BaseBlockInstance> const&, double dx, double dy) {
    zvk::WriteGuard const guard(GetLock());
    MoveGraphics(dx, dy);
    MoveText(dx, dy);
    position_ += DVec2(dx, dy);
    GeometryChanged();
}

void ConnectorInstance::Rotate(DPoint2D const& about, double radians) {
    zvk::WriteGuard const guard(GetLock());
    RotateGraphics(about, radians);
    RotateText(about, radians);
    position_ = TransformAbout(position_, about, DMat33::RotationZ(radians));
    GeometryChanged();
}

void ConnectorInstance::Scale(DPoint2D const& about, double factor) {
    zvk::WriteGuard const guard(GetLock());
    ScaleGraphics(about, factor);
    ScaleText(about, factor);
    position_ = TransformAbout(position_, about, DMat33::Scale(factor));
    GeometryChanged();
}

void ConnectorInstance::Mirror(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    MirrorGraphics(about, mirrorY);
    MirrorText(about, mirrorY);
    position_ = MirrorAbout(position_, about, mirrorY);
    GeometryChanged();
}

void ConnectorInstance::SetHighlight(bool on) {
    GraphicalFigureItem::SetHighlight(on);
    SetTextHighlight(on);
}

void ConnectorInstance::SetPreselectHighlight(bool on) {
    GraphicalFigureItem::SetPreselectHighlight(on);
}

void ConnectorInstance::SetVisibility(bool on) {
    GraphicalFigureItem::SetVisibility(on);
    SetTextVisibility(on);
}

void ConnectorInstance::Accept(AbstractFigureVisitor& visitor) {
    zvk::ReadGuard const guard(GetLock());
    SmartPtr<ConnectorInstance> const self(this);
    if (visitor.Visit(self)) {
        GraphicalFigureItem::Accept(visitor);
        TextLabelContainer::Accept(visitor);
    }
    visitor.VisitComplete(self);
}

Symbol ConnectorInstance::GetTextOwnerId() const {
    return GetId();
}

ConstSmartPtr<figk::Setting> ConnectorInstance::GetInheritedSetting(Setting::RepKey key,
                                                                    unsigned int& depth,
                                                                    bool) const {
    zvk::ReadGuard const guard(GetLock());
    return SettingOf(blockInstance_, key, depth);
}

void ConnectorInstance::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    auto const block = GetBlockInstance();
    if (!block) return;
    block->GetAllAttributes(out);
    block->GetAllInheritedAttributes(out);
}

SmartPtr<figk::Attribute> ConnectorInstance::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(GetBlockInstance(), name);
}

}  // namespace figrep
