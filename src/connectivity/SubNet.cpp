#include <figrep/SubNet.h>

#include <figk/Net.h>
#include <figk/SubNet.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/TextGraphic.h>
#include <figrep/VisitCheck.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <deque>
#include <utility>

#include "Labels.h"
#include "NodeWalk.h"
#include "Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

namespace {

bool StandsOnHighway(SmartPtr<ConnectionNode> const& node) {
    if (du::DynamicCast<HighwaySegment>(node)) return true;
    auto const portNode = du::DynamicCast<PortNode>(node);
    auto const port = portNode ? portNode->GetPort() : nullptr;
    return port && port->OnHighwayNotNet();
}

}  // namespace

SubNet::SubNet(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
               SmartPtr<figk::SubNet> const& kernelSubNet)
    : GraphicalFigureItem(lock, kernelSubNet) {
    SetFigure(figure);
    SubNet::DeriveId();
}

SubNet::SubNet(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
               std::string const& name)
    : GraphicalFigureItem(lock, name) {
    du::ConstructionGuard const guard(this);
    SetFigure(figure);
    SubNet::DeriveId();
    if (figure) figure->Receive(SmartPtr<SubNet>(this));
}

SubNet::~SubNet() = default;

void SubNet::DeriveId() {
    if (auto const item = GetKernelItem()) {
        SetId(item->GetId());
    } else if (auto const figure = GetFigure()) {
        SetId(Symbol("subnet/" + std::to_string(figure->GetNextSubNetId())));
    }
}

SubNet::FigureItemType SubNet::GetType() const {
    return ITEM_SUB_NET;
}

std::string const& SubNet::GetName() const {
    auto const record = GetKernelSubNet();
    auto const net = record ? record->GetNet() : nullptr;
    return net ? net->GetName() : AbstractFigureItem::GetName();
}

SmartPtr<figk::SubNet> SubNet::GetKernelSubNet() const {
    return GetKernelItemAs<figk::SubNet>();
}

// The tree.

SmartPtr<ConnectionNode> SubNet::GetHead() const {
    zvk::WriteGuard const guard(GetLock());
    if (head_) head_->Pivot(nullptr);
    return head_;
}

void SubNet::SetHead(SmartPtr<ConnectionNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    singleTextLabelAcquired_ = false;
    if (node == head_) return;
    head_ = node;
    WiresChanged();
}

SmartPtr<ConnectionNode> SubNet::GetStartNode() const {
    zvk::ReadGuard const guard(GetLock());
    return startNode_;
}

void SubNet::SetStartNode(SmartPtr<ConnectionNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    if (node == startNode_) return;
    startNode_ = node;
    WiresChanged();  // arrows run from the start
}

SmartPtr<NetSegment> SubNet::GetStartSegment() const {
    zvk::ReadGuard const guard(GetLock());
    return startSegment_;
}

void SubNet::SetStartSegment(SmartPtr<NetSegment> const& segment) {
    zvk::WriteGuard const guard(GetLock());
    if (segment == startSegment_) return;
    startSegment_ = segment;
    WiresChanged();
}

// Highways and cable.

void SubNet::Add(SmartPtr<HighwayNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    highwayNodes_.push_back(node);
    ForgetExtents();
}

void SubNet::Remove(SmartPtr<HighwayNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    auto const it = std::find(highwayNodes_.begin(), highwayNodes_.end(), node);
    if (it == highwayNodes_.end()) return;
    highwayNodes_.erase(it);
    ForgetExtents();
}

std::vector<SmartPtr<HighwayNode>> SubNet::GetHighwayNodes() const {
    zvk::ReadGuard const guard(GetLock());
    return highwayNodes_;
}

void SubNet::Activate(bool suspendPrePivot) {
    for (auto const& node : GetHighwayNodes())
        node->Activate(suspendPrePivot);
}

void SubNet::Deactivate(bool turnHighwaysBack) {
    for (auto const& node : GetHighwayNodes())
        node->Deactivate(turnHighwaysBack);
}

bool SubNet::NodeIsHighwayJunction(SmartPtr<ConnectionNode> const& node) {
    if (!node || node->GetNodeType() != ConnectionNode::NODE_JUNCTION) return false;
    auto const above = node->GetNonJunctionPredecessor();
    return above && (above->GetNodeType() == ConnectionNode::NODE_HIGHWAY ||
                     above->GetNodeType() == ConnectionNode::NODE_HIGHWAY_SEGMENT);
}

void SubNet::Add(SmartPtr<CableInstance> const& cable) {
    {
        zvk::WriteGuard const guard(GetLock());
        cable_ = cable;
    }
    SettingsChanged();  // the cable's settings apply from now on
}

