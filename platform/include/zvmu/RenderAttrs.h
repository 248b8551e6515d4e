// How models are drawn over a picture.
#pragma once

#include <dg/Color.h>
#include <du/SmartPtr.h>

#include <vector>

namespace zvmu {

class RenderAttrs;
using RenderAttrsVector = std::vector<du::ConstSmartPtr<RenderAttrs>>;

/// How one pass of drawing a model mixes with what is already there. Immutable.
class RenderAttrs : public virtual du::RefCounted {
public:
    enum Mode {
        PLAIN,  ///< covers what is below
        XOR     ///< inverts what is below, so that it shows on any background
    };

    /// `lineWidth` is in pixels of the window.
    RenderAttrs(Mode mode, dg::Color const& color, float lineWidth)
        : mode_(mode), color_(color), lineWidth_(lineWidth) {}
    ~RenderAttrs() override;

    Mode GetMode() const { return mode_; }
    dg::Color const& GetColor() const { return color_; }
    float GetLineWidth() const { return lineWidth_; }

    /// What marks are drawn with that come and go over a finished picture.
    static RenderAttrsVector const& GetMarkerXor();

private:
    Mode mode_;
    dg::Color color_;
    float lineWidth_;
};

}  // namespace zvmu
