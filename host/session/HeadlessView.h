// A view without a window system, driven by calls instead of a hand.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <figrep/FigureContentShadow.h>
#include <figrep/Fwd.h>
#include <zvk/View2D.h>

namespace fighost {

/// Shows one figure in a window that isn't there, and does with it what a person does with a
/// pointer. Every call goes through the pointer events of a real view, in the window's pixels, so
/// that what is dragged is found, followed and let go exactly as on a screen.
///
/// Points are those of the figure. Ownership: holds the figure, the view and the content shadow,
/// and takes the shadow off the figure when it goes.
class HeadlessView {
public:
    enum Kind {
        DRAWING,  ///< y grows upward
        IMAGE     ///< y grows downward
    };

    /// The whole of the figure's content is in sight at first. `scene` is what recorded operations
    /// name; null is allowed, for the figure too.
    explicit HeadlessView(figrep::SmartPtr<figrep::Figure> const& figure,
                          figrep::SmartPtr<zvk::Scene> const& scene = nullptr, Kind kind = DRAWING);
    ~HeadlessView();
    HeadlessView(HeadlessView const&) = delete;
    HeadlessView& operator=(HeadlessView const&) = delete;

    /// Brings the box into the window, at a scale that is a power of two: positions then lose
    /// nothing on their way through the window. A box without size is brought to the window's
    /// middle at the present scale, one with sides that aren't finite nowhere.
    void Show(dg::DBox2D const& box);

    /// Lays the content shadow over the figure, or fits it again when it is there.
    void ShowContentShadow();
    void HideContentShadow();
    /// Null while it isn't shown.
    figrep::SmartPtr<zvmk::FigureContentShadow> const& GetContentShadow() const { return shadow_; }

    /// What a pointer does. Press answers whether a drag begins; one that goes on is abandoned.
    bool Press(dg::DPoint2D const& at);
    void MoveTo(dg::DPoint2D const& at);
    void Release(dg::DPoint2D const& at);
    /// Ends a drag without effect; the box fits the content again.
    void Abandon();
    /// Presses, goes there on a straight way with stops, and lets go. False when nothing is
    /// dragged.
    bool DragTo(dg::DPoint2D const& from, dg::DPoint2D const& to);

    /// The cursor that a person would see; empty for the usual one.
    figrep::Symbol GetCursor() const;

    figrep::SmartPtr<zvk::View2D> const& GetView() const { return view_; }

private:
    figrep::SmartPtr<figrep::Figure> figure_;
    figrep::SmartPtr<zvk::View2D> view_;
    figrep::SmartPtr<zvmk::FigureContentShadow> shadow_;
};

}  // namespace fighost
