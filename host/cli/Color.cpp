#include <cli/Color.h>

#include <cstddef>

namespace fighost {

namespace {

struct NamedColor {
    std::string_view name;
    dg::Color color;
};

constexpr NamedColor NAMED[] = {
    {"white", dg::Color::WHITE},  {"black", dg::Color::BLACK},    {"gray", {0.5F, 0.5F, 0.5F}},
    {"grey", {0.5F, 0.5F, 0.5F}}, {"ivory", {1.0F, 1.0F, 0.94F}},
};

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::optional<dg::Color> ParseHex(std::string_view digits) {
    if (digits.size() != 3 && digits.size() != 6) return std::nullopt;
    std::size_t const each = digits.size() / 3;
    float channels[3];
    for (std::size_t i = 0; i < 3; ++i) {
        int const high = HexDigit(digits[i * each]);
        int const low = HexDigit(digits[i * each + each - 1]);
        if (high < 0 || low < 0) return std::nullopt;
        channels[i] = static_cast<float>(high * 16 + low) / 255.0F;
    }
    return dg::Color(channels[0], channels[1], channels[2]);
}

}  // namespace

std::optional<BackgroundColor> ParseBackground(std::string_view text) {
    if (text == "none" || text == "transparent") return BackgroundColor{dg::Color::WHITE, true};
    for (NamedColor const& named : NAMED) {
        if (text == named.name) return BackgroundColor{named.color, false};
    }
    if (text.empty() || text[0] != '#') return std::nullopt;
    std::optional<dg::Color> const color = ParseHex(text.substr(1));
    if (!color) return std::nullopt;
    return BackgroundColor{*color, false};
}

}  // namespace fighost
