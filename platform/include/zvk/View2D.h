// A view of a plane.
#pragma once

#include <zvk/View.h>

namespace zvk {

/// Shows a drawing whose y axis points up. At first a pixel is one unit and the window's upper left
/// corner the origin.
class View2D : public View {
public:
    View2D(du::SmartPtr<Scene> const& scene, du::SmartPtr<Window> const& window);
    ~View2D() override;

    /// Which place of the drawing stands in the window's upper left corner, and how large a unit
    /// is. A scale that isn't finite and above 0, or a corner that isn't finite, changes nothing.
    void SetPlacement(dg::DPoint2D const& upperLeft, double pixelsPerUnit);
    double GetPixelsPerUnit() const { return pixelsPerUnit_; }

    dg::DPoint3D ToScene(dg::DPoint2D const& inWindow) const override;
    double GetPixelSize() const override;
    /// The reverse of `ToScene`.
    dg::DPoint2D ToWindow(dg::DPoint2D const& inScene) const;

protected:
    /// Whether y grows upward in the window, as it does in a drawing.
    virtual bool IsYUpward() const;

private:
    dg::DPoint2D upperLeft_;
    double pixelsPerUnit_ = 1.0;
};

}  // namespace zvk
