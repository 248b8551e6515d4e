#include <session/query/ItemStatus.h>

#include <figk/Attribute.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/BaseGraphic.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/SubNetSegment.h>
#include <session/items/ForEachItem.h>
#include <session/items/Graphics.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <set>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;
using SubNets = std::vector<SmartPtr<figrep::SubNet>>;

bool IsHighway(AbstractFigureItem const& item) {
    return item.GetType() == AbstractFigureItem::ITEM_SUB_HIGHWAY ||
           item.GetType() == AbstractFigureItem::ITEM_HIGHWAY_SEGMENT;
}

void AddSubNetsOf(figrep::ConnectorInstance const& pin, SubNets& out) {
    for (auto const& node : pin.GetConnections()) {
        if (node) out.push_back(node->GetSubNet());
    }
}

void AddSubNetsOf(figrep::PortNode const& node, SubNets& out) {
    out.push_back(node.GetSubNet());
    SubNets const along = node.GetHighwaySubNets();
    out.insert(out.end(), along.begin(), along.end());
}

void AddSubNetsOf(figrep::BaseBlockInstance const& block, SubNets& out) {
    for (auto const& pin : block.GetConnectorInstances())
        AddSubNetsOf(*pin, out);
    auto const* cable = dynamic_cast<figrep::CableInstance const*>(&block);
    if (!cable) return;
    SubNets const carried = cable->GetSubNets();
    out.insert(out.end(), carried.begin(), carried.end());
}

SubNets SubNetsOf(AbstractFigureItem const& item) {
    SubNets subNets;
    if (auto const* graphic = dynamic_cast<figrep::BaseGraphic const*>(&item)) {
        auto const owner = OwnerOf(*graphic);
        return owner ? SubNetsOf(*owner) : subNets;  // an owner is no graphic
    }
    if (auto const* subNet = dynamic_cast<figrep::SubNet const*>(&item)) {
        subNets.push_back(SmartPtr<figrep::SubNet>(const_cast<figrep::SubNet*>(subNet)));
    } else if (auto const* segment = dynamic_cast<figrep::SubNetSegment const*>(&item)) {
        subNets.push_back(segment->GetSubNet());
    } else if (auto const* piece = dynamic_cast<figrep::HighwaySegment const*>(&item)) {
        subNets = piece->GetSubNets();
    } else if (auto const* highway = dynamic_cast<figrep::SubHighway const*>(&item)) {
        highway->GetSubNets(subNets);
    } else if (auto const* node = dynamic_cast<figrep::PortNode const*>(&item)) {
        AddSubNetsOf(*node, subNets);
    } else if (auto const* port = dynamic_cast<figrep::Port const*>(&item)) {
        for (auto const& each : port->GetPortNodes())
            AddSubNetsOf(*each, subNets);
    } else if (auto const* pin = dynamic_cast<figrep::ConnectorInstance const*>(&item)) {
        AddSubNetsOf(*pin, subNets);
    } else if (auto const* block = dynamic_cast<figrep::BaseBlockInstance const*>(&item)) {
        AddSubNetsOf(*block, subNets);
    }
    return subNets;
}

std::vector<std::string> CablesOf(SubNets const& subNets) {
    std::set<std::string> names;
    for (auto const& subNet : subNets) {
        auto const cable = subNet ? subNet->GetCable() : nullptr;
        if (cable) names.insert(cable->GetName());
    }
    return {names.begin(), names.end()};
}

ItemStatus::Pairs PinsOf(AbstractFigureItem const& item) {
    ItemStatus::Pairs pins;
    auto const* block = dynamic_cast<figrep::BaseBlockInstance const*>(&item);
    if (!block) return pins;
    for (auto const& pin : block->GetConnectorInstances()) {
        std::string nets;
        for (std::string const& net : NetsOf(*pin))
            nets += (nets.empty() ? "" : " ") + net;
        pins.emplace_back(pin->GetName(), nets);
    }
    return pins;
}

ItemStatus::Pairs AttributesOf(AbstractFigureItem const& item) {
    figk::AttributeSet set;
    item.GetAllAttributes(set);
    ItemStatus::Pairs attributes;
    for (auto const& attribute : set)
        attributes.emplace_back(attribute->GetName().GetString(),
                                attribute->GetValue().GetString());
    std::sort(attributes.begin(), attributes.end());
    return attributes;
}

dg::DPoint2D MiddleOf(AbstractFigureItem& item) {
    if (auto const* node = dynamic_cast<figrep::PortNode const*>(&item)) return node->GetPosition();
    return item.GetExtents().Centre();
}

bool IsSeen(AbstractFigureItem const& item) {
    auto const* graphic = dynamic_cast<figrep::BaseGraphic const*>(&item);
    return graphic ? IsShown(*graphic) : item.IsVisible();
}

}  // namespace

std::vector<std::string> NetsOf(AbstractFigureItem const& item) {
    std::set<std::string> names;
    for (auto const& subNet : SubNetsOf(item)) {
        if (subNet) names.insert(subNet->GetName());
    }
    return {names.begin(), names.end()};
}

ItemStatus StatusOf(SheetItem const& sheetItem) {
    AbstractFigureItem& item = *sheetItem.item;
    zvk::WriteGuard const guard(item.GetLock());  // boxes are computed on demand
    ItemStatus status;
    status.type = item.GetTypeName();
    status.id = item.GetId().GetString();
    status.name = DisplayNameOf(item);
    if (auto const parent = ParentOf(item)) status.partOf = KindAndName(*parent);
    status.place = PlaceOf(*sheetItem.sheet, MiddleOf(item));
    status.isVisible = IsSeen(item);
    (IsHighway(item) ? status.members : status.nets) = NetsOf(item);
    status.cables = CablesOf(SubNetsOf(item));
    status.pins = PinsOf(item);
    status.attributes = AttributesOf(item);
    status.settings = SettingsOf(item);
    return status;
}

}  // namespace fighost
