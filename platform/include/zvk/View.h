// What shows a scene in a window and hears what a pointer does there.
#pragma once

#include <dg/Point.h>
#include <du/Link.h>
#include <du/SmartPtr.h>
#include <zvk/MarkupHolder.h>
#include <zvk/Object.h>
#include <zvk/Scene.h>
#include <zvk/Window.h>

namespace zvk {

/// A view: its markups, and the drag that is going on with one of them.
///
/// A window system forwards its pointer events to `PointerDown`, `PointerMove` and `PointerUp`,
/// with positions in pixels from the window's upper left corner, y downward, and calls
/// `AbandonDrag` when the user takes back or the pointer is lost. Positions that aren't finite are
/// passed over.
///
/// Ownership: a view holds its markups, its window and its scene; none of them holds the view.
/// All of it runs on one thread, the view's.
class View : public ObjectWithRWLock, public MarkupHolder {
public:
    ~View() override;

    /// Null is allowed.
    du::SmartPtr<Scene> const& GetScene() const { return scene_; }
    /// Null is allowed.
    du::SmartPtr<Window> const& GetWindow() const { return window_; }
    /// What knows this view without holding it keeps this.
    du::SmartPtr<du::Link<View>> const& GetLink() const { return link_; }

    /// How many pixels beside a model still touch it. A number below 0 changes nothing.
    void SetPickTolerance(double pixels);
    double GetPickTolerance() const { return pickTolerance_; }

    /// Where in the scene a position in the window is.
    virtual dg::DPoint3D ToScene(dg::DPoint2D const& inWindow) const = 0;
    /// The length in the scene of one pixel.
    virtual double GetPixelSize() const = 0;
    /// Pixels to a millimetre of the window, for what keeps its size at any scale.
    virtual double GetPixelsPerMillimetre() const;

    /// What is under the position, among the markups.
    Picked PickAt(dg::DPoint2D const& inWindow) const;

    /// The pointer moved. During a drag the dragged markup follows; otherwise the part of a markup
    /// below the pointer is highlighted and its cursor shown. Whether a markup took the event.
    bool PointerMove(dg::DPoint2D const& inWindow);
    /// The button went down: begins to drag the markup there. False when there is none or it can't
    /// be dragged; the event is then the host's own. A drag that was still going on is abandoned.
    /// `together` asks to take along what was chosen before.
    bool PointerDown(dg::DPoint2D const& inWindow, bool together = false);
    /// The button went up: the drag goes to this position and takes effect.
    void PointerUp(dg::DPoint2D const& inWindow);
    void AbandonDrag();
    bool IsDragging() const { return static_cast<bool>(dragged_); }

    /// Whether markups changed since the last call, so that the window is to be painted again.
    bool TakeRepaintNeeded();

protected:
    View(du::SmartPtr<Scene> const& scene, du::SmartPtr<Window> const& window);

    void MarkupChanged(Markup& markup) override;
    void MarkupRemoved(Markup& markup) override;

private:
    bool Hover(dg::DPoint2D const& inWindow);
    void EndHover();
    void Drag(dg::DPoint2D const& inWindow);

    du::SmartPtr<Scene> scene_;
    du::SmartPtr<Window> window_;
    du::SmartPtr<du::Link<View>> link_;
    double pickTolerance_;
    du::SmartPtr<Markup> hovered_;
    du::SmartPtr<zvmu::ModelBase> hoveredModel_;
    du::SmartPtr<Markup> dragged_;
    dg::DPoint2D pressedAt_;
    dg::DPoint2D draggedTo_;
    bool repaintNeeded_ = false;
};

}  // namespace zvk
