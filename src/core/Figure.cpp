#include <figrep/Figure.h>

#include <figk/AbstractDelta.h>
#include <figk/AbstractItem.h>
#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/ArrowPatternGenerator.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/CrossingPointsVisitor.h>
#include <figrep/FigureContentShadow.h>
#include <figrep/FigureLink.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/Miscellaneous.h>
#include <figrep/Port.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextLabelContainerGroup.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <unordered_set>

#include "FindFigureItemVisitor.h"

namespace figrep {

zvk::ClassType const Figure::CLASS_TYPE("figrep::Figure");
std::map<unsigned int, Figure*> Figure::s_figureIdMap;

Figure::Figure()
    : zvk::Observable(figk::SchematicKernel::GetKernelLock()),
      AttributeList(figk::SchematicKernel::GetKernelLock()),
      SettingList(figk::SchematicKernel::GetKernelLock(), {}),
      TextLabelContainer(figk::SchematicKernel::GetKernelLock()) {
    du::ConstructionGuard guard(this);
    link_ = new FigureLink(this);
    crossingPoints_ = new CrossingPointsVisitor(this);
    arrowPatterns_ = new ArrowPatternGenerator();
    findVisitor_ = new FindFigureItemVisitor(this);
    SetDefaultLineAttributes();
}

Figure::~Figure() = default;

// Teardown reaches code that hands out pointers to the figure, so it runs with a reference held.
// Letting that go comes back here, then to delete.
void Figure::ZeroReferenceCountHook() {
    if (tornDown_) {
        zvk::Observable::ZeroReferenceCountHook();
        return;
    }
    tornDown_ = true;
    SmartPtr<Figure> const hold(this);
    TearDown();
}

// Visitors go before their subjects; items learn that the figure is gone at the very end.
void Figure::TearDown() {
    zvk::WriteGuard guard(GetLock());
    pivotInProgress_ = true;
    figureShadow_.Reset();
    crossingPoints_.Reset();
    arrowPatterns_.Reset();
    findVisitor_.Reset();
    DestroyConnectivity();
    ClearCableInstances();
    DisownText();
    link_->Clear();
}

// A wire that was taken out may have gone to another figure.
bool Figure::IsStillOurs(AbstractFigureItem const& wire) const {
    return wire.GetFigure().Get() == this;
}

void Figure::DestroyConnectivity() {
    if (activeSubNet_) activeSubNet_->Deactivate();
    activeSubNet_.Reset();
    for (auto const& subNet : subNets_)
        subNet->DestroyConnectivity();
    for (auto const& subNet : removedSubNets_) {
        if (IsStillOurs(*subNet)) subNet->DestroyConnectivity();
    }
    subNets_.clear();
    removedSubNets_.clear();
    for (auto const& subHighway : subHighways_)
        subHighway->DestroyConnectivity();
    for (auto const& subHighway : removedSubHighways_) {
        if (IsStillOurs(*subHighway)) subHighway->DestroyConnectivity();
    }
    subHighways_.clear();
    removedSubHighways_.clear();
}

void Figure::ClearCableInstances() {
    for (auto const& cable : cableInstances_)
        cable->ClearSubNets();
    cableInstances_.clear();
}

zvk::ClassType const& Figure::GetClassType() const {
    return CLASS_TYPE;
}

SmartPtr<zvk::ReadWriteLock> const& Figure::GetLock() const {
    return GetObjectLock();
}

std::vector<SmartPtr<BlockInstance>> Figure::GetBlockInstances() const {
    zvk::ReadGuard guard(GetLock());
    return blockInstances_;
}

std::vector<SmartPtr<CableInstance>> Figure::GetCableInstances() const {
    zvk::ReadGuard guard(GetLock());
    return cableInstances_;
}

std::vector<SmartPtr<Miscellaneous>> Figure::GetMiscellaneous() const {
    zvk::ReadGuard guard(GetLock());
    return miscellaneous_;
}

std::vector<SmartPtr<Port>> Figure::GetPorts() const {
    zvk::ReadGuard guard(GetLock());
    return ports_;
}

std::vector<SmartPtr<SubHighway>> Figure::GetSubHighways() const {
    zvk::ReadGuard guard(GetLock());
    return subHighways_;
}

std::vector<SmartPtr<SubNet>> Figure::GetSubNets() const {
    zvk::ReadGuard guard(GetLock());
    return subNets_;
}

std::vector<SmartPtr<TableInstance>> Figure::GetTableInstances() const {
    zvk::ReadGuard guard(GetLock());
    return tableInstances_;
}

std::vector<SmartPtr<figk::Sheet>> Figure::GetSheets() const {
    zvk::ReadGuard guard(GetLock());
    return sheets_;
}

std::vector<SmartPtr<figk::Design>> Figure::GetDesigns() const {
    zvk::ReadGuard guard(GetLock());
    return designs_;
}

SmartPtr<Format> Figure::GetFormat() const {
    zvk::ReadGuard guard(GetLock());
    return format_;
}

SmartPtr<BlockInstance> Figure::GetBlockInstanceByID(Symbol const& id) const {
    zvk::ReadGuard guard(GetLock());
    auto const found = std::find_if(blockInstances_.begin(), blockInstances_.end(),
                                    [&](auto const& block) { return block->GetId() == id; });
    return found == blockInstances_.end() ? SmartPtr<BlockInstance>() : *found;
}

SmartPtr<AbstractFigureItem> Figure::Find(Symbol const& id) {
    zvk::WriteGuard guard(GetLock());
    return findVisitor_ ? findVisitor_->Find(id) : SmartPtr<AbstractFigureItem>();
}

namespace {

template <typename Item>
void AcceptAll(std::vector<SmartPtr<Item>> const& items, AbstractFigureVisitor& visitor) {
    for (auto const& item : items)
        item->Accept(visitor);
}

}  // namespace

void Figure::Accept(AbstractFigureVisitor& visitor) {
    SmartPtr<Figure> const self(this);
    if (visitor.Visit(self)) {
        zvk::WriteGuard guard(GetLock());
        if (auto const format = format_) format->Accept(visitor);
        TextLabelContainer::Accept(visitor);
        // Copies, since a visitor may change the registries.
        AcceptAll(GetBlockInstances(), visitor);
        AcceptAll(GetCableInstances(), visitor);
        AcceptAll(GetPorts(), visitor);
        AcceptAll(GetSubHighways(), visitor);
        AcceptAll(GetSubNets(), visitor);
        AcceptAll(GetTableInstances(), visitor);
        AcceptAll(GetMiscellaneous(), visitor);
    }
    visitor.VisitComplete(self);
}

bool Figure::IsSbomItemInFigure(SmartPtr<figk::AbstractItem> const& record) const {
    zvk::ReadGuard guard(GetLock());
    return sbomKernelFigureMap_.count(record) != 0;
}

bool Figure::IsSbomItemVisible(SmartPtr<figk::AbstractItem> const& record) const {
    zvk::ReadGuard guard(GetLock());
    auto const entry = sbomKernelFigureMap_.find(record);
    return entry == sbomKernelFigureMap_.end() || entry->second.front()->IsVisible();
}

void Figure::KernelToRepItems(SmartPtr<figk::AbstractItem> const& record, Items& out) const {
    out.clear();
    zvk::ReadGuard guard(GetLock());
    auto const entry = sbomKernelFigureMap_.find(record);
    if (entry != sbomKernelFigureMap_.end()) out = entry->second;
}

namespace {

SmartPtr<AbstractFigureItem> HigherLevelItem(SmartPtr<BaseGraphic> const& graphic) {
    auto const group = du::DynamicCast<GraphicGroup>(graphic->GetHeadGroup());
    SmartPtr<AbstractFigureItem> const item = du::DynamicCast<GraphicalFigureItem>(group);
    return item ? item : SmartPtr<AbstractFigureItem>(graphic);
}

}  // namespace

void Figure::GetHigherLevelContent(std::vector<SmartPtr<BaseGraphic>> const& graphics,
                                   Items& out) const {
    zvk::ReadGuard guard(GetLock());
    std::unordered_set<SmartPtr<AbstractFigureItem>> present(out.begin(), out.end());
    for (auto const& graphic : graphics) {
        if (!graphic) continue;
        auto const item = HigherLevelItem(graphic);
        if (present.insert(item).second) out.push_back(item);
    }
}

bool Figure::ItemHasCrossingPoints(SmartPtr<AbstractFigureItem> const& item) {
    if (!item) return false;
    auto const type = item->GetType();
    if (type != AbstractFigureItem::ITEM_SUB_HIGHWAY && type != AbstractFigureItem::ITEM_SUB_NET) {
        return false;
    }
    zvk::WriteGuard guard(GetLock());
    return crossingPoints_->HasCrossingPoints(item);
}

SmartPtr<BaseGraphic> Figure::AddDebugGraphic(DBox2D const& box) {
    zvk::WriteGuard guard(GetLock());
    SmartPtr<BaseGraphic> graphic =
        GenericGraphic::Create(GetLock(), box, GetTextLabelContainerGroup());
    findVisitor_->Clear();
    PostChangedEvent();
    return graphic;
}

void Figure::PrePivot(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard guard(GetLock());
    if (pivotInProgress_ || subNet == activeSubNet_) return;
    pivotInProgress_ = true;
    // The next activation turns the highways anyway, mostly by a shorter way than back.
    if (auto const old = activeSubNet_) old->Deactivate(!subNet);
    activeSubNet_ = subNet;
    if (subNet) subNet->Activate(false);
    pivotInProgress_ = false;
}

unsigned int Figure::GetNextSubNetId() {
    zvk::WriteGuard guard(GetLock());
    return nextSubNetId_++;
}

unsigned int Figure::GetNextSubHighwayId() {
    zvk::WriteGuard guard(GetLock());
    return nextSubHighwayId_++;
}

bool Figure::GetLoaded() const {
    zvk::ReadGuard guard(GetLock());
    return loaded_;
}

void Figure::SetLoaded() {
    zvk::WriteGuard guard(GetLock());
    loaded_ = true;
}

bool Figure::HasChanged() const {
    zvk::ReadGuard guard(GetLock());
    return hasChanged_;
}

void Figure::ResetHasChanged() {
    zvk::WriteGuard guard(GetLock());
    hasChanged_ = false;
}

std::string Figure::GenerateNextGraphicName() {
    static std::atomic<int> counter{0};
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%03d", counter++);
    return text.data();
}

Symbol Figure::GetTextOwnerId() const {
    return Symbol::EMPTY;
}

}  // namespace figrep
