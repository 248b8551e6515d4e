// Placed symbols as they are at one place of their sheet in the hierarchy.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <readers/kicad/design/Hierarchy.h>
#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

/// A library symbol with what it takes over from the one that it extends.
struct Library {
    explicit Library(SheetFile const& file);

    /// By the name that placed symbols use; null when there is none.
    LibrarySymbol const* Find(PlacedSymbol const& symbol) const;
    /// The symbol whose units are shown: itself, or the end of a chain of `extends`.
    LibrarySymbol const* UnitsOf(LibrarySymbol const* symbol) const;

private:
    std::map<std::string_view, LibrarySymbol const*> byName;
};

/// A pin as it is placed.
struct ResolvedPin {
    LibraryPin const* library = nullptr;
    PlacedPin const* placed = nullptr;  ///< null when the file says nothing about it
    std::vector<std::string> numbers;   ///< one; several where one drawn pin stands for many
    std::string name;                   ///< of the chosen alternate, if there is one
    std::string_view type;
    std::string_view shape;
    Point at;
};

struct ResolvedSymbol {
    PlacedSymbol const* placed = nullptr;
    LibrarySymbol const* library = nullptr;  ///< null when the file lacks it
    LibrarySymbol const* shown = nullptr;    ///< whose units are shown
    Orientation orientation;
    std::string reference;
    std::string value;  ///< variables and escapes worked out
    int unit = 1;
    int bodyStyle = 1;
    int unitCount = 1;
    std::vector<LibraryUnit const*> units;  ///< those that show
    std::vector<ResolvedPin> pins;

    bool IsPower() const { return library && library->power; }
    /// True for references such as "#PWR01", which no list of parts holds.
    bool IsVirtual() const { return !reference.empty() && reference.front() == '#'; }
    /// The placed field of that name; null when there is none.
    Property const* FindProperty(std::string_view name) const;
};

/// Resolves all symbols of one sheet of the hierarchy, in the order of the file.
std::vector<ResolvedSymbol> ResolveSymbols(Hierarchy const& hierarchy, std::uint32_t sheet,
                                           Findings& findings);

/// What a symbol is called at one place of its sheet.
std::string ReferenceAt(Hierarchy const& hierarchy, std::uint32_t sheet,
                        PlacedSymbol const& symbol);

/// "[1,3-5]" as 1, 3, 4, 5; anything else as itself.
std::vector<std::string> ExpandPinNumbers(std::string const& number);

}  // namespace fighost::kicad
