#include <gtest/gtest.h>

#include "SheetText.h"

namespace {

using namespace sheettext;

/// A part on a net named by a local label, away from everything else.
std::string Named(std::string const& reference, std::string const& net, double y) {
    return Pin(reference, 200, y) + Local(net, 200, y);
}

std::map<std::string, std::string> TwoSheets(std::string const& root, std::string const& child,
                                             std::string const& pins) {
    return {{"root.kicad_sch", File(root + Sheet("sub", "sub.kicad_sch", pins))},
            {"sub.kicad_sch", File(child, 20231120, "sub")}};
}

TEST(Buses, AMemberIsTheNetOfThatNameOnTheSheet) {
    auto const result = Read(File(Bus(0, 0, 0, 50) + Local("D[0..3]", 0, 5) + Named("A", "D1", 0) +
                                  Named("B", "D1", 10)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    ASSERT_EQ(result.design.highways.size(), 1u);
    ASSERT_EQ(result.design.highways[0].nets.size(), 1u);
    EXPECT_EQ(result.design.nets[result.design.highways[0].nets[0]].name, "/D1");
}

TEST(Buses, AnUnlabelledWireAtAnEntryIsNotOnTheBus) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Local("D[0..3]", 0, 5) + Entry(0, 10, 2.54, 2.54) +
                  Wire(2.54, 12.54, 20, 12.54) + Pin("A", 20, 12.54) + Pin("B", 2.54, 12.54)));
    ASSERT_TRUE(result.IsGood());
    EXPECT_TRUE(result.design.highways[0].nets.empty());
    EXPECT_TRUE(result.design.sheets[0].taps.empty());
    EXPECT_EQ(result.design.sheets[0].wires.size(), 2u);
}

TEST(Buses, ALabelledWireAtAnEntryIsATap) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Local("D[0..3]", 0, 5) + Entry(0, 10, 2.54, 2.54) +
                  Wire(2.54, 12.54, 20, 12.54) + Local("D2", 10, 12.54) + Pin("A", 20, 12.54)));
    ASSERT_EQ(result.design.sheets[0].taps.size(), 1u);
    auto const& tap = result.design.sheets[0].taps[0];
    EXPECT_EQ(result.design.nets[tap.net].name, "/D2");
    EXPECT_NEAR(tap.busPoint.x, 0, 1e-9);
    EXPECT_NEAR(tap.netPoint.x, 2.54, 1e-9);
    EXPECT_NEAR(tap.netPoint.y, 210 - 12.54, 1e-9);
}

TEST(Buses, LabelsOfSeveralVectorsOnOneBusMatchByPlace) {
    auto const result = Read(File(
        Bus(0, 0, 0, 50) + Local("A[0..2]", 0, 5) + Local("B[5..6]", 0, 10) + Named("P", "A0", 0) +
        Named("Q", "B5", 10) + Named("R", "A1", 20) + Named("S", "B6", 30)));
    EXPECT_TRUE(Joined(result, "P:1", "Q:1"));
    EXPECT_TRUE(Joined(result, "R:1", "S:1"));
    EXPECT_FALSE(Joined(result, "P:1", "R:1"));
}

TEST(Buses, GroupsMatchByNameWithoutThePrefix) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Local("M{X Y}", 0, 5) + Local("N{Y X}", 0, 10) +
                  Named("P", "M.X", 0) + Named("Q", "N.X", 10) + Named("R", "M.Y", 20)));
    EXPECT_TRUE(Joined(result, "P:1", "Q:1"));
    EXPECT_FALSE(Joined(result, "P:1", "R:1"));
    EXPECT_EQ(NetOf(result, "Q:1"), "/M.X");
}

