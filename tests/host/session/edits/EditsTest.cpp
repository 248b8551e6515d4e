#include <session/edits/Edits.h>

#include <gtest/gtest.h>

#include <algorithm>

#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/PortNode.h>
#include <figrep/SubNet.h>
#include <host/Picture.h>
#include <host/cli/RunProgram.h>
#include <host/session/ExampleSession.h>
#include <session/edits/EditScript.h>
#include <session/query/FindItems.h>
#include <session/query/Inventory.h>
#include <support/FigureDump.h>
#include <support/LiveObjects.h>

namespace fighost {
namespace {

using figrep::SmartPtr;
using figrep::test::DumpOf;
using test::OpenExample;
using test::Picture;

using Strings = std::vector<std::string>;

/// Does the steps of a script; what went wrong first, or nothing.
std::string Do(Session& session, std::string const& script) {
    EditScript const steps = ReadEditScript(script, "s");
    if (steps.error) return steps.error->ToString();
    Editor editor(session);
    for (ScriptStep const& step : steps.steps) {
        if (auto const problem = editor.Do(step.edit)) return *problem;
    }
    return {};
}

Strings Pictures(Session const& session) {
    Strings pictures;
    for (SessionSheet const& sheet : session.GetSheets())
        pictures.push_back(Picture(sheet.figure));
    return pictures;
}

Strings Dumps(Session const& session) {
    Strings dumps;
    for (SessionSheet const& sheet : session.GetSheets()) {
        for (std::string const& line : DumpOf(sheet.figure))
            dumps.push_back(line);
    }
    return dumps;
}

std::size_t Recorded(Session const& session) {
    std::size_t count = 0;
    for (SessionSheet const& sheet : session.GetSheets())
        count += sheet.figure->GetDeltas().size() - 1;
    return count;
}

/// The design opened again with what the session saves now.
std::unique_ptr<Session> Reopened(std::unique_ptr<Session>& session) {
    test::TemporaryFolder const folder;
    SessionOptions options;
    options.saved = folder.Path("saved");
    test::WriteFile(options.saved, session->SaveFigures());
    session.reset();
    Session::Opened opened = Session::Open(test::EXAMPLE_FILE, options);
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    if (!opened.session) return {};
    for (SavedReport const& report : opened.session->GetSavedReports())
        EXPECT_EQ(report.delta.outcome, DeltaReport::APPLIED) << report.delta.ToString();
    return std::move(opened.session);
}

figrep::SmartPtr<figrep::AbstractFigureItem> ItemNamed(Session const& session,
                                                       std::string const& name) {
    auto const found = FindItems(session, name);
    return found.empty() ? nullptr : found.front().item;
}

class EditKindTest : public ::testing::TestWithParam<char const*> {};

TEST_P(EditKindTest, IsUndoneAndRedoneWhole) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    Strings const before = Pictures(*session);
    Strings const dump = Dumps(*session);
    ASSERT_EQ(Do(*session, GetParam()), "");
    Strings const after = Pictures(*session);
    EXPECT_TRUE(after != before);
    EXPECT_GT(Recorded(*session), 0u);
    std::size_t const recorded = Recorded(*session);
    History& history = session->GetHistory();
    ASSERT_EQ(history.CountUndo(), 1u);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(history.Undo());
        EXPECT_EQ(Recorded(*session), 0u);
        EXPECT_TRUE(Pictures(*session) == before);
        EXPECT_EQ(Dumps(*session).size(), dump.size());
        ASSERT_TRUE(history.Redo());
        EXPECT_EQ(Recorded(*session), recorded);
        EXPECT_TRUE(Pictures(*session) == after);
    }
}

TEST_P(EditKindTest, SavedAndAppliedAgainItLooksTheSame) {
    auto session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session, GetParam()), "");
    Strings const live = Pictures(*session);
    std::string const bytes = session->SaveFigures();
    auto const again = Reopened(session);
    ASSERT_TRUE(again);
    EXPECT_TRUE(Pictures(*again) == live);
    EXPECT_EQ(again->SaveFigures(), bytes);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EditKindTest,
                         ::testing::Values("hide U1 R3", "hide /SDA", "isolate U2",
                                           "isolate /SDA R1", "move U2 3.5,-7", "move UART_TX 4,0",
                                           "rotate U1 90", "rotate /D3 30@100,100", "scale U1 2",
                                           "mirror U2 x", "mirror R3 y@10,20",
                                           "colour U2 /SDA #c01080", "fill U1 #ffd0d0", "delete U1",
                                           "delete /SDA C4 R5", "background #eef"));

