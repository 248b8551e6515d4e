// The values of text variables at one place of the design.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <readers/kicad/design/Hierarchy.h>

namespace fighost::kicad {

struct ResolvedSymbol;

/// The text with the variables of project, sheet and title block worked out.
std::string ExpandOnSheet(Hierarchy const& hierarchy, std::uint32_t sheet, std::string_view text);

/// The same for a text of a symbol, whose fields are variables too.
std::string ExpandInSymbol(Hierarchy const& hierarchy, std::uint32_t sheet,
                           ResolvedSymbol const& symbol, std::string_view text);

}  // namespace fighost::kicad
