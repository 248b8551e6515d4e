// The sheet instances of a design and what stands on each, as read from the files.
#pragma once

#include "BusNames.h"
#include "Tree.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace oracle {

/// A place on a sheet in units of 100 nm, y downward as in the file.
struct Place {
    long x = 0;
    long y = 0;
    auto operator<=>(Place const&) const = default;
};

struct Line {
    Place from;
    Place to;
    bool Holds(Place const& p) const;
    bool EndsAt(Place const& p) const { return p == from || p == to; }
};

enum class LabelKind { Local, Global, Hierarchical, Flag };

struct Label {
    LabelKind kind = LabelKind::Local;
    std::string text;
    Place at;
};

struct SheetPin {
    std::string text;
    std::string direction;
    Place at;
    int child = -1;  ///< Index of the instance below, or -1 when its file is missing.
};

struct Pin {
    std::string reference;
    std::string unitReference;  ///< With the letter of the unit where there are several.
    std::string number;
    std::string name;
    bool nameIsShared = false;
    bool connectable = true;
    std::string powerName;  ///< Empty unless the pin names a net.
    bool powerIsLocal = false;
    Place at;
    int jumper = -1;  ///< Pins of one symbol with the same number here are joined inside it.
    int symbol = 0;
};

/// A placed symbol as this instance of its sheet has it.
struct Part {
    std::string reference;
    std::string unitReference;  ///< With the letter of the unit where there are several.
    int unit = 1;
    int body = 1;
};

struct Instance {
    std::string file;
    std::string path;      ///< Human path, "/" for the root.
    std::string identity;  ///< Path of unique ids.
    int depth = 0;
    std::vector<Line> wires, buses, entries;
    std::vector<Place> dots, noConnects;
    std::vector<Label> labels;
    std::vector<SheetPin> sheetPins;
    std::vector<Pin> pins;
    std::vector<Part> parts;  ///< In the order of the file's symbols.
};

struct Design {
    long version = 0;
    Aliases aliases;
    std::vector<Instance> instances;
};

Design ReadDesign(std::string const& rootFile);

/// The library entry of a placed symbol in its sheet's file, or null.
Node const* LibraryOf(Node const& root, Node const& symbol);
/// The parts of a library entry that a unit shows in a body style.
std::vector<Node const*> PartsOf(Node const& library, int unit, int body);
/// Where a point of a library entry lies on the sheet.
Place Transform(Node const& symbol, Node const& at);
/// The name of the pin, `(pin "1" (alternate "..."))` of the placed symbol taken into account.
std::string PinNameOf(Node const& symbol, Node const& libraryPin);
/// The first of the properties that the node has of these names; null when it has none.
Node const* PropertyOf(Node const& node, std::vector<std::string> const& names);

}  // namespace oracle
