// Whether an operation takes the kernel's lock, and for what.
#pragma once

#include <figk/SchematicKernel.h>
#include <zvk/ReadWriteLock.h>

#include <chrono>
#include <functional>
#include <future>
#include <ostream>

namespace figrep::test {

enum class LockUse { NONE, READS, WRITES };

inline std::ostream& operator<<(std::ostream& out, LockUse use) {
    char const* const names[] = {"none", "reads", "writes"};
    return out << names[static_cast<int>(use)];
}

/// Whether `work`, on a thread of its own, waits as long as this thread holds the lock in `Guard`.
template <class Guard>
bool WaitsFor(std::function<void()> const& work) {
    constexpr auto PATIENCE = std::chrono::milliseconds(15);
    std::promise<void> started;
    std::future<void> done;
    bool waits = false;
    {
        Guard const guard(figk::SchematicKernel::GetKernelLock());
        done = std::async(std::launch::async, [&] {
            started.set_value();
            work();
        });
        started.get_future().wait();
        waits = done.wait_for(PATIENCE) == std::future_status::timeout;
    }
    done.get();
    return waits;
}

/// What `work` does with the kernel's lock; it is run twice.
inline LockUse LockUseOf(std::function<void()> const& work) {
    if (WaitsFor<zvk::ReadGuard>(work)) return LockUse::WRITES;
    return WaitsFor<zvk::WriteGuard>(work) ? LockUse::READS : LockUse::NONE;
}

}  // namespace figrep::test
