#include <session/edits/ShowHide.h>

#include <figk/AbstractDelta.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/BaseGraphic.h>
#include <figrep/Figure.h>
#include <host/session/ExampleSession.h>
#include <session/items/ForEachItem.h>
#include <session/items/Graphics.h>
#include <session/query/FindItems.h>
#include <support/FigureDump.h>

#include <set>
#include <string>
#include <vector>

namespace fighost {
namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;

// What is seen of a sheet besides its frame: for each painted graphic the item that it belongs to.
std::set<std::string> Seen(SessionSheet const& sheet) {
    std::set<std::string> seen;
    ForEachItem(sheet.figure, [&](SmartPtr<AbstractFigureItem> const& item) {
        auto const graphic = du::DynamicCast<figrep::BaseGraphic>(item);
        if (!graphic || !IsShown(*graphic)) return;
        SmartPtr<AbstractFigureItem> owner = OwnerOf(*graphic);
        if (!owner) owner = item;
        auto const type = owner->GetType();
        bool const isFrame =
            type == AbstractFigureItem::ITEM_FORMAT || type == AbstractFigureItem::ITEM_TITLE_BLOCK;
        if (!isFrame) seen.insert(owner->GetTypeName() + " " + owner->GetName());
    });
    return seen;
}

std::vector<std::string> DumpAll(Session const& session) {
    std::vector<std::string> dump;
    for (SessionSheet const& sheet : session.GetSheets()) {
        auto const lines = figrep::test::DumpOf(sheet.figure);
        dump.insert(dump.end(), lines.begin(), lines.end());
    }
    return dump;
}

SessionSheet const& Sheet(Session const& session, std::string const& path) {
    return *session.FindSheets(path).at(0);
}

TEST(ShowHide, AHiddenPartIsGoneWithItsPinsAndTexts) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    SessionSheet const& sheet = Sheet(*session, "/Controller/");
    ASSERT_EQ(Seen(sheet).count("BlockInstance U2"), 1u);
    EXPECT_FALSE(ShowOnly(*session, {{}, {"U2"}}));
    EXPECT_EQ(Seen(sheet).count("BlockInstance U2"), 0u);
    EXPECT_EQ(Seen(sheet).count("NetSegment UART_TX"), 1u);
}

TEST(ShowHide, AnIsolatedNetIsAllThatIsSeenOnAnySheet) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    EXPECT_FALSE(ShowOnly(*session, {{"/SDA"}, {}}));
    for (SessionSheet const& sheet : session->GetSheets()) {
        for (std::string const& item : Seen(sheet))
            EXPECT_EQ(item, "NetSegment /SDA") << sheet.path;
    }
    EXPECT_EQ(Seen(Sheet(*session, "/")).size(), 1u);
    EXPECT_EQ(Seen(Sheet(*session, "/Power/")).size(), 0u);
}

TEST(ShowHide, HidingTakesAwayFromWhatIsIsolated) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    EXPECT_FALSE(ShowOnly(*session, {{"U2", "UART_TX"}, {"UART_TX"}}));
    std::set<std::string> const seen = Seen(Sheet(*session, "/Controller/"));
    EXPECT_EQ(seen.count("BlockInstance U2"), 1u);
    EXPECT_EQ(seen.count("NetSegment UART_TX"), 0u);
    EXPECT_EQ(seen.count("PortNode UART_TX"), 0u);
}

TEST(ShowHide, AnUnknownNameChangesNothing) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    auto const before = DumpAll(*session);
    for (VisibilityWish const& wish :
         {VisibilityWish{{"U2", "U2000"}, {}}, VisibilityWish{{"U2"}, {"U2000"}}}) {
        auto const complaint = ShowOnly(*session, wish);
        ASSERT_TRUE(complaint);
        EXPECT_NE(complaint->find("U2000"), std::string::npos);
    }
    EXPECT_EQ(DumpAll(*session), before);
    EXPECT_FALSE(session->GetHistory().CanUndo());
}

TEST(ShowHide, ShowingWhatIsShownAnywayIsNoFailure) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    EXPECT_FALSE(ShowOnly(*session, {{"U2"}, {}}));
    for (SessionSheet const& sheet : session->GetSheets())
        EXPECT_FALSE(sheet.figure->HasDeltaFailures()) << sheet.path;
}

TEST(ShowHide, UndoBringsEverythingBackAndRedoTakesItAwayAgain) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    History& history = session->GetHistory();
    auto const before = DumpAll(*session);
    ASSERT_FALSE(ShowOnly(*session, {{"U2", "/SDA"}, {"/SDA"}}));
    auto const after = DumpAll(*session);
    EXPECT_NE(after, before);
    EXPECT_EQ(history.GetUndoNames(), (std::vector<std::string>{"Hide", "Isolate"}));
    while (history.Undo()) {
    }
    EXPECT_EQ(DumpAll(*session), before);
    for (SessionSheet const& sheet : session->GetSheets())
        EXPECT_EQ(sheet.figure->GetDeltas().size(), 1u) << "the sheet's own";
    while (history.Redo()) {
    }
    EXPECT_EQ(DumpAll(*session), after);
}

}  // namespace
}  // namespace fighost
