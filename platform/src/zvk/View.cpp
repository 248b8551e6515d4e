#include <zvk/View.h>

#include <cmath>
#include <utility>

namespace zvk {

namespace {

// As far as a hand misses what it aims at.
constexpr double USUAL_TOLERANCE_IN_PIXELS = 3.0;
// The resolution that window systems assume of a screen: 96 pixels to the inch.
constexpr double USUAL_PIXELS_PER_MILLIMETRE = 96.0 / 25.4;

bool IsFinite(dg::DPoint2D const& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool IsFinite(dg::DVec3 const& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

}  // namespace

View::View(du::SmartPtr<Scene> const& scene, du::SmartPtr<Window> const& window)
    : ObjectWithRWLock(nullptr),
      scene_(scene),
      window_(window),
      link_(new du::Link<View>(this)),
      pickTolerance_(USUAL_TOLERANCE_IN_PIXELS) {}

View::~View() {
    link_->Clear();
    if (dragged_ && window_) window_->ResetCursor();
    AbandonDrag();
    EndHover();
}

void View::SetPickTolerance(double pixels) {
    if (pixels >= 0.0) pickTolerance_ = pixels;
}

double View::GetPixelsPerMillimetre() const {
    return USUAL_PIXELS_PER_MILLIMETRE;
}

MarkupHolder::Picked View::PickAt(dg::DPoint2D const& inWindow) const {
    if (!IsFinite(inWindow)) return {};
    zvmu::PickPoint pointer;
    pointer.at = ToScene(inWindow);
    pointer.tolerance = pickTolerance_ * GetPixelSize();
    pointer.windowMillimetre = GetPixelsPerMillimetre() * GetPixelSize();
    return PickMarkup(pointer);
}

bool View::PointerMove(dg::DPoint2D const& inWindow) {
    if (!dragged_) return Hover(inWindow);
    Drag(inWindow);
    return true;
}

bool View::Hover(dg::DPoint2D const& inWindow) {
    Picked const found = PickAt(inWindow);
    if (found.markup == hovered_ && found.on.model == hoveredModel_) return !!found.markup;
    EndHover();
    if (!found.markup) return false;
    hovered_ = found.markup;
    hoveredModel_ = found.on.model;
    hovered_->Enter(hoveredModel_);
    du::Symbol cursor;
    if (window_ && hovered_->GetCursorOver(hoveredModel_, cursor)) window_->SetCursor(cursor);
    return true;
}

void View::EndHover() {
    if (!hovered_) return;
    auto const left = hovered_;
    hovered_.Reset();
    hoveredModel_.Reset();
    left->Leave();
    if (window_) window_->ResetCursor();
}

bool View::PointerDown(dg::DPoint2D const& inWindow, bool together) {
    AbandonDrag();
    EndHover();
    Picked const found = PickAt(inWindow);
    if (!found.markup || !found.markup->BeginDrag(found.on, together)) return false;
    dragged_ = found.markup;
    pressedAt_ = draggedTo_ = inWindow;
    return true;
}

// A position that didn't change is no step: window systems report those, too. At a very small scale
// a finite position in the window is none in the scene.
void View::Drag(dg::DPoint2D const& inWindow) {
    if (!dragged_ || !IsFinite(inWindow) || inWindow == draggedTo_) return;
    dg::DVec3 const fromStart = ToScene(inWindow) - ToScene(pressedAt_);
    if (!IsFinite(fromStart)) return;
    draggedTo_ = inWindow;
    auto const markup = dragged_;
    markup->ContinueDrag(fromStart);
}

void View::PointerUp(dg::DPoint2D const& inWindow) {
    Drag(inWindow);
    auto const markup = dragged_;
    dragged_.Reset();
    if (markup) markup->EndDrag();
}

void View::AbandonDrag() {
    auto const markup = dragged_;
    dragged_.Reset();
    if (markup) markup->AbandonDrag();
}

bool View::TakeRepaintNeeded() {
    return std::exchange(repaintNeeded_, false);
}

void View::MarkupChanged(Markup& /*markup*/) {
    repaintNeeded_ = true;
}

void View::MarkupRemoved(Markup& markup) {
    repaintNeeded_ = true;
    if (dragged_ == &markup) AbandonDrag();
    if (hovered_ == &markup) EndHover();
}

}  // namespace zvk
