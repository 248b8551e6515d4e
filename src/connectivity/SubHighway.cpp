#include <figrep/SubHighway.h>

#include <figk/SubHighway.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include <deque>
#include <utility>

#include "Labels.h"
#include "NodeWalk.h"
#include "Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

SubHighway::SubHighway(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
                       std::string const& name)
    : GraphicalFigureItem(lock, name) {
    du::ConstructionGuard const guard(this);
    SetFigure(figure);
    SubHighway::DeriveId();
    if (figure) figure->Receive(SmartPtr<SubHighway>(this));
}

SubHighway::SubHighway(SmartPtr<zvk::ReadWriteLock> const& lock,
                       SmartPtr<figk::SubHighway> const& kernelSubHighway)
    : GraphicalFigureItem(lock, kernelSubHighway) {
    SubHighway::DeriveId();
}

SubHighway::~SubHighway() = default;

void SubHighway::DeriveId() {
    if (auto const item = GetKernelItem()) {
        SetId(item->GetId());
    } else if (auto const figure = GetFigure()) {
        SetId(Symbol("sub_highway/" + std::to_string(figure->GetNextSubHighwayId())));
    } else {
        SetId(Symbol(GetLocalName()));
    }
}

SubHighway::FigureItemType SubHighway::GetType() const {
    return ITEM_SUB_HIGHWAY;
}

std::string const& SubHighway::GetName() const {
    static std::string const NONE;
    return GetKernelItem() ? AbstractFigureItem::GetName() : NONE;
}

SmartPtr<figk::SubHighway> SubHighway::GetKernelSubHighway() const {
    return GetKernelItemAs<figk::SubHighway>();
}

// The tree.

SmartPtr<ConnectionNode> SubHighway::GetHead() const {
    zvk::WriteGuard const guard(GetLock());
    if (head_) head_->Pivot(nullptr);
    return head_;
}

void SubHighway::SetHead(SmartPtr<ConnectionNode> const& node) {
    zvk::WriteGuard const guard(GetLock());
    singleTextLabelAcquired_ = false;
    if (node == head_) return;
    head_ = node;
    WiresChanged();
}

void SubHighway::TurnToHead() {
    SmartPtr<ConnectionNode> const head = head_;
    if (!head || head->IsHead()) return;
    head->SuspendPrePivot(true);
    head->Pivot(nullptr);
    head->SuspendPrePivot(false);
}

// Sub-nets.

void SubHighway::Add(SmartPtr<SubNet> const& subNet) {
    if (!subNet) return;
    zvk::WriteGuard const guard(GetLock());
    subNets_.Insert(subNet);
}

void SubHighway::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetLock());
    subNets_.Remove(subNet);
}

void SubHighway::GetSubNets(std::vector<SmartPtr<SubNet>>& out) const {
    zvk::ReadGuard const guard(GetLock());
    out = subNets_.GetItems();
}

bool SubHighway::ConnectsToSubNet(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(GetLock());
    return subNets_.Contains(subNet);
}

// Numbers and labels.

unsigned int SubHighway::GetNextHighwaySegmentId() {
    return nextHighwaySegmentId_++;
}

unsigned int SubHighway::GetNextTextLabelId() {
    return nextTextLabelId_++;
}

SmartPtr<TextGraphic> SubHighway::GetSingleTextLabel() {
    zvk::WriteGuard const guard(GetLock());
    if (!singleTextLabelAcquired_) AcquireSingleTextLabel();
    return singleTextLabel_;
}

void SubHighway::AcquireSingleTextLabel() const {
    singleTextLabel_ = FindFirstLabel<HighwaySegment>(GetHead());
    singleTextLabelAcquired_ = true;
}

void SubHighway::TextLabelAdded(SmartPtr<TextGraphic> const& text) {
    if (!GetKernelItem()) TakeColorFromLabel(*this, text);
    singleTextLabelAcquired_ = false;
}

// Pictures and settings.

bool SubHighway::GetGraphicalUpdateNeeded() const {
    zvk::ReadGuard const guard(GetLock());
    return graphicalUpdateNeeded_;
}

void SubHighway::SetGraphicalUpdateNeeded(bool needed) {
    zvk::WriteGuard const guard(GetLock());
    graphicalUpdateNeeded_ = needed;
}

void SubHighway::WiresChanged() {
    ForgetExtents();
    graphicalUpdateNeeded_ = true;
    if (auto const figure = GetFigure()) figure->NoteWireChanged(*this);
}

void SubHighway::ForgetExtents() {
    ResetCachedExtents();
    ++revision_;
}

void SubHighway::SettingsChanged() {
    WiresChanged();
    MarkCrossingPartners();
}