void SubNet::Remove(SmartPtr<CableInstance> const& cable) {
    {
        zvk::WriteGuard const guard(GetLock());
        if (!(cable_ == cable)) return;
        cable_ = nullptr;
    }
    SettingsChanged();
}

SmartPtr<CableInstance> SubNet::GetCable() const {
    zvk::ReadGuard const guard(GetLock());
    return cable_;
}

// Numbers and labels.

unsigned int SubNet::GetNextNetSegmentId() {
    zvk::WriteGuard const guard(GetLock());
    return nextNetSegmentId_++;
}

unsigned int SubNet::GetNextTextLabelId() {
    zvk::WriteGuard const guard(GetLock());
    return nextTextLabelId_++;
}

SmartPtr<TextGraphic> SubNet::GetSingleTextLabel() {
    zvk::WriteGuard const guard(GetLock());
    if (!singleTextLabelAcquired_) AcquireSingleTextLabel();
    return singleTextLabel_;
}

void SubNet::AcquireSingleTextLabel() const {
    singleTextLabel_ = FindFirstLabel<NetSegment>(GetHead());
    singleTextLabelAcquired_ = true;
}

void SubNet::TextLabelAdded(SmartPtr<TextGraphic> const& text) {
    zvk::WriteGuard const guard(GetLock());
    if (!GetKernelItem()) TakeColorFromLabel(*this, text);
    singleTextLabelAcquired_ = false;
}

// Pictures and settings.

bool SubNet::GetGraphicalUpdateNeeded() const {
    zvk::ReadGuard const guard(GetLock());
    return graphicalUpdateNeeded_;
}

void SubNet::SetGraphicalUpdateNeeded(bool needed) {
    zvk::WriteGuard const guard(GetLock());
    graphicalUpdateNeeded_ = needed;
}

void SubNet::WiresChanged() {
    ForgetExtents();
    graphicalUpdateNeeded_ = true;
    if (auto const figure = GetFigure()) figure->NoteWireChanged(*this);
}

void SubNet::ForgetExtents() {
    ResetCachedExtents();
}

void SubNet::SettingsChanged() {
    WiresChanged();
    MarkCrossingPartners();
}

void SubNet::MarkCrossingPartners() {
    if (auto const figure = GetFigure()) figure->MarkCrossingPartners(*this);
}

ConstSmartPtr<figk::Setting> SubNet::GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                         bool) const {
    zvk::ReadGuard const guard(GetLock());
    if (cable_) {
        unsigned int cableDepth = depth;
        if (auto setting = cable_->SettingList::GetSetting(key, cableDepth, true)) {
            depth = cableDepth + 1;
            return setting;
        }
    }
    return SettingOf(GetFigure(), key, depth);
}

void SubNet::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (auto const cable = GetCable()) {
        cable->GetAllAttributes(out);
        cable->BaseBlockInstance::GetAllInheritedAttributes(out);
    } else if (auto const figure = GetFigure()) {
        figure->GetAllAttributes(out);
    }
}

SmartPtr<figk::Attribute> SubNet::GetInheritedAttribute(Symbol const& name) const {
    if (auto const cable = GetCable()) return AttributeOf(cable, name);
    return AttributeOf(GetFigure(), name);
}

// Extents.

DBox2D SubNet::GetExtents() {
    {
        zvk::ReadGuard const guard(GetLock());
        if (ExtentsAreCurrent()) return GetCachedExtents();
    }
    zvk::WriteGuard const guard(GetLock());
    if (!ExtentsAreCurrent()) {
        std::uint64_t const revision = HighwayRevision();
        SetCachedExtents(GetSubNetExtents());
        extentsRevision_ = revision;
    }
    return GetCachedExtents();
}

bool SubNet::ExtentsAreCurrent() const {
    return !(GetCachedExtents() == DBox2D::EMPTY) && extentsRevision_ == HighwayRevision();
}

DBox2D SubNet::GetSubNetExtents() const {
    DBox2D box = DBox2D::EMPTY;
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        if (auto const item = du::DynamicCast<GraphicalFigureItem>(node)) {
            box.Enclose(item->GetExtents());
        }
    });
    return box;
}

std::uint64_t SubNet::HighwayRevision() const {
    std::uint64_t sum = 0;
    for (auto const& node : highwayNodes_) {
        if (auto const subHighway = node->GetSubHighway()) sum += subHighway->revision_;
    }
    return sum;
}

// Transforms and looks.

template <class Action>
void SubNet::ForEachOwnNode(Action const& action) {
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        if (!StandsOnHighway(node)) action(*node);
    });
    ForgetExtents();
}

