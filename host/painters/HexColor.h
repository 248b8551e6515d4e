// Colours as text.
#pragma once

#include <string>

#include <dg/Color.h>

namespace fighost {

/// "#rrggbb"; the opacity isn't told. Channels out of range are clamped.
std::string HexColor(dg::Color const& color);

}  // namespace fighost
