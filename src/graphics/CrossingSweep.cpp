#include "CrossingSweep.h"

#include "SortByNumber.h"

#include <algorithm>
#include <bit>

namespace figrep {

namespace {

// Kinds of events. At one height they are handled in this order: a wire that only touches the
// height of a horizontal with an end must not be in the set then.
constexpr std::uint32_t LEAVES = 0u << 30;
constexpr std::uint32_t CROSSES = 1u << 30;
constexpr std::uint32_t ENTERS = 2u << 30;
constexpr std::uint32_t KIND = 3u << 30;

constexpr unsigned WORD_SHIFT = 6;
constexpr std::uint32_t WORD_MASK = 63;

bool IsBoth(WireSpan const& wire) {
    WireRole const role(wire);
    return role.vertical && role.horizontal;
}

}  // namespace

bool FindCrossing(std::span<WireSpan const> wires, std::uint32_t a, std::uint32_t b,
                  WireCrossing& out) {
    std::uint32_t const first = std::min(a, b);
    std::uint32_t const second = std::max(a, b);
    WireRole const firstRole(wires[first]);
    WireRole const secondRole(wires[second]);
    if (firstRole.vertical && secondRole.horizontal && CrossInside(wires[first], wires[second])) {
        out = {second, first};
        return true;
    }
    if (firstRole.horizontal && secondRole.vertical && CrossInside(wires[second], wires[first])) {
        out = {first, second};
        return true;
    }
    return false;
}

void CrossingSweep::RankSet::Reset(std::uint32_t size) {
    size_ = size;
    std::size_t depth = 0;
    std::uint32_t words = size;
    do {
        words = (words + WORD_MASK) >> WORD_SHIFT;
        if (levels_.size() <= depth) levels_.emplace_back();
        levels_[depth++].assign(words, 0);
    } while (words > 1);
    levels_.resize(depth);
}

void CrossingSweep::RankSet::Insert(std::uint32_t rank) {
    for (auto& level : levels_) {
        std::uint64_t& word = level[rank >> WORD_SHIFT];
        bool const known = word != 0;
        word |= std::uint64_t(1) << (rank & WORD_MASK);
        if (known) return;
        rank >>= WORD_SHIFT;
    }
}

void CrossingSweep::RankSet::Erase(std::uint32_t rank) {
    for (auto& level : levels_) {
        std::uint64_t& word = level[rank >> WORD_SHIFT];
        word &= ~(std::uint64_t(1) << (rank & WORD_MASK));
        if (word != 0) return;
        rank >>= WORD_SHIFT;
    }
}

std::uint32_t CrossingSweep::RankSet::Next(std::uint32_t rank) const {
    std::size_t depth = 0;
    for (; depth < levels_.size(); ++depth) {
        std::uint32_t const index = rank >> WORD_SHIFT;
        if (index >= levels_[depth].size()) return size_;
        std::uint64_t const word = levels_[depth][index] >> (rank & WORD_MASK);
        if (word != 0) {
            rank += static_cast<std::uint32_t>(std::countr_zero(word));
            break;
        }
        rank = index + 1;
    }
    if (depth == levels_.size()) return size_;
    while (depth > 0) {
        --depth;
        rank = (rank << WORD_SHIFT) |
               static_cast<std::uint32_t>(std::countr_zero(levels_[depth][rank]));
    }
    return rank;
}

void CrossingSweep::CollectVerticals(std::span<WireSpan const> wires) {
    verticals_.clear();
    for (std::uint32_t i = 0; i < wires.size(); ++i) {
        WireSpan const& wire = wires[i];
        if (wire.start.y != wire.end.y && WireRole(wire).vertical) {
            verticals_.push_back({OrderedBits(wire.start.x), wire.start.x, i});
        }
    }
    SortByNumber(verticals_, verticalScratch_);
}

void CrossingSweep::CollectHorizontals(std::span<WireSpan const> wires) {
    horizontals_.clear();
    auto const byX = [](Vertical const& v, double x) { return v.x < x; };
    auto const xBefore = [](double x, Vertical const& v) { return x < v.x; };
    for (std::uint32_t i = 0; i < wires.size(); ++i) {
        WireSpan const& wire = wires[i];
        if (wire.start.x == wire.end.x || !WireRole(wire).horizontal) continue;
        double const left = std::min(wire.start.x, wire.end.x);
        double const right = std::max(wire.start.x, wire.end.x);
        auto const first = std::upper_bound(verticals_.begin(), verticals_.end(), left, xBefore);
        if (first == verticals_.end() || first->x >= right) continue;
        auto const end = std::lower_bound(first, verticals_.end(), right, byX);
        horizontals_.push_back({i, static_cast<std::uint32_t>(first - verticals_.begin()),
                                static_cast<std::uint32_t>(end - verticals_.begin())});
    }
}

void CrossingSweep::CollectEvents(std::span<WireSpan const> wires) {
    events_.clear();
    events_.reserve(2 * verticals_.size() + horizontals_.size());
    for (std::uint32_t rank = 0; rank < verticals_.size(); ++rank) {
        WireSpan const& wire = wires[verticals_[rank].wire];
        events_.push_back({OrderedBits(std::max(wire.start.y, wire.end.y)), LEAVES | rank});
    }
    for (std::uint32_t i = 0; i < horizontals_.size(); ++i) {
        events_.push_back({OrderedBits(wires[horizontals_[i].wire].start.y), CROSSES | i});
    }
    for (std::uint32_t rank = 0; rank < verticals_.size(); ++rank) {
        WireSpan const& wire = wires[verticals_[rank].wire];
        events_.push_back({OrderedBits(std::min(wire.start.y, wire.end.y)), ENTERS | rank});
    }
    SortByNumber(events_, eventScratch_);
}

void CrossingSweep::Report(std::span<WireSpan const> wires, Horizontal const& horizontal,
                           std::vector<WireCrossing>& out) const {
    bool const both = IsBoth(wires[horizontal.wire]);
    for (std::uint32_t rank = active_.Next(horizontal.firstRank); rank < horizontal.endRank;
         rank = active_.Next(rank + 1)) {
        WireCrossing const found{horizontal.wire, verticals_[rank].wire};
        if (both && IsBoth(wires[found.vertical])) {
            // Such a pair may be met in both roles; only one of them is told.
            WireCrossing told;
            if (found.horizontal == found.vertical) continue;
            if (!FindCrossing(wires, found.horizontal, found.vertical, told) || told != found) {
                continue;
            }
        }
        out.push_back(found);
    }
}

void CrossingSweep::Find(std::span<WireSpan const> wires, std::vector<WireCrossing>& out) {
    out.clear();
    CollectVerticals(wires);
    CollectHorizontals(wires);
    if (horizontals_.empty()) return;
    CollectEvents(wires);
    active_.Reset(static_cast<std::uint32_t>(verticals_.size()));
    for (Event const& event : events_) {
        std::uint32_t const index = event.what & ~KIND;
        switch (event.what & KIND) {
            case ENTERS:
                active_.Insert(index);
                break;
            case LEAVES:
                active_.Erase(index);
                break;
            default:
                Report(wires, horizontals_[index], out);
                break;
        }
    }
}

}  // namespace figrep
