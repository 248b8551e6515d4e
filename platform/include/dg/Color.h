// Colours.
#pragma once

namespace dg {

/// Red, green, blue and opacity, each from 0 to 1.
struct Color {
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    float a = 1.0F;

    static Color const BLACK;
    static Color const WHITE;
    static Color const RED;
    static Color const GREEN;
    static Color const BLUE;
    static Color const YELLOW;
    static Color const MAGENTA;
    static Color const CYAN;

    /// Opaque black.
    constexpr Color() = default;
    constexpr Color(float red, float green, float blue, float alpha = 1.0F)
        : r(red), g(green), b(blue), a(alpha) {}

    /// Exact.
    friend constexpr bool operator==(Color const&, Color const&) = default;
};

inline constexpr Color Color::BLACK{0.0F, 0.0F, 0.0F};
inline constexpr Color Color::WHITE{1.0F, 1.0F, 1.0F};
inline constexpr Color Color::RED{1.0F, 0.0F, 0.0F};
inline constexpr Color Color::GREEN{0.0F, 1.0F, 0.0F};
inline constexpr Color Color::BLUE{0.0F, 0.0F, 1.0F};
inline constexpr Color Color::YELLOW{1.0F, 1.0F, 0.0F};
inline constexpr Color Color::MAGENTA{1.0F, 0.0F, 1.0F};
inline constexpr Color Color::CYAN{0.0F, 1.0F, 1.0F};

}  // namespace dg
