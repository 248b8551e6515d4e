// How items come into a figure and leave it.
#include <figk/AbstractDelta.h>
#include <figk/AbstractItem.h>
#include <figk/Design.h>
#include <figk/Sheet.h>
#include <figrep/ArrowPatternGenerator.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/CrossingPointsVisitor.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>

#include "FindFigureItemVisitor.h"

namespace figrep {

namespace {

/// Erases the first match; false without one.
template <typename Item>
bool EraseFirst(std::vector<Item>& items, Item const& item) {
    auto const found = std::find(items.begin(), items.end(), item);
    if (found == items.end()) return false;
    items.erase(found);
    return true;
}

template <typename Item>
void AddOnce(std::vector<Item>& items, Item const& item) {
    if (std::find(items.begin(), items.end(), item) == items.end()) items.push_back(item);
}

/// Takes the arrows off a sub-net that leaves, so that they aren't there twice should it return.
class ArrowRemover : public AbstractFigureVisitor {
public:
    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<NetSegment> const& segment) override {
        if (segment->HasArrows()) segment->RemoveAllArrows();
        return true;
    }
};

}  // namespace

template <typename Item>
void Figure::Register(std::vector<SmartPtr<Item>>& registry, SmartPtr<Item> const& item) {
    item->SetFigure(this);
    registry.push_back(item);
    findVisitor_->TakeIn(item);
}

void Figure::Receive(SmartPtr<BlockInstance> const& block) {
    if (!block) return;
    zvk::WriteGuard guard(GetLock());
    Register(blockInstances_, block);
    AddItemToSbomKernelFigureMap(block);
}

void Figure::Receive(SmartPtr<CableInstance> const& cable) {
    if (!cable) return;
    zvk::WriteGuard guard(GetLock());
    Register(cableInstances_, cable);
    AddItemToSbomKernelFigureMap(cable);
}

void Figure::Receive(SmartPtr<Miscellaneous> const& miscellaneous) {
    if (!miscellaneous) return;
    zvk::WriteGuard guard(GetLock());
    Register(miscellaneous_, miscellaneous);
}

void Figure::Receive(SmartPtr<Port> const& port) {
    if (!port) return;
    zvk::WriteGuard guard(GetLock());
    Register(ports_, port);
}

void Figure::Receive(SmartPtr<SubHighway> const& subHighway) {
    if (!subHighway) return;
    zvk::WriteGuard guard(GetLock());
    Register(subHighways_, subHighway);
    subHighway->SetGraphicalUpdateNeeded(true);
    EraseFirst(removedSubHighways_, subHighway);
}

void Figure::Receive(SmartPtr<SubNet> const& subNet) {
    if (!subNet) return;
    zvk::WriteGuard guard(GetLock());
    // It was deactivated when it was taken out; only the field still calls it active.
    if (activeSubNet_ == subNet) activeSubNet_.Reset();
    Register(subNets_, subNet);
    subNet->SetGraphicalUpdateNeeded(true);
    AddItemToSbomKernelFigureMap(subNet);
    EraseFirst(removedSubNets_, subNet);
}

void Figure::Receive(SmartPtr<TableInstance> const& table) {
    if (!table) return;
    zvk::WriteGuard guard(GetLock());
    Register(tableInstances_, table);
}

void Figure::Receive(SmartPtr<figk::Design> const& design) {
    if (!design) return;
    zvk::WriteGuard guard(GetLock());
    AddOnce(designs_, design);
}

void Figure::Receive(SmartPtr<Format> const& format) {
    if (!format) return;
    zvk::WriteGuard guard(GetLock());
    format->SetFigure(this);
    figureExtents_ = DBox2D::EMPTY;
    format_ = format;
    findVisitor_->Clear();
}

void Figure::Receive(SmartPtr<TitleBlock> const& titleBlock) {
    if (!titleBlock) return;
    zvk::WriteGuard guard(GetLock());
    if (!format_) return;
    titleBlock->SetFigure(this);
    titleBlock->SetGraphicsGenerator(titleBlockGraphicsGenerator_);
    format_->Add(titleBlock);
    findVisitor_->Clear();
}

