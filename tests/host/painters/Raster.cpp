#include <host/painters/Raster.h>

#include <host/cli/RunProgram.h>

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace fighost::test {

namespace {

constexpr int PAPER = 235;  // darker than this in any channel is ink

cairo_status_t ReadBytes(void* closure, unsigned char* out, unsigned int length) {
    return static_cast<std::istream*>(closure)->read(reinterpret_cast<char*>(out), length)
               ? CAIRO_STATUS_SUCCESS
               : CAIRO_STATUS_READ_ERROR;
}

}  // namespace

bool Raster::HasInk(int x, int y, int reach) const {
    for (int row = std::max(0, y - reach); row <= std::min(height - 1, y + reach); ++row) {
        for (int column = std::max(0, x - reach); column <= std::min(width - 1, x + reach);
             ++column) {
            auto const& pixel = pixels[static_cast<std::size_t>(row) * width + column];
            if (*std::min_element(pixel.begin(), pixel.end()) < PAPER) return true;
        }
    }
    return false;
}

Raster RasterOfPng(std::string const& png) {
    std::istringstream stream(png);
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(ReadBytes, &stream);
    Raster raster;
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        raster.width = cairo_image_surface_get_width(surface);
        raster.height = cairo_image_surface_get_height(surface);
        int const stride = cairo_image_surface_get_stride(surface);
        unsigned char const* data = cairo_image_surface_get_data(surface);
        for (int y = 0; y < raster.height; ++y) {
            for (int x = 0; x < raster.width; ++x) {
                unsigned char const* pixel = data + y * stride + 4 * x;
                raster.pixels.push_back({pixel[2], pixel[1], pixel[0]});
            }
        }
    }
    cairo_surface_destroy(surface);
    return raster;
}

Raster RasterOfPdf(std::string const& pdf, unsigned dotsPerInch) {
    TemporaryFolder folder;
    WriteFile(folder.Path("in.pdf"), pdf);
    std::string const command = "pdftoppm -r " + std::to_string(dotsPerInch) + " -f 1 -l 1 '" +
                                folder.Path("in.pdf") + "' >'" + folder.Path("out") + "'";
    if (std::system(command.c_str()) != 0) return {};
    std::istringstream stream(ReadFile(folder.Path("out")));
    std::string format;
    int most = 0;
    Raster raster;
    stream >> format >> raster.width >> raster.height >> most;
    stream.get();
    if (format != "P6" || most != 255) return {};
    raster.pixels.resize(static_cast<std::size_t>(raster.width) * raster.height);
    for (auto& pixel : raster.pixels)
        stream.read(reinterpret_cast<char*>(pixel.data()), 3);
    return raster;
}

}  // namespace fighost::test
