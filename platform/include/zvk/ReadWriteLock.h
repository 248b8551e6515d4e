// The shared, counted form of the platform's lock, and guards for it.
#pragma once

#include <dp/ReadWriteLock.h>
#include <du/SmartPtr.h>

namespace zvk {

/// A `dp::ReadWriteLock` that many objects hold together.
class ReadWriteLock : public virtual du::RefCounted {
public:
    void ReadLock() { lock_.ReadLock(); }
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
/// Counts no reference, so that taking a lock again stays cheap: the lock outlives the guard.
class [[nodiscard]] ReadGuard {
public:
    explicit ReadGuard(du::SmartPtr<ReadWriteLock> const& guarded) : lock_(guarded.Get()) {
        if (lock_) lock_->ReadLock();
    }
    ReadGuard(ReadGuard const&) = delete;
    ReadGuard& operator=(ReadGuard const&) = delete;
    ~ReadGuard() {
        if (lock_) lock_->ReadUnlock();
    }

private:
    ReadWriteLock* lock_;
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
