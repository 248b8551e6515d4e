// What a figure looks like, as text.
#pragma once

#include <figrep/Figure.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace fighost::test {

/// Brings the figure's pictures up to date and paints it as SVG.
inline std::string Picture(figrep::SmartPtr<figrep::Figure> const& figure) {
    figure->UpdateContent();
    SvgPainter painter;
    PaintFigure(figure, painter);
    return painter.TakeDocument();
}

/// Whether two pictures are the same text, but for differences of numbers by one in the last of the
/// four decimal places that pictures have.
inline bool AreAlike(std::string const& a, std::string const& b) {
    constexpr double TOLERANCE = 1.5e-4;
    char const* const digits = "-.0123456789";
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        std::size_t const m = std::min(a.find_first_not_of(digits, i), a.size());
        std::size_t const n = std::min(b.find_first_not_of(digits, j), b.size());
        if (m == i || n == j) {
            if (a[i++] != b[j++]) return false;
            continue;
        }
        std::string const left = a.substr(i, m - i);
        std::string const right = b.substr(j, n - j);
        double const apart =
            std::strtod(left.c_str(), nullptr) - std::strtod(right.c_str(), nullptr);
        if (left != right && !(std::abs(apart) <= TOLERANCE)) return false;
        i = m;
        j = n;
    }
    return i == a.size() && j == b.size();
}

}  // namespace fighost::test
