// How an area is filled.
#pragma once

#include <dg/Color.h>
#include <du/SmartPtr.h>

namespace attrs {

/// Whether and with which colour an area is filled. Immutable once shared.
class FillAttr : public virtual du::RefCounted {
public:
    enum Kind {
        NONE = 0,     ///< not filled
        SOLID = 1,    ///< the colour as given
        OUTLINE = 2,  ///< the colour in which the outline is drawn
        BODY = 3      ///< the colour as given, which is meant to look like a background
    };

    FillAttr() = default;
    FillAttr(int kind, dg::Color const& color) : kind_(kind), color_(color) {}

    int GetKind() const { return kind_; }
    dg::Color const& GetColor() const { return color_; }

    friend bool operator==(FillAttr const& a, FillAttr const& b) {
        return a.kind_ == b.kind_ && a.color_ == b.color_;
    }

private:
    int kind_ = NONE;
    dg::Color color_;
};

}  // namespace attrs
