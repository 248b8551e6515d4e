#include <zvmk/MarkupShadow.h>

#include <zvk/View.h>
#include <zvmk/Cursors.h>

#include <vector>

namespace zvmk {

MarkupShadow::MarkupShadow(du::SmartPtr<zvk::View> const& view, bool draggable)
    : Markup(nullptr), draggable_(draggable) {
    if (view) view_ = view->GetLink();
}

MarkupShadow::~MarkupShadow() = default;

du::SmartPtr<zvk::View> MarkupShadow::GetView() const {
    return view_ ? view_->Get() : nullptr;
}

void MarkupShadow::SetPick(du::SmartPtr<zvmu::ModelBase> const& model,
                           dg::DPoint3D const& startPoint) {
    pickedModel_ = model;
    startPoint_ = startPoint;
    dragVector_ = broadcast_ = dg::DVec3();
}

void MarkupShadow::SetDragVector(dg::DVec3 const& drag) {
    dragVector_ = drag;
}

void MarkupShadow::ForgetPick() {
    SetPick(nullptr, dg::DPoint3D());
}

void MarkupShadow::SetReferencePosition(dg::DPoint3D const& position) {
    referencePosition_ = position;
    auto const model = GetContent() ? GetContent()->GetModelBase() : nullptr;
    if (model) {
        dg::Location location = model->GetLocation();
        location.SetPos(position);
        model->SetLocation(location);
    }
    NotifyContentChanged();
}

bool MarkupShadow::BeginDrag(zvmu::PickedModel const& picked, bool together) {
    if (!draggable_ || !picked.model) return false;
    ChoosePickedMarkup(together);
    SetPick(picked.model, picked.at);
    dragging_ = HandleDragStart();
    if (!dragging_) ForgetPick();
    return dragging_;
}

void MarkupShadow::ContinueDrag(dg::DVec3 const& fromStart) {
    if (!dragging_) return;
    SetDragVector(fromStart);
    HandleDragStep();
}

void MarkupShadow::EndDrag() {
    if (!dragging_) return;
    dragging_ = false;
    HandleDragStop();
    ForgetPick();
}

void MarkupShadow::AbandonDrag() {
    if (dragging_) Stop();
}

void MarkupShadow::Enter(du::SmartPtr<zvmu::ModelBase> const& model) {
    PreselectHighlight(model);
}

void MarkupShadow::Leave() {
    ClearPreselectHighlight();
}

bool MarkupShadow::GetCursorOver(du::SmartPtr<zvmu::ModelBase> const& model,
                                 du::Symbol& cursor) const {
    return draggable_ && GetDragCursor(model, cursor);
}

void MarkupShadow::Translate(dg::DVec3 const& by) {
    SetReferencePosition(referencePosition_ + by);
}

void MarkupShadow::Stop() {
    dragging_ = false;
    StopLabels();
    ClearPreselectHighlight();
    ForgetPick();
    ResetCursor();
}

void MarkupShadow::StopLabels() {}

void MarkupShadow::PreselectHighlight(du::SmartPtr<zvmu::ModelBase> const& model) {
    if (model == preselected_) return;
    preselected_ = model;
    NotifyContentChanged();
}

void MarkupShadow::ClearPreselectHighlight() {
    PreselectHighlight(nullptr);
}

namespace {

std::vector<du::SmartPtr<MarkupShadow>> ShadowsOf(zvk::View const& view) {
    std::vector<du::SmartPtr<MarkupShadow>> shadows;
    for (auto const& markup : view.GetMarkups()) {
        if (auto const shadow = du::DynamicCast<MarkupShadow>(markup)) shadows.push_back(shadow);
    }
    return shadows;
}

}  // namespace

void MarkupShadow::ChoosePickedMarkup(bool together) {
    auto const view = GetView();
    if (view && !together) {
        for (auto const& shadow : ShadowsOf(*view))
            shadow->chosen_ = false;
    }
    chosen_ = true;
}

void MarkupShadow::BroadcastTranslate(dg::DVec3 const& drag) {
    dg::DVec3 const by = drag + broadcast_ * -1.0;
    broadcast_ = drag;
    Translate(by);
    auto const view = GetView();
    if (!view) return;
    for (auto const& shadow : ShadowsOf(*view)) {
        if (shadow->chosen_ && shadow != this) shadow->Translate(by);
    }
}

du::SmartPtr<zvk::Markup> MarkupShadow::GetMarkup() {
    return this;
}

bool MarkupShadow::GetDragCursor(du::SmartPtr<zvmu::ModelBase> const& /*model*/,
                                 du::Symbol& cursor) const {
    cursor = dragCursorMove;
    return true;
}

bool MarkupShadow::HandleDragStart() {
    ShowDragCursor();
    return true;
}

bool MarkupShadow::HandleDragStep() {
    BroadcastTranslate(dragVector_);
    return true;
}

bool MarkupShadow::HandleDragStop() {
    ResetCursor();
    return true;
}

void MarkupShadow::ShowDragCursor() {
    auto const view = GetView();
    if (!view || !view->GetWindow()) return;
    du::Symbol cursor = du::Symbol::EMPTY;
    if (GetDragCursor(pickedModel_, cursor)) view->GetWindow()->SetCursor(cursor);
}

void MarkupShadow::ResetCursor() {
    auto const view = GetView();
    if (view && view->GetWindow()) view->GetWindow()->ResetCursor();
}

}  // namespace zvmk