void SubNet::Move(double dx, double dy) {
    ForEachOwnNode([&](ConnectionNode& node) { node.Move(dx, dy); });
}

void SubNet::Rotate(DPoint2D const& about, double radians) {
    ForEachOwnNode([&](ConnectionNode& node) { node.Rotate(about, radians); });
}

void SubNet::Scale(DPoint2D const& about, double factor) {
    ForEachOwnNode([&](ConnectionNode& node) { node.Scale(about, factor); });
}

void SubNet::Mirror(DPoint2D const& about, bool mirrorY) {
    ForEachOwnNode([&](ConnectionNode& node) { node.Mirror(about, mirrorY); });
}

void SubNet::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Move(dx, dy);
}

void SubNet::RotateItem(DPoint2D const& about, double radians) {
    if (radians == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Rotate(about, radians);
}

void SubNet::ScaleItem(DPoint2D const& about, double factor) {
    if (!IsUsableFactor(factor)) return;
    zvk::WriteGuard const guard(GetLock());
    Scale(about, factor);
}

void SubNet::MirrorItem(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    Mirror(about, mirrorY);
}

template <class Action>
void SubNet::ForEachItem(Action const& action) {
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        auto const item = du::DynamicCast<AbstractFigureItem>(node);
        if (!item) return;
        action(*item);
        if (auto const segment = du::DynamicCast<HighwaySegment>(node)) {
            segment->GraphicalUpdateNeeded();
        }
    });
}

void SubNet::SetHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetHighlight(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetHighlight(on); });
}

void SubNet::SetPreselectHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetPreselectHighlight(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetPreselectHighlight(on); });
}

void SubNet::SetVisibility(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetVisibility(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetVisibility(on); });
}

void SubNet::Accept(AbstractFigureVisitor& visitor) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<SubNet> const self(this);
    if (visitor.Visit(self)) {
        GraphicalFigureItem::Accept(visitor);
        if (auto const head = GetHead()) {
            SmartPtr<VisitCheck> const check(new VisitCheck(head));
            head->AcceptTree(visitor, check.Get());
        }
    }
    visitor.VisitComplete(self);
}

// Taking apart.

void SubNet::DestroyConnectivity() {
    SmartPtr<SubNet> const self(this);
    zvk::WriteGuard const guard(GetLock());
    if (auto const figure = GetFigure()) figure->PrePivot(nullptr);
    Activate(true);
    DestroyTreeFrom(std::exchange(head_, {}));
    LeaveHighways();
    startNode_ = nullptr;
    startSegment_ = nullptr;
    singleTextLabel_ = nullptr;
    singleTextLabelAcquired_ = false;
    ForgetExtents();
}

void SubNet::DestroyTreeFrom(SmartPtr<ConnectionNode> const& start) {
    if (!start) return;
    SmartPtr<SubNet> const self(this);
    start->SuspendPrePivot(true);
    start->Pivot(nullptr);
    std::deque<SmartPtr<ConnectionNode>> queue{start};
    while (!queue.empty()) {
        SmartPtr<ConnectionNode> const node = queue.front();
        queue.pop_front();
        if (!node->Visit(self)) continue;
        for (auto const& successor : {node->GetLeftSuccessor(), node->GetRightSuccessor()}) {
            if (successor) queue.push_back(successor);
        }
        DestroyNode(node);
    }
}

void SubNet::DestroyNode(SmartPtr<ConnectionNode> const& node) {
    SmartPtr<SubNet> const self(this);
    auto const portNode = du::DynamicCast<PortNode>(node);
    bool const onHighway = node->GetNodeType() == ConnectionNode::NODE_HIGHWAY ||
                           node->GetNodeType() == ConnectionNode::NODE_HIGHWAY_SEGMENT ||
                           (portNode && portNode->GetSubHighway());
    if (onHighway) {
        node->Remove(self);
        return;
    }
    if (NodeIsHighwayJunction(node)) return;
    node->Disconnect();
    if (portNode) node->Remove(self);
}

void SubNet::LeaveHighways() {
    SmartPtr<SubNet> const self(this);
    // Each tap opens the way to pieces that no found segment joins to the head.
    for (auto const& node : std::exchange(highwayNodes_, {})) {
        SmartPtr<ConnectionNode> const netNode = node->GetNetConnectionNode();
        node->Deactivate(false);  // a figure that goes cuts one net after the other
        node->SetNetConnectionNode(nullptr);
        node->Remove(self);
        if (auto const subHighway = node->GetSubHighway()) subHighway->Remove(self);
        DestroyTreeFrom(netNode);
    }
}

}  // namespace figrep
