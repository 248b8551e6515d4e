#include <painters/HexColor.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace fighost {

namespace {

int Channel(float value) {
    float const clamped = value > 0 ? std::min(value, 1.0f) : 0.0f;  // also for NaN
    return static_cast<int>(std::lround(clamped * 255.0f));
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string HexColor(dg::Color const& color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", Channel(color.r), Channel(color.g),
                  Channel(color.b));
    return text;
}

std::optional<dg::Color> ColorOfHex(std::string_view text) {
    if (text.size() != 4 && text.size() != 7) return {};
    if (text[0] != '#') return {};
    std::size_t const each = (text.size() - 1) / 3;
    float channels[3];
    for (std::size_t i = 0; i < 3; ++i) {
        int const high = HexDigit(text[1 + i * each]);
        int const low = HexDigit(text[i * each + each]);
        if (high < 0 || low < 0) return {};
        channels[i] = static_cast<float>(high * 16 + low) / 255.0F;
    }
    return dg::Color(channels[0], channels[1], channels[2]);
}

}  // namespace fighost
