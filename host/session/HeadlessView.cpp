#include <session/HeadlessView.h>

#include <algorithm>
#include <cmath>

#include <figrep/Figure.h>
#include <zvk/ImageView.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

// The window, in pixels.
constexpr double WIDTH = 1024.0;
constexpr double HEIGHT = 768.0;

// How often a hand is reported on its way.
constexpr int STOPS = 4;

SmartPtr<zvk::View2D> MakeView(SmartPtr<zvk::Scene> const& scene, HeadlessView::Kind kind) {
    SmartPtr<zvk::Window> const window = new zvk::Window();
    if (kind == HeadlessView::IMAGE) return new zvk::ImageView(scene, window);
    return new zvk::View2D(scene, window);
}

// The largest power of two at which the size fits into the window; 0 for none.
double ScaleFor(dg::DVec2 const& size) {
    double const scale = std::min(WIDTH / size.x, HEIGHT / size.y);
    return std::isfinite(scale) && scale > 0.0 ? std::exp2(std::floor(std::log2(scale))) : 0.0;
}

double WholePixels(double length, double scale) {
    return std::round(length * scale) / scale;
}

}  // namespace

HeadlessView::HeadlessView(SmartPtr<figrep::Figure> const& figure,
                           SmartPtr<zvk::Scene> const& scene, Kind kind)
    : figure_(figure), view_(MakeView(scene, kind)) {
    if (figure_) Show(figure_->GetExtents());
}

HeadlessView::~HeadlessView() {
    HideContentShadow();
}

void HeadlessView::Show(dg::DBox2D const& box) {
    double const fitting = ScaleFor(box.Size());
    double const scale = fitting > 0.0 ? fitting : view_->GetPixelsPerUnit();
    bool const isImage = static_cast<bool>(du::DynamicCast<zvk::ImageView>(view_));
    dg::DVec2 const toCorner(-WIDTH / scale / 2, (isImage ? -HEIGHT : HEIGHT) / scale / 2);
    dg::DPoint2D const corner = box.Centre() + toCorner;
    view_->SetPlacement({WholePixels(corner.x, scale), WholePixels(corner.y, scale)}, scale);
}

void HeadlessView::ShowContentShadow() {
    if (shadow_) return shadow_->FigureExtentsChanged();
    shadow_ = new zvmk::FigureContentShadow(view_, figure_);
    shadow_->Display(true);
    if (figure_) figure_->SetFigureShadow(shadow_);
}

void HeadlessView::HideContentShadow() {
    if (!shadow_) return;
    shadow_->Display(false);
    if (figure_ && figure_->GetFigureShadow() == shadow_) figure_->SetFigureShadow(nullptr);
    shadow_.Reset();
}

bool HeadlessView::Press(dg::DPoint2D const& at) {
    Abandon();
    dg::DPoint2D const pixel = view_->ToWindow(at);
    view_->PointerMove(pixel);
    return view_->PointerDown(pixel);
}

void HeadlessView::MoveTo(dg::DPoint2D const& at) {
    view_->PointerMove(view_->ToWindow(at));
}

void HeadlessView::Release(dg::DPoint2D const& at) {
    view_->PointerUp(view_->ToWindow(at));
}

// Whoever drags next would drag a box that shows what never happened.
void HeadlessView::Abandon() {
    bool const leavesBox = view_->IsDragging() && shadow_;
    view_->AbandonDrag();
    if (leavesBox) shadow_->FigureExtentsChanged();
}

bool HeadlessView::DragTo(dg::DPoint2D const& from, dg::DPoint2D const& to) {
    if (!Press(from)) return false;
    dg::DVec2 const way = to - from;
    if (!(way == dg::DVec2())) {
        for (int stop = 1; stop < STOPS; ++stop)
            MoveTo(from + way * (static_cast<double>(stop) / STOPS));
    }
    Release(to);
    return true;
}

figrep::Symbol HeadlessView::GetCursor() const {
    return view_->GetWindow()->GetCursor();
}

}  // namespace fighost