void Figure::AddSheet(SmartPtr<figk::Sheet> const& sheet) {
    if (!sheet) return;
    zvk::WriteGuard guard(GetLock());
    AddOnce(sheets_, sheet);
    findVisitor_->Clear();
}

void Figure::AddItemToSbomKernelFigureMap(SmartPtr<AbstractFigureItem> const& item) {
    auto const record = item->GetKernelItem();
    if (record) AddOnce(sbomKernelFigureMap_[record], item);
}

void Figure::RemoveItemFromSbomKernelFigureMap(SmartPtr<AbstractFigureItem> const& item) {
    auto const entry = sbomKernelFigureMap_.find(item->GetKernelItem());
    if (entry == sbomKernelFigureMap_.end()) return;
    EraseFirst(entry->second, item);
    if (entry->second.empty()) sbomKernelFigureMap_.erase(entry);
}

void Figure::RemoveItem(SmartPtr<AbstractFigureItem> const& item) {
    if (!item) return;
    zvk::WriteGuard guard(GetLock());
    switch (item->GetType()) {
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
            RemoveBlockInstance(item);
            break;
        case AbstractFigureItem::ITEM_FORMAT:
            RemoveFormat(item);
            break;
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
            RemoveSubHighway(item);
            break;
        case AbstractFigureItem::ITEM_SUB_NET:
            RemoveSubNet(item);
            break;
        default:
            findVisitor_->Clear();
    }
}

// What could keep a block alive in a ring are the nodes of its connectors. They stand in sub-nets,
// which are cut with the figure, so a block that leaves needs no remembering.
void Figure::RemoveBlockInstance(SmartPtr<AbstractFigureItem> const& item) {
    if (!EraseFirst(blockInstances_, du::DynamicCast<BlockInstance>(item))) return;
    findVisitor_->TakeOut(item);
    RemoveItemFromSbomKernelFigureMap(item);
}

void Figure::RemoveFormat(SmartPtr<AbstractFigureItem> const& item) {
    if (!(format_ == item)) return;
    format_.Reset();
    findVisitor_->Clear();
    PostChangedEvent();
}

void Figure::RemoveSubHighway(SmartPtr<AbstractFigureItem> const& item) {
    auto const subHighway = du::DynamicCast<SubHighway>(item);
    if (!EraseFirst(subHighways_, subHighway)) return;
    findVisitor_->Clear();
    crossingPoints_->Remove(subHighway);
    removedSubHighways_.push_back(subHighway);
}

// Walking the sub-net makes it the active one, so it is deactivated behind the walks.
void Figure::RemoveSubNet(SmartPtr<AbstractFigureItem> const& item) {
    auto const subNet = du::DynamicCast<SubNet>(item);
    if (!EraseFirst(subNets_, subNet)) return;
    findVisitor_->TakeOut(item);
    crossingPoints_->Remove(subNet);
    ArrowRemover arrowRemover;
    subNet->Accept(arrowRemover);
    arrowPatterns_->Remove(subNet);
    if (activeSubNet_ == subNet) subNet->Deactivate();
    RemoveItemFromSbomKernelFigureMap(subNet);
    removedSubNets_.push_back(subNet);
}

void Figure::ClearContent() {
    zvk::WriteGuard guard(GetLock());
    pivotInProgress_ = true;
    crossingPoints_->Reset();
    arrowPatterns_->Reset();
    DestroyConnectivity();
    ClearCableInstances();
    pivotInProgress_ = false;
    deltas_.clear();
    blockInstances_.clear();
    miscellaneous_.clear();
    ports_.clear();
    tableInstances_.clear();
    designs_.clear();
    nextSubNetId_ = 0;
    nextSubHighwayId_ = 0;
    graphicRegenerationSuspended_ = false;
    figureExtents_ = DBox2D::EMPTY;
    format_.Reset();
    ClearTextContainer();
    SettingList::ClearSettingList();
    findVisitor_->Clear();
    PostChangedEvent();
}

}  // namespace figrep
