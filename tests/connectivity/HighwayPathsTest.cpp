#include "../../src/connectivity/HighwayPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>
#include <set>

#include "Wiring.h"

namespace figrep::testing {
namespace {

using Segments = std::vector<SmartPtr<HighwaySegment>>;

/// The rule told plainly: count the ways to the head, then sweep the whole tree from there. The
/// first segment at which ways meet opens the sweep and isn't taken itself.
std::set<HighwaySegment*> SweepFromHead(SmartPtr<ConnectionNode> const& head,
                                        Segments const& contacts, bool fromHead) {
    std::map<ConnectionNode*, unsigned> counts;
    for (auto const& contact : contacts) {
        SmartPtr<HighwaySegment> segment = contact;
        while (segment && counts[segment.Get()]++ == 0) {
            segment = du::DynamicCast<HighwaySegment>(segment->GetNonJunctionPredecessor());
        }
    }
    std::set<HighwaySegment*> taken;
    bool inside = fromHead;
    std::deque<SmartPtr<ConnectionNode>> queue{head};
    while (!queue.empty()) {
        auto const node = queue.front();
        queue.pop_front();
        if (auto const segment = du::DynamicCast<HighwaySegment>(node)) {
            unsigned const count = counts[segment.Get()];
            if (count == 0) continue;
            if (inside) taken.insert(segment.Get());
            if (count > 1) inside = true;
        }
        if (auto const left = node->GetLeftSuccessor()) queue.push_back(left);
        if (auto const right = node->GetRightSuccessor()) queue.push_back(right);
    }
    return taken;
}

std::set<HighwaySegment*> PathsOf(Segments const& contacts, bool fromHead) {
    std::set<HighwaySegment*> paths;
    for (auto const& segment : FindHighwayPaths(contacts, fromHead)) {
        EXPECT_TRUE(paths.insert(segment.Get()).second) << "named twice";
    }
    return paths;
}

TEST(HighwayPaths, OfOneContactAreEmpty) {
    BusWiring wiring(1);
    wiring.bus->GetHead();
    EXPECT_TRUE(PathsOf({wiring.branches[0]}, false).empty());
    EXPECT_TRUE(PathsOf({}, false).empty());
    EXPECT_TRUE(PathsOf({wiring.branches[0], wiring.branches[0]}, false).empty());
}

TEST(HighwayPaths, LeaveOutTheSegmentAboveWhichTheContactsMeet) {
    BusWiring wiring(2);
    wiring.bus->GetHead();
    // The first branch hangs at the end of the first trunk piece, the third two pieces below.
    auto const paths = PathsOf({wiring.branches[0], wiring.branches[2]}, false);
    EXPECT_EQ(paths, (std::set{wiring.branches[0].Get(), wiring.branches[2].Get(),
                               wiring.trunk[1].Get(), wiring.trunk[2].Get()}));
}

TEST(HighwayPaths, FromTheHeadHoldEverythingOnTheWayThere) {
    BusWiring wiring(1);
    wiring.bus->GetHead();
    EXPECT_EQ(PathsOf({wiring.branches[1]}, true),
              (std::set{wiring.branches[1].Get(), wiring.trunk[1].Get(), wiring.trunk[0].Get()}));
}

TEST(HighwayPaths, LeaveAllCountsAtZero) {
    BusWiring wiring(3);
    wiring.bus->GetHead();
    PathsOf({wiring.branches[0], wiring.branches[5], wiring.branches[2]}, false);
    PathsOf({wiring.branches[0], wiring.branches[5]}, true);
    for (auto const& node : NodesOf(wiring.bus->GetHead())) {
        auto const segment = du::DynamicCast<HighwaySegment>(node);
        if (segment) {
            EXPECT_EQ(segment->GetVisitCount(), 0u);
        }
    }
}

TEST(HighwayPaths, AgreeWithASweepOfTheWholeHighway) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        Wiring wiring;
        auto const bus = wiring.Bus();
        Segments segments{wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0))};
        std::size_t const size = 1 + random() % 40;
        for (std::size_t i = 1; i < size; ++i) {
            // Mostly long chains, now and then a branch far up.
            std::size_t const above =
                random() % 3 ? segments.size() - 1 : random() % segments.size();
            segments.push_back(
                wiring.BusWire(bus, DPoint2D(0, 0), DPoint2D(1, 0), segments[above]));
        }
        Segments contacts;
        for (std::size_t i = random() % 6; i > 0; --i) {
            contacts.push_back(segments[random() % segments.size()]);
        }
        auto const head = bus->GetHead();
        for (bool const fromHead : {false, true}) {
            EXPECT_EQ(PathsOf(contacts, fromHead), SweepFromHead(head, contacts, fromHead))
                << "round " << round;
        }
    }
}

}  // namespace
}  // namespace figrep::testing
