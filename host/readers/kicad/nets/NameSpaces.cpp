#include "NameSpaces.h"

#include <map>
#include <set>

namespace fighost::kicad {

namespace {

void JoinLabels(SheetGraph const& sheet, NameSpaces& names) {
    auto const& labels = sheet.File().labels;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        GivenName const& given = sheet.labelNames[i];
        Node const node = sheet.firstLabel + static_cast<Node>(i);
        if (labels[i].kind == Label::FLAG || given.name.empty()) continue;
        bool const global = labels[i].kind == Label::GLOBAL;
        if (given.bus) {
            names.JoinBus(sheet.index, given.name, node);
            if (global) names.JoinGlobalBus(given.name, node);
        } else {
            names.JoinNet(sheet.index, given.name, node);
            if (global) names.JoinGlobalNet(given.name, node);
        }
    }
}

void JoinPowerPins(SheetGraph const& sheet, int rootVersion, NameSpaces& names) {
    for (std::size_t i = 0; i < sheet.symbols.size(); ++i) {
        ResolvedSymbol const& symbol = sheet.symbols[i];
        for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
            PowerName const power = PowerNameOf(symbol, symbol.pins[k], rootVersion);
            if (power.name.empty()) continue;
            names.JoinNet(sheet.index, power.name, sheet.PinNode(i, k));
            if (!power.local) names.JoinGlobalNet(power.name, sheet.PinNode(i, k));
        }
    }
}

using LabelsByName = std::map<std::pair<std::string_view, bool>, std::vector<Node>>;

LabelsByName HierarchicalLabels(SheetGraph const& sheet) {
    LabelsByName labels;
    for (std::size_t i = 0; i < sheet.labelNames.size(); ++i) {
        if (sheet.File().labels[i].kind != Label::HIERARCHICAL) continue;
        GivenName const& given = sheet.labelNames[i];
        labels[{given.name, given.bus}].push_back(sheet.firstLabel + static_cast<Node>(i));
    }
    return labels;
}

std::uint32_t ChildOf(SheetGraph const& sheet, std::size_t pin) {
    return sheet.instance->children[sheet.sheetPins[pin].sheet];
}

void CountUnmet(SheetGraph const& sheet, LabelsByName const& labels,
                std::set<LabelsByName::key_type> const& met, Findings& findings) {
    for (auto const& [name, nodes] : labels) {
        if (met.count(name) > 0) continue;
        findings.Warn("label-without-sheet-pin", {sheet.File().path, 0, 0},
                      "The hierarchical label '" + std::string(name.first.substr(0, 200)) +
                          "' has no sheet pin of its name outside");
    }
}

}  // namespace

PowerName PowerNameOf(ResolvedSymbol const& symbol, ResolvedPin const& pin, int rootVersion) {
    if (pin.type != "power_in") return {};
    if (symbol.IsPower()) {
        bool const byPin = pin.library->hidden && rootVersion < VERSION_POWER_BY_VALUE;
        return {byPin ? pin.library->name : symbol.value, symbol.library->powerLocal};
    }
    if (!pin.library->hidden || pin.library->name == "~") return {};
    return {pin.library->name, false};
}

Node NameSpaces::NetOf(std::uint32_t sheet, std::string const& name) {
    auto const found = nets[sheet].find(name);
    if (found != nets[sheet].end()) return found->second;
    return nets[sheet].emplace(name, sets.Add()).first->second;
}

void JoinByNames(std::vector<SheetGraph> const& sheets, int rootVersion, NameSpaces& names) {
    for (SheetGraph const& sheet : sheets) {
        JoinLabels(sheet, names);
        JoinPowerPins(sheet, rootVersion, names);
    }
}

void JoinThroughSheetPins(std::vector<SheetGraph> const& sheets, UnionFind& sets,
                          Findings& findings) {
    std::vector<LabelsByName> labelsOf;
    for (SheetGraph const& sheet : sheets)
        labelsOf.push_back(HierarchicalLabels(sheet));
    std::vector<std::set<LabelsByName::key_type>> met(sheets.size());
    for (SheetGraph const& sheet : sheets) {
        for (std::size_t i = 0; i < sheet.sheetPins.size(); ++i) {
            std::uint32_t const child = ChildOf(sheet, i);
            if (child == NO_SHEET) continue;
            GivenName const& given = sheet.sheetPinNames[i];
            auto const labels = labelsOf[child].find({given.name, given.bus});
            if (labels == labelsOf[child].end()) {
                findings.Warn("sheet-pin-without-label", {sheet.File().path, 0, 0},
                              "The sheet pin '" + given.name.substr(0, 200) +
                                  "' has no hierarchical label of its name inside");
                continue;
            }
            met[child].insert(labels->first);
            for (Node const label : labels->second) {
                sets.Join(sheet.firstSheetPin + static_cast<Node>(i), label);
            }
        }
    }
    for (SheetGraph const& sheet : sheets) {
        if (sheet.instance->parent == NO_SHEET) continue;
        CountUnmet(sheet, labelsOf[sheet.index], met[sheet.index], findings);
    }
}

}  // namespace fighost::kicad
