#include <zv2d/Text.h>

#include "Shapes.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace zv2d {

namespace {

/// Characters of a line that are seen: without the signs of markup around its groups.
size_t CountShown(std::wstring_view line, bool markup) {
    if (!markup) return line.size();
    size_t shown = 0;
    size_t open = 0;
    for (size_t i = 0; i < line.size(); ++i) {
        bool const sign = line[i] == L'~' || line[i] == L'_' || line[i] == L'^';
        if (sign && i + 1 < line.size() && line[i + 1] == L'{') {
            ++open;
            ++i;
        } else if (line[i] == L'}' && open > 0) {
            --open;
        } else {
            ++shown;
        }
    }
    return shown;
}

attrs::TextAttr const& DefaultTextAttr() {
    static attrs::TextAttr const attr;
    return attr;
}

}  // namespace

Text::Text(dg::DPoint2D const& position, std::wstring text, bool upright, Alignment alignment,
           bool markup, du::ConstSmartPtr<Attributes> const& attributes)
    : Entity(attributes),
      position_(position),
      text_(std::move(text)),
      alignment_(alignment),
      upright_(upright),
      markup_(markup),
      box_(EstimateBox()) {}

Text::~Text() = default;

attrs::TextAttr const& Text::GetTextAttr() const {
    attrs::TextAttr const* own = GetAttributes() ? GetAttributes()->GetTextAttr() : nullptr;
    return own ? *own : DefaultTextAttr();
}

void Text::Accept(EntityVisitor& visitor) const {
    visitor.Visit(*this);
}

dg::DBox2D Text::GetExtents(dg::DMat33 const& matrix) const {
    return matrix * box_;
}

bool Text::Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    std::vector<dg::DPoint2D> corners = shapes::Corners(box_);
    for (dg::DPoint2D& corner : corners)
        corner = matrix * corner;
    return shapes::PolygonOverlaps(corners, box, true, true);
}

dg::DBox2D Text::EstimateBox() const {
    if (text_.empty()) return dg::DBox2D(position_, position_);
    double const height = GetTextAttr().GetHeight();
    size_t longest = 0;
    size_t lines = 0;
    std::wstring_view rest = text_;
    for (bool more = true; more; ++lines) {
        size_t const end = rest.find(L'\n');
        more = end != std::wstring_view::npos;
        longest = std::max(longest, CountShown(rest.substr(0, end), markup_));
        if (more) rest.remove_prefix(end + 1);
    }
    double const width = static_cast<double>(longest) * height * MEAN_WIDTH;
    double const tall = height * (1.0 + static_cast<double>(lines - 1) * LINE_PITCH);
    double const across = alignment_ % 3 * 0.5;  // the part of the width left of the position
    double const below = alignment_ / 3 * 0.5;   // the part of the height below it
    dg::DPoint2D const corner = position_ - dg::DVec2(width * across, tall * below);
    return dg::DBox2D(corner, corner + dg::DVec2(width, tall));
}

}  // namespace zv2d
