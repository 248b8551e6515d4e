// Colours as text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <dg/Color.h>

namespace fighost {

/// "#rrggbb"; the opacity isn't told. Channels out of range are clamped.
std::string HexColor(dg::Color const& color);

/// What "#rgb" or "#rrggbb" stands for, in either case; nothing for other text.
std::optional<dg::Color> ColorOfHex(std::string_view text);

}  // namespace fighost
