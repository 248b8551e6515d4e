#include <du/RefCounted.h>

namespace du {

namespace {

constinit std::atomic<std::ptrdiff_t> s_live{0};

void CountLive(std::ptrdiff_t change) {
    if (IsSingleThreaded()) {
        s_live.store(s_live.load(std::memory_order_relaxed) + change, std::memory_order_relaxed);
    } else {
        s_live.fetch_add(change, std::memory_order_relaxed);
    }
}

}  // namespace

RefCounted::RefCounted() {
    CountLive(1);
}

RefCounted::RefCounted(RefCounted const&) {
    CountLive(1);
}

RefCounted::~RefCounted() {
    CountLive(-1);
}

std::ptrdiff_t RefCounted::LiveCount() {
    return s_live.load(std::memory_order_relaxed);
}

void RefCounted::ZeroReferenceCountHook() {
    delete this;
}

bool RefCounted::TryAddRef() const {
    uint32_t seen = count_.load(std::memory_order_relaxed);
    while (seen != 0) {
        if (count_.compare_exchange_weak(seen, seen + 1, std::memory_order_acquire)) return true;
    }
    return false;
}

}  // namespace du
