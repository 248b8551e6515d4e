// Colours as people type them.
#pragma once

#include <optional>
#include <string_view>

#include <dg/Color.h>

namespace fighost {

struct BackgroundColor {
    dg::Color color = dg::Color::WHITE;
    bool transparent = false;
};

/// "none", a few colour names, "#rgb" or "#rrggbb"; nothing for other text.
std::optional<BackgroundColor> ParseBackground(std::string_view text);

}  // namespace fighost
