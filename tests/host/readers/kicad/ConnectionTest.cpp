#include <gtest/gtest.h>

#include "SheetText.h"

namespace {

using namespace sheettext;

TEST(Connections, WiresJoinAtTheirEnds) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) + Wire(10, 0, 10, 5) + Pin("B", 10, 5)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, PinsThatTouchAreJoined) {
    EXPECT_TRUE(Joined(Read(File(Pin("A", 5, 5) + Pin("B", 5, 5))), "A:1", "B:1"));
}

TEST(Connections, AWireEndOnAnotherWireNeedsADot) {
    std::string const tee =
        Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Wire(10, 0, 10, 5) + Pin("B", 10, 5);
    EXPECT_FALSE(Joined(Read(File(tee)), "A:1", "B:1"));
    EXPECT_TRUE(Joined(Read(File(tee + Junction(10, 0))), "A:1", "B:1"));
}

TEST(Connections, CrossingWiresNeedADot) {
    std::string const cross =
        Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Wire(10, -5, 10, 5) + Pin("B", 10, 5);
    EXPECT_FALSE(Joined(Read(File(cross)), "A:1", "B:1"));
    EXPECT_TRUE(Joined(Read(File(cross + Junction(10, 0))), "A:1", "B:1"));
}

TEST(Connections, OverlappingWiresDoNotJoin) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) + Wire(5, 0, 15, 0) + Pin("B", 15, 0)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, APinOnAWireNeedsADot) {
    std::string const drawing = Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Pin("B", 10, 0);
    EXPECT_FALSE(Joined(Read(File(drawing)), "A:1", "B:1"));
    EXPECT_TRUE(Joined(Read(File(drawing + Junction(10, 0))), "A:1", "B:1"));
}

TEST(Connections, ADotJoinsSlantingWires) {
    auto const result = Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 10) + Wire(0, 10, 10, 0) +
                                  Pin("B", 0, 10) + Junction(5, 5)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, ADotBesideAWireJoinsNothing) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) + Pin("B", 5, 0.0001) + Junction(5, 0.0001)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, ALabelOnAWireConnects) {
    auto const result = Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Local("N", 10, 0) +
                                  Pin("B", 0, 50) + Local("N", 0, 50)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "/N");
}

TEST(Connections, ALabelWhereWiresCrossJoinsThem) {
    std::string const cross = Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Wire(10, -5, 10, 5) +
                              Pin("B", 10, 5) + Local("N", 10, 0);
    auto const result = Read(File(cross));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(Warnings(result, "label-joins-wires"), 0u);
    auto const older = Read(File(cross, 20230121));
    EXPECT_TRUE(Joined(older, "A:1", "B:1"));
    EXPECT_EQ(Warnings(older, "label-joins-wires"), 1u);
}

TEST(Connections, ALabelWithAPinOnOneWireJoinsThePinAlone) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Pin("B", 10, 0) + Local("N", 10, 0)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "B:1"), "/N");
}

TEST(Connections, TwoLabelsAtOnePointOfAWireJoinEachOtherAlone) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Local("N", 10, 0) + Local("M", 10, 0) +
                  Pin("B", 0, 50) + Local("N", 0, 50) + Pin("C", 0, 60) + Local("M", 0, 60)));
    EXPECT_TRUE(Joined(result, "B:1", "C:1"));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, ANoConnectMarkDrawsALabelAwayFromAPassingWire) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Local("N", 10, 0) + NoConnect(10, 0)));
    EXPECT_EQ(NetOf(result, "A:1"), "unconnected-(A-Pad1)");
}

TEST(Connections, AFlagJoinsWiresAsALabelDoes) {
    auto const result = Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Wire(10, -5, 10, 5) +
                                  Pin("B", 10, 5) + Flag(10, 0)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, AFlagDrawsALabelAwayFromAPassingWire) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 20, 0) + Local("N", 10, 0) + Flag(10, 0)));
    EXPECT_NE(NetOf(result, "A:1"), "/N");
}

TEST(Connections, APinOfTypeNoConnectNeverConnects) {
    auto const result = Read(File(Symbol("T:lonely", "U1", "x", 0, 0) + Wire(0, 0, 10, 0) +
                                  Pin("B", 10, 0) + Pin("C", 0, 0)));
    EXPECT_FALSE(Joined(result, "U1:1", "B:1"));
    EXPECT_TRUE(Joined(result, "C:1", "B:1"));
    EXPECT_EQ(NetOf(result, "U1:1"), "unconnected-(U1-NC-Pad1)");
}

