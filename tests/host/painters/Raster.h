// Pictures as pixels, to look at what a painter left.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace fighost::test {

struct Raster {
    int width = 0;  ///< 0 for what couldn't be read
    int height = 0;
    std::vector<std::array<unsigned char, 3>> pixels;  ///< row by row from the top

    /// Whether a pixel of the square around the place, `reach` to each side, isn't white.
    bool HasInk(int x, int y, int reach) const;
};

Raster RasterOfPng(std::string const& png);
/// The first page, drawn by Poppler.
Raster RasterOfPdf(std::string const& pdf, unsigned dotsPerInch);

}  // namespace fighost::test
