#include <zvk/ImageView.h>
#include <zvk/View2D.h>

#include <cmath>

namespace zvk {

View2D::View2D(du::SmartPtr<Scene> const& scene, du::SmartPtr<Window> const& window)
    : View(scene, window) {}

View2D::~View2D() = default;

ImageView::~ImageView() = default;

void View2D::SetPlacement(dg::DPoint2D const& upperLeft, double pixelsPerUnit) {
    if (!std::isfinite(upperLeft.x) || !std::isfinite(upperLeft.y)) return;
    if (!std::isfinite(pixelsPerUnit) || pixelsPerUnit <= 0.0) return;
    upperLeft_ = upperLeft;
    pixelsPerUnit_ = pixelsPerUnit;
}

dg::DPoint3D View2D::ToScene(dg::DPoint2D const& inWindow) const {
    dg::DVec2 const off(inWindow.x / pixelsPerUnit_, inWindow.y / pixelsPerUnit_);
    return upperLeft_ + dg::DVec2(off.x, IsYUpward() ? -off.y : off.y);
}

dg::DPoint2D View2D::ToWindow(dg::DPoint2D const& inScene) const {
    dg::DVec2 const off = (inScene - upperLeft_) * pixelsPerUnit_;
    return {off.x, IsYUpward() ? -off.y : off.y};
}

double View2D::GetPixelSize() const {
    return 1.0 / pixelsPerUnit_;
}

bool View2D::IsYUpward() const {
    return true;
}

bool ImageView::IsYUpward() const {
    return false;
}

}  // namespace zvk
