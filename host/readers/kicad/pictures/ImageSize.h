// How large an image file is, without decoding it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fighost::kicad {

struct ImageSize {
    std::string mimeType;
    double width = 0;  ///< mm
    double height = 0;
};

enum class ImageResolution { OWN_OR_DEFAULT, DEFAULT };

/// Reads the header of PNG, JPEG, GIF and BMP files; nothing for other bytes. The default
/// resolution is 300 dots per inch.
std::optional<ImageSize> ReadImageSize(
    std::string_view bytes, ImageResolution resolution = ImageResolution::OWN_OR_DEFAULT);

}  // namespace fighost::kicad
