// How a user hides, shows and isolates what is on a figure.
#include <figrep/BaseBlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/GetHiddenContentVisitor.h>
#include <figrep/GraphicGroup.h>
#include <figrep/SubNet.h>
#include <figrep/VisibilityOperationStep.h>
#include <zvk/Operation.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "operations/GroupContent.h"

namespace figrep {

namespace {

using Items = Figure::Items;

void SetVisible(SmartPtr<Figure> const& figure, Items const& items, bool visible,
                SmartPtr<zvk::Operation> const& operation) {
    SmartPtr<zvk::OperationStep> const step = new VisibilityOperationStep(figure, items, visible);
    if (operation) operation->AddStep(step);
}

/// What stays when `items` are isolated: they, the sub-nets of cables among them, and what shares a
/// group on the figure with one of them.
std::unordered_set<SmartPtr<AbstractFigureItem>> KeptItems(Figure const& figure,
                                                           Items const& items) {
    Items kept;
    std::unordered_set<SmartPtr<GraphicGroup>> groups;
    for (auto const& item : items) {
        kept.push_back(item);
        if (auto const cable = du::DynamicCast<CableInstance>(item)) {
            auto const subNets = cable->GetSubNets();
            kept.insert(kept.end(), subNets.begin(), subNets.end());
        }
        auto const group = GroupOnFigure(figure, item);
        if (group && groups.insert(group).second) AppendContent(*group, kept);
    }
    return {kept.begin(), kept.end()};
}

}  // namespace

void Figure::HideItems(Items const& items, SmartPtr<zvk::Operation> const& operation) {
    SetVisible(this, items, false, operation);
}

void Figure::UnHideItems(Items const& items, SmartPtr<zvk::Operation> const& operation) {
    SetVisible(this, items, true, operation);
}

void Figure::ShowHideNodes(Items const& items, bool show,
                           SmartPtr<zvk::Operation> const& operation) {
    SetVisible(this, items, show, operation);
}

void Figure::UnhideAll(SmartPtr<zvk::Operation> const& operation) {
    GetHiddenContentVisitor visitor;
    Accept(visitor);
    Items hidden;
    visitor.TakeHiddenContent(hidden);
    UnHideItems(hidden, operation);
}

Figure::Items Figure::ItemsBeside(Items const& items) {
    zvk::WriteGuard guard(GetLock());
    Items others;
    others.reserve(blockInstances_.size() + cableInstances_.size() + ports_.size() +
                   subHighways_.size() + subNets_.size() + tableInstances_.size() + 1);
    FigureItemsVisitor visitor(others);
    visitor.SetCollectPorts(true);
    Accept(visitor);
    auto const kept = KeptItems(*this, items);
    std::erase_if(others, [&](auto const& item) { return kept.count(item) != 0; });
    return others;
}

void Figure::IsolateItems(Items const& items, SmartPtr<zvk::Operation> const& operation) {
    Items const others = ItemsBeside(items);
    if (!others.empty()) HideItems(others, operation);
    // What is isolated may have been hidden, or be so now with what it stands in.
    Items hidden;
    std::copy_if(items.begin(), items.end(), std::back_inserter(hidden),
                 [](auto const& item) { return item && !item->IsVisible(); });
    UnHideItems(hidden, operation);
}

}  // namespace figrep
