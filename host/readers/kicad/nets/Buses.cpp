#include "Buses.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace fighost::kicad {

namespace {

NameClass ClassOf(Label::Kind kind) {
    if (kind == Label::GLOBAL) return NameClass::GLOBAL_LABEL;
    return kind == Label::LOCAL ? NameClass::LOCAL_LABEL : NameClass::HIERARCHICAL_LABEL;
}

}  // namespace

BusName const& BusResolver::Parse(std::string const& raw) {
    auto const found = parsed.find(raw);
    if (found != parsed.end()) return found->second;
    BusName name = ParseBusName(raw, hierarchy.aliases, limits.busMembers, exceeded);
    return parsed.emplace(raw, std::move(name)).first->second;
}

bool BusResolver::AddDriver(SheetGraph const& sheet, Node node, GivenName const& given,
                            NameClass strength, bool inNameSpace) {
    BusName const& bus = Parse(given.raw);
    members += bus.members.size();
    if (members > limits.totalBusMembers) exceeded = true;
    if (exceeded) return false;
    bool const global = strength == NameClass::GLOBAL_LABEL;
    std::string full = global ? given.name : sheet.instance->path + given.name;
    all.push_back({node, sheet.index, strength, given.name, std::move(full), &bus, inNameSpace});
    return true;
}

void BusResolver::AddLabels(SheetGraph const& sheet) {
    auto const& labels = sheet.File().labels;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (!sheet.labelNames[i].bus || labels[i].kind == Label::FLAG) continue;
        Node const node = sheet.firstLabel + static_cast<Node>(i);
        if (!AddDriver(sheet, node, sheet.labelNames[i], ClassOf(labels[i].kind), true)) return;
    }
}

void BusResolver::AddSheetPins(SheetGraph const& sheet) {
    for (std::size_t i = 0; i < sheet.sheetPins.size(); ++i) {
        if (!sheet.sheetPinNames[i].bus) continue;
        bool const output = sheet.GetSheetPin(i).type == "output";
        NameClass const strength = output ? NameClass::SHEET_PIN_OUTPUT : NameClass::SHEET_PIN;
        Node const node = sheet.firstSheetPin + static_cast<Node>(i);
        if (!AddDriver(sheet, node, sheet.sheetPinNames[i], strength, false)) return;
    }
}

/// An unlabelled bus takes the name of its strongest sheet pin, unless another bus of the sheet has
/// that name or that prefix. `first` is the first driver of this sheet.
void BusResolver::DecideSheetPins(SheetGraph const& sheet, std::size_t first) {
    std::map<Node, Driver*> strongest;  // per bus of this sheet
    for (std::size_t i = first; i < all.size(); ++i) {
        Driver*& best = strongest[sets.Find(all[i].node)];
        if (!best || IsStronger(all[i], *best)) best = &all[i];
    }
    std::map<std::pair<bool, std::string>, std::set<Node>> users;  // of names and of prefixes
    for (std::size_t i = first; i < all.size(); ++i) {
        Node const root = sets.Find(all[i].node);
        bool const takes = all[i].inNameSpace || strongest[root] == &all[i];
        if (!takes) continue;
        users[{false, all[i].text}].insert(root);
        if (all[i].bus->kind == BusName::VECTOR) users[{true, all[i].bus->prefix}].insert(root);
    }
    for (auto const& [root, driver] : strongest) {
        if (driver->inNameSpace) continue;
        bool alone = users[{false, driver->text}].size() == 1;
        if (driver->bus->kind == BusName::VECTOR) {
            alone = alone && users[{true, driver->bus->prefix}].size() == 1;
        }
        driver->inNameSpace = alone;
        if (alone) names.JoinBus(sheet.index, driver->text, driver->node);
    }
}

bool BusResolver::IsStronger(Driver const& a, Driver const& b) const {
    unsigned const depthA = hierarchy.sheets[a.sheet].depth;
    unsigned const depthB = hierarchy.sheets[b.sheet].depth;
    return std::tie(a.nameClass, depthA, a.fullName, a.node) <
           std::tie(b.nameClass, depthB, b.fullName, b.node);
}

bool BusResolver::CollectNames(std::vector<SheetGraph> const& sheets) {
    for (SheetGraph const& sheet : sheets) {
        std::size_t const first = all.size();
        AddLabels(sheet);
        AddSheetPins(sheet);
        if (exceeded) return false;
        DecideSheetPins(sheet, first);
    }
    return true;
}

std::vector<BusGroup> BusResolver::JoinMembers() {
    std::map<Node, std::vector<Driver const*>> groups;
    for (Driver const& driver : all)
        groups[sets.Find(driver.node)].push_back(&driver);
    std::vector<BusGroup> result;
    for (auto& [root, drivers] : groups) {
        std::sort(drivers.begin(), drivers.end(),
                  [this](Driver const* a, Driver const* b) { return IsStronger(*a, *b); });
        result.push_back(JoinGroup(drivers));
        result.back().root = root;
    }
    return result;
}

/// `drivers` are the names of one bus, strongest first. The strongest decides how members match.
BusGroup BusResolver::JoinGroup(std::vector<Driver const*> const& drivers) {
    bool const byPlace = drivers.front()->bus->kind == BusName::VECTOR;
    BusGroup group;
    group.name = drivers.front()->fullName;
    std::map<std::string_view, std::size_t> places;
    for (Driver const* driver : drivers) {
        SheetInstance const& sheet = hierarchy.sheets[driver->sheet];
        for (std::size_t i = 0; i < driver->bus->members.size(); ++i) {
            BusMember const& member = driver->bus->members[i];
            std::size_t const place =
                byPlace ? i : places.emplace(member.local, places.size()).first->second;
            if (place >= group.slots.size()) group.slots.resize(place + 1);
            BusSlot& slot = group.slots[place];
            if (slot.name.empty()) {
                bool const global = driver->nameClass == NameClass::GLOBAL_LABEL;
                slot.name = global ? member.name : sheet.path + member.name;
                slot.depth = sheet.depth;
            }
            if (!driver->inNameSpace) continue;
            Node const net = names.NetOf(driver->sheet, member.name);
            if (slot.net == NO_NODE) slot.net = net;
            sets.Join(slot.net, net);
        }
    }
    return group;
}

}  // namespace fighost::kicad
