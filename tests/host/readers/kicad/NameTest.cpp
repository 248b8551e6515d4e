#include <gtest/gtest.h>

#include "SheetText.h"

namespace {

using namespace sheettext;

TEST(Names, EqualLabelsOfAllKindsAreOneNetOnASheet) {
    auto const result = Read(File(Pin("A", 0, 0) + Local("N", 0, 0) + Pin("B", 0, 10) +
                                  Hierarchical("N", 0, 10) + Pin("C", 0, 20) + Global("N", 0, 20)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_TRUE(Joined(result, "A:1", "C:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "N");
}

TEST(Names, EscapesAndVariablesAreWorkedOutFirst) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch", File(Pin("A", 0, 0) + Local("A{slash}B", 0, 0) + Pin("B", 0, 10) +
                                Local("A/B", 0, 10) + Pin("C", 0, 20) + Local("${SIGNAL}", 0, 20))},
        {"root.kicad_pro", R"({"text_variables": {"SIGNAL": "A/B"}})"}};
    auto const result = Read(files);
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_TRUE(Joined(result, "A:1", "C:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "/A/B");
}

std::map<std::string, std::string> TwoSheets(std::string const& root, std::string const& child,
                                             std::string const& pins = "") {
    return {{"root.kicad_sch", File(root + Sheet("sub", "sub.kicad_sch", pins))},
            {"sub.kicad_sch", File(child, 20231120, "sub")}};
}

TEST(Names, LocalLabelsEndAtTheirSheet) {
    auto const result =
        Read(TwoSheets(Pin("A", 0, 0) + Local("N", 0, 0), Pin("B", 0, 0) + Local("N", 0, 0)));
    EXPECT_EQ(NetOf(result, "A:1"), "/N");
    EXPECT_EQ(NetOf(result, "B:1"), "/sub/N");
}

TEST(Names, GlobalLabelsAndPowerJoinOverTheDesign) {
    auto const result = Read(
        TwoSheets(Pin("A", 0, 0) + Global("G", 0, 0) + Pin("C", 0, 10) + Power("VCC", 0, 10),
                  Pin("B", 0, 0) + Global("G", 0, 0) + Pin("D", 0, 10) + Global("VCC", 0, 10)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_TRUE(Joined(result, "C:1", "D:1"));
    EXPECT_EQ(NetOf(result, "C:1"), "VCC");
}

TEST(Names, AHiddenPowerPinOfAPartIsGlobalByItsPinName) {
    auto const result = Read(
        TwoSheets(Symbol("T:hidden", "U1", "x", 0, 0),
                  Symbol("T:hidden", "U2", "x", 0, 0) + Pin("B", 0, 10) + Local("VHID", 0, 10)));
    EXPECT_TRUE(Joined(result, "U1:1", "U2:1"));
    EXPECT_TRUE(Joined(result, "U1:1", "B:1"));
    EXPECT_EQ(NetOf(result, "U1:1"), "VHID");
}

TEST(Names, AVisiblePowerPinOfAPartNamesNothing) {
    auto const result =
        Read(File(Symbol("T:visible", "U1", "x", 0, 0) + Symbol("T:visible", "U2", "x", 0, 10)));
    EXPECT_FALSE(Joined(result, "U1:1", "U2:1"));
}

TEST(Names, APowerFlagNamesNothing) {
    auto const result = Read(File(Symbol("T:powerflag", "#FLG1", "PWR_FLAG", 0, 0) +
                                  Pin("A", 0, 0) + Pin("B", 0, 10) + Local("PWR_FLAG", 0, 10)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "Net-(A-Pad1)");
}

TEST(Names, InOlderRootFilesTheHiddenPinNamesThePowerNet) {
    std::string const drawing = Pin("A", 0, 0) + Power("VCC", 0, 0);
    EXPECT_EQ(NetOf(Read(File(drawing, 20211123)), "A:1"), "PWR");
    EXPECT_EQ(NetOf(Read(File(drawing, 20230221)), "A:1"), "VCC");
}

TEST(Names, LocalPowerJoinsOnItsSheetAlone) {
    std::string const drawing = Symbol("T:localpower", "#PWR1", "VLOC", 0, 0);
    auto const result =
        Read(TwoSheets(drawing + Pin("A", 0, 0) + Pin("C", 0, 10) + Local("VLOC", 0, 10),
                       drawing + Pin("B", 0, 0)));
    EXPECT_TRUE(Joined(result, "A:1", "C:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "/VLOC");
    EXPECT_EQ(NetOf(result, "B:1"), "/sub/VLOC");
}

TEST(Names, ASheetPinLeadsToTheLabelInside) {
    auto const result = Read(TwoSheets(
        Pin("A", 100, 110), Pin("B", 0, 0) + Hierarchical("IO", 0, 0), SheetPin("IO", 100, 110)));
    EXPECT_TRUE(Joined(result, "A:1", "B:1"));
    EXPECT_EQ(NetOf(result, "A:1"), "/sub/IO");
}

TEST(Names, ASheetPinIsNotInTheNameSpaceOfItsSheet) {
    auto const result =
        Read(TwoSheets(Pin("A", 0, 0) + Local("IO", 0, 0),
                       Pin("B", 0, 0) + Hierarchical("IO", 0, 0), SheetPin("IO", 100, 110)));
    EXPECT_FALSE(Joined(result, "A:1", "B:1"));
}

TEST(Names, ASheetPinWithoutLabelInsideIsCounted) {
    auto const result =
        Read(TwoSheets("", Pin("B", 0, 0) + Local("IO", 0, 0), SheetPin("IO", 100, 110)));
    EXPECT_EQ(Warnings(result, "sheet-pin-without-label"), 1u);
}

TEST(Names, AHierarchicalLabelWithoutSheetPinIsCounted) {
    auto const result = Read(TwoSheets("", Hierarchical("IO", 0, 0)));
    EXPECT_EQ(Warnings(result, "label-without-sheet-pin"), 1u);
    EXPECT_EQ(Warnings(Read(File(Hierarchical("IO", 0, 0))), "label-without-sheet-pin"), 0u);
}

TEST(Names, ASheetUsedTwiceHasItsOwnNetsInEachPlace) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch", File(Sheet("one", "sub.kicad_sch") + Sheet("two", "sub.kicad_sch"))},
        {"sub.kicad_sch", File(Pin("A", 0, 0) + Local("N", 0, 0), 20231120, "sub")}};
    auto const result = Read(files);
    ASSERT_EQ(result.design.nets.size(), 2u);
    EXPECT_EQ(result.design.nets[0].name, "/one/N");
    EXPECT_EQ(result.design.nets[1].name, "/two/N");
    EXPECT_NE(result.design.sheets[1].id, result.design.sheets[2].id);
}

TEST(NetNames, TheStrongestNameWins) {
    std::string const wire = Pin("A", 0, 0) + Wire(0, 0, 50, 0);
    std::string drawing = wire;
    EXPECT_EQ(NetOf(Read(File(drawing + Pin("B", 50, 0))), "A:1"), "Net-(A-Pad1)");
    drawing += Hierarchical("H", 10, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "/H");
    drawing += Local("L", 20, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "/L");
    drawing += Symbol("T:localpower", "#PWR1", "P", 0, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "/P");
    drawing += Local("M[0..3]", 90, 90) + Local("M2", 30, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "/M2");
    drawing += Power("PP", 50, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "PP");
    drawing += Global("ZZ", 40, 0);
    EXPECT_EQ(NetOf(Read(File(drawing)), "A:1"), "ZZ");
}

TEST(NetNames, InAClassTheShallowestSheetWinsThenTheAlphabet) {
    auto const result = Read(TwoSheets(
        Wire(100, 110, 50, 110) + Local("ZR", 60, 110),
        Wire(0, 0, 20, 0) + Pin("B", 0, 0) + Hierarchical("IO", 20, 0) + Local("AC", 10, 0),
        SheetPin("IO", 100, 110)));
    EXPECT_EQ(NetOf(result, "B:1"), "/ZR");
    auto const flat =
        Read(File(Wire(0, 0, 20, 0) + Pin("B", 0, 0) + Local("Y", 10, 0) + Local("X", 20, 0)));
    EXPECT_EQ(NetOf(flat, "B:1"), "/X");
}

TEST(NetNames, AnOutputAmongSheetPinsComesFirst) {
    std::map<std::string, std::string> const files{
        {"root.kicad_sch",
         File(Pin("A", 0, 0) + Wire(0, 0, 10, 0) +
              Sheet("s", "gone.kicad_sch",
                    SheetPin("AAA", 0, 0, "input") + SheetPin("BBB", 10, 0, "output")))}};
    EXPECT_EQ(NetOf(Read(files), "A:1"), "/BBB");
}

TEST(NetNames, PinsNameNetsByReferenceUnitAndPinName) {
    std::string const two = Symbol("T:two", "U1", "x", 0, 0) + Symbol("T:two", "U2", "x", 50, 0);
    auto const result = Read(File(two + Wire(0, 0, 50, 0)));
    EXPECT_EQ(NetOf(result, "U1:1"), "Net-(U1-IN)");
    EXPECT_EQ(NetOf(result, "U1:2"), "unconnected-(U1-OUT-Pad2)");
    auto const units = Read(File(Symbol("T:units", "U1", "x", 0, 0, 0, "(unit 2)")));
    EXPECT_EQ(NetOf(units, "U1:2"), "unconnected-(U1B-B-Pad2)");
    EXPECT_EQ(NetOf(Read(File(two + Wire(0, 0, 50, 0), 20211123)), "U1:1"), "Net-(U1-Pad1)");
}

TEST(NetNames, PinsOfOneNameAddTheirNumbers) {
    std::string text =
        File(Symbol("T:same", "U1", "x", 0, 0) + Wire(0, 0, 50, 0) + Pin("Z", 50, 0));
    text.insert(text.find("(lib_symbols ") + 13,
                "(symbol \"T:same\" (symbol \"same_1_1\""
                " (pin input line (at 0 0 0) (length 0) (name \"GND\") (number \"1\"))"
                " (pin input line (at 0 9 0) (length 0) (name \"GND\") (number \"2\"))))");
    EXPECT_EQ(NetOf(Read(text), "U1:1"), "Net-(U1-GND-Pad1)");
}

TEST(NetNames, AreUnique) {
    auto const result = Read(File(Pin("R?", 0, 0) + Pin("R?", 0, 10)));
    ASSERT_EQ(result.design.nets.size(), 2u);
    EXPECT_NE(result.design.nets[0].name, result.design.nets[1].name);
}

TEST(NetNames, AlternatesChangeTheTypeOfThePin) {
    std::string const library =
        "(symbol \"T:alt\" (symbol \"alt_1_1\" (pin bidirectional line (at 0 0 0) (length 0)"
        " (name \"PA1\") (number \"1\") (alternate \"OFF\" no_connect line))))";
    for (bool const chosen : {false, true}) {
        std::string const pin = chosen ? "(pin \"1\" (uuid x) (alternate \"OFF\"))" : "";
        std::string text =
            File(Symbol("T:alt", "U1", "x", 0, 0, 0, pin) + Wire(0, 0, 10, 0) + Pin("B", 10, 0));
        text.insert(text.find("(lib_symbols ") + 13, library);
        EXPECT_EQ(Joined(Read(text), "U1:1", "B:1"), !chosen);
    }
}

}  // namespace
