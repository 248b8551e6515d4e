// The box that a user drags to move or scale a figure's whole content.
#pragma once

#include <figrep/Fwd.h>
#include <zvmk/MarkupShadow.h>
#include <zvmu/ModelContainer.h>
#include <zvmu/ModelPolygon.h>
#include <zvmu/ModelShadowPoint.h>

#include <array>
#include <vector>

namespace zvk {
class Operation;
}

namespace zvmk {

/// A box around a figure's content, with a handle at each corner and one at the centre.
///
/// Dragging the centre or the outline moves the content, dragging a corner scales it about the
/// centre in its proportions. While a drag goes on only the box changes; when it stops, one
/// operation with one `FitContentOperationStep` is recorded (`zvk::RecordOperation`), which changes
/// the content at once. A drag that is abandoned records nothing and leaves the box where it is,
/// until `FigureExtentsChanged`. Positions that aren't finite drag nothing.
///
/// Units: figure units. Ownership: the view holds the shadow as a markup, and the figure holds it
/// (`Figure::SetFigureShadow`) so that undo and redo fit the box again; the shadow holds neither,
/// and without its figure does nothing. Used on the view's thread only; it takes the kernel's lock
/// to reach its figure.
class FigureContentShadow : public MarkupShadow {
public:
    /// The numbers of the handles; 6 isn't used.
    enum Handle : unsigned int {
        TOP_LEFT = 0,
        BOTTOM_LEFT = 1,
        TOP_RIGHT = 2,
        BOTTOM_RIGHT = 3,
        TOP_MIDDLE = 4,
        BOTTOM_MIDDLE = 5,
        LEFT_MIDDLE = 7,
        RIGHT_MIDDLE = 8,
        CENTRE = 9,
        NO_HANDLE = 10
    };

    /// Nulls are allowed: a box of no size, a box that is shown nowhere. Computes the figure's
    /// extents.
    FigureContentShadow(du::SmartPtr<zvk::View> const& view, du::SmartPtr<figrep::Figure> figure);

    /// Puts the shadow into its view, or takes it out.
    void Display(bool show);
    bool IsVisible() const { return displayed_; }

    /// Fits the box to the figure again.
    void FigureExtentsChanged();

    /// Half of the box's width and half of its height.
    float GetWidth() const { return static_cast<float>(halfWidth_); }
    float GetHeight() const { return static_cast<float>(halfHeight_); }
    /// The origin: nothing remembers a former centre.
    dg::DPoint3D GetOldCenter() const { return oldCentre_; }

    /// The number of a handle as it is seen: in an image view, whose y runs the other way, top and
    /// bottom trade places.
    unsigned int IdentifyDragHandle(du::SmartPtr<zvmu::ModelBase> const& model) const;
    /// The handle with this number in the figure's own frame; null for a number without one. Those
    /// at the middles of the sides follow the box but aren't shown.
    du::SmartPtr<zvmu::ModelShadowPoint> GetHandle(unsigned int number) const;
    du::SmartPtr<zvmu::ModelPolygon> const& GetOutline() const { return outline_; }

    /// Appends what a drag moves: the figure's content, without what moves along with something
    /// else.
    void CollectItemsForTransformation(
        std::vector<du::SmartPtr<figrep::AbstractFigureItem>>& items) const;

    /// Null: the shadow stands for no other markup.
    du::SmartPtr<zvk::Markup> GetMarkup() override;
    bool GetDragCursor(du::SmartPtr<zvmu::ModelBase> const& model,
                       du::Symbol& cursor) const override;
    bool HandleDragStart() override;
    bool HandleDragStep() override;
    bool HandleDragStop() override;

protected:
    ~FigureContentShadow() override;

private:
    /// The handle's number without a view, `NO_HANDLE` for what is none.
    unsigned int NumberOf(du::SmartPtr<zvmu::ModelBase> const& model) const;
    du::SmartPtr<zvmu::ModelShadowPoint> GetFarCorner(unsigned int picked) const;
    du::SmartPtr<figrep::Figure> GetFigure() const;
    void FitBox();
    void MakeModel();
    void RebuildModel();
    void StartCornerDrag(unsigned int picked);
    void DragCorner(dg::DPoint3D const& to);
    void DragSide(unsigned int picked, dg::DPoint3D const& to);
    void MoveContent(dg::DPoint2D const& target, zvk::Operation& operation) const;
    void ScaleContent(double factor, dg::DPoint2D const& about, zvk::Operation& operation) const;
    void AddFitStep(std::vector<du::SmartPtr<figrep::TransformAction>> const& transforms,
                    dg::DPoint2D const& offset, zvk::Operation& operation) const;

    std::array<du::SmartPtr<zvmu::ModelShadowPoint>, NO_HANDLE> handles_;  // by number; 6 is null
    du::SmartPtr<zvmu::ModelPolygon> outline_;
    du::SmartPtr<zvmu::ModelContainer> container_;
    dg::DPoint3D anchor_;  // the far point of the drag in progress
    dg::DPoint3D centre_;  // z is 0
    double halfWidth_ = 0.0;
    double halfHeight_ = 0.0;
    double startHalfWidth_ = 0.0;  // before the change in progress; negative for a left corner
    dg::DPoint3D oldCentre_;
    dg::DVec2 dragDirection_;  // of a corner drag, of length 1
    double startAlong_ = 0.0;  // from the far point to where the corner was, in that direction
    du::SmartPtr<figrep::FigureLink> figure_;
    bool displayed_ = false;
};

}  // namespace zvmk
