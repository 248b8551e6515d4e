// Whether something leaves counted objects behind.
#pragma once

#include <du/RefCounted.h>

#include <cstddef>

namespace figrep::test {

/// Counted objects that a run of `work` leaves alive. It runs once before, so that what a process
/// makes on first use and keeps for good (its kernel, its lock, defaults) doesn't count.
template <class Work>
std::ptrdiff_t ObjectsLeftBy(Work const& work) {
    work();
    auto const before = du::RefCounted::LiveCount();
    work();
    return du::RefCounted::LiveCount() - before;
}

}  // namespace figrep::test
