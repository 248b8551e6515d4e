// How text is written.
#pragma once

#include <du/Symbol.h>

namespace attrs {

/// Font and size of a text. An empty font stands for the painter's default.
class TextAttr {
public:
    TextAttr() = default;
    /// `height` is that of a capital letter, in the units of the drawing.
    TextAttr(du::Symbol const& font, float height, bool bold = false, bool italic = false)
        : font_(font), height_(height), bold_(bold), italic_(italic) {}

    du::Symbol const& GetFont() const { return font_; }
    float GetHeight() const { return height_; }
    bool IsBold() const { return bold_; }
    bool IsItalic() const { return italic_; }

    friend bool operator==(TextAttr const&, TextAttr const&) = default;

private:
    du::Symbol font_;
    float height_ = 2.54F;
    bool bold_ = false;
    bool italic_ = false;
};

}  // namespace attrs
