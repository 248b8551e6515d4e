// The way back to what must not be held.
#pragma once

#include <du/RefCounted.h>
#include <du/Upward.h>

namespace du {

/// Shared by a target and everything that knows the target without holding it. The target clears
/// it when it goes, so nobody is left with a dangling pointer.
///
/// Not guarded: whoever reads a link keeps the target from clearing it meanwhile, by the target's
/// lock or because both live on one thread.
template <class T>
class Link : public virtual RefCounted {
public:
    explicit Link(T* target) : target_(target) {}

    /// Null once the target has gone or is about to go.
    SmartPtr<T> Get() const { return Upward(target_); }

    /// For the target's own teardown.
    void Clear() { target_ = nullptr; }

private:
    T* target_;
};

}  // namespace du
