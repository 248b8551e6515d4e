#include <session/query/Inventory.h>

#include <figk/BaseBlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Design.h>
#include <figk/Highway.h>
#include <figk/Net.h>
#include <figk/Port.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/Segment.h>
#include <session/items/ForEachItem.h>
#include <session/items/Pins.h>
#include <zvk/ReadWriteLock.h>
#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace fighost {

namespace {

using figrep::SmartPtr;

// The place of each sheet in the session.
using SheetOrder = std::unordered_map<figk::Sheet const*, std::size_t>;

std::vector<std::string> PinsOf(figk::Net const& net) {
    std::set<std::string> pins;
    for (auto const& pin : net.GetConnectorInstances()) {
        std::string const name = PinName(*pin);
        if (!name.empty()) pins.insert(name);
    }
    return {pins.begin(), pins.end()};
}

std::vector<std::string> SheetsOf(figk::Net const& net, SheetOrder const& order,
                                  std::vector<SessionSheet> const& sheets) {
    std::set<std::size_t> places;
    auto add = [&](SmartPtr<figk::Sheet> const& sheet) {
        auto const found = order.find(sheet.Get());
        if (found != order.end()) places.insert(found->second);
    };
    for (auto const& subNet : net.GetSubNets())
        add(subNet->GetSheet());
    for (auto const& pin : net.GetConnectorInstances()) {
        SmartPtr<figk::BaseBlockInstance> const block = pin->GetBlockInstance();
        if (block) add(block->GetSheet());
    }
    std::vector<std::string> paths;
    for (std::size_t place : places)
        paths.push_back(sheets[place].path);
    return paths;
}

}  // namespace

std::vector<NetEntry> ListNets(Session const& session) {
    zvk::ReadGuard const guard(figk::SchematicKernel::GetKernelLock());
    std::vector<SessionSheet> const& sheets = session.GetSheets();
    SheetOrder order;
    for (std::size_t i = 0; i < sheets.size(); ++i)
        order[sheets[i].record.Get()] = i;
    std::vector<NetEntry> entries;
    for (auto const& net : session.GetDesign()->GetNets()) {
        NetEntry entry;
        entry.name = net->GetName();
        entry.pins = PinsOf(*net);
        entry.sheets = SheetsOf(*net, order, sheets);
        for (auto const& subNet : net->GetSubNets()) {
            entry.subnets.push_back(subNet->GetId().GetString());
        }
        entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](NetEntry const& a, NetEntry const& b) { return a.name < b.name; });
    return entries;
}

std::vector<ItemEntry> ListItems(Session const& session) {
    std::vector<ItemEntry> items;
    for (SessionSheet const& sheet : session.GetSheets()) {
        ForEachItem(sheet.figure, [&](SmartPtr<figrep::AbstractFigureItem> const& item) {
            items.push_back(
                {item->GetId().GetString(), item->GetTypeName(), DisplayNameOf(*item), sheet.path});
        });
    }
    return items;
}

std::vector<PortEntry> ListPorts(Session const& session) {
    std::map<std::string, PortEntry> ports;
    for (SessionSheet const& sheet : session.GetSheets()) {
        for (auto const& port : sheet.figure->GetPorts()) {
            auto const record = du::DynamicCast<figk::Port>(port->GetKernelItem());
            if (!record) continue;
            PortEntry& entry = ports[port->GetId().GetString()];
            entry.id = port->GetId().GetString();
            entry.name = port->GetName();
            bool const onHighway = record->OnHighwayNotNet();
            entry.carries = onHighway ? "highway" : "net";
            if (onHighway && record->GetHighway()) entry.target = record->GetHighway()->GetName();
            if (!onHighway && record->GetNet()) entry.target = record->GetNet()->GetName();
            bool const isNew = entry.sheets.empty() || entry.sheets.back() != sheet.path;
            if (isNew) entry.sheets.push_back(sheet.path);
        }
    }
    std::vector<PortEntry> list;
    for (auto& [id, entry] : ports)
        list.push_back(std::move(entry));
    return list;
}

std::map<std::string, std::size_t> CountItems(std::vector<ItemEntry> const& items) {
    std::map<std::string, std::size_t> counts;
    for (ItemEntry const& item : items)
        ++counts[item.type];
    return counts;
}

std::size_t CountCrossings(Session const& session) {
    std::size_t count = 0;
    for (SessionSheet const& sheet : session.GetSheets()) {
        std::unordered_set<figrep::CrossingPoint const*> seen;
        ForEachItem(sheet.figure, [&](SmartPtr<figrep::AbstractFigureItem> const& item) {
            auto const* segment = dynamic_cast<figrep::Segment const*>(item.Get());
            if (!segment) return;
            std::vector<SmartPtr<figrep::CrossingPoint>> crossings;
            segment->GetCrossingPoints(crossings);
            for (auto const& crossing : crossings)
                seen.insert(crossing.Get());
        });
        count += seen.size();
    }
    return count;
}

}  // namespace fighost
