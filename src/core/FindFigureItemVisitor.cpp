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
    if (found_.empty()) {
        WalkFigure();
        return Lookup(id);
    }
    if (auto item = Lookup(id)) return item;
    if (walkedSinceArrivals_) return {};
    WalkPending();
    if (auto item = Lookup(id)) return item;
    Clear();
    WalkFigure();
    return Lookup(id);
}

void FindFigureItemVisitor::TakeIn(SmartPtr<AbstractFigureItem> const& item) {
    if (found_.empty()) return;
    walkedSinceArrivals_ = false;
    pending_.push_back(item);
}

void FindFigureItemVisitor::Clear() {
    found_.clear();
    pending_.clear();
    walkedSinceArrivals_ = false;
}

void FindFigureItemVisitor::WalkFigure() {
    pending_.clear();
    walkedSinceArrivals_ = true;
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
    if (!item->GetId().IsEmpty()) found_.emplace(item->GetId(), item);
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
