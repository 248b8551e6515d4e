// Where the reader finds that the signals of nets come from.
#include <gtest/gtest.h>

#include <cmath>

#include <host/readers/kicad/SheetText.h>

namespace {

using namespace sheettext;
using Starts = std::multiset<std::string>;

/// The starts on a sheet as "net x,y", in the coordinates of the file.
Starts StartsOn(fighost::kicad::ReadResult const& result, std::size_t sheet = 0) {
    constexpr double HEIGHT = 210;  // of an A4 sheet, mm
    Starts starts;
    for (auto const& start : result.design.sheets.at(sheet).flowStarts) {
        starts.insert(result.design.nets.at(start.net).name + " " +
                      std::to_string(std::lround(start.point.x)) + "," +
                      std::to_string(std::lround(HEIGHT - start.point.y)));
    }
    return starts;
}

std::string Part(std::string const& kind, std::string const& reference, double x, double y) {
    return Symbol("T:" + kind, reference, kind, x, y);
}

/// A wire from (0, 0) to (10, 0) with a label, and more.
Starts StartsOnWire(std::string const& more) {
    return StartsOn(Read(File(Wire(0, 0, 10, 0) + Local("N", 5, 0) + more)));
}

TEST(FlowStarts, AreWhereAPinDrives) {
    for (char const* const kind :
         {"output", "powerout", "opencollector", "openemitter", "tristate"}) {
        EXPECT_EQ(StartsOnWire(Part(kind, "U1", 10, 0) + Part("input", "U2", 0, 0)),
                  Starts{"/N 10,0"})
            << kind;
    }
}

TEST(FlowStarts, PinsOfOtherTypesDriveNothing) {
    EXPECT_EQ(StartsOnWire(Part("input", "U1", 10, 0) + Pin("R1", 0, 0)), Starts{});
    EXPECT_EQ(StartsOnWire(Part("visible", "U1", 10, 0)), Starts{});
}

TEST(FlowStarts, APinThatDrivesOutranksOnesThatMay) {
    EXPECT_EQ(StartsOnWire(Part("output", "U1", 10, 0) + Part("tristate", "U2", 0, 0)),
              Starts{"/N 10,0"});
    EXPECT_EQ(StartsOnWire(Part("opencollector", "U1", 10, 0) + Part("powerout", "U2", 0, 0)),
              Starts{"/N 0,0"});
}

TEST(FlowStarts, TwoPinsThatDriveTellNothing) {
    EXPECT_EQ(StartsOnWire(Part("output", "U1", 10, 0) + Part("powerout", "U2", 0, 0)), Starts{});
    EXPECT_EQ(StartsOnWire(Part("tristate", "U1", 10, 0) + Part("opencollector", "U2", 0, 0)),
              Starts{});
}

TEST(FlowStarts, TwoPinsOfOneNetTellNothingWhereverTheyAre) {
    EXPECT_EQ(StartsOnWire(Part("output", "U1", 10, 0) + Part("output", "U2", 0, 50) +
                           Wire(0, 50, 5, 50) + Local("N", 5, 50)),
              Starts{});
}

TEST(FlowStarts, PinsAtOnePointAreOne) {
    Starts const starts = StartsOnWire(Part("output", "U1", 10, 0) + Part("output", "U2", 10, 0));
    EXPECT_EQ(starts, Starts{"/N 10,0"});
}

TEST(FlowStarts, AFlagForChecksDrivesNothing) {
    EXPECT_EQ(StartsOnWire(Symbol("T:powerflag", "#FLG1", "PWR_FLAG", 10, 0)), Starts{});
    EXPECT_EQ(StartsOnWire(Symbol("T:powerflag", "#FLG1", "PWR_FLAG", 10, 0) +
                           Part("powerout", "U1", 0, 0)),
              Starts{"/N 0,0"});
}

TEST(FlowStarts, AreAtLabelsByWhichASignalComesIn) {
    EXPECT_EQ(StartsOnWire(Global("G", 10, 0, "input")), Starts{"G 10,0"});
    EXPECT_EQ(StartsOnWire(Global("G", 10, 0, "output")), Starts{});
    EXPECT_EQ(StartsOnWire(Global("G", 10, 0, "bidirectional")), Starts{});
}

TEST(FlowStarts, AWireWithSeveralSuchLabelsHasSeveral) {
    EXPECT_EQ(StartsOnWire(Global("G", 10, 0, "input") + Global("G", 0, 0, "input")),
              (Starts{"G 10,0", "G 0,0"}));
}

TEST(FlowStarts, APinOutranksTheLabelsOnItsWireAndNoOthers) {
    EXPECT_EQ(StartsOnWire(Part("output", "U1", 0, 0) + Global("G", 10, 0, "input") +
                           Wire(0, 50, 10, 50) + Global("G", 10, 50, "input")),
              (Starts{"G 0,0", "G 10,50"}));
}

TEST(FlowStarts, FollowASignalThroughTheSheets) {
    auto const result = Read(
        {{"root.kicad_sch", File(Sheet("a", "a.kicad_sch", SheetPin("S", 100, 105, "output")) +
                                 Sheet("b", "b.kicad_sch", SheetPin("S", 120, 105, "input")) +
                                 Wire(100, 105, 90, 105) + Wire(90, 105, 120, 105))},
         {"a.kicad_sch",
          File(Part("output", "U1", 0, 0) + Wire(0, 0, 10, 0) + Hierarchical("S", 10, 0, "output"),
               20231120, "a")},
         {"b.kicad_sch",
          File(Part("input", "U2", 0, 0) + Wire(0, 0, 10, 0) + Hierarchical("S", 10, 0, "input"),
               20231120, "b")}});
    ASSERT_EQ(result.design.sheets.size(), 3u);
    EXPECT_EQ(StartsOn(result, 0).size(), 1u);
    EXPECT_EQ(StartsOn(result, 0).begin()->substr(StartsOn(result, 0).begin()->find(' ')),
              " 100,105");
    EXPECT_EQ(StartsOn(result, 1).begin()->substr(StartsOn(result, 1).begin()->find(' ')), " 0,0");
    EXPECT_EQ(StartsOn(result, 2).begin()->substr(StartsOn(result, 2).begin()->find(' ')), " 10,0");
}

TEST(FlowStarts, BusesHaveNone) {
    EXPECT_EQ(StartsOn(Read(File(Bus(0, 0, 10, 0) + Global("B[0..3]", 10, 0, "input")))), Starts{});
}

}  // namespace
