#include <painters/HexColor.h>
#include <session/look/ParseColor.h>

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

}  // namespace

std::optional<dg::Color> ParseColor(std::string_view text) {
    for (NamedColor const& named : NAMED) {
        if (text == named.name) return named.color;
    }
    return ColorOfHex(text);
}

std::optional<dg::Color> ParseBackground(std::string_view text) {
    if (text == "none" || text == "transparent") return dg::Color(1, 1, 1, 0);
    return ParseColor(text);
}

}  // namespace fighost
