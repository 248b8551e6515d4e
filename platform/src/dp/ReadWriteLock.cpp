#include <dp/ReadWriteLock.h>

#include <utility>
#include <vector>

namespace dp {

/// What the running thread holds of all locks but the one that it used last.
class ReadWriteLock::ColdHolds {
public:
    static void Put(Hold const& hold) { Mine().push_back(hold); }

    static Hold Take(ReadWriteLock const* lock) {
        std::vector<Hold>& holds = Mine();
        for (Hold& hold : holds) {
            if (hold.lock != lock) continue;
            Hold const found = std::exchange(hold, holds.back());
            holds.pop_back();
            return found;
        }
        return Hold{lock, 0, 0};
    }

private:
    static std::vector<Hold>& Mine() {
        thread_local std::vector<Hold> holds;
        return holds;
    }
};

void ReadWriteLock::FetchHold() {
    if (s_hot.readers + s_hot.writers != 0) ColdHolds::Put(s_hot);
    s_hot = ColdHolds::Take(this);
}

void ReadWriteLock::EnterReadSlowly() {
    std::unique_lock guard(mutex_);
    AnnounceWaiter();
    bool const free = (state_.load(std::memory_order_acquire) & WRITER) == 0;
    if (free && waitingWriters_ == 0 && !upgraderWaits_) {
        state_.fetch_add(READER, std::memory_order_acq_rel);
        WithdrawWaiters();
        return;
    }
    // Whoever grants adds this reader to the state word, so there is nothing to compete for.
    uint64_t const seen = grants_;
    ++waitingReaders_;
    readersGo_.wait(guard, [&] { return grants_ != seen; });
}

void ReadWriteLock::WakeAfterRead() {
    std::lock_guard const guard(mutex_);
    uint64_t const readers = state_.load(std::memory_order_acquire) / READER;
    if (upgraderWaits_ && readers == 1) upgraderGo_.notify_one();
    if (readers == 0) writersGo_.notify_one();
}

void ReadWriteLock::EnterWrite(bool isReader) {
    uint64_t expected = isReader ? READER : 0;
    if (state_.compare_exchange_strong(expected, WRITER, std::memory_order_acq_rel,
                                       std::memory_order_relaxed)) {
        return;
    }
    std::unique_lock guard(mutex_);
    AnnounceWaiter();
    if (isReader && !upgraderWaits_) return WaitAsUpgrader(guard);
    if (isReader) {
        // Two upgraders would wait for each other for good: this one stops being a reader.
        state_.fetch_sub(READER, std::memory_order_acq_rel);
        upgraderGo_.notify_one();
    }
    WaitAsWriter(guard);
}

bool ReadWriteLock::TryEnterWrite(uint64_t readersOfMine) {
    uint64_t expected = WAITERS | readersOfMine;
    return state_.compare_exchange_strong(expected, WAITERS | WRITER, std::memory_order_acq_rel,
                                          std::memory_order_relaxed);
}

void ReadWriteLock::WaitAsUpgrader(std::unique_lock<std::mutex>& guard) {
    upgraderWaits_ = true;
    upgraderGo_.wait(guard, [&] { return TryEnterWrite(READER); });
    upgraderWaits_ = false;
    WithdrawWaiters();
}

void ReadWriteLock::WaitAsWriter(std::unique_lock<std::mutex>& guard) {
    ++waitingWriters_;
    writersGo_.wait(guard, [&] { return TryEnterWrite(0); });
    --waitingWriters_;
    WithdrawWaiters();
}

void ReadWriteLock::LeaveWrite(bool isReader) {
    uint64_t const kept = isReader ? READER : 0;
    uint64_t expected = WRITER;
    if (state_.compare_exchange_strong(expected, kept, std::memory_order_acq_rel,
                                       std::memory_order_relaxed)) {
        return;
    }
    std::lock_guard const guard(mutex_);
    uint64_t const letIn = kept + waitingReaders_ * READER;
    if (waitingReaders_ != 0) {
        waitingReaders_ = 0;
        ++grants_;
        readersGo_.notify_all();
    }
    state_.store(WAITERS | letIn, std::memory_order_release);
    if (letIn == 0) writersGo_.notify_one();
    WithdrawWaiters();
}

void ReadWriteLock::WithdrawWaiters() {
    if (waitingReaders_ == 0 && waitingWriters_ == 0 && !upgraderWaits_) {
        state_.fetch_and(~WAITERS, std::memory_order_acq_rel);
    }
}

}  // namespace dp
