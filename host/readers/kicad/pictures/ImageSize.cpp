#include "ImageSize.h"

#include <cstdint>

namespace fighost::kicad {

namespace {

constexpr double MM_PER_INCH = 25.4;
constexpr double DEFAULT_DPI = 300;
constexpr double MOST_PIXELS = 100'000;

std::uint32_t Byte(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}
std::uint32_t Big16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) << 8 | Byte(bytes, at + 1);
}
std::uint32_t Big32(std::string_view bytes, std::size_t at) {
    return Big16(bytes, at) << 16 | Big16(bytes, at + 2);
}
std::uint32_t Little16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at + 1) << 8 | Byte(bytes, at);
}
std::uint32_t Little32(std::string_view bytes, std::size_t at) {
    return Little16(bytes, at + 2) << 16 | Little16(bytes, at);
}

struct ImageDots {
    char const* type;
    double columns;
    double rows;
    double dpi;
};

std::optional<ImageDots> Make(char const* type, double columns, double rows, double dpi) {
    if (columns < 1 || rows < 1 || columns > MOST_PIXELS || rows > MOST_PIXELS) return std::nullopt;
    return ImageDots{type, columns, rows, dpi >= 1 && dpi <= 100'000 ? dpi : DEFAULT_DPI};
}

std::optional<ImageDots> ReadPng(std::string_view bytes) {
    double dpi = DEFAULT_DPI;
    std::size_t at = 8;
    while (at + 12 <= bytes.size()) {
        std::uint32_t const length = Big32(bytes, at);
        std::string_view const name = bytes.substr(at + 4, 4);
        if (name == "pHYs" && Byte(bytes, at + 16) == 1) {
            dpi = Big32(bytes, at + 8) * MM_PER_INCH / 1000;
        }
        if (name == "IDAT" || name == "IEND") break;
        at += std::size_t(12) + length;
    }
    return Make("image/png", Big32(bytes, 16), Big32(bytes, 20), dpi);
}

std::optional<ImageDots> ReadJpeg(std::string_view bytes) {
    double dpi = DEFAULT_DPI;
    std::size_t at = 2;
    while (at + 9 < bytes.size() && Byte(bytes, at) == 0xFF) {
        std::uint32_t const marker = Byte(bytes, at + 1);
        bool const isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) return Make("image/jpeg", Big16(bytes, at + 7), Big16(bytes, at + 5), dpi);
        if (marker == 0xE0 && bytes.substr(at + 4, 4) == "JFIF") {
            double const density = Big16(bytes, at + 12);
            if (Byte(bytes, at + 11) == 1) dpi = density;
            if (Byte(bytes, at + 11) == 2) dpi = density * 2.54;
        }
        at += std::size_t(2) + Big16(bytes, at + 2);
    }
    return std::nullopt;
}

std::optional<ImageDots> ReadBmp(std::string_view bytes) {
    auto const rows = static_cast<std::int32_t>(Little32(bytes, 22));
    double const dpi = Little32(bytes, 38) * MM_PER_INCH / 1000;
    return Make("image/bmp", Little32(bytes, 18), rows < 0 ? -double(rows) : double(rows), dpi);
}

std::optional<ImageDots> ReadDots(std::string_view bytes) {
    if (bytes.substr(0, 8) == "\x89PNG\r\n\x1a\n") return ReadPng(bytes);
    if (bytes.substr(0, 2) == "\xFF\xD8") return ReadJpeg(bytes);
    if (bytes.substr(0, 4) == "GIF8") {
        return Make("image/gif", Little16(bytes, 6), Little16(bytes, 8), DEFAULT_DPI);
    }
    if (bytes.substr(0, 2) == "BM" && bytes.size() > 54) return ReadBmp(bytes);
    return std::nullopt;
}

}  // namespace

std::optional<ImageSize> ReadImageSize(std::string_view bytes, ImageResolution resolution) {
    std::optional<ImageDots> const dots = ReadDots(bytes);
    if (!dots) return std::nullopt;
    double const dpi = resolution == ImageResolution::DEFAULT ? DEFAULT_DPI : dots->dpi;
    double const mmPerDot = MM_PER_INCH / dpi;
    return ImageSize{dots->type, dots->columns * mmPerDot, dots->rows * mmPerDot};
}

}  // namespace fighost::kicad
