#include <session/query/Find.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <host/session/ExampleSession.h>
#include <session/edits/ShowHide.h>
#include <session/query/FindItems.h>

#include <set>
#include <string>
#include <vector>

namespace fighost {
namespace {

using test::OpenExample;

class FindTest : public testing::Test {
protected:
    static void SetUpTestSuite() { session = OpenExample(); }
    static void TearDownTestSuite() { session.reset(); }
    void SetUp() override { ASSERT_TRUE(session); }

    static std::vector<Match> Find(std::string const& text, FindOptions const& options = {}) {
        return FindMatches(*session, text, options);
    }

    static std::vector<Match> FindKind(Match::Kind kind, std::string const& text,
                                       FindOptions const& options = {}) {
        std::vector<Match> matches = Find(text, options);
        std::erase_if(matches, [&](Match const& match) { return match.kind != kind; });
        return matches;
    }

    static std::unique_ptr<Session> session;
};

std::unique_ptr<Session> FindTest::session;

TEST_F(FindTest, TellsWhereATextStands) {
    std::vector<Match> const matches = Find("Two sensor heads");
    ASSERT_EQ(matches.size(), 1u);
    EXPECT_EQ(matches[0].kind, Match::TEXT);
    EXPECT_EQ(matches[0].type, "TextGraphic");
    EXPECT_EQ(matches[0].place.sheet, "/");
    EXPECT_EQ(matches[0].place.GetCell(), "A1");
    EXPECT_EQ(matches[0].of, "");
    EXPECT_FALSE(matches[0].id.empty());
}

TEST_F(FindTest, APartIsFoundWithTheTextThatShowsIt) {
    std::vector<Match> const items = FindKind(Match::ITEM, "U2");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].type, "BlockInstance");
    EXPECT_EQ(items[0].text, "U2");
    std::vector<Match> const texts = FindKind(Match::TEXT, "U2");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].of, "U2");
}

TEST_F(FindTest, ATextOfAPinNamesThePin) {
    bool any = false;
    for (Match const& match : FindKind(Match::TEXT, "27"))
        any |= match.of == "U2:27" && match.text == "27";
    EXPECT_TRUE(any);
}

TEST_F(FindTest, ANetIsFoundOnEverySheetThatShowsIt) {
    std::set<std::string> sheets;
    for (Match const& match : FindKind(Match::NET, "UART_TX")) {
        sheets.insert(match.place.sheet);
        EXPECT_EQ(match.type, "SubNet");
        EXPECT_NE(match.place.GetCell(), "");
    }
    EXPECT_EQ(sheets, (std::set<std::string>{"/Controller/", "/Display/"}));
}

TEST_F(FindTest, AHighwayIsANetToo) {
    bool any = false;
    for (Match const& match : FindKind(Match::NET, "LCD[0..7]"))
        any |= match.type == "SubHighway";
    EXPECT_TRUE(any);
}

TEST_F(FindTest, CaseCountsUnlessToldOtherwise) {
    EXPECT_TRUE(Find("weather STATION").empty());
    FindOptions options;
    options.ignoreCase = true;
    EXPECT_EQ(Find("weather STATION", options).size(), Find("Weather station").size());
    EXPECT_FALSE(Find("Weather station").empty());
}

TEST_F(FindTest, LinesOfATextBoxMayBeBrokenAnywhere) {
    EXPECT_EQ(Find("Notes All logic").size(), 1u);
    EXPECT_EQ(Find("Notes\n\nAll\tlogic").size(), 1u);
    EXPECT_EQ(Find("differ by their address").size(), 1u);
}

TEST_F(FindTest, SignsOfMarkupDontCount) {
    EXPECT_EQ(Find("~{UART_TX}").size(), Find("UART_TX").size());
}

TEST_F(FindTest, ASheetNarrowsTheSearch) {
    FindOptions options;
    options.sheets = session->FindSheets("/Display/");
    for (Match const& match : Find("", options))
        EXPECT_EQ(match.place.sheet, "/Display/");
    EXPECT_FALSE(Find("", options).empty());
    EXPECT_TRUE(Find("U2", options).empty());
}

TEST_F(FindTest, AnIdFindsItsItem) {
    std::string const id = FindItems(*session, "U2:27").at(0).item->GetId().GetString();
    std::vector<Match> const matches = Find(id);
    ASSERT_EQ(matches.size(), 1u);
    EXPECT_EQ(matches[0].type, "ConnectorInstance");
    EXPECT_EQ(matches[0].id, id);
    EXPECT_EQ(matches[0].place.sheet, "/Controller/");
    EXPECT_TRUE(Find(id.substr(1)).empty()) << "only whole ids match";
}

TEST_F(FindTest, NothingMatchesWhatIsNowhere) {
    EXPECT_TRUE(Find("no such text").empty());
}

std::size_t CountOf(Session const& session, std::string const& text) {
    return FindMatches(session, text).size();
}

TEST(Find, WhatIsHiddenIsNotFoundUntilItIsShownAgain) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    for (char const* name : {"U2", "/D[0..7]", "/SDA"}) {
        SCOPED_TRACE(name);
        std::size_t const all = CountOf(*session, name);
        ASSERT_GE(all, 1u);
        ASSERT_FALSE(ShowOnly(*session, {{}, {name}}));
        EXPECT_EQ(CountOf(*session, name), 0u);
        ASSERT_TRUE(session->GetHistory().Undo());
        EXPECT_EQ(CountOf(*session, name), all);
    }
}

TEST(Find, TextsThatAreNotPaintedAreNotFound) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    SheetItem const part = FindItems(*session, "U2").at(0);
    part.sheet->figure->SetItemVisibility(part.item, false);
    for (Match const& match : FindMatches(*session, "U2"))
        EXPECT_NE(match.kind, Match::TEXT);
    part.sheet->figure->SetItemVisibility(part.item, true);
    EXPECT_EQ(CountOf(*session, "U2"), 2u);
}

TEST(SheetPlace, CountsFromTheUpperLeftCornerDownward) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    SessionSheet const& sheet = session->GetSheets()[0];
    dg::DPoint2D const point = FigurePoint(sheet, 10, 20);
    SheetPlace const place = PlaceOf(sheet, point);
    EXPECT_DOUBLE_EQ(place.x, 10);
    EXPECT_DOUBLE_EQ(place.y, 20);
    EXPECT_EQ(place.GetCell(), "A1");
    EXPECT_EQ(PlaceOf(sheet, FigurePoint(sheet, -10, 20)).GetCell(), "") << "outside the frame";
}

}  // namespace
}  // namespace fighost
