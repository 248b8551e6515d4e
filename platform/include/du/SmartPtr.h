// Pointers that hold a reference to a counted object.
#pragma once

#include <du/RefCounted.h>

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

namespace du {

/// A pointer to a counted object that holds one reference; null is a normal value.
///
/// Converts like a plain pointer: from `T*`, and up to bases. `T` may be incomplete where the
/// pointer is only a member; its users need the class. Order and hash follow the address, so
/// nothing that a user sees may depend on them.
template <class T>
class SmartPtr {
public:
    using element_type = T;

    constexpr SmartPtr() noexcept = default;
    constexpr SmartPtr(std::nullptr_t) noexcept {}
    SmartPtr(T* target) : pointer_(target) { Hold(); }
    SmartPtr(SmartPtr const& other) : pointer_(other.pointer_) { Hold(); }
    SmartPtr(SmartPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}

    template <class U>
    requires std::is_convertible_v<U*, T*> SmartPtr(SmartPtr<U> const& other)
        : pointer_(other.Get()) {
        Hold();
    }

    template <class U>
    requires std::is_convertible_v<U*, T*> SmartPtr(SmartPtr<U>&& other)
    noexcept : pointer_(other.Detach()) {}

    ~SmartPtr() {
        if (pointer_) pointer_->Release();
    }

    SmartPtr& operator=(SmartPtr const& other) {
        SmartPtr(other).Swap(*this);
        return *this;
    }
    SmartPtr& operator=(SmartPtr&& other) noexcept {
        SmartPtr(std::move(other)).Swap(*this);
        return *this;
    }

    T* Get() const noexcept { return pointer_; }
    T* operator->() const noexcept { return pointer_; }
    T& operator*() const noexcept { return *pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    void Reset() { SmartPtr().Swap(*this); }
    void Swap(SmartPtr& other) noexcept { std::swap(pointer_, other.pointer_); }

    /// Leaves the pointer null and its reference to the caller.
    T* Detach() noexcept { return std::exchange(pointer_, nullptr); }

private:
    template <class U>
    friend SmartPtr<U> Adopt(U* target);

    void Hold() const {
        if (pointer_) pointer_->AddRef();
    }

    T* pointer_ = nullptr;
};

/// A pointer through which the object can't be changed.
template <class T>
using ConstSmartPtr = SmartPtr<T const>;

/// Takes over a reference that somebody else added.
template <class T>
SmartPtr<T> Adopt(T* target) {
    SmartPtr<T> result;
    result.pointer_ = target;
    return result;
}

/// The object as a `T`, or null when it is none. Keeps the `const` of what it is given.
template <class T, class U>
auto DynamicCast(U* target) {
    using Result = std::conditional_t<std::is_const_v<U>, T const, T>;
    return SmartPtr<Result>(dynamic_cast<Result*>(target));
}

template <class T, class U>
auto DynamicCast(SmartPtr<U> const& target) {
    return DynamicCast<T>(target.Get());
}

template <class T, class U>
bool operator==(SmartPtr<T> const& a, SmartPtr<U> const& b) noexcept {
    return a.Get() == b.Get();
}
template <class T, class U>
bool operator==(SmartPtr<T> const& a, U* b) noexcept {
    return a.Get() == b;
}
template <class T>
bool operator==(SmartPtr<T> const& a, std::nullptr_t) noexcept {
    return !a;
}
template <class T>
bool operator<(SmartPtr<T> const& a, SmartPtr<T> const& b) noexcept {
    return std::less<T*>()(a.Get(), b.Get());
}

}  // namespace du

template <class T>
struct std::hash<du::SmartPtr<T>> {
    size_t operator()(du::SmartPtr<T> const& p) const noexcept { return hash<T*>()(p.Get()); }
};
