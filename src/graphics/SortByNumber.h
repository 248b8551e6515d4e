// Sorting of many records by one number.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace figrep {

/// The bits of a number in an order that unsigned comparison keeps; the two zeros are one.
inline std::uint64_t OrderedBits(double value) {
    constexpr std::uint64_t SIGN = std::uint64_t(1) << 63;
    auto const bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return (bits & SIGN) != 0 ? ~bits : bits | SIGN;
}

/// Sorts records by their member `key`, made by `OrderedBits`; equal keys keep their order.
/// `scratch` is memory to keep for the next call. Cost: linear; digits in which all keys agree,
/// as the last ones of round coordinates do, cost nothing.
template <class Record>
void SortByNumber(std::vector<Record>& records, std::vector<Record>& scratch) {
    constexpr std::size_t FEW = 256;  // below this the tables cost more than comparing
    if (records.size() < FEW) {
        std::stable_sort(records.begin(), records.end(),
                         [](Record const& a, Record const& b) { return a.key < b.key; });
        return;
    }
    constexpr unsigned DIGITS = 8;
    std::array<std::array<std::uint32_t, 256>, DIGITS> counts{};
    for (Record const& record : records) {
        for (unsigned digit = 0; digit < DIGITS; ++digit) {
            ++counts[digit][(record.key >> (8 * digit)) & 255];
        }
    }
    scratch.resize(records.size());
    for (unsigned digit = 0; digit < DIGITS; ++digit) {
        auto& places = counts[digit];
        unsigned const shift = 8 * digit;
        if (places[(records.front().key >> shift) & 255] == records.size()) continue;
        std::uint32_t next = 0;
        for (std::uint32_t& place : places) {
            std::uint32_t const count = place;
            place = next;
            next += count;
        }
        for (Record const& record : records)
            scratch[places[(record.key >> shift) & 255]++] = record;
        records.swap(scratch);
    }
}

}  // namespace figrep
