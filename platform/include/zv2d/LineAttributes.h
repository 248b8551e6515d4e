// How lines are drawn.
#pragma once

#include <dg/Color.h>
#include <du/SmartPtr.h>
#include <zv2d/LineStyle.h>

namespace zv2d {

/// Width, pattern, colours, joins and ends of lines. Immutable once shared.
class LineAttributes : public virtual du::RefCounted {
public:
    enum Join { JOIN_MITRE = 0, JOIN_ROUND = 1, JOIN_BEVEL = 2 };
    enum Cap { CAP_BUTT = 0, CAP_SQUARE = 1, CAP_ROUND = 2 };
    /// What a weight or a pattern scale is measured in.
    enum Kind {
        KIND_DRAWING = 3,  ///< the stored number counts, in units of the drawing
        KIND_DEVICE = 4    ///< the painter's own choice; the stored number doesn't count
    };

    /// The platform's default: round joins and ends, solid, black, no width of its own.
    LineAttributes();

    /// Join, cap and kinds keep their low four bits, the highest of them as a sign. A null style
    /// stands for the default one. `extra` is the host's.
    LineAttributes(int join, int cap, du::ConstSmartPtr<LineStyle> const& style, float weight,
                   int weightKind, float patternScale, int patternScaleKind, dg::Color const& color,
                   dg::Color const& secondColor,
                   du::ConstSmartPtr<du::RefCounted> const& extra = nullptr);
    ~LineAttributes() override;

    int GetLineJoin() const { return join_; }
    int GetEndCap() const { return cap_; }
    /// Never null.
    du::ConstSmartPtr<LineStyle> const& GetLineStyle() const { return style_; }
    float GetWeight() const { return weight_; }
    int GetWeightKind() const { return weightKind_; }
    float GetPatternScale() const { return patternScale_; }
    int GetPatternScaleKind() const { return patternScaleKind_; }
    dg::Color const& GetColor() const { return color_; }
    dg::Color const& GetSecondColor() const { return secondColor_; }
    du::ConstSmartPtr<du::RefCounted> const& GetExtra() const { return extra_; }

    friend bool operator==(LineAttributes const& a, LineAttributes const& b);

private:
    signed int join_ : 4;
    signed int cap_ : 4;
    signed int weightKind_ : 4;
    signed int patternScaleKind_ : 4;
    float weight_;
    float patternScale_;
    dg::Color color_;
    dg::Color secondColor_;
    du::ConstSmartPtr<LineStyle> style_;
    du::ConstSmartPtr<du::RefCounted> extra_;
};

}  // namespace zv2d
