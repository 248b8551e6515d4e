#include "FindFigureItemVisitor.h"

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>

#include <utility>

namespace figrep {

FindFigureItemVisitor::FindFigureItemVisitor(Figure* figure) : figure_(figure) {}
FindFigureItemVisitor::~FindFigureItemVisitor() = default;

SmartPtr<AbstractFigureItem> FindFigureItemVisitor::Find(Symbol const& id) {
    if (!figure_ || id.IsEmpty()) return {};
    if (!walked_) {
        WalkFigure();
        return Lookup(id);
    }
    if (auto item = Lookup(id)) return item;
    if (walkedSinceChanges_) return {};
    WalkPending();
    if (auto item = Lookup(id)) return item;
    Clear();
    WalkFigure();
    return Lookup(id);
}

void FindFigureItemVisitor::TakeIn(SmartPtr<AbstractFigureItem> const& item) {
    if (!walked_) return;
    walkedSinceChanges_ = false;
    pending_.push_back(item);
}

void FindFigureItemVisitor::TakeOut(SmartPtr<AbstractFigureItem> const& item) {
    if (!walked_) return;
    WalkPending();
    takingOut_ = true;
    item->Accept(*this);
    takingOut_ = false;
    walkedSinceChanges_ = false;
}

void FindFigureItemVisitor::Clear() {
    found_.clear();
    pending_.clear();
    walked_ = false;
    walkedSinceChanges_ = false;
}

void FindFigureItemVisitor::WalkFigure() {
    pending_.clear();
    walked_ = true;
    walkedSinceChanges_ = true;
    figure_->Accept(*this);
}

void FindFigureItemVisitor::WalkPending() {
    auto const items = std::exchange(pending_, {});
    for (auto const& item : items)
        item->Accept(*this);
}

SmartPtr<AbstractFigureItem> FindFigureItemVisitor::Lookup(Symbol const& id) const {
    auto const entry = found_.find(id);
    return entry == found_.end() ? SmartPtr<AbstractFigureItem>() : entry->second;
}

bool FindFigureItemVisitor::Record(SmartPtr<AbstractFigureItem> const& item) {
    if (item->GetId().IsEmpty()) return true;
    if (!takingOut_) {
        found_.emplace(item->GetId(), item);
    } else if (Lookup(item->GetId()) == item) {
        found_[item->GetId()].Reset();
    }
    return true;
}

bool FindFigureItemVisitor::Visit(SmartPtr<TitleBlock> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<TextGraphic> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<TableInstance> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<SubNet> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<SubHighway> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<PortNode> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<Miscellaneous> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<GenericGraphic> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<Format> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<ConnectorInstance> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<CableInstance> const& item) {
    return Record(item);
}
bool FindFigureItemVisitor::Visit(SmartPtr<BlockInstance> const& item) {
    return Record(item);
}

}  // namespace figrep
