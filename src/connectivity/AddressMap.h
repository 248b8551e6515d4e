// A map from objects to what stands for them, for many objects at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace figrep {

/// An open hash table from plain pointers; entries only come. Objects that lie close together have
/// their entries close together, so that going through them in the order of their making touches
/// little memory at a time: with a table larger than the caches that is what a lookup costs.
template <class Key, class Value>
class AddressMap {
public:
    /// Replaces what stands under the key, which isn't null.
    void Put(Key const* key, Value const& value) {
        if (2 * (count_ + 1) > slots_.size()) Grow();
        Slot& slot = slots_[Find(key)];
        if (!slot.first) ++count_;
        slot = {key, value};
    }

    /// Null when there is nothing.
    Value const* Get(Key const* key) const {
        if (!key || slots_.empty()) return nullptr;
        Slot const& slot = slots_[Find(key)];
        return slot.first ? &slot.second : nullptr;
    }

private:
    using Slot = std::pair<Key const*, Value>;

    static constexpr unsigned RUN_BITS = 5;  // entries side by side for objects of one page
    static constexpr unsigned PAGE_BITS = 12;

    /// Pages are scattered, what lies on one keeps its order.
    static std::size_t Hash(Key const* key) {
        auto const address = reinterpret_cast<std::uintptr_t>(key);
        std::uint64_t const page = (address >> PAGE_BITS) * 0x9E3779B97F4A7C15u;
        std::uintptr_t const place = (address >> (PAGE_BITS - RUN_BITS)) & ((1u << RUN_BITS) - 1);
        return static_cast<std::size_t>((page >> 20) << RUN_BITS | place);
    }

    std::size_t Find(Key const* key) const {
        std::size_t const mask = slots_.size() - 1;
        std::size_t at = Hash(key) & mask;
        while (slots_[at].first && slots_[at].first != key)
            at = (at + 1) & mask;
        return at;
    }

    void Grow() {
        std::vector<Slot> former(slots_.empty() ? 64 : 2 * slots_.size());
        former.swap(slots_);
        for (Slot& slot : former) {
            if (slot.first) slots_[Find(slot.first)] = std::move(slot);
        }
    }

    std::vector<Slot> slots_;  // a power of two of them, at least half of them empty
    std::size_t count_ = 0;
};

}  // namespace figrep