TEST(Edits, OneOperationAndOneChangeOnEachSheetThatHasTheItem) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session, "hide /SDA"), "");
    EXPECT_EQ(session->GetHistory().CountUndo(), 1u);
    EXPECT_EQ(Recorded(*session), 4u);
    ASSERT_EQ(Do(*session, "hide U1 C1\nmove U1 1,0"), "");
    EXPECT_EQ(session->GetHistory().CountUndo(), 3u);
    EXPECT_EQ(Recorded(*session), 6u);
}

TEST(Edits, SequencesWithUndoAndRedoComeBackFromTheFile) {
    auto session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session,
                 "move U1 5,5\nhide R3\nundo\nisolate U2\ncolour U2 #f00\nundo\nundo\nredo\n"
                 "delete /SDA\nundo\nscale U2 1.5\nshow-all\nbackground #fffff0\ndelete C1"),
              "");
    EXPECT_FALSE(session->GetHistory().CanRedo());
    Strings const live = Pictures(*session);
    auto const again = Reopened(session);
    ASSERT_TRUE(again);
    EXPECT_TRUE(Pictures(*again) == live);
}

TEST(Edits, UndoingAllLeavesTheFiguresAsTheyWere) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    Strings const before = Pictures(*session);
    ASSERT_EQ(Do(*session,
                 "hide U1\nisolate U2 R1\nmove R3 1,1\nshow-all\ncolour /SDA #00f\ndelete U2\n"
                 "background #000\nfill U1 #f00\ndelete /D0 /D1 U3"),
              "");
    while (session->GetHistory().Undo()) {
    }
    EXPECT_TRUE(Pictures(*session) == before);
    EXPECT_EQ(Recorded(*session), 0u);
}

TEST(Edits, DeletedItemsComeBackToTheirPlaceInTheWalk) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    Strings const before = Dumps(*session);
    ASSERT_EQ(Do(*session, "delete U1\ndelete C1 J1 /SDA\nundo\nundo"), "");
    EXPECT_TRUE(Dumps(*session) == before);
}

TEST(Edits, ChangesWithinASheetStayThere) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session, "sheet /Display/\nhide GND\nall-sheets\nhide R1"), "");
    EXPECT_EQ(session->FindSheets("/Display/")[0]->figure->GetDeltas().size(), 2u);
    EXPECT_EQ(session->FindSheets("/Power/")[0]->figure->GetDeltas().size(), 1u);
    EXPECT_EQ(session->FindSheets("/")[0]->figure->GetDeltas().size(), 2u);
}

TEST(Edits, IsolatingHidesAllElseOnAllSheets) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session, "isolate U1"), "");
    for (SessionSheet const& sheet : session->GetSheets()) {
        for (auto const& block : sheet.figure->GetBlockInstances())
            EXPECT_EQ(block->IsVisible(), block->GetName() == "U1") << block->GetName();
        for (auto const& subNet : sheet.figure->GetSubNets())
            EXPECT_FALSE(subNet->IsVisible());
    }
}

TEST(Edits, APortMovesOnceWithTheNetOfItsName) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::vector<SmartPtr<figrep::PortNode>> ports;
    std::vector<dg::DPoint2D> places;
    for (SheetItem const& item : FindItems(*session, "UART_TX")) {
        auto const node = du::DynamicCast<figrep::PortNode>(item.item);
        if (!node) continue;
        ports.push_back(node);
        places.push_back(node->GetPosition());
    }
    ASSERT_FALSE(ports.empty());
    ASSERT_EQ(Do(*session, "move UART_TX 4,0"), "");
    for (std::size_t i = 0; i < ports.size(); ++i)
        EXPECT_EQ(ports[i]->GetPosition(), dg::DPoint2D(places[i].x + 4, places[i].y));
}

