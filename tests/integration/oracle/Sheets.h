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

struct Instance {
    std::string path;      ///< Human path, "/" for the root.
    std::string identity;  ///< Path of unique ids.
    int depth = 0;
    std::vector<Line> wires, buses, entries;
    std::vector<Place> dots, noConnects;
    std::vector<Label> labels;
    std::vector<SheetPin> sheetPins;
    std::vector<Pin> pins;
};

struct Design {
    long version = 0;
    Aliases aliases;
    std::vector<Instance> instances;
};

Design ReadDesign(std::string const& rootFile);

}  // namespace oracle
