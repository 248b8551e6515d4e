// Texts of a picture.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <zv2d/Entity.h>

#include <string>

namespace zv2d {

/// A text of one or more lines, divided by '\n'.
///
/// Nothing here knows fonts, so the box is an estimate from the number of characters, unless
/// `SetBox` gives a better one.
class Text : public Entity {
public:
    /// Which place of the text's box stands at its position. The bottom of the first line's
    /// letters counts as the bottom of a text of one line.
    enum Alignment {
        BOTTOM_LEFT = 0,
        BOTTOM_CENTRE = 1,
        BOTTOM_RIGHT = 2,
        MIDDLE_LEFT = 3,
        MIDDLE_CENTRE = 4,
        MIDDLE_RIGHT = 5,
        TOP_LEFT = 6,
        TOP_CENTRE = 7,
        TOP_RIGHT = 8
    };

    /// Mean width of a character and distance of lines, as parts of the text's height.
    static constexpr double MEAN_WIDTH = 0.8;
    static constexpr double LINE_PITCH = 1.6;

    /// `upright`: painters turn the text by half a turn about the centre of its box where it would
    /// read upside down. `markup`: `~{...}` draws a bar over the group, `_{...}` lowers and
    /// `^{...}` raises it; else these are plain characters. Attributes without text attributes
    /// stand for the default ones.
    Text(dg::DPoint2D const& position, std::wstring text, bool upright, Alignment alignment,
         bool markup, du::ConstSmartPtr<Attributes> const& attributes = nullptr);
    ~Text() override;

    dg::DPoint2D const& GetPosition() const { return position_; }
    std::wstring const& GetText() const { return text_; }
    bool IsUpright() const { return upright_; }
    Alignment GetAlignment() const { return alignment_; }
    bool HasMarkup() const { return markup_; }
    /// The entity's text attributes, or the default ones.
    attrs::TextAttr const& GetTextAttr() const;

    /// The box that the text fills before any matrix.
    dg::DBox2D const& GetBox() const { return box_; }
    /// Replaces the estimate. Only before the text is shared.
    void SetBox(dg::DBox2D const& box) { box_ = box; }

    using Entity::GetExtents;
    void Accept(EntityVisitor& visitor) const override;
    dg::DBox2D GetExtents(dg::DMat33 const& matrix) const override;
    bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const override;

private:
    dg::DBox2D EstimateBox() const;

    dg::DPoint2D position_;
    std::wstring text_;
    Alignment alignment_;
    bool upright_;
    bool markup_;
    dg::DBox2D box_;
};

}  // namespace zv2d
