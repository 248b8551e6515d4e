#include "../../src/graphics/CrossingSweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace figrep {

namespace {

using Wires = std::vector<WireSpan>;

std::vector<WireCrossing> AllPairs(Wires const& wires) {
    std::vector<WireCrossing> found;
    WireCrossing crossing;
    for (std::uint32_t i = 0; i < wires.size(); ++i) {
        for (std::uint32_t j = i + 1; j < wires.size(); ++j) {
            if (FindCrossing(wires, i, j, crossing)) found.push_back(crossing);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<WireCrossing> Sweep(CrossingSweep& sweep, Wires const& wires) {
    std::vector<WireCrossing> found;
    sweep.Find(wires, found);
    std::sort(found.begin(), found.end());
    return found;
}

/// Wires on a coarse grid, so that they share ends, overlap and repeat; some near the tolerance of
/// what counts as vertical, some very long, some without proper coordinates.
class WireMaker {
public:
    explicit WireMaker(unsigned seed) : random_(seed) {}

    Wires Make(std::size_t count) {
        Wires wires;
        origin_ = Chance(8) ? 10000.0 : 0.0;
        step_ = Chance(3) ? 0.00004 : 1.0;
        while (wires.size() < count)
            wires.push_back(MakeOne(wires));
        return wires;
    }

private:
    bool Chance(unsigned oneIn) { return random_() % oneIn == 0; }
    double Coordinate() { return origin_ + (static_cast<double>(random_() % 9) - 4.0) * step_; }

    WireSpan MakeOne(Wires const& wires) {
        WireSpan wire{{Coordinate(), Coordinate()}, {Coordinate(), Coordinate()}};
        switch (random_() % 8) {
            case 0:
            case 1:
            case 2:
                wire.end.x = wire.start.x;
                break;
            case 3:
            case 4:
            case 5:
                wire.end.y = wire.start.y;
                break;
            case 6:
                wire.end.x = wire.start.x + (static_cast<double>(random_() % 5) - 2.0) * 0.00006;
                break;
            default:
                Spoil(wire, wires);
                break;
        }
        return wire;
    }

    void Spoil(WireSpan& wire, Wires const& wires) {
        if (!wires.empty()) wire = wires[random_() % wires.size()];
        if (Chance(4)) wire.end.y = wire.start.y + 1e6;
        if (Chance(16)) wire.start.x = std::numeric_limits<double>::quiet_NaN();
        if (Chance(16)) wire.end.y = std::numeric_limits<double>::infinity();
    }

    std::mt19937 random_;
    double origin_ = 0.0;
    double step_ = 1.0;
};

}  // namespace

TEST(CrossingSweep, FindsWhatTestingAllPairsFindsInAMillionRandomCases) {
    WireMaker maker(20240501);
    CrossingSweep sweep;
    std::size_t crossings = 0;
    for (int i = 0; i < 1000000; ++i) {
        Wires const wires = maker.Make(2 + static_cast<std::size_t>(i) % 7);
        auto const expected = AllPairs(wires);
        crossings += expected.size();
        ASSERT_EQ(Sweep(sweep, wires), expected) << "case " << i;
    }
    EXPECT_GT(crossings, 100000U);
}

TEST(CrossingSweep, FindsWhatTestingAllPairsFindsInLargeSheets) {
    std::mt19937 random(7);
    CrossingSweep sweep;
    for (std::size_t count : {100U, 700U, 3000U}) {
        Wires wires;
        for (std::size_t i = 0; i < count; ++i) {
            double const x = static_cast<double>(random() % 1000) * 0.25;
            double const y = static_cast<double>(random() % 1000) * 0.25;
            double const length = random() % 10 == 0 ? 400.0 : 12.0;
            bool const vertical = random() % 2 == 0;
            wires.push_back(
                {{x, y}, vertical ? dg::DPoint2D(x, y + length) : dg::DPoint2D(x - length, y)});
        }
        auto const expected = AllPairs(wires);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(Sweep(sweep, wires), expected);
    }
}

TEST(CrossingSweep, DoesNotDependOnTheOrderOfInput) {
    WireMaker maker(3);
    std::mt19937 random(4);
    CrossingSweep sweep;
    for (int i = 0; i < 1000; ++i) {
        Wires wires = maker.Make(8);
        auto const before = Sweep(sweep, wires).size();
        std::shuffle(wires.begin(), wires.end(), random);
        EXPECT_EQ(Sweep(sweep, wires).size(), before);
    }
}

TEST(CrossingSweep, WiresThatOnlyTouchDoNotCross) {
    CrossingSweep sweep;
    WireSpan const level{{0, 0}, {10, 0}};
    EXPECT_TRUE(Sweep(sweep, {level, {{5, 0}, {5, 10}}}).empty());
    EXPECT_TRUE(Sweep(sweep, {level, {{0, -5}, {0, 5}}}).empty());
    EXPECT_TRUE(Sweep(sweep, {level, {{10, -5}, {10, 0}}}).empty());
    EXPECT_EQ(Sweep(sweep, {level, {{5, -1}, {5, 1}}}).size(), 1U);
}

TEST(CrossingSweep, WiresWhoseEndsMeetAtOneHeightAreNeitherMissedNorCrossed) {
    CrossingSweep sweep;
    Wires const wires{{{0, 5}, {10, 5}}, {{3, 5}, {3, 9}}, {{4, 1}, {4, 5}}, {{5, 1}, {5, 9}}};
    EXPECT_EQ(Sweep(sweep, wires), (std::vector<WireCrossing>{{0, 3}}));
}

TEST(CrossingSweep, ASlantedWireWithinTheToleranceLiesWhereItStarts) {
    CrossingSweep sweep;
    Wires const wires{{{0, 0}, {10, 0}}, {{5, -5}, {5.00004, 5}}, {{6, -5}, {6.1, 5}}};
    auto const found = Sweep(sweep, wires);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(CrossingPosition(wires, found[0]), dg::DPoint2D(5, 0));
}

TEST(CrossingSweep, CoordinatesHalfAToleranceApartAreTwoHeights) {
    CrossingSweep sweep;
    Wires const wires{{{0, 0}, {10, 0}}, {{0, 0.00005}, {10, 0.00005}}, {{5, 0.00002}, {5, 1}}};
    EXPECT_EQ(Sweep(sweep, wires), (std::vector<WireCrossing>{{1, 2}}));
}

TEST(CrossingSweep, WiresWithoutFiniteCoordinatesTakeNoPart) {
    double const none = std::numeric_limits<double>::quiet_NaN();
    double const far = std::numeric_limits<double>::infinity();
    CrossingSweep sweep;
    Wires const wires{{{0, 0}, {10, 0}}, {{5, -far}, {5, far}}, {{5, none}, {5, 5}}};
    EXPECT_TRUE(Sweep(sweep, wires).empty());
}

TEST(CrossingSweep, NothingInGivesNothingOut) {
    CrossingSweep sweep;
    EXPECT_TRUE(Sweep(sweep, {}).empty());
    EXPECT_TRUE(Sweep(sweep, {{{0, 0}, {10, 0}}}).empty());
}

}  // namespace figrep
