// Colours as people type them.
#pragma once

#include <optional>
#include <string_view>

#include <dg/Color.h>

namespace fighost {

/// How colours can be written, for messages.
inline constexpr char const* COLOR_FORMS =
    "a common name such as white, black, gray, red, green or blue, #rgb or #rrggbb";

/// A name, "#rgb" or "#rrggbb"; nothing for other text.
std::optional<dg::Color> ParseColor(std::string_view text);

/// The same, or "none" and "transparent", which have opacity 0.
std::optional<dg::Color> ParseBackground(std::string_view text);

}  // namespace fighost
