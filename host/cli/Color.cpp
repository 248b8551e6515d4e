#include <cli/Color.h>

#include <cstddef>

namespace fighost {

namespace {

struct NamedColor {
    std::string_view name;
    dg::Color color;
};

constexpr NamedColor NAMED[] = {
    {"white", dg::Color::WHITE},    {"black", dg::Color::BLACK},
    {"gray", {0.5F, 0.5F, 0.5F}},   {"grey", {0.5F, 0.5F, 0.5F}},
    {"ivory", {1.0F, 1.0F, 0.94F}}, {"red", dg::Color::RED},
    {"green", {0.0F, 0.6F, 0.0F}},  {"blue", dg::Color::BLUE},
    {"yellow", dg::Color::YELLOW},  {"magenta", dg::Color::MAGENTA},
    {"cyan", dg::Color::CYAN},      {"orange", {1.0F, 0.55F, 0.0F}},
    {"purple", {0.5F, 0.0F, 0.6F}}, {"pink", {1.0F, 0.4F, 0.7F}},
    {"brown", {0.55F, 0.3F, 0.1F}}, {"lime", {0.0F, 1.0F, 0.0F}},
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

std::optional<dg::Color> ParseColor(std::string_view text) {
    for (NamedColor const& named : NAMED) {
        if (text == named.name) return named.color;
    }
    if (text.empty() || text[0] != '#') return std::nullopt;
    return ParseHex(text.substr(1));
}

std::optional<dg::Color> ParseBackground(std::string_view text) {
    if (text == "none" || text == "transparent") return dg::Color(1, 1, 1, 0);
    return ParseColor(text);
}

}  // namespace fighost
