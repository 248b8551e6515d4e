// Counted pointers to what a plain pointer names.
#pragma once

#include <du/RefCounted.h>
#include <du/SmartPtr.h>

namespace du {

/// A counted pointer to the target of a plain upward pointer that its target clears in time; null
/// when there is no target, or when it is about to go: whoever asks during the target's teardown
/// must not bring it back.
template <class T>
SmartPtr<T> Upward(T* target) {
    return target && target->TryAddRef() ? Adopt(target) : SmartPtr<T>();
}

}  // namespace du
