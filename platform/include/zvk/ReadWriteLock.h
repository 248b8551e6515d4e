// The shared, counted form of the platform's lock, and guards for it.
#pragma once

#include <dp/ReadWriteLock.h>
#include <du/SmartPtr.h>

#include <cassert>

namespace zvk {

/// A `dp::ReadWriteLock` that many objects hold together.
class ReadWriteLock : public virtual du::RefCounted {
public:
    void ReadLock() { lock_.ReadLock(); }
    bool ReadLockUnlessHeld() { return lock_.ReadLockUnlessHeld(); }
    void ReadUnlock() { lock_.ReadUnlock(); }
    void WriteLock() { lock_.WriteLock(); }
    void WriteUnlock() { lock_.WriteUnlock(); }

    /// For assertions.
    bool IsHeldByThisThread() { return lock_.IsHeldByThisThread(); }
    bool IsWriteHeldByThisThread() { return lock_.IsWriteHeldByThisThread(); }

private:
    dp::ReadWriteLock lock_;
};

/// Holds a lock for reading as long as it stands; does nothing with a null lock.
///
/// Inside another hold of the same thread it takes nothing and relies on that one, which therefore
/// must not be given back before the guard goes. Counts no reference to the lock, which outlives
/// it.
class [[nodiscard]] ReadGuard {
public:
    explicit ReadGuard(du::SmartPtr<ReadWriteLock> const& guarded)
        : lock_(guarded.Get()), taken_(lock_ && lock_->ReadLockUnlessHeld()) {}
    ReadGuard(ReadGuard const&) = delete;
    ReadGuard& operator=(ReadGuard const&) = delete;
    ~ReadGuard() {
        assert(!lock_ || lock_->IsHeldByThisThread());
        if (taken_) lock_->ReadUnlock();
    }

private:
    ReadWriteLock* lock_;
    bool taken_;
};

/// The same for writing.
class [[nodiscard]] WriteGuard {
public:
    explicit WriteGuard(du::SmartPtr<ReadWriteLock> const& guarded) : lock_(guarded.Get()) {
        if (lock_) lock_->WriteLock();
    }
    WriteGuard(WriteGuard const&) = delete;
    WriteGuard& operator=(WriteGuard const&) = delete;
    ~WriteGuard() {
        if (lock_) lock_->WriteUnlock();
    }

private:
    ReadWriteLock* lock_;
};

}  // namespace zvk
