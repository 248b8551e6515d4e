#include <painters/HexColor.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace fighost {

namespace {

int Channel(float value) {
    float const clamped = value > 0 ? std::min(value, 1.0f) : 0.0f;  // also for NaN
    return static_cast<int>(std::lround(clamped * 255.0f));
}

}  // namespace

std::string HexColor(dg::Color const& color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", Channel(color.r), Channel(color.g),
                  Channel(color.b));
    return text;
}

}  // namespace fighost
