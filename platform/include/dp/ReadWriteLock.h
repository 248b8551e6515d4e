// A recursive lock for many readers or one writer.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace dp {

/// Many readers or one writer, recursive both ways, with upgrade from reading to writing.
///
/// A thread that holds the lock takes it again, for reading or writing, without waiting for others
/// behind it; its counts live in the thread, so taking it again is an increment. Writers that wait
/// keep new readers out, and readers that wait go before the next writer, so neither starves.
///
/// Upgrade: a reader that asks for writing waits until it is the only reader. When two readers
/// upgrade at once the later one gives its read holds up, waits, and has them back after its write.
/// Another thread may therefore have written in between: test again after an upgrade whatever was
/// decided under the read lock.
///
/// Every lock is given back by the thread that took it, in any order. Giving back what the thread
/// doesn't hold does nothing.
class ReadWriteLock {
public:
    ReadWriteLock() = default;
    ReadWriteLock(ReadWriteLock const&) = delete;
    ReadWriteLock& operator=(ReadWriteLock const&) = delete;
    ~ReadWriteLock() = default;

    void ReadLock() {
        Hold& hold = MyHold();
        if (hold.readers + hold.writers == 0) EnterRead();
        ++hold.readers;
    }

    /// Takes the lock for reading unless the thread holds it in any way; true when it took it.
    /// For scopes that end before whatever else holds the lock: they need no count of their own.
    bool ReadLockUnlessHeld() {
        Hold& hold = MyHold();
        if (hold.readers + hold.writers != 0) return false;
        EnterRead();
        ++hold.readers;
        return true;
    }

    void ReadUnlock() {
        Hold& hold = MyHold();
        if (hold.readers == 0) return;
        if (--hold.readers + hold.writers == 0) LeaveRead();
    }

    void WriteLock() {
        Hold& hold = MyHold();
        if (hold.writers == 0) EnterWrite(hold.readers != 0);
        ++hold.writers;
    }

    void WriteUnlock() {
        Hold& hold = MyHold();
        if (hold.writers == 0) return;
        if (--hold.writers == 0) LeaveWrite(hold.readers != 0);
    }

    /// Whether the calling thread holds the lock, for reading or writing; for assertions.
    bool IsHeldByThisThread() {
        Hold const& hold = MyHold();
        return hold.readers + hold.writers != 0;
    }
    bool IsWriteHeldByThisThread() { return MyHold().writers != 0; }

private:
    /// What the running thread holds of one lock.
    struct Hold {
        ReadWriteLock const* lock;
        uint32_t readers;
        uint32_t writers;
    };
    class ColdHolds;

    // The state word: a writer is inside, somebody waits (so that whoever leaves must look), and
    // the number of threads that are inside as readers.
    static constexpr uint64_t WRITER = 1;
    static constexpr uint64_t WAITERS = 2;
    static constexpr uint64_t READER = 4;

    Hold& MyHold() {
        if (s_hot.lock != this) FetchHold();
        return s_hot;
    }
    void FetchHold();

    void EnterRead() {
        uint64_t seen = state_.load(std::memory_order_relaxed);
        while ((seen & (WRITER | WAITERS)) == 0) {
            if (state_.compare_exchange_weak(seen, seen + READER, std::memory_order_acquire,
                                             std::memory_order_relaxed)) {
                return;
            }
        }
        EnterReadSlowly();
    }
    void LeaveRead() {
        uint64_t const before = state_.fetch_sub(READER, std::memory_order_acq_rel);
        if (before & WAITERS) WakeAfterRead();
    }

    void EnterWrite(bool isReader);
    void LeaveWrite(bool isReader);

    void EnterReadSlowly();
    void WakeAfterRead();
    bool TryEnterWrite(uint64_t readersOfMine);
    void WaitAsUpgrader(std::unique_lock<std::mutex>& guard);
    void WaitAsWriter(std::unique_lock<std::mutex>& guard);
    void AnnounceWaiter() { state_.fetch_or(WAITERS, std::memory_order_acq_rel); }
    void WithdrawWaiters();

    static constinit inline thread_local Hold s_hot{};  // of the lock that the thread used last

    std::atomic<uint64_t> state_{0};

    std::mutex mutex_;  // guards all below
    std::condition_variable readersGo_;
    std::condition_variable writersGo_;
    std::condition_variable upgraderGo_;
    uint64_t waitingReaders_ = 0;
    uint64_t waitingWriters_ = 0;
    uint64_t grants_ = 0;  // how often waiting readers were let in as a batch
    bool upgraderWaits_ = false;
};

}  // namespace dp
