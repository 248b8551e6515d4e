#include <figrep/FigureContentShadow.h>

#include <dp/ZVNullTracer.h>
#include <du/Localizer.h>
#include <figk/SchematicKernel.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FigureLink.h>
#include <figrep/FitContentOperationStep.h>
#include <figrep/ScaleAction.h>
#include <zvk/ImageView.h>
#include <zvk/Operation.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/View2D.h>
#include <zvk/Window.h>
#include <zvmk/Cursors.h>
#include <zvmk/MarkupData.h>

#include <algorithm>
#include <cmath>

namespace zvmk {

namespace {

using du::SmartPtr;
using figrep::Figure;
using zvmu::ModelShadowPoint;
using Shadow = FigureContentShadow;

// On which side of the centre a handle stands, in half widths and half heights.
struct Place {
    int x;
    int y;

    friend constexpr bool operator==(Place const&, Place const&) = default;
};

constexpr Place NOWHERE{2, 2};
constexpr std::array<Place, Shadow::NO_HANDLE> PLACES{
    Place{-1, 1}, Place{-1, -1}, Place{1, 1},  Place{1, -1}, Place{0, 1},
    Place{0, -1}, NOWHERE,       Place{-1, 0}, Place{1, 0},  Place{0, 0}};

bool IsCorner(unsigned int number) {
    return number <= Shadow::BOTTOM_RIGHT;
}

bool IsSide(unsigned int number) {
    return number > Shadow::BOTTOM_RIGHT && number < Shadow::CENTRE;
}

constexpr unsigned int FIRST_WITHOUT_TOP_OR_BOTTOM = 6;

constexpr float HANDLE_SIZE = 1.5F;          // millimetres of the window
constexpr double SHORTEST_DIAGONAL = 1e-05;  // below it a box has no proportions to keep

dg::DPoint2D InPlane(dg::DPoint3D const& point) {
    return {point.x, point.y};
}

bool IsFinite(dg::DPoint2D const& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

SmartPtr<attrs::FillAttr> OutlineFill() {
    return new attrs::FillAttr(attrs::FillAttr::SOLID, dg::Color(0.7F, 0.2F, 0.4F, 1.0F));
}

}  // namespace

Shadow::FigureContentShadow(SmartPtr<zvk::View> const& view, SmartPtr<Figure> figure)
    : MarkupShadow(view, true) {
    if (figure) figure_ = figure->GetLink();
    SmartPtr<MarkupData> const data = new MarkupData(this);
    FitBox();
    MakeModel();
    data->SetModelBase(container_);
    SetContent(data, false);
    RebuildModel();
}

Shadow::~FigureContentShadow() = default;

SmartPtr<Figure> Shadow::GetFigure() const {
    zvk::ReadGuard guard(figk::SchematicKernel::GetKernelLock());
    return figure_ ? figure_->GetFigure() : SmartPtr<Figure>();
}

void Shadow::FitBox() {
    auto const figure = GetFigure();
    dg::DBox2D const extents = figure ? figure->GetExtents() : dg::DBox2D::EMPTY;
    centre_ = extents.Centre();
    halfWidth_ = 0.5 * extents.Size().x;
    halfHeight_ = 0.5 * extents.Size().y;
    startHalfWidth_ = halfWidth_;
}

// The handles of the sides stay outside the container, out of a pointer's reach.
void Shadow::MakeModel() {
    for (unsigned int number = 0; number < NO_HANDLE; ++number) {
        if (PLACES[number] == NOWHERE) continue;
        handles_[number] = new ModelShadowPoint(centre_, HANDLE_SIZE, HANDLE_SIZE, true);
    }
    outline_ = new zvmu::ModelPolygon(8);
    outline_->SetFlags(0);
    outline_->SetRenderAttrsVector(zvmu::RenderAttrs::GetMarkerXor());
    outline_->SetFillAttrs(OutlineFill());
    container_ = new zvmu::ModelContainer();
    container_->AddHead(outline_);
    for (Handle const number : {TOP_LEFT, TOP_RIGHT, BOTTOM_RIGHT, BOTTOM_LEFT, CENTRE})
        container_->AddHead(handles_[number]);
}

void Shadow::RebuildModel() {
    for (unsigned int number = 0; number < NO_HANDLE; ++number) {
        if (!handles_[number]) continue;
        Place const& place = PLACES[number];
        handles_[number]->SetPosition(
            {centre_.x + place.x * halfWidth_, centre_.y + place.y * halfHeight_, 0.0});
    }
    std::vector<dg::DPoint3D> corners;
    for (Handle const number : {TOP_LEFT, TOP_RIGHT, BOTTOM_RIGHT, BOTTOM_LEFT})
        corners.push_back(handles_[number]->GetPosition());
    outline_->SetPoints(corners);
    SetReferencePosition(GetReferencePosition());
}

void Shadow::FigureExtentsChanged() {
    FitBox();
    RebuildModel();
}

void Shadow::Display(bool show) {
    displayed_ = show;
    auto const view = GetView();
    if (!view) return;
    if (show) {
        view->AddMarkup(this);
    } else {
        view->RemoveMarkup(this);
    }
}

SmartPtr<zvk::Markup> Shadow::GetMarkup() {
    return nullptr;
}

unsigned int Shadow::NumberOf(SmartPtr<zvmu::ModelBase> const& model) const {
    if (!model) return NO_HANDLE;
    auto const found = std::find(handles_.begin(), handles_.end(), model);
    return static_cast<unsigned int>(found - handles_.begin());
}

unsigned int Shadow::IdentifyDragHandle(SmartPtr<zvmu::ModelBase> const& model) const {
    unsigned int const number = NumberOf(model);
    bool const isImage = static_cast<bool>(du::DynamicCast<zvk::ImageView>(GetView()));
    return isImage && number < FIRST_WITHOUT_TOP_OR_BOTTOM ? number ^ 1U : number;
}

SmartPtr<ModelShadowPoint> Shadow::GetHandle(unsigned int number) const {
    return number < handles_.size() ? handles_[number] : nullptr;
}

SmartPtr<ModelShadowPoint> Shadow::GetFarCorner(unsigned int picked) const {
    if (!IsCorner(picked) && !IsSide(picked)) return nullptr;
    Place const opposite{-PLACES[picked].x, -PLACES[picked].y};
    auto const found = std::find(PLACES.begin(), PLACES.end(), opposite);
    return handles_[static_cast<std::size_t>(found - PLACES.begin())];
}

bool Shadow::GetDragCursor(SmartPtr<zvmu::ModelBase> const& model, du::Symbol& cursor) const {
    switch (IdentifyDragHandle(model)) {
        case TOP_LEFT:
        case BOTTOM_RIGHT:
            cursor = dragCursorSizeRightToLeft;
            break;
        case BOTTOM_LEFT:
        case TOP_RIGHT:
            cursor = dragCursorSizeLeftToRight;
            break;
        case TOP_MIDDLE:
        case BOTTOM_MIDDLE:
            cursor = dragCursorTopBottom;
            break;
        case LEFT_MIDDLE:
        case RIGHT_MIDDLE:
            cursor = dragCursorLeftRight;
            break;
        default:
            cursor = dragCursorMove;
    }
    return true;
}

bool Shadow::HandleDragStart() {
    unsigned int const picked = NumberOf(GetPickedModel());
    if (auto const far = GetFarCorner(picked)) {
        anchor_ = far->GetPosition();
        if (IsCorner(picked)) StartCornerDrag(picked);
    }
    ShowDragCursor();
    return true;
}

// The corners are a whole width apart. Taking half of it from the box and not from the corners'
// coordinates keeps it free of rounding, so that a corner that isn't moved gives a ratio of 1.
void Shadow::StartCornerDrag(unsigned int picked) {
    dg::DVec2 const diagonal = InPlane(handles_[picked]->GetPosition()) - InPlane(anchor_);
    startHalfWidth_ = std::copysign(halfWidth_, diagonal.x);
    dragDirection_ = diagonal.Norm() < SHORTEST_DIAGONAL ? dg::DVec2(1.0, 1.0) : diagonal;
    dragDirection_ = dragDirection_.Normalise();
    startAlong_ = Dot(diagonal, dragDirection_);
}

bool Shadow::HandleDragStep() {
    bool const isPlane = static_cast<bool>(du::DynamicCast<zvk::View2D>(GetView()));
    dg::DVec3 const drag = isPlane ? GetDragVector() : dg::DVec3();
    dg::DPoint3D const to = GetStartPoint() + drag;
    if (!IsFinite(InPlane(to))) return true;
    unsigned int const picked = NumberOf(GetPickedModel());
    if (picked == CENTRE || (outline_ == GetPickedModel())) {
        centre_ = InPlane(to);
    } else if (IsCorner(picked)) {
        DragCorner(to);
    } else if (IsSide(picked)) {
        DragSide(picked, to);
    } else {
        BroadcastTranslate(drag);
        centre_ = dg::DPoint3D(drag.x, drag.y, 0.0);
    }
    RebuildModel();
    return true;
}

// The pointer is taken to the diagonal. The box grows about its centre, and by the whole way that
// the pointer is from the opposite corner. Back where it began, it gives back the very width: a
// difference by rounding would scale the content instead of moving it.
void Shadow::DragCorner(dg::DPoint3D const& to) {
    double const along = Dot(InPlane(to) - InPlane(anchor_), dragDirection_);
    halfWidth_ = std::abs(along == startAlong_ ? startHalfWidth_ : dragDirection_.x * along * 0.5);
    halfHeight_ = std::abs(dragDirection_.y * along * 0.5);
}

void Shadow::DragSide(unsigned int picked, dg::DPoint3D const& to) {
    if (picked == TOP_MIDDLE || picked == BOTTOM_MIDDLE) {
        double const half = (to.y - anchor_.y) * 0.5;
        centre_.y = anchor_.y + half;
        halfHeight_ = std::abs(half);
    } else {
        double const half = (to.x - anchor_.x) * 0.5;
        centre_.x = anchor_.x + half;
        halfWidth_ = std::abs(half);
    }
}

// Only the width decides between moving and scaling, and what has no width can't be scaled.
bool Shadow::HandleDragStop() {
    auto const view = GetView();
    SmartPtr<zvk::Operation> const operation =
        new zvk::Operation(du::Localizer::Find("zvecad:depecadStrings", "UndoRedoFitContent"),
                           view ? view->GetScene() : nullptr, true);
    double const ratio = std::abs(halfWidth_ / startHalfWidth_);
    if (startHalfWidth_ == 0.0 || ratio == 1.0) {
        MoveContent(InPlane(centre_), *operation);
    } else {
        ScaleContent(ratio, InPlane(centre_), *operation);
    }
    startHalfWidth_ = halfWidth_;
    ResetCursor();
    RebuildModel();
    dg::DPoint3D const& reference = GetReferencePosition();
    dp::ZVNullTracer::Trace(1, "RebuildMarkup %p set ref to  = (%g,%g,%g)\n",
                            static_cast<void const*>(this), reference.x, reference.y, reference.z);
    // Nothing to take back where there was nothing to do.
    if (!operation->GetSteps().empty()) zvk::RecordOperation(operation);
    return true;
}

void Shadow::CollectItemsForTransformation(
    std::vector<SmartPtr<figrep::AbstractFigureItem>>& items) const {
    auto const figure = GetFigure();
    if (!figure) return;
    figrep::FigureItemsVisitor visitor(items);
    visitor.SetCollectSubItems(false);
    figure->Accept(visitor);
}

void Shadow::MoveContent(dg::DPoint2D const& target, zvk::Operation& operation) const {
    dg::DVec2 const offset = target - InPlane(GetStartPoint());
    AddFitStep({}, {offset.x, offset.y}, operation);
}

void Shadow::ScaleContent(double factor, dg::DPoint2D const& about,
                          zvk::Operation& operation) const {
    AddFitStep({new figrep::ScaleAction(about, factor)}, {}, operation);
}

// What is moved by something that isn't finite never comes back.
void Shadow::AddFitStep(std::vector<SmartPtr<figrep::TransformAction>> const& transforms,
                        dg::DPoint2D const& offset, zvk::Operation& operation) const {
    auto const figure = GetFigure();
    if (!figure || !IsFinite(offset)) return;
    std::vector<SmartPtr<figrep::AbstractFigureItem>> items;
    CollectItemsForTransformation(items);
    operation.AddStep(new figrep::FitContentOperationStep(figure, items, transforms, offset));
}

}  // namespace zvmk
