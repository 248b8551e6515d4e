// Intrusive reference counting: the base of everything that is shared.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace du {

/// Whether the process has never had a second thread. Counts then need no locked instructions.
inline bool IsSingleThreaded() {
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded;
#else
    return false;
#endif
}

/// An object that lives as long as someone holds a reference to it.
///
/// The count starts at 0; the first `SmartPtr` takes it to 1. It is the only class that is meant as
/// a virtual base, so that an object with several counted bases has one count. Counting is safe
/// from any thread.
class RefCounted {
public:
    RefCounted();
    RefCounted(RefCounted const&);
    RefCounted& operator=(RefCounted const&) { return *this; }
    virtual ~RefCounted();

    void AddRef() const { Add(1); }

    /// Gives a reference back; the last one calls `ZeroReferenceCountHook()`.
    void Release() const {
        if (DropReference()) const_cast<RefCounted*>(this)->ZeroReferenceCountHook();
    }

    /// Adds a reference unless there is none left, for whoever found the object through a plain
    /// pointer that its teardown clears. False means that the object is about to go.
    bool TryAddRef() const;

    uint32_t GetRefCount() const { return count_.load(std::memory_order_acquire); }

    /// Counted objects alive in the process, on the stack or the heap. For tests of leaks.
    static std::ptrdiff_t LiveCount();

protected:
    /// Called when the last reference went. The default deletes the object. An override whose
    /// teardown hands out pointers to the object raises the count first (`AddRef`), does its work,
    /// gives the reference back with `DropReference` and deletes when that answers true.
    virtual void ZeroReferenceCountHook();

    /// Gives a reference back without calling the hook; true when no reference is left.
    bool DropReference() const {
        if (!IsSingleThreaded()) return count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
        uint32_t const left = count_.load(std::memory_order_relaxed) - 1;
        count_.store(left, std::memory_order_relaxed);
        return left == 0;
    }

private:
    friend class ConstructionGuard;

    void Add(uint32_t n) const {
        if (IsSingleThreaded()) {
            count_.store(count_.load(std::memory_order_relaxed) + n, std::memory_order_relaxed);
        } else {
            count_.fetch_add(n, std::memory_order_relaxed);
        }
    }

    mutable std::atomic<uint32_t> count_{0};
};

/// Keeps an object alive while its own constructor hands out pointers to it.
///
/// Stands on the stack of the constructor. Its reference is let go without deleting, so that the
/// object reaches whoever called `new` also when nobody holds it yet.
class ConstructionGuard {
public:
    explicit ConstructionGuard(RefCounted* guarded) : object_(guarded) {
        if (object_) object_->AddRef();
    }
    ConstructionGuard(ConstructionGuard const&) = delete;
    ConstructionGuard& operator=(ConstructionGuard const&) = delete;
    ~ConstructionGuard() {
        if (object_) object_->DropReference();
    }

private:
    RefCounted* object_;
};

}  // namespace du
