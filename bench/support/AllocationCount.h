// What the heap holds. Programs that link the source count every `new`.
#pragma once

#include <cstddef>

namespace figbench {

/// Bytes that `operator new` has given out and that weren't given back, as the allocator rounds
/// them and with its own word for each block.
std::size_t AllocatedBytes();

/// The same, counted in blocks.
std::size_t AllocatedBlocks();

}  // namespace figbench
