// Where the pieces of a text go: lines, mark-up, alignment, overbars. The one home of text
// geometry.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fighost {

/// `height` is that of capital letters, in millimetres. An empty font is the painter's own.
struct TextStyle {
    std::string font;
    double height = 2.54;
    bool bold = false;
    bool italic = false;
};

enum class HorizontalAlignment { LEFT, CENTRE, RIGHT };
enum class VerticalAlignment { BOTTOM, MIDDLE, TOP };

/// A piece of one line in one size. Local frame: the anchor is the origin, x runs in reading
/// direction, y up; (`x`, `y`) is the left end of the baseline.
struct TextRun {
    std::string text;  ///< UTF-8 without control characters
    double x = 0;
    double y = 0;
    double height = 0;  ///< of capitals: smaller than the style's in subscripts and superscripts
    double width = 0;   ///< as estimated from the built-in table
    unsigned line = 0;
};

/// A line above letters, in the local frame.
struct Overbar {
    double x1 = 0;
    double x2 = 0;
    double y = 0;
    double thickness = 0;
};

struct TextLayout {
    std::vector<TextRun> runs;  ///< line by line, left to right
    std::vector<Overbar> overbars;
    HorizontalAlignment horizontal = HorizontalAlignment::LEFT;
    double width = 0;  ///< of the widest line
};

/// Lays out `text`. With `markup` the groups `~{overbar}`, `_{subscript}` and `^{superscript}`
/// are formatted, nested as deep as they come; a group that isn't closed is literal. Bottom
/// alignment puts the last baseline on the anchor, top the first line's capitals below it.
/// Cost: linear in the text.
TextLayout LayOutText(std::wstring_view text, bool markup, HorizontalAlignment horizontal,
                      VerticalAlignment vertical, TextStyle const& style);

/// The advance of a code point in units of the em, after DejaVu Sans.
double GlyphWidth(char32_t codePoint, bool bold);

/// The height of capitals in units of the em.
inline constexpr double CAPITAL_HEIGHT = 0.729;

/// From one baseline to the next, in units of the capitals' height.
inline constexpr double LINE_PITCH = 1.62;

}  // namespace fighost
