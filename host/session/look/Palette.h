// The colours of the themes.
#pragma once

#include <cstddef>
#include <optional>

#include <dg/Color.h>
#include <readers/Role.h>

namespace fighost {

enum class Theme {
    LIGHT,  ///< coloured on white: what readers give
    DARK,   ///< coloured on a dark ground
    PRINT   ///< black on white, but for what was coloured on purpose
};

/// What lines and texts have at least to the ground in the dark theme.
inline constexpr double INK_CONTRAST = 4.5;
/// What filled areas have at most to the ground in the dark theme; ink on them so keeps a ratio
/// of 3.
inline constexpr double FILL_CONTRAST = 1.5;

/// The ground that a theme is made for.
dg::Color GroundOf(Theme theme);
/// The colour of lines and texts of a role; of `Role::COUNT` that of what has no role. Nothing in
/// the light theme, which leaves all colours to the readers.
std::optional<dg::Color> InkOf(Theme theme, Role role);
/// What fills the bodies of symbols on this ground; nothing in the light theme.
std::optional<dg::Color> BodyFillOf(Theme theme, dg::Color const& ground);

/// The colour of the highlighted net with this number; different ones for the first few.
dg::Color HighlightOf(Theme theme, std::size_t number);

}  // namespace fighost
