#include <session/look/Palette.h>

#include <iterator>

namespace fighost {

namespace {

constexpr dg::Color Rgb(int r, int g, int b, float a = 1) {
    return {static_cast<float>(r) / 255, static_cast<float>(g) / 255, static_cast<float>(b) / 255,
            a};
}

constexpr dg::Color DARK_GROUND = Rgb(27, 33, 44);
constexpr dg::Color DARK_BODY = Rgb(38, 46, 60);
constexpr dg::Color GREY = Rgb(96, 96, 96);

constexpr dg::Color ON_WHITE[] = {Rgb(230, 26, 153), Rgb(0, 120, 215), Rgb(224, 84, 0),
                                  Rgb(118, 60, 200), Rgb(0, 134, 116), Rgb(150, 104, 0)};
constexpr dg::Color ON_DARK[] = {Rgb(255, 84, 188), Rgb(255, 214, 10), Rgb(64, 224, 255),
                                 Rgb(176, 255, 72), Rgb(255, 136, 48), Rgb(190, 146, 255)};

dg::Color DarkInk(Role role) {
    switch (role) {
        case Role::WIRE:
            return Rgb(72, 207, 140);
        case Role::BUS:
            return Rgb(104, 168, 255);
        case Role::BODY:
            return Rgb(222, 170, 108);
        case Role::PIN:
            return Rgb(226, 134, 116);
        case Role::PIN_NAME:
            return Rgb(140, 205, 210);
        case Role::PIN_NUMBER:
            return Rgb(214, 140, 132);
        case Role::REFERENCE:
            return Rgb(120, 214, 226);
        case Role::VALUE:
            return Rgb(168, 212, 218);
        case Role::FIELD:
            return Rgb(204, 160, 232);
        case Role::LABEL:
            return Rgb(232, 236, 242);
        case Role::GLOBAL_LABEL:
            return Rgb(255, 140, 118);
        case Role::HIERARCHICAL_LABEL:
            return Rgb(232, 194, 104);
        case Role::FLAG:
            return Rgb(170, 178, 190);
        case Role::NO_CONNECT:
            return Rgb(128, 170, 255);
        case Role::NOTE:
            return Rgb(150, 184, 255);
        case Role::SHEET:
            return Rgb(206, 150, 214);
        case Role::SHEET_NAME:
            return Rgb(120, 214, 226);
        case Role::SHEET_FILE:
            return Rgb(206, 178, 120);
        case Role::SHEET_PIN:
            return Rgb(232, 194, 104);
        case Role::RULE_AREA:
            return Rgb(255, 104, 104);
        case Role::DNP:
            return Rgb(255, 132, 132, 0.85F);
        case Role::FRAME:
            return Rgb(140, 152, 170);
        case Role::MISSING:
            return Rgb(255, 104, 160);
        case Role::COUNT:
            break;
    }
    return Rgb(222, 226, 232);
}

}  // namespace

dg::Color GroundOf(Theme theme) {
    return theme == Theme::DARK ? DARK_GROUND : dg::Color::WHITE;
}

std::optional<dg::Color> InkOf(Theme theme, Role role) {
    if (theme == Theme::LIGHT) return std::nullopt;
    if (theme == Theme::DARK) return DarkInk(role);
    // A cross over a symbol must not be taken for a part of it.
    return role == Role::DNP ? GREY : dg::Color::BLACK;
}

std::optional<dg::Color> BodyFillOf(Theme theme, dg::Color const& ground) {
    if (theme == Theme::LIGHT) return std::nullopt;
    return theme == Theme::DARK ? DARK_BODY : ground;
}

dg::Color HighlightOf(Theme theme, std::size_t number) {
    auto const& colors = theme == Theme::DARK ? ON_DARK : ON_WHITE;
    return colors[number % std::size(colors)];
}

}  // namespace fighost