TEST(Connections, ANoConnectMarkChangesTheNameAlone) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) + Pin("B", 10, 0) + NoConnect(0, 0)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "unconnected-(A-Pad1)");
}

TEST(Connections, WiresAndBusesNeverJoin) {
    auto const result =
        Read(File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) + Bus(10, 0, 20, 0) + Wire(20, 0, 30, 0) +
                  Pin("B", 30, 0) + Junction(10, 0) + Junction(20, 0)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, AnEntryJoinsTheWireAtItsWireEnd) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Entry(0, 10, 2.54, 2.54) + Wire(2.54, 12.54, 20, 12.54) +
                  Pin("A", 20, 12.54) + Pin("B", 2.54, 12.54)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, EntriesDoNotJoinEachOther) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Entry(0, 10, 2.54, 2.54) + Entry(0, 15.08, 2.54, -2.54) +
                  Bus(5.08, 0, 5.08, 50) + Entry(2.54, 12.54, 2.54, 2.54)));
    EXPECT_TRUE(result.IsGood());
    EXPECT_TRUE(result.design.nets.empty());
}

TEST(Connections, AnEntryJoinsNothingOnTheBus) {
    auto const result =
        Read(File(Bus(0, 0, 0, 50) + Entry(0, 10, 2.54, 2.54) + Wire(2.54, 12.54, 20, 12.54) +
                  Pin("A", 20, 12.54) + Wire(0, 10, -10, 10) + Pin("B", -10, 10)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Connections, RotationComesBeforeMirroring) {
    // Pin 2 stands at (10, 5) with y up.
    struct Case {
        int angle;
        char const* mirror;
        double x, y;
    };
    for (Case const& c :
         {Case{0, "", 10, -5}, Case{90, "", -5, -10}, Case{180, "", -10, 5}, Case{270, "", 5, 10},
          Case{0, "(mirror x)", 10, 5}, Case{0, "(mirror y)", -10, -5},
          Case{90, "(mirror x)", -5, 10}, Case{90, "(mirror y)", 5, -10}}) {
        auto const result = Read(File(Symbol("T:two", "U1", "x", 100, 100, c.angle, c.mirror) +
                                      Pin("P", 100 + c.x, 100 + c.y)));
        EXPECT_TRUE(Joined(result, "U1:2", "P:1")) << c.angle << c.mirror;
    }
}

TEST(Connections, JumperGroupsJoinPins) {
    std::string text =
        File(Symbol("T:jumper", "J1", "x", 0, 0) + Symbol("T:double", "J2", "x", 50, 0), 20260306);
    std::string const pins =
        " (pin passive line (at 0 0 0) (length 0) (name \"~\") (number \"1\"))"
        " (pin passive line (at 10 0 0) (length 0) (name \"~\") (number \"2\"))";
    std::string const library =
        "(symbol \"T:jumper\" (jumper_pin_groups (\"1\" \"2\")) (symbol \"jumper_1_1\"" + pins +
        "))(symbol \"T:double\" (duplicate_pin_numbers_are_jumpers yes) (symbol \"double_1_1\""
        " (pin passive line (at 0 0 0) (length 0) (name \"~\") (number \"5\"))"
        " (pin passive line (at 10 0 0) (length 0) (name \"~\") (number \"5\"))))";
    text.insert(text.find("(lib_symbols ") + 13, library);
    auto const result = Read(text);
    EXPECT_TRUE(Joined(result, "J1:1", "J1:2"));
    EXPECT_EQ(PinSets(result.design).size(), 2u);
}

TEST(Connections, StackedNumbersAreSeveralPinsFromVersion10) {
    std::string const pin =
        "(pin passive line (at 0 0 0) (length 0) (name \"~\") (number \"[1,3-4]\"))";
    for (int const version : {20250114, 20260306}) {
        std::string text = File(Symbol("T:stack", "U1", "x", 0, 0), version);
        text.insert(text.find("(lib_symbols ") + 13,
                    "(symbol \"T:stack\" (symbol \"stack_1_1\" " + pin + "))");
        auto const sets = PinSets(Read(text).design);
        std::set<std::string> const many{"U1:1", "U1:3", "U1:4"};
        std::set<std::string> const one{"U1:[1,3-4]"};
        EXPECT_EQ(sets, (std::set<std::set<std::string>>{version > 20250114 ? many : one}));
    }
}

}  // namespace
