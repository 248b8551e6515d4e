// Markups that can be dragged.
#pragma once

#include <dg/Point.h>
#include <du/Link.h>
#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <zvk/Markup.h>
#include <zvmu/ModelBase.h>

namespace zvk {
class View;
}

namespace zvmk {

/// A markup that follows a drag and, when the drag ends, does what it stands for.
///
/// The view calls `BeginDrag` to `AbandonDrag` of the base; the shadow keeps what is dragged and
/// how far, and calls the `Handle...` operations, which derived classes override. By itself a
/// shadow moves, and with it all shadows of its view that are chosen.
///
/// Lifecycle: idle, then dragging from `HandleDragStart` to `HandleDragStop` or `Stop`. The shadow
/// doesn't hold its view. Used on the view's thread only.
class MarkupShadow : public zvk::Markup {
public:
    /// Null when the view has gone.
    du::SmartPtr<zvk::View> GetView() const;

    /// What is dragged; null when nothing is.
    du::SmartPtr<zvmu::ModelBase> const& GetPickedModel() const { return pickedModel_; }
    /// Where on the model the drag began.
    dg::DPoint3D const& GetStartPoint() const { return startPoint_; }
    /// How far the pointer is from where the drag began.
    dg::DVec3 const& GetDragVector() const { return dragVector_; }
    /// Sets what `BeginDrag` and `ContinueDrag` set, for hosts that do without them.
    void SetPick(du::SmartPtr<zvmu::ModelBase> const& model, dg::DPoint3D const& startPoint);
    void SetDragVector(dg::DVec3 const& drag);

    /// Where the shadow's model stands.
    dg::DPoint3D const& GetReferencePosition() const { return referencePosition_; }
    void SetReferencePosition(dg::DPoint3D const& position);

    /// Whether the shadow takes part in the drags of others.
    bool IsChosen() const { return chosen_; }
    /// The part of the model below the pointer; null for none.
    du::SmartPtr<zvmu::ModelBase> const& GetPreselected() const { return preselected_; }

    bool BeginDrag(zvmu::PickedModel const& picked, bool together) override;
    void ContinueDrag(dg::DVec3 const& fromStart) override;
    void EndDrag() override;
    void AbandonDrag() override;
    void Enter(du::SmartPtr<zvmu::ModelBase> const& model) override;
    void Leave() override;
    bool GetCursorOver(du::SmartPtr<zvmu::ModelBase> const& model,
                       du::Symbol& cursor) const override;

    /// Moves the shadow's reference position and its model.
    virtual void Translate(dg::DVec3 const& by);
    /// Ends what is going on with the shadow, without effect.
    virtual void Stop();
    /// Ends what is going on with labels that belong to the shadow. A plain shadow has none.
    virtual void StopLabels();
    virtual void PreselectHighlight(du::SmartPtr<zvmu::ModelBase> const& model);
    virtual void ClearPreselectHighlight();
    /// Chooses this shadow; the others of the view stay chosen only when `together`.
    virtual void ChoosePickedMarkup(bool together);
    /// The markup that the shadow stands for: itself by default. Null for none.
    virtual du::SmartPtr<zvk::Markup> GetMarkup();
    /// The cursor for dragging the model. False leaves `cursor` alone.
    virtual bool GetDragCursor(du::SmartPtr<zvmu::ModelBase> const& model,
                               du::Symbol& cursor) const;
    /// False refuses the drag.
    virtual bool HandleDragStart();
    virtual bool HandleDragStep();
    virtual bool HandleDragStop();

protected:
    /// Null is allowed. A shadow that isn't `draggable` is only shown.
    MarkupShadow(du::SmartPtr<zvk::View> const& view, bool draggable);
    ~MarkupShadow() override;

    /// Brings this shadow and every chosen one of the view to where it stood when this drag began,
    /// plus `drag`.
    void BroadcastTranslate(dg::DVec3 const& drag);
    /// Shows the cursor for the picked model, if there is one.
    void ShowDragCursor();
    void ResetCursor();

private:
    void ForgetPick();

    du::SmartPtr<du::Link<zvk::View>> view_;
    bool draggable_;
    bool dragging_ = false;
    bool chosen_ = false;
    du::SmartPtr<zvmu::ModelBase> pickedModel_;
    dg::DPoint3D startPoint_;
    dg::DVec3 dragVector_;
    dg::DVec3 broadcast_;  // how far the drag has moved the chosen shadows
    dg::DPoint3D referencePosition_;
    du::SmartPtr<zvmu::ModelBase> preselected_;
};

}  // namespace zvmk
