// A tracer that keeps quiet.
#pragma once

namespace dp {

/// Takes what a class has to tell to those who look for its faults, and drops it. A host that wants
/// to read traces puts a class with the same operation in this one's place.
class ZVNullTracer {
public:
    /// `format` and what follows are as for `printf`; level 1 is the most important.
    [[gnu::format(printf, 2, 3)]] static void Trace(int level, char const* format, ...);
};

inline void ZVNullTracer::Trace(int /*level*/, char const* /*format*/, ...) {}

}  // namespace dp