void SubHighway::MarkCrossingPartners() {
    if (auto const figure = GetFigure()) figure->MarkCrossingPartners(*this);
}

ConstSmartPtr<figk::Setting> SubHighway::GetInheritedSetting(Setting::RepKey key,
                                                             unsigned int& depth, bool) const {
    zvk::ReadGuard const guard(GetLock());
    return SettingOf(GetFigure(), key, depth);
}

void SubHighway::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (auto const figure = GetFigure()) figure->GetAllAttributes(out);
}

SmartPtr<figk::Attribute> SubHighway::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(GetFigure(), name);
}

// Extents.

DBox2D SubHighway::GetExtents() {
    {
        zvk::ReadGuard const guard(GetLock());
        if (!(GetCachedExtents() == DBox2D::EMPTY)) return GetCachedExtents();
    }
    zvk::WriteGuard const guard(GetLock());
    if (GetCachedExtents() == DBox2D::EMPTY) SetCachedExtents(GetSubHighwayExtents());
    return GetCachedExtents();
}

DBox2D SubHighway::GetSubHighwayExtents() const {
    DBox2D box = DBox2D::EMPTY;
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        if (auto const segment = du::DynamicCast<HighwaySegment>(node)) {
            box.Enclose(segment->GetExtents());
        }
    });
    return box;
}

// Transforms and looks.

template <class Action>
void SubHighway::ForEachNode(Action const& action) {
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) { action(*node); });
    ForgetExtents();
}

void SubHighway::Move(double dx, double dy) {
    ForEachNode([&](ConnectionNode& node) { node.Move(dx, dy); });
}

void SubHighway::Rotate(DPoint2D const& about, double radians) {
    ForEachNode([&](ConnectionNode& node) { node.Rotate(about, radians); });
}

void SubHighway::Scale(DPoint2D const& about, double factor) {
    ForEachNode([&](ConnectionNode& node) { node.Scale(about, factor); });
}

void SubHighway::Mirror(DPoint2D const& about, bool mirrorY) {
    ForEachNode([&](ConnectionNode& node) { node.Mirror(about, mirrorY); });
}

void SubHighway::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Move(dx, dy);
}

void SubHighway::RotateItem(DPoint2D const& about, double radians) {
    if (radians == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    Rotate(about, radians);
}

void SubHighway::ScaleItem(DPoint2D const& about, double factor) {
    if (!IsUsableFactor(factor)) return;
    zvk::WriteGuard const guard(GetLock());
    Scale(about, factor);
}

void SubHighway::MirrorItem(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    Mirror(about, mirrorY);
}

template <class Action>
void SubHighway::ForEachItem(Action const& action) {
    WalkNodes(GetHead(), [&](SmartPtr<ConnectionNode> const& node) {
        if (auto const item = du::DynamicCast<AbstractFigureItem>(node)) action(*item);
    });
}

void SubHighway::SetHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetHighlight(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetHighlight(on); });
}

void SubHighway::SetPreselectHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetPreselectHighlight(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetPreselectHighlight(on); });
}

void SubHighway::SetVisibility(bool on) {
    zvk::WriteGuard const guard(GetLock());
    GraphicalFigureItem::SetVisibility(on);
    ForEachItem([&](AbstractFigureItem& item) { item.SetVisibility(on); });
}

void SubHighway::Accept(AbstractFigureVisitor& visitor) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<SubHighway> const self(this);
    if (visitor.Visit(self)) {
        GraphicalFigureItem::Accept(visitor);
        if (auto const head = GetHead()) head->AcceptTree(visitor);
    }
    visitor.VisitComplete(self);
}

// Taking apart.

void SubHighway::DestroyConnectivity() {
    SmartPtr<SubHighway> const self(this);
    zvk::WriteGuard const guard(GetLock());
    if (auto const figure = GetFigure()) figure->PrePivot(nullptr);
    subNets_.Clear();
    singleTextLabel_ = nullptr;
    singleTextLabelAcquired_ = false;
    ForgetExtents();
    SmartPtr<ConnectionNode> const head = std::exchange(head_, {});
    if (!head) return;
    head->SuspendPrePivot(true);
    head->Pivot(nullptr);
    std::deque<SmartPtr<ConnectionNode>> queue{head};
    while (!queue.empty()) {
        SmartPtr<ConnectionNode> const node = queue.front();
        queue.pop_front();
        for (auto const& successor : {node->GetLeftSuccessor(), node->GetRightSuccessor()}) {
            if (successor) queue.push_back(successor);
        }
        node->Disconnect();
    }
}

}  // namespace figrep
