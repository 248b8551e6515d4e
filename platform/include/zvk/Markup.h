// What a view draws over its picture.
#pragma once

#include <du/Link.h>
#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <zvk/MarkupContent.h>
#include <zvk/Object.h>
#include <zvmu/ModelBase.h>

namespace zvk {

class MarkupHolder;

/// A mark over a picture, with a content to draw and to touch.
///
/// At most one holder holds it; it doesn't hold its holder. The view tells it by the operations
/// below what a pointer does with it; a plain markup takes no part in that. Used on the view's
/// thread only.
class Markup : public ObjectWithRWLock, public MemoryPoolAllocated {
public:
    /// Null takes the content away. `notify` tells the holder.
    void SetContent(du::SmartPtr<MarkupContent> const& content, bool notify);
    /// Null for a markup that shows nothing.
    du::SmartPtr<MarkupContent> const& GetContent() const { return content_; }
    /// Tells the holder, if there is one, that the markup looks different now.
    void NotifyContentChanged();

    /// The part of the content that the pointer touches.
    zvmu::PickedModel Pick(zvmu::PickPoint const& pointer) const;

    /// What knows this markup without holding it keeps this.
    du::SmartPtr<du::Link<Markup>> const& GetLink() const { return link_; }

    // What a pointer does.

    /// A button went down on the markup. True when it wants to be dragged. `together` asks to take
    /// along what was chosen before.
    virtual bool BeginDrag(zvmu::PickedModel const& picked, bool together);
    /// How far the pointer is from where the drag began.
    virtual void ContinueDrag(dg::DVec3 const& fromStart);
    virtual void EndDrag();
    /// The drag ends without effect.
    virtual void AbandonDrag();
    /// The pointer is over a part of the markup, or on another one than before.
    virtual void Enter(du::SmartPtr<zvmu::ModelBase> const& model);
    virtual void Leave();
    /// False leaves `cursor` and the window's own cursor alone.
    virtual bool GetCursorOver(du::SmartPtr<zvmu::ModelBase> const& model,
                               du::Symbol& cursor) const;

protected:
    explicit Markup(du::SmartPtr<ReadWriteLock> const& lock);
    ~Markup() override;

private:
    friend class MarkupHolder;

    du::SmartPtr<MarkupContent> content_;
    du::SmartPtr<du::Link<Markup>> link_;
    MarkupHolder* holder_ = nullptr;  // cleared by the holder
};

}  // namespace zvk
