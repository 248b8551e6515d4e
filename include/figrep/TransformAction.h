// The transforms about a point of which a move can consist.
#pragma once

#include <figrep/Fwd.h>

namespace figrep {

/// One transform about a fixed point, in figure units and radians. Not changed once a delta holds
/// it, since deltas share actions.
class TransformAction : public virtual du::RefCounted {
public:
    enum ActionType { TRANSFORM_MIRROR = 0, TRANSFORM_ROTATE = 1, TRANSFORM_SCALE = 2 };

    ~TransformAction() override;

    virtual ActionType GetType() const = 0;
    /// Tries to take up an action that follows this one; answers whether it did. It needs the same
    /// type and exactly the same fixed point. `keep` is then set to whether this action still
    /// stands for something, and otherwise left alone. Null isn't taken up.
    virtual bool Merge(SmartPtr<TransformAction> const& other, bool& keep) = 0;

    DPoint2D const& GetAbout() const { return about_; }

protected:
    explicit TransformAction(DPoint2D const& about);
    TransformAction(TransformAction const&);

    /// `other` as an action that may be merged: of the same class and about the same point.
    template <class Action>
    Action* Mergeable(SmartPtr<TransformAction> const& other) const {
        auto* const same = dynamic_cast<Action*>(other.Get());
        return same && same->GetAbout() == about_ ? same : nullptr;
    }

private:
    DPoint2D about_;
};

}  // namespace figrep
