#include "Sheets.h"

#include <cmath>
#include <filesystem>
#include <set>
#include <stdexcept>

namespace oracle {

namespace {

namespace fs = std::filesystem;

struct Instancing {
    std::string reference;
    int unit = 1;
};

/// Everything that is read once per design.
struct Loader {
    Design design;
    std::string project;
    std::map<std::string, std::shared_ptr<Node>> files;
    std::map<std::string, Instancing> table;  ///< Old files: path of ids to reference and unit.

    Node const* File(fs::path const& path);
    int AddInstance(fs::path const& file, std::string path, std::string identity, int depth);
    void ReadSheets(Node const& root, fs::path const& file, int instance);
    void ReadSymbols(Node const& root, int instance);
    void ReadSymbol(Node const& root, Node const& symbol, Instance& instance, int index);
    Instancing Lookup(Node const& symbol, Instance const& instance) const;
};

Place PlaceOf(Node const* at) {
    return at ? Place{at->Coordinate(1), at->Coordinate(2)} : Place{};
}

std::string Property(Node const& node, std::vector<std::string> const& names) {
    Node const* property = PropertyOf(node, names);
    return property ? property->At(2) : std::string();
}

void ReadLines(Node const& root, Instance& instance) {
    for (auto const& [name, lines] :
         {std::pair{"wire", &instance.wires}, std::pair{"bus", &instance.buses}})
        for (Node const* line : root.All(name)) {
            auto const points = line->Find("pts")->All("xy");
            if (points.size() == 2) lines->push_back({PlaceOf(points[0]), PlaceOf(points[1])});
        }
    for (Node const* entry : root.All("bus_entry")) {
        Place const at = PlaceOf(entry->Find("at"));
        Place const size = PlaceOf(entry->Find("size"));
        instance.entries.push_back({at, {at.x + size.x, at.y + size.y}});
    }
    for (Node const* dot : root.All("junction"))
        instance.dots.push_back(PlaceOf(dot->Find("at")));
    for (Node const* mark : root.All("no_connect"))
        instance.noConnects.push_back(PlaceOf(mark->Find("at")));
}

void ReadLabels(Node const& root, Instance& instance) {
    for (auto const& [name, kind] :
         {std::pair{"label", LabelKind::Local}, std::pair{"global_label", LabelKind::Global},
          std::pair{"hierarchical_label", LabelKind::Hierarchical},
          std::pair{"netclass_flag", LabelKind::Flag},
          std::pair{"directive_label", LabelKind::Flag}})
        for (Node const* label : root.All(name))
            instance.labels.push_back({kind, Unescape(label->At(1)), PlaceOf(label->Find("at"))});
}

/// The unit and body style that a sub-symbol's name ends with.
std::pair<int, int> UnitAndBody(std::string const& name) {
    auto const second = name.rfind('_');
    auto const first = second == std::string::npos ? second : name.rfind('_', second - 1);
    if (first == std::string::npos) return {0, 0};
    return {std::atoi(name.substr(first + 1).c_str()), std::atoi(name.substr(second + 1).c_str())};
}

struct LibraryPin {
    Node const* node = nullptr;
    std::string type, name, number;
    bool hidden = false;
};

std::vector<std::string> Numbers(std::string const& number) {
    if (number.size() < 3 || number.front() != '[' || number.back() != ']') return {number};
    std::vector<std::string> result;
    std::string part;
    for (char const c : number.substr(1, number.size() - 2) + ",") {
        if (c != ',') {
            if (c != ' ') part += c;
            continue;
        }
        auto const dash = part.find('-', 1);
        if (dash == std::string::npos) {
            result.push_back(part);
        } else {
            for (int i = std::stoi(part); i <= std::stoi(part.substr(dash + 1)); ++i)
                result.push_back(std::to_string(i));
        }
        part.clear();
    }
    return result;
}

std::string TypeOf(Node const& symbol, LibraryPin const& pin) {
    for (Node const* placed : symbol.All("pin")) {
        Node const* chosen = placed->At(1) == pin.number ? placed->Find("alternate") : nullptr;
        if (!chosen) continue;
        for (Node const* alternate : pin.node->All("alternate"))
            if (alternate->At(1) == chosen->At(1)) return alternate->At(2);
    }
    return pin.type;
}

std::string UnitLetters(int unit) {
    std::string letters;
    for (--unit; unit >= 0; unit = unit / 26 - 1)
        letters.insert(0, 1, static_cast<char>('A' + unit % 26));
    return letters;
}

}  // namespace

Node const* PropertyOf(Node const& node, std::vector<std::string> const& names) {
    for (Node const* property : node.All("property"))
        for (std::string const& name : names)
            if (property->At(1) == name) return property;
    return nullptr;
}

Node const* LibraryOf(Node const& root, Node const& symbol) {
    Node const* name = symbol.Find("lib_name") ? symbol.Find("lib_name") : symbol.Find("lib_id");
    Node const* symbols = root.Find("lib_symbols");
    if (symbols && name)
        for (Node const* each : symbols->All("symbol"))
            if (each->At(1) == name->At(1)) return each;
    return nullptr;
}

std::vector<Node const*> PartsOf(Node const& library, int unit, int body) {
    std::vector<Node const*> parts;
    for (Node const* part : library.All("symbol")) {
        auto const [partUnit, partBody] = UnitAndBody(part->At(1));
        if ((partUnit == 0 || partUnit == unit) && (partBody == 0 || partBody == body))
            parts.push_back(part);
    }
    return parts;
}

std::string PinNameOf(Node const& symbol, Node const& libraryPin) {
    for (Node const* placed : symbol.All("pin"))
        if (placed->Find("alternate") && placed->At(1) == libraryPin.Find("number")->At(1))
            return placed->Find("alternate")->At(1);
    return libraryPin.Find("name")->At(1);
}

Place Transform(Node const& symbol, Node const& at) {
    double const angle = std::strtod(symbol.Find("at")->At(3).c_str(), nullptr);
    long x = at.Coordinate(1);
    long y = -at.Coordinate(2);
    for (int turns = static_cast<int>(std::lround(angle / 90.0)) & 3; turns > 0; --turns) {
        long const before = x;
        x = y;
        y = -before;
    }
    if (Node const* mirror = symbol.Find("mirror")) (mirror->At(1) == "x" ? y : x) *= -1;
    Place const origin = PlaceOf(symbol.Find("at"));
    return {origin.x + x, origin.y + y};
}

// Sheets are metres wide at most, so products of coordinates stay far below the limits of `long`.
bool Line::Holds(Place const& p) const {
    long const dx = to.x - from.x, dy = to.y - from.y;
    long const px = p.x - from.x, py = p.y - from.y;
    long const along = px * dx + py * dy;
    return px * dy == py * dx && along >= 0 && along <= dx * dx + dy * dy;
}

Node const* Loader::File(fs::path const& path) {
    auto const key = path.lexically_normal().string();
    auto const found = files.find(key);
    if (found != files.end()) return found->second.get();
    std::shared_ptr<Node> root;
    if (fs::exists(path)) root = std::make_shared<Node>(ReadTree(key));
    return (files[key] = root).get();
}

int Loader::AddInstance(fs::path const& file, std::string path, std::string identity, int depth) {
    Node const* root = File(file);
    if (!root || depth > 40) return -1;
    int const index = static_cast<int>(design.instances.size());
    design.instances.emplace_back();
    Instance& instance = design.instances.back();
    instance.file = file.lexically_normal().string();
    instance.path = std::move(path);
    instance.identity = std::move(identity);
    instance.depth = depth;
    for (Node const* alias : root->All("bus_alias"))
        for (std::size_t i = 1; i < alias->Find("members")->items.size(); ++i) {
            auto& members = design.aliases[alias->At(1)];
            if (i == 1) members.clear();
            members.push_back(Unescape(alias->Find("members")->At(i)));
        }
    ReadLines(*root, instance);
    ReadLabels(*root, instance);
    ReadSymbols(*root, index);
    ReadSheets(*root, file, index);
    return index;
}

void Loader::ReadSheets(Node const& root, fs::path const& file, int instance) {
    for (Node const* sheet : root.All("sheet")) {
        std::string const name = Property(*sheet, {"Sheetname", "Sheet name"});
        std::string const below = Property(*sheet, {"Sheetfile", "Sheet file"});
        Instance const parent = design.instances[static_cast<std::size_t>(instance)];
        int const child =
            AddInstance(file.parent_path() / below, parent.path + name + "/",
                        parent.identity + "/" + sheet->Find("uuid")->At(1), parent.depth + 1);
        for (Node const* pin : sheet->All("pin"))
            design.instances[static_cast<std::size_t>(instance)].sheetPins.push_back(
                {Unescape(pin->At(1)), pin->At(2), PlaceOf(pin->Find("at")), child});
    }
}

Instancing Loader::Lookup(Node const& symbol, Instance const& instance) const {
    Instancing result{Property(symbol, {"Reference"}), 1};
    if (Node const* unit = symbol.Find("unit")) result.unit = std::atoi(unit->At(1).c_str());
    if (!table.empty()) {
        auto const slash = instance.identity.find('/', 1);
        std::string const above = slash == std::string::npos ? "" : instance.identity.substr(slash);
        auto const found = table.find(above + "/" + symbol.Find("uuid")->At(1));
        return found == table.end() ? result : found->second;
    }
    Node const* instances = symbol.Find("instances");
    if (!instances) return result;
    for (Node const* each : instances->All("project")) {
        if (each->At(1) != project) continue;
        for (Node const* path : each->All("path")) {
            if (path->At(1) != instance.identity) continue;
            if (Node const* reference = path->Find("reference"))
                result.reference = reference->At(1);
            if (Node const* unit = path->Find("unit")) result.unit = std::atoi(unit->At(1).c_str());
        }
    }
    return result;
}

void Loader::ReadSymbols(Node const& root, int index) {
    int number = 0;
    for (Node const* symbol : root.All("symbol"))
        ReadSymbol(root, *symbol, design.instances[static_cast<std::size_t>(index)], number++);
}

void Loader::ReadSymbol(Node const& root, Node const& symbol, Instance& instance, int index) {
    Node const* library = LibraryOf(root, symbol);
    Instancing const placed = Lookup(symbol, instance);
    Node const* style =
        symbol.Find("body_style") ? symbol.Find("body_style") : symbol.Find("convert");
    int const body = style ? std::atoi(style->At(1).c_str()) : 1;
    std::set<int> units;
    if (library)
        for (Node const* part : library->All("symbol"))
            units.insert(UnitAndBody(part->At(1)).first);
    units.erase(0);
    std::string const unitReference =
        placed.reference + (units.size() > 1 ? UnitLetters(placed.unit) : std::string());
    instance.parts.push_back({placed.reference, unitReference, placed.unit, body});
    if (!library) return;

    std::vector<LibraryPin> pins;
    std::map<std::string, int> names;
    for (Node const* part : PartsOf(*library, placed.unit, body)) {
        for (Node const* pin : part->All("pin")) {
            LibraryPin read{pin, pin->At(1), Unescape(pin->Find("name")->At(1)),
                            pin->Find("number")->At(1), pin->Flag("hide")};
            if (read.name == "~") read.name.clear();
            ++names[read.name];
            pins.push_back(read);
        }
    }
    Node const* power = library->Find("power");
    for (LibraryPin const& pin : pins) {
        Pin result;
        result.reference = placed.reference;
        result.unitReference = unitReference;
        result.name = pin.name;
        result.nameIsShared = names[pin.name] > 1;
        std::string const type = TypeOf(symbol, pin);
        result.connectable = type != "no_connect";
        if (type == "power_in" && power) {
            bool const old = design.version < 20230221 && pin.hidden;
            result.powerName = old ? pin.name : Unescape(Property(symbol, {"Value"}));
            result.powerIsLocal = power->At(1) == "local";
        } else if (type == "power_in" && pin.hidden) {
            result.powerName = pin.name;
        }
        result.at = Transform(symbol, *pin.node->Find("at"));
        result.symbol = index;
        for (std::string const& number : Numbers(pin.number)) {
            result.number = number;
            instance.pins.push_back(result);
        }
    }
}

Design ReadDesign(std::string const& rootFile) {
    Loader loader;
    loader.project = fs::path(rootFile).stem().string();
    Node const* root = loader.File(rootFile);
    if (!root) throw std::runtime_error("cannot read " + rootFile);
    loader.design.version = std::atol(root->Find("version")->At(1).c_str());
    if (Node const* table = root->Find("symbol_instances"))
        for (Node const* path : table->All("path"))
            loader.table[path->At(1)] = {path->Find("reference")->At(1),
                                         std::atoi(path->Find("unit")->At(1).c_str())};
    Node const* uuid = root->Find("uuid");
    loader.AddInstance(rootFile, "/", "/" + (uuid ? uuid->At(1) : std::string()), 0);
    return std::move(loader.design);
}

}  // namespace oracle
