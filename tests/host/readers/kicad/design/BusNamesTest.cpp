#include <gtest/gtest.h>

#include <readers/kicad/design/BusNames.h>
#include <readers/kicad/design/Symbols.h>
#include <readers/kicad/design/Texts.h>

namespace {

using namespace fighost::kicad;

std::vector<std::string> Members(std::string const& text, BusAliases const& aliases = {}) {
    bool exceeded = false;
    std::vector<std::string> names;
    for (BusMember const& member : ParseBusName(text, aliases, 100, exceeded).members) {
        names.push_back(member.name);
    }
    EXPECT_FALSE(exceeded);
    return names;
}

using Names = std::vector<std::string>;

TEST(BusNames, AVectorRunsUpwardInEitherDirection) {
    EXPECT_EQ(Members("D[0..2]"), (Names{"D0", "D1", "D2"}));
    EXPECT_EQ(Members("TRIM_[4..3]"), (Names{"TRIM_3", "TRIM_4"}));
}

TEST(BusNames, AGroupHoldsNetsAndVectors) {
    EXPECT_EQ(Members("{SDA,SCL}"), (Names{"SDA", "SCL"}));
    EXPECT_EQ(Members("{A B[0..1], C}"), (Names{"A", "B0", "B1", "C"}));
}

TEST(BusNames, AGroupsPrefixGoesBeforeItsMembersWithADot) {
    EXPECT_EQ(Members("MEM{A D[0..1]}"), (Names{"MEM.A", "MEM.D0", "MEM.D1"}));
}

TEST(BusNames, AliasesStandForTheirMembers) {
    BusAliases const aliases{{"USB", {"D+", "D-"}}, {"ALL", {"USB", "A[1..2]"}}};
    EXPECT_EQ(Members("P{USB}", aliases), (Names{"P.D+", "P.D-"}));
    EXPECT_EQ(Members("{ALL X}", aliases), (Names{"D+", "D-", "A1", "A2", "X"}));
}

TEST(BusNames, AnAliasOfItselfEnds) {
    BusAliases const aliases{{"A", {"A", "B"}}, {"B", {"A", "C"}}};
    EXPECT_FALSE(Members("{A}", aliases).empty());
}

TEST(BusNames, MarkupIsPartOfTheName) {
    EXPECT_FALSE(IsBusName("~{RESET}"));
    EXPECT_FALSE(IsBusName("V_{CC}"));
    EXPECT_EQ(Members("~{CS[0..1]}"), (Names{"~{CS0}", "~{CS1}"}));
    EXPECT_EQ(Members("I2C_{SYS}{SDA ~{IRQ}}"), (Names{"I2C_{SYS}.SDA", "I2C_{SYS}.~{IRQ}"}));
}

TEST(BusNames, EscapesAreNoGroups) {
    EXPECT_FALSE(IsBusName("A{slash}B"));
    EXPECT_EQ(Members("{A{slash}B C}"), (Names{"A/B", "C"}));
}

TEST(BusNames, PlainTextsAreNoBuses) {
    for (char const* text : {"A", "A[3]", "A[x..2]", "A B[0..1]", "[0..1]", "A{B", "A{B}C", ""}) {
        EXPECT_FALSE(IsBusName(text)) << text;
        EXPECT_TRUE(Members(text).empty()) << text;
    }
}

TEST(BusNames, MembersEndAtTheLimit) {
    bool exceeded = false;
    auto const name = ParseBusName("A[0..4000000000]", {}, 50, exceeded);
    EXPECT_TRUE(exceeded);
    EXPECT_EQ(name.members.size(), 50u);
}

TEST(PinNumbers, StackedNotationIsManyPins) {
    EXPECT_EQ(ExpandPinNumbers("[1,3-5]"), (Names{"1", "3", "4", "5"}));
    EXPECT_EQ(ExpandPinNumbers("[A1-A3, B7]"), (Names{"A1", "A2", "A3", "B7"}));
    EXPECT_EQ(ExpandPinNumbers("12"), (Names{"12"}));
    EXPECT_EQ(ExpandPinNumbers("[1,]"), (Names{"[1,]"}));
    EXPECT_EQ(ExpandPinNumbers("[5-1]"), (Names{"[5-1]"}));
    EXPECT_EQ(ExpandPinNumbers("[0-4000000000]"), (Names{"[0-4000000000]"}));
}

TEST(Texts, EscapesBecomeCharactersAndMarkupStays) {
    EXPECT_EQ(Unescape("A{slash}B{space}C"), "A/B C");
    EXPECT_EQ(Unescape("~{slash}{other}"), "~{slash}{other}");
    EXPECT_EQ(WithoutMarkup("~{RST}_{a}^{b}{c}"), "RSTab{c}");
}

TEST(Texts, VariablesAreWorkedOutAlsoInValues) {
    auto const lookup = [](std::string_view name) -> std::optional<std::string> {
        if (name == "A") return "<${B}>";
        if (name == "B") return "b";
        return std::nullopt;
    };
    EXPECT_EQ(ExpandVariables("x${A}${NONE}", lookup), "x<b>${NONE}");
}

TEST(Texts, VariablesThatNameThemselvesEnd) {
    auto const lookup = [](std::string_view) -> std::optional<std::string> {
        return "${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}${A}";
    };
    EXPECT_LT(ExpandVariables("${A}", lookup).size(), std::size_t(8) << 20);
}

}  // namespace
