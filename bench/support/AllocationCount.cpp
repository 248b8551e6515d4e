#include <support/AllocationCount.h>

#include <malloc.h>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> s_bytes{0};
std::atomic<std::size_t> s_blocks{0};

std::size_t SizeOf(void* block) {
    return malloc_usable_size(block) + sizeof(std::size_t);
}

void* Count(void* block) {
    if (!block) throw std::bad_alloc();
    s_bytes += SizeOf(block);
    ++s_blocks;
    return block;
}

void Free(void* block) {
    if (!block) return;
    s_bytes -= SizeOf(block);
    --s_blocks;
    std::free(block);
}

}  // namespace

namespace figbench {

std::size_t AllocatedBytes() {
    return s_bytes;
}
std::size_t AllocatedBlocks() {
    return s_blocks;
}

}  // namespace figbench

void* operator new(std::size_t size) {
    return Count(std::malloc(size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    auto const unit = static_cast<std::size_t>(alignment);
    return Count(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
}
void operator delete(void* block) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    Free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    Free(block);
}