TEST(Edits, ItemsTurnAboutTheirMiddleUnlessAPointIsNamed) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const block = ItemNamed(*session, "U1");
    auto const centre = block->GetExtents().Centre();
    ASSERT_EQ(Do(*session, "rotate U1 180"), "");
    EXPECT_NEAR(block->GetExtents().Centre().x, centre.x, 1e-9);
    EXPECT_NEAR(block->GetExtents().Centre().y, centre.y, 1e-9);
    ASSERT_EQ(Do(*session, "rotate U1 180@0,0"), "");
    EXPECT_NEAR(block->GetExtents().Centre().x, -centre.x, 1e-9);
    EXPECT_NEAR(block->GetExtents().Centre().y, -centre.y, 1e-9);
}

TEST(Edits, ShowingAllWhereAllIsShownLeavesNothingToSave) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::string const before = session->SaveFigures();
    for (char const* script : {"show-all", "undo\nredo"}) {
        ASSERT_EQ(Do(*session, script), "");
        EXPECT_EQ(session->GetHistory().CountUndo(), 1u);
        EXPECT_EQ(session->SaveFigures(), before);
        for (SessionSheet const& sheet : session->GetSheets())
            EXPECT_FALSE(sheet.figure->HasDeltaFailures()) << script;
    }
}

// Refusals.

void ExpectRefused(std::string const& script, std::string const& part) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    Strings const before = Pictures(*session);
    std::string const problem = Do(*session, script);
    EXPECT_NE(problem.find(part), std::string::npos) << script << ": " << problem;
    EXPECT_TRUE(Pictures(*session) == before) << script;
    EXPECT_EQ(Recorded(*session), 0u) << script;
    EXPECT_FALSE(session->GetHistory().CanUndo());
}

TEST(Edits, NamesThatMeanNothingAreRefused) {
    ExpectRefused("hide U1 NOSUCH", "'NOSUCH'");
    ExpectRefused("hide \"\"", "''");
    ExpectRefused("sheet NOSUCH", "no sheet is called 'NOSUCH'");
    ExpectRefused("sheet /Display/\nhide U1", "'U1'");
    ExpectRefused("undo", "nothing to undo");
    ExpectRefused("redo", "nothing to redo");
}

TEST(Edits, WhatCanNotBeDeletedByItselfIsRefused) {
    ExpectRefused("delete U1:3", "can't be deleted by itself");
    ExpectRefused("delete C1 U1:3", "can't be deleted by itself");
}

TEST(Edits, WhatHasNoPlaceOfItsOwnIsNotMoved) {
    ExpectRefused("move U1:3 1,1", "no place or size of its own");
}

TEST(Edits, WhatReachesBeyondAllNumbersIsTurnedAboutANamedPointOnly) {
    auto session = OpenExample();
    ASSERT_TRUE(session);
    ASSERT_EQ(Do(*session, "scale U1 1e300\nscale U1 1e300"), "");
    for (char const* script : {"scale U1 2", "rotate U1 90", "mirror U1 x"}) {
        std::string const problem = Do(*session, script);
        EXPECT_NE(problem.find("name a fixed point"), std::string::npos) << script << problem;
    }
    EXPECT_EQ(Recorded(*session), 2u);
    EXPECT_EQ(Do(*session, "rotate U1 90@1,2\nmove U1 1,1"), "");
    EXPECT_TRUE(Reopened(session));
}

TEST(Edits, ItemsThatNoSavedChangeCouldNameAreRefused) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const items = ListItems(*session);
    auto const segment = std::find_if(items.begin(), items.end(), [](ItemEntry const& item) {
        return item.type == "NetSegment" && !item.id.empty();
    });
    ASSERT_NE(segment, items.end());
    ExpectRefused("hide \"" + segment->id + "\"", "no change of it can be saved");
}

TEST(Edits, LeaveNothingAlive) {
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] {
                  auto const session = OpenExample();
                  Do(*session,
                     "hide U1\nisolate U2\ndelete /SDA\ncolour U1 #f00\nmove R3 1,1\nundo\nundo\n"
                     "redo\nbackground #000\ndelete C1\nundo");
              }),
              0);
}

}  // namespace
}  // namespace fighost
