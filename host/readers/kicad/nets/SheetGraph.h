// The connectable things of one sheet, numbered as nodes, and what joins them on the sheet.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/design/Symbols.h>
#include <readers/kicad/nets/UnionFind.h>

namespace fighost::kicad {

using Node = UnionFind::Node;
inline constexpr Node NO_NODE = 0xFFFFFFFFu;

/// The name that a label or a sheet pin gives.
struct GivenName {
    std::string raw;   ///< variables worked out, escapes not
    std::string name;  ///< escapes worked out too: what is compared
    bool bus = false;
};

struct SheetPinRef {
    std::uint32_t sheet = 0;  ///< number of the sheet symbol
    std::uint32_t pin = 0;    ///< number of the pin in it
};

/// What a bus entry touches.
struct EntryEnds {
    Node bus = NO_NODE;  ///< the bus that it stands on, if any
    Point busEnd;
    Point wireEnd;
};

/// A point where something without an end there joins lines.
struct JoinPoint {
    Point at;
    Node net = NO_NODE;
    Node bus = NO_NODE;
};

/// One sheet of the hierarchy with the nodes of its items. Wires, bus entries, pins, labels and
/// sheet pins that name one net are nodes of nets; buses, labels and sheet pins that name a bus are
/// nodes of buses. The two never join.
struct SheetGraph {
    std::uint32_t index = 0;
    SheetInstance const* instance = nullptr;
    std::vector<ResolvedSymbol> symbols;

    Node firstWire = 0;
    Node firstBus = 0;
    Node firstEntry = 0;
    Node firstPin = 0;
    Node firstSheetPin = 0;
    Node firstLabel = 0;
    std::vector<std::uint32_t> firstPinOfSymbol;
    std::vector<SheetPinRef> sheetPins;
    std::vector<GivenName> sheetPinNames;
    std::vector<GivenName> labelNames;
    std::vector<EntryEnds> entries;

    std::vector<bool> labelOnBus;      ///< per label: its node is one of a bus
    std::vector<JoinPoint> joins;      ///< by labels and by junction dots
    std::vector<JoinPoint> junctions;  ///< per junction dot of the file
    std::vector<Node> noConnectNodes;  ///< per mark of the file; NO_NODE when it marks nothing
    std::vector<Node> marked;          ///< all nodes that bear a no-connect mark

    SheetFile const& File() const { return *instance->file; }
    SheetPin const& GetSheetPin(std::size_t number) const {
        SheetPinRef const ref = sheetPins[number];
        return File().sheets[ref.sheet].pins[ref.pin];
    }
    Node PinNode(std::size_t symbol, std::size_t pin) const {
        return firstPin + firstPinOfSymbol[symbol] + static_cast<Node>(pin);
    }
};

/// Numbers the nodes of a sheet and joins what touches, by geometry alone: common ends, junction
/// dots, labels on lines, jumpers within symbols.
SheetGraph MakeSheetGraph(Hierarchy const& hierarchy, std::uint32_t sheet, UnionFind& sets,
                          Findings& findings);

}  // namespace fighost::kicad
