#include <session/look/Contrast.h>

#include <algorithm>
#include <cmath>

namespace fighost {

namespace {

constexpr int HALVINGS = 20;  // finer than a step of an 8-bit channel

float Clamped(float channel) {
    return std::isfinite(channel) ? std::clamp(channel, 0.0F, 1.0F) : 0.0F;
}

double Linear(float channel) {
    double const c = static_cast<double>(Clamped(channel));
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double Luminance(dg::Color const& color) {
    return 0.2126 * Linear(color.r) + 0.7152 * Linear(color.g) + 0.0722 * Linear(color.b);
}

float Mix(float a, float b, float part) {
    return a + (b - a) * part;
}

dg::Color Mixed(dg::Color const& a, dg::Color const& b, float part) {
    return {Mix(a.r, b.r, part), Mix(a.g, b.g, part), Mix(a.b, b.b, part), a.a};
}

dg::Color WithOpacity(dg::Color color, float opacity) {
    color.a = opacity;
    return color;
}

// Light for dark: hue and saturation stay, lightness becomes one minus itself.
dg::Color TurnedRound(dg::Color const& color) {
    float const shift =
        1 - std::max({color.r, color.g, color.b}) - std::min({color.r, color.g, color.b});
    return {Clamped(color.r + shift), Clamped(color.g + shift), Clamped(color.b + shift), color.a};
}

// The first colour of a row from `from` (part 0) to `to` (part 1) that is fit, where all after it
// are; `to` when none is.
template <typename Make, typename Fits>
dg::Color FirstThatFits(Make const& make, Fits const& fits) {
    float bad = 0;
    float good = 1;
    for (int i = 0; i < HALVINGS; ++i) {
        float const middle = (bad + good) / 2;
        (fits(make(middle)) ? good : bad) = middle;
    }
    return make(good);
}

}  // namespace

dg::Color Over(dg::Color const& color, dg::Color const& ground) {
    return WithOpacity(Mixed(ground, color, Clamped(color.a)), 1);
}

double ContrastRatio(dg::Color const& color, dg::Color const& ground) {
    double const a = Luminance(Over(color, ground));
    double const b = Luminance(ground);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool IsDark(dg::Color const& color) {
    return ContrastRatio(dg::Color::WHITE, color) > ContrastRatio(dg::Color::BLACK, color);
}

dg::Color Readable(dg::Color const& ink, dg::Color const& ground, double contrast) {
    auto const fits = [&](dg::Color const& c) { return ContrastRatio(c, ground) >= contrast; };
    if (fits(ink)) return ink;
    dg::Color const turned = TurnedRound(ink);
    if (fits(turned)) return turned;
    dg::Color const end =
        WithOpacity(IsDark(ground) ? dg::Color::WHITE : dg::Color::BLACK, Clamped(ink.a));
    bool const isNearer = ContrastRatio(turned, ground) < ContrastRatio(ink, ground);
    dg::Color const start = isNearer ? ink : turned;
    if (fits(end)) {
        return FirstThatFits([&](float part) { return Mixed(start, end, part); }, fits);
    }
    return FirstThatFits([&](float part) { return WithOpacity(end, Mix(end.a, 1, part)); }, fits);
}

dg::Color Subdued(dg::Color const& fill, dg::Color const& ground, double contrast) {
    auto const fits = [&](dg::Color const& c) { return ContrastRatio(c, ground) <= contrast; };
    if (fits(fill)) return fill;
    dg::Color const turned = TurnedRound(fill);
    bool const isNearer = ContrastRatio(turned, ground) < ContrastRatio(fill, ground);
    dg::Color const start = isNearer ? turned : fill;
    return FirstThatFits([&](float part) { return Mixed(start, ground, part); }, fits);
}

}  // namespace fighost
