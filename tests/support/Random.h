// Random numbers that come out the same on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace figrep::test {

/// SplitMix64. The standard's distributions differ between libraries; these don't.
class Random {
public:
    explicit Random(std::uint64_t seed) : state(seed) {}

    std::uint64_t Next() {
        std::uint64_t z = (state += 0x9E3779B97F4A7C15u);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    /// From 0 to `count` - 1; 0 for a count of 0.
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : Next() % count; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    /// From 0 up to, not including, 1.
    double Unit() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

    template <class T>
    void Shuffle(std::vector<T>& values) {
        for (std::size_t i = values.size(); i > 1; --i)
            std::swap(values[i - 1], values[Below(i)]);
    }

private:
    std::uint64_t state;
};

}  // namespace figrep::test