TEST(Buses, ABusThroughASheetPinJoinsItsMembers) {
    auto const result =
        Read(TwoSheets(Bus(100, 110, 50, 110) + Local("MEM[0..3]", 60, 110) + Named("A", "MEM2", 0),
                       Bus(0, 0, 20, 0) + Hierarchical("D[0..3]", 0, 0) + Named("B", "D2", 50),
                       SheetPin("D[0..3]", 100, 110)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "/MEM2");
    EXPECT_EQ(result.design.highways.size(), 1u);
}

TEST(Buses, GroupsThroughASheetPinJoinByName) {
    auto const result =
        Read(TwoSheets(Bus(100, 110, 50, 110) + Local("X{USB}", 60, 110) + Named("A", "X.D+", 0) +
                           Alias("USB", "\"D+\" \"D-\""),
                       Bus(0, 0, 20, 0) + Hierarchical("PHY{USB}", 0, 0) + Named("B", "PHY.D+", 50),
                       SheetPin("PHY{USB}", 100, 110)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Buses, AliasesOfAllSheetsCountEverywhere) {
    auto const result = Read(TwoSheets(
        Bus(0, 0, 0, 50) + Local("{USB}", 0, 5) + Named("A", "DP", 0) + Named("C", "DP", 20),
        Alias("USB", "\"DP\" \"DM\""), ""));
    ASSERT_EQ(result.design.highways.size(), 1u);
    EXPECT_EQ(result.design.highways[0].nets.size(), 1u);
}

TEST(Buses, AliasesOfTheProjectCount) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch",
         File(Bus(0, 0, 0, 50) + Local("{USB}", 0, 5) + Named("A", "DP", 0), 20260306)},
        {"root.kicad_pro", R"({"schematic": {"bus_aliases": {"USB": ["DP", "DM"]}}})"}};
    auto const result = Read(files);
    ASSERT_EQ(result.design.highways.size(), 1u);
    EXPECT_EQ(result.design.highways[0].nets.size(), 1u);
}

TEST(Buses, AnUnlabelledBusTakesTheNameOfItsSheetPin) {
    auto const result =
        Read(TwoSheets(Bus(100, 110, 50, 110) + Named("A", "D2", 0),
                       Bus(0, 0, 20, 0) + Hierarchical("D[0..3]", 0, 0) + Named("B", "D2", 50),
                       SheetPin("D[0..3]", 100, 110)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Buses, AnUnlabelledBusLeavesANameThatAnotherBusHas) {
    for (char const* other : {"D[0..3]", "D[0..7]"}) {
        auto const result = Read(TwoSheets(
            Bus(100, 110, 50, 110) + Named("A", "D2", 0) + Bus(0, 0, 0, 50) + Local(other, 0, 5),
            Bus(0, 0, 20, 0) + Hierarchical("D[0..3]", 0, 0) + Named("B", "D2", 50),
            SheetPin("D[0..3]", 100, 110)));
        EXPECT_FALSE(Joined(result, "A:1", "B:1")) << other;
    }
}

TEST(Buses, BusesJoinAtEndsAndDots) {
    std::string const tee = Bus(0, 0, 40, 0) + Bus(20, 0, 20, 30) + Local("A[0..1]", 0, 0) +
                            Local("B[0..1]", 20, 30) + Named("P", "A0", 50) + Named("Q", "B0", 60);
    EXPECT_FALSE(Joined(Read(File(tee)), "P:1", "Q:1"));
    EXPECT_TRUE(Joined(Read(File(tee + Junction(20, 0))), "P:1", "Q:1"));
}

TEST(Buses, TwoSheetsOnOneUnlabelledBusAreJoined) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch", File(Bus(100, 110, 150, 110) +
                                Sheet("one", "sub.kicad_sch", SheetPin("D[0..3]", 100, 110)) +
                                Sheet("two", "other.kicad_sch", SheetPin("E[4..7]", 150, 110)))},
        {"sub.kicad_sch",
         File(Hierarchical("D[0..3]", 0, 0) + Named("A", "D1", 50), 20231120, "s")},
        {"other.kicad_sch",
         File(Hierarchical("E[4..7]", 0, 0) + Named("B", "E5", 50), 20231120, "o")}};
    EXPECT_TRUE(Joined(Read(files), "A:1", "B:1"));
}

TEST(Buses, TooManyMembersAreAnError) {
    auto const result = Read(File(Bus(0, 0, 0, 50) + Local("D[0..4000000000]", 0, 5)));
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->sentence, "The buses have too many members");
}

}  // namespace
