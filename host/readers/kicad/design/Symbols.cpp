#include <readers/kicad/design/Symbols.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/design/Variables.h>

namespace fighost::kicad {

namespace {

constexpr int LONGEST_EXTENDS_CHAIN = 32;
constexpr unsigned MOST_STACKED_PINS = 10'000;

/// What the file says for this place of the sheet; null when it says nothing that fits.
SymbolInstance const* FindInstance(Hierarchy const& hierarchy, SheetInstance const& sheet,
                                   PlacedSymbol const& symbol) {
    for (SymbolInstance const& instance : symbol.instances) {
        bool const ours = instance.project == hierarchy.project.name || instance.project.empty();
        if (ours && instance.path == sheet.id) return &instance;
    }
    if (hierarchy.instanceTable.empty()) return nullptr;
    auto const found = hierarchy.instanceTable.find(sheet.tableId + "/" + symbol.uuid);
    return found == hierarchy.instanceTable.end() ? nullptr : found->second;
}

void ResolveIdentity(Hierarchy const& hierarchy, std::uint32_t index, ResolvedSymbol& result) {
    PlacedSymbol const& symbol = *result.placed;
    result.reference = ReferenceAt(hierarchy, index, symbol);
    result.unit = std::max(1, symbol.unit);
    result.bodyStyle = std::max(1, symbol.bodyStyle);
    auto const* instance = FindInstance(hierarchy, hierarchy.sheets[index], symbol);
    if (instance && instance->unit > 0) result.unit = instance->unit;
    if (Property const* value = result.FindProperty("Value")) {
        result.value = Unescape(ExpandInSymbol(hierarchy, index, result, value->value));
    }
}

using PinsByNumber = std::unordered_map<std::string_view, PlacedPin const*>;

PinsByNumber IndexPins(PlacedSymbol const& symbol) {
    PinsByNumber index;
    index.reserve(symbol.pins.size());
    for (PlacedPin const& pin : symbol.pins)
        index.emplace(pin.number, &pin);
    return index;
}

ResolvedPin ResolvePin(ResolvedSymbol const& symbol, PinsByNumber const& index,
                       LibraryPin const& library, bool stacks) {
    ResolvedPin pin;
    pin.library = &library;
    auto const found = index.find(library.number);
    pin.placed = found == index.end() ? nullptr : found->second;
    pin.numbers =
        stacks ? ExpandPinNumbers(library.number) : std::vector<std::string>{library.number};
    pin.name = library.name;
    pin.type = library.type;
    pin.shape = library.shape;
    pin.at = symbol.placed->at + symbol.orientation.Apply(library.at);
    if (!pin.placed || pin.placed->alternate.empty()) return pin;
    for (Alternate const& alternate : library.alternates) {
        if (alternate.name != pin.placed->alternate) continue;
        pin.name = alternate.name;
        pin.type = alternate.type;
        pin.shape = alternate.shape;
    }
    return pin;
}

void ResolveUnits(ResolvedSymbol& symbol, bool stacks) {
    PinsByNumber const index = IndexPins(*symbol.placed);
    for (LibraryUnit const& unit : symbol.shown->units) {
        symbol.unitCount = std::max(symbol.unitCount, unit.unit);
        bool const ofUnit = unit.unit == 0 || unit.unit == symbol.unit;
        bool const ofBody = unit.bodyStyle == 0 || unit.bodyStyle == symbol.bodyStyle;
        if (!ofUnit || !ofBody) continue;
        symbol.units.push_back(&unit);
        for (LibraryPin const& pin : unit.pins) {
            symbol.pins.push_back(ResolvePin(symbol, index, pin, stacks));
        }
    }
}

std::optional<unsigned> TrailingNumber(std::string_view text, std::string_view& prefix) {
    std::size_t begin = text.size();
    while (begin > 0 && text[begin - 1] >= '0' && text[begin - 1] <= '9')
        --begin;
    prefix = text.substr(0, begin);
    unsigned value = 0;
    auto const [end, error] =
        std::from_chars(text.data() + begin, text.data() + text.size(), value);
    if (begin == text.size() || error != std::errc()) return std::nullopt;
    return value;
}

/// "3-5" and "A1-A4" one by one. False for a part that is no such thing.
bool AddRange(std::string_view part, std::vector<std::string>& numbers) {
    std::size_t const dash = part.find('-');
    if (dash == std::string_view::npos) {
        if (!part.empty()) numbers.emplace_back(part);
        return !part.empty();
    }
    std::string_view firstPrefix;
    std::string_view lastPrefix;
    auto const first = TrailingNumber(part.substr(0, dash), firstPrefix);
    auto const last = TrailingNumber(part.substr(dash + 1), lastPrefix);
    if (!first || !last || firstPrefix != lastPrefix || *first > *last) return false;
    if (*last - *first >= MOST_STACKED_PINS) return false;
    for (unsigned i = *first; i <= *last; ++i) {
        numbers.push_back(std::string(firstPrefix) + std::to_string(i));
    }
    return true;
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace

Library::Library(SheetFile const& file) {
    for (LibrarySymbol const& symbol : file.library)
        byName.emplace(symbol.name, &symbol);
}

LibrarySymbol const* Library::Find(PlacedSymbol const& symbol) const {
    auto const found =
        byName.find(symbol.libraryName.empty() ? symbol.libraryId : symbol.libraryName);
    return found == byName.end() ? nullptr : found->second;
}

LibrarySymbol const* Library::UnitsOf(LibrarySymbol const* symbol) const {
    for (int i = 0; symbol && !symbol->extends.empty() && i < LONGEST_EXTENDS_CHAIN; ++i) {
        auto found = byName.find(symbol->extends);
        if (found == byName.end()) {
            std::string const sameLibrary =
                symbol->name.substr(0, symbol->name.find(':') + 1) + symbol->extends;
            found = byName.find(sameLibrary);
        }
        if (found == byName.end()) break;
        symbol = found->second;
    }
    return symbol;
}

Property const* ResolvedSymbol::FindProperty(std::string_view name) const {
    for (Property const& property : placed->properties) {
        if (property.name == name) return &property;
    }
    return nullptr;
}

std::string ReferenceAt(Hierarchy const& hierarchy, std::uint32_t sheet,
                        PlacedSymbol const& symbol) {
    auto const* instance = FindInstance(hierarchy, hierarchy.sheets[sheet], symbol);
    if (instance && !instance->reference.empty()) return instance->reference;
    for (Property const& property : symbol.properties) {
        if (property.name == "Reference") return property.value;
    }
    return {};
}

std::vector<std::string> ExpandPinNumbers(std::string const& number) {
    std::string_view const text = Trim(number);
    if (text.size() < 3 || text.front() != '[' || text.back() != ']') return {number};
    std::string_view rest = text.substr(1, text.size() - 2);
    std::vector<std::string> numbers;
    while (true) {
        std::size_t const comma = rest.find(',');
        if (!AddRange(Trim(rest.substr(0, comma)), numbers)) return {number};
        if (numbers.size() > MOST_STACKED_PINS) return {number};
        if (comma == std::string_view::npos) return numbers;
        rest.remove_prefix(comma + 1);
    }
}

std::vector<ResolvedSymbol> ResolveSymbols(Hierarchy const& hierarchy, std::uint32_t sheet,
                                           Findings& findings) {
    SheetFile const& file = *hierarchy.sheets[sheet].file;
    Library const library(file);
    std::vector<ResolvedSymbol> symbols;
    symbols.reserve(file.symbols.size());
    for (PlacedSymbol const& placed : file.symbols) {
        ResolvedSymbol symbol;
        symbol.placed = &placed;
        symbol.orientation = Orientation::Make(placed.quarterTurns, placed.mirrorX, placed.mirrorY);
        symbol.library = library.Find(placed);
        symbol.shown = library.UnitsOf(symbol.library);
        ResolveIdentity(hierarchy, sheet, symbol);
        if (symbol.shown) {
            ResolveUnits(symbol, file.version > VERSION_9);
        } else {
            findings.Warn("missing-symbol", placed.place,
                          "The file lacks the library symbol '" + placed.libraryId.substr(0, 200) +
                              "'; a box is shown");
        }
        symbols.push_back(std::move(symbol));
    }
    return symbols;
}

}  // namespace fighost::kicad
