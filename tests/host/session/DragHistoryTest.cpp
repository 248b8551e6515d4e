// Drags of the content, kept, taken back and done again by the session.
#include <session/HeadlessView.h>

#include <memory>
#include <string>
#include <vector>

#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <host/Picture.h>
#include <host/session/ExampleSession.h>
#include <host/session/ShadowFits.h>
#include <session/History.h>
#include <support/FigureDump.h>
#include <support/LiveObjects.h>
#include <support/Random.h>
#include <support/RandomOperations.h>
#include <zvk/Operation.h>

namespace fighost {
namespace {

using figrep::SmartPtr;
using Shadow = zvmk::FigureContentShadow;

constexpr double ROUNDING = 1e-7;
constexpr unsigned OUTLINE = Shadow::NO_HANDLE;
constexpr unsigned GRIPS[] = {Shadow::CENTRE,      OUTLINE,           Shadow::TOP_LEFT,
                              Shadow::BOTTOM_LEFT, Shadow::TOP_RIGHT, Shadow::BOTTOM_RIGHT};

dg::DPoint2D InPlane(dg::DPoint3D const& point) {
    return {point.x, point.y};
}

/// What two open sheets are like.
struct State {
    std::vector<std::string> lines[2];
    figrep::Figure::Deltas deltas[2];
};

/// Two sheets of one design, one in a drawing and one in an image, and a history for both.
class DragHistoryTest : public ::testing::Test {
protected:
    DragHistoryTest() {
        for (int i = 0; i < 2; ++i) {
            figure[i] = session->GetSheets().at(i).figure;
            test::Picture(figure[i]);  // lays out the frame, which then counts in the extents
            figure[i]->SetExtents(dg::DBox2D::EMPTY);
            auto const kind = i == 0 ? HeadlessView::DRAWING : HeadlessView::IMAGE;
            view[i] = std::make_unique<HeadlessView>(figure[i], history.GetScene(), kind);
            view[i]->ShowContentShadow();
        }
    }

    State Now() const {
        State state;
        for (int i = 0; i < 2; ++i) {
            figure[i]->UpdateContent();
            state.lines[i] = figrep::test::DumpOf(figure[i]);
            state.deltas[i] = figure[i]->GetDeltas();
        }
        return state;
    }
    void ExpectState(State const& expected) const {
        State const now = Now();
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(figrep::test::FirstDifference(now.lines[i], expected.lines[i], ROUNDING), "");
            EXPECT_EQ(now.deltas[i].size(), expected.deltas[i].size());
            EXPECT_FALSE(figure[i]->HasDeltaFailures());
        }
    }
    void ExpectFits(int i) const {
        test::ExpectFits(*view[i]->GetContentShadow(), figure[i]->GetExtents());
    }

    /// Pulls a corner of the box in or out, or moves the box.
    bool Drag(int i, unsigned grip, dg::DVec2 const& by, double factor) {
        auto const& shadow = *view[i]->GetContentShadow();
        auto const at = [&](unsigned number) {
            return InPlane(shadow.GetHandle(number)->GetPosition());
        };
        auto const centre = at(Shadow::CENTRE);
        if (grip == Shadow::CENTRE) return view[i]->DragTo(centre, centre + by);
        auto const corner = at(grip == OUTLINE ? unsigned(Shadow::TOP_LEFT) : grip);
        if (grip != OUTLINE)
            return view[i]->DragTo(corner, corner + (corner - centre) * (2 * (factor - 1)));
        auto const edge = corner + (at(Shadow::BOTTOM_LEFT) - corner) * 0.4;
        return view[i]->DragTo(edge, edge + by);
    }
    void DragAtRandom(int i) {
        unsigned const grip = GRIPS[random.Below(std::size(GRIPS))];
        dg::DVec2 const by(random.Unit() * 80 - 40, random.Unit() * 80 - 40);
        EXPECT_TRUE(Drag(i, grip, by, 0.7 + random.Unit() * 0.7)) << grip;
    }
    void HideAtRandom(int i) {
        auto const nets = figure[i]->GetSubNets();
        if (nets.empty()) return;
        auto const operation = history.NewOperation(operation_key::HIDE);
        figure[i]->HideItems({nets[random.Below(nets.size())]}, operation);
        zvk::RecordOperation(operation);
    }

