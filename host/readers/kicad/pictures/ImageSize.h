// How large an image file is, without decoding it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fighost::kicad {

struct ImageSize {
    std::string mimeType;
    double width = 0;  ///< mm, by the file's own resolution or 300 dots per inch
    double height = 0;
};

/// Reads the header of PNG, JPEG, GIF and BMP files; nothing for other bytes.
std::optional<ImageSize> ReadImageSize(std::string_view bytes);

}  // namespace fighost::kicad