    std::unique_ptr<Session> session = test::OpenExample();
    History& history = session->GetHistory();
    SmartPtr<figrep::Figure> figure[2];
    std::unique_ptr<HeadlessView> view[2];
    figrep::test::Random random{1};
};

TEST_F(DragHistoryTest, EveryDragIsOneEntryThatUndoTakesBackAndRedoBringsAgain) {
    for (int i = 0; i < 2; ++i) {
        for (unsigned const grip : GRIPS) {
            SCOPED_TRACE("view " + std::to_string(i) + ", handle " + std::to_string(grip));
            State const before = Now();
            ASSERT_TRUE(Drag(i, grip, {16, 8}, 1.25));
            EXPECT_EQ(history.GetUndoNames(), std::vector<std::string>{"Fit Content"});
            State const after = Now();
            EXPECT_NE(after.lines[i], before.lines[i]);
            EXPECT_EQ(after.lines[1 - i], before.lines[1 - i]) << "the other sheet stays";
            for (int round = 0; round < 3; ++round) {
                ASSERT_TRUE(history.Undo());
                ExpectState(before);
                EXPECT_EQ(figure[i]->GetDeltas(), before.deltas[i]);
                ExpectFits(i);
                ASSERT_TRUE(history.Redo());
                ExpectState(after);
                ExpectFits(i);
            }
            ASSERT_TRUE(history.Undo());
            EXPECT_EQ(history.GetRedoNames(), std::vector<std::string>{"Fit Content"});
        }
    }
}

TEST_F(DragHistoryTest, DragsAndOtherChangesGoBackAndForthInTheirOrder) {
    for (std::uint64_t seed = 1; seed <= 3 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        random = figrep::test::Random(seed);
        history.Clear();
        std::vector<State> states{Now()};
        for (int step = 0; step < 24; ++step) {
            int const i = static_cast<int>(random.Below(2));
            std::size_t const done = history.CountUndo();
            if (random.OneIn(3) && history.CanUndo()) {
                ASSERT_TRUE(history.Undo());
            } else if (random.OneIn(3) && history.CanRedo()) {
                ASSERT_TRUE(history.Redo());
            } else {
                states.resize(done + 1);
                random.OneIn(3) ? HideAtRandom(i) : DragAtRandom(i);
                ASSERT_EQ(history.CountUndo(), done + 1);
                EXPECT_FALSE(history.CanRedo());
                states.push_back(Now());
            }
            ExpectState(states[history.CountUndo()]);
        }
        while (history.Undo())
            ExpectState(states[history.CountUndo()]);
        EXPECT_EQ(figure[0]->GetDeltas(), states[0].deltas[0]);
        EXPECT_EQ(figure[1]->GetDeltas(), states[0].deltas[1]);
        while (history.Redo())
            ExpectState(states[history.CountUndo()]);
        while (history.Undo()) {
        }
        ExpectState(states[0]);
    }
}

TEST_F(DragHistoryTest, PicturesAndSavedFiguresComeBackToo) {
    std::string const saved = session->SaveFigures();
    std::string const first = test::Picture(figure[0]);
    for (int step = 0; step < 6; ++step)
        DragAtRandom(0);
    std::string const last = test::Picture(figure[0]);
    EXPECT_NE(session->SaveFigures(), saved);
    while (history.Undo()) {
    }
    EXPECT_TRUE(test::AreAlike(test::Picture(figure[0]), first));
    EXPECT_EQ(session->SaveFigures(), saved);
    while (history.Redo()) {
    }
    EXPECT_TRUE(test::AreAlike(test::Picture(figure[0]), last));
}

TEST_F(DragHistoryTest, UndoWorksWithoutTheShadowThatWasDragged) {
    State const before = Now();
    ASSERT_TRUE(Drag(0, Shadow::TOP_LEFT, {}, 1.25));
    State const after = Now();
    view[0]->HideContentShadow();
    ASSERT_TRUE(history.Undo());
    ExpectState(before);
    view[0]->ShowContentShadow();
    ExpectFits(0);
    view[0].reset();
    ASSERT_TRUE(history.Redo());
    ExpectState(after);
}

TEST_F(DragHistoryTest, UndoInTheMiddleOfADragLeavesTwoEntriesThatBothGoBack) {
    State const before = Now();
    for (unsigned const grip : {Shadow::CENTRE, Shadow::TOP_RIGHT}) {
        ASSERT_TRUE(Drag(0, Shadow::BOTTOM_LEFT, {}, 1.25));
        auto const& shadow = *view[0]->GetContentShadow();
        auto const at = InPlane(shadow.GetHandle(grip)->GetPosition());
        ASSERT_TRUE(view[0]->Press(at));
        view[0]->MoveTo(at + dg::DVec2(4, 4));
        ASSERT_TRUE(history.Undo());
        ExpectState(before);
        ExpectFits(0);
        view[0]->MoveTo(at + dg::DVec2(6, 4));
        view[0]->Release(at + dg::DVec2(8, 4));
        EXPECT_EQ(history.CountUndo(), 1u);
        ASSERT_TRUE(history.Undo());
        ExpectState(before);
        ExpectFits(0);
    }
}

TEST(DragHistory, NothingIsLeftAliveWhenSessionAndViewsGo) {
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] {
                  auto const session = test::OpenExample();
                  auto const& sheet = session->GetSheets().at(0).figure;
                  HeadlessView view(sheet, session->GetHistory().GetScene());
                  view.ShowContentShadow();
                  auto const centre = sheet->GetExtents().Centre();
                  EXPECT_TRUE(view.DragTo(centre, centre + dg::DVec2(3, 4)));
                  EXPECT_TRUE(session->GetHistory().Undo());
                  EXPECT_TRUE(view.Press(sheet->GetExtents().Centre()));
              }),
              0);
}

}  // namespace
}  // namespace fighost
