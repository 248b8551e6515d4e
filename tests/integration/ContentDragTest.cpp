// A person drags the content of a sheet by each handle, in a drawing and in an image.
#include <gtest/gtest.h>
#include <host/session/ShadowFits.h>

#include <cmath>
#include <string>
#include <vector>

#include <figrep/Figure.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/ScaleAction.h>
#include <host/Picture.h>
#include <persistence/SavedFigures.h>
#include <session/HeadlessView.h>
#include <session/History.h>
#include <session/Session.h>
#include <support/Corpus.h>
#include <zvk/Operation.h>
#include <zvmk/Cursors.h>

#include "SavedPictures.h"

namespace fighost {
namespace {

using namespace test;  // NOLINT
using figrep::FigureMoveDelta;
using figrep::SmartPtr;
using figrep::Symbol;
using Shadow = zvmk::FigureContentShadow;

constexpr unsigned OUTLINE = Shadow::NO_HANDLE;
constexpr unsigned GRIPS[] = {Shadow::CENTRE,      OUTLINE,
                              Shadow::TOP_LEFT,    Shadow::BOTTOM_LEFT,
                              Shadow::TOP_RIGHT,   Shadow::BOTTOM_RIGHT,
                              Shadow::TOP_MIDDLE,  Shadow::BOTTOM_MIDDLE,
                              Shadow::LEFT_MIDDLE, Shadow::RIGHT_MIDDLE};

dg::DPoint2D InPlane(dg::DPoint3D const& point) {
    return {point.x, point.y};
}

bool IsCorner(unsigned grip) {
    return grip <= Shadow::BOTTOM_RIGHT;
}
bool IsUpright(unsigned grip) {
    return grip == Shadow::TOP_MIDDLE || grip == Shadow::BOTTOM_MIDDLE;
}
bool IsLevel(unsigned grip) {
    return grip == Shadow::LEFT_MIDDLE || grip == Shadow::RIGHT_MIDDLE;
}

/// Where a person grabs, and where they let go: what can be pulled is pulled out by a quarter of
/// the box.
struct Way {
    dg::DPoint2D from;
    dg::DPoint2D to;
};
constexpr double PULLED = 1.25;

Way WayOf(Shadow const& shadow, unsigned grip) {
    auto const at = [&](unsigned number) {
        return InPlane(shadow.GetHandle(number)->GetPosition());
    };
    dg::DVec2 const by(30.0, -12.5);
    if (grip == Shadow::CENTRE) return {at(grip), at(grip) + by};
    if (grip == OUTLINE) {
        auto const left = at(Shadow::TOP_LEFT);
        auto const grab = left + (at(Shadow::TOP_RIGHT) - left) * 0.3;
        return {grab, grab + by};
    }
    auto const out = (at(grip) - at(Shadow::CENTRE)) * (2 * (PULLED - 1));
    return {at(grip), at(grip) + out};
}

// Corners on the diagonal from the upper right to the lower left, as they are seen.
Symbol CursorOf(unsigned grip, HeadlessView::Kind kind) {
    if (IsUpright(grip)) return zvmk::dragCursorTopBottom;
    if (IsLevel(grip)) return zvmk::dragCursorLeftRight;
    if (!IsCorner(grip)) return zvmk::dragCursorMove;
    bool const isOuter = grip == Shadow::TOP_LEFT || grip == Shadow::BOTTOM_RIGHT;
    return isOuter == (kind == HeadlessView::DRAWING) ? zvmk::dragCursorSizeRightToLeft
                                                      : zvmk::dragCursorSizeLeftToRight;
}

/// A drag by the pointer, or, where none reaches, by a host that offers those handles in its own
/// way.
class Hand {
public:
    Hand(HeadlessView& view, unsigned grip)
        : view_(view),
          shadow_(*view.GetContentShadow()),
          handle_(IsUpright(grip) || IsLevel(grip) ? shadow_.GetHandle(grip) : nullptr) {}

    bool Press(dg::DPoint2D const& at) {
        if (!handle_) return view_.Press(at);
        pressed_ = at;
        shadow_.SetPick(handle_, at);
        return shadow_.HandleDragStart();
    }
    void MoveTo(dg::DPoint2D const& at) {
        if (!handle_) return view_.MoveTo(at);
        shadow_.SetDragVector(at - pressed_);
        shadow_.HandleDragStep();
    }
    void Release(dg::DPoint2D const& at) {
        if (!handle_) return view_.Release(at);
        MoveTo(at);
        shadow_.HandleDragStop();
    }

private:
    HeadlessView& view_;
    Shadow& shadow_;
    SmartPtr<zvmu::ModelShadowPoint> handle_;
    dg::DPoint2D pressed_;
};

/// A drag of the centre or the outline moves by its way, one of the top or the bottom by what
/// brings the start to the new centre. What changes the width scales about the centre that there is
/// then.
void ExpectRecorded(SmartPtr<figrep::Figure> const& figure, unsigned grip, Way const& way,
                    dg::DPoint2D const& centre) {
    auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
    ASSERT_TRUE(move);
    EXPECT_FALSE(figure->HasDeltaFailures());
    auto const newCentre =
        IsUpright(grip) || IsLevel(grip) ? centre + (way.to - way.from) * 0.5 : centre;
    if (!IsCorner(grip) && !IsLevel(grip)) {
        dg::DVec2 const by = (IsUpright(grip) ? newCentre : way.to) - way.from;
        EXPECT_TRUE(move->GetTransforms().empty());
        EXPECT_NEAR(move->GetOffset().x, by.x, 1e-9);
        EXPECT_NEAR(move->GetOffset().y, by.y, 1e-9);
        return;
    }
    EXPECT_EQ(move->GetOffset(), dg::DPoint2D());
    ASSERT_EQ(move->GetTransforms().size(), 1u);
    auto const scale = du::DynamicCast<figrep::ScaleAction>(move->GetTransforms()[0]);
    ASSERT_TRUE(scale);
    EXPECT_NEAR(scale->GetScale(), PULLED, 1e-9);
    EXPECT_NEAR(scale->GetAbout().x, newCentre.x, 1e-9);
    EXPECT_NEAR(scale->GetAbout().y, newCentre.y, 1e-9);
    if (IsCorner(grip)) {
        EXPECT_EQ(scale->GetAbout(), centre);
    }
}

/// Drags one grip of a sheet of a freshly opened design and checks all that follows from it; the
/// pictures of undo and redo only when `thorough`, since pictures of large sheets take their time.
void DragAndCheck(std::string const& file, HeadlessView::Kind kind, unsigned grip, bool thorough) {
    SessionOptions options;
    options.crossings = figk::CROSSING_NONE;
    auto const opened = Session::Open(file, options);
    ASSERT_TRUE(opened.session);
    auto& history = opened.session->GetHistory();
    auto const& sheet = opened.session->GetSheets().at(0);
    auto const deltas = sheet.figure->GetDeltas().size();
    // The extents of a new figure are those of the sheet's content, without the frame.
    sheet.figure->SetExtents(dg::DBox2D::EMPTY);
    dg::DBox2D const box = sheet.figure->GetExtents();
    std::string const untouched = Picture(sheet.figure);

    HeadlessView view(sheet.figure, history.GetScene(), kind);
    view.ShowContentShadow();
    auto const& shadow = *view.GetContentShadow();
    test::ExpectFits(shadow, box);
    Way const way = WayOf(shadow, grip);
    Hand hand(view, grip);
    ASSERT_TRUE(hand.Press(way.from));
    EXPECT_EQ(view.GetCursor(), CursorOf(grip, kind));
    hand.MoveTo({way.from.x, way.to.y});
    EXPECT_TRUE(Picture(sheet.figure) == untouched) << "the content must wait for the release";
    hand.Release(way.to);

    EXPECT_TRUE(view.GetCursor().IsEmpty());
    EXPECT_EQ(history.CountUndo(), 1u);
    EXPECT_EQ(sheet.figure->GetDeltas().size(), deltas + 1);
    ExpectRecorded(sheet.figure, grip, way, box.Centre());
    std::string const dragged = Picture(sheet.figure);
    EXPECT_FALSE(dragged == untouched);
    auto const fresh = Reload(WriteSavedFigures({{sheet.figure, nullptr}}, {}), sheet);
    ASSERT_TRUE(fresh);
    EXPECT_TRUE(Picture(fresh) == dragged) << "the pictures differ";
    EXPECT_EQ(FirstDifference(fresh, sheet.figure), "");

    dg::DBox2D const after = sheet.figure->GetExtents();
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(sheet.figure->GetDeltas().size(), deltas);
    test::ExpectFits(shadow, box);
    EXPECT_TRUE(!thorough || AreAlike(Picture(sheet.figure), untouched)) << "not as before";
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(sheet.figure->GetDeltas().size(), deltas + 1);
    test::ExpectFits(shadow, after);
    EXPECT_TRUE(!thorough || AreAlike(Picture(sheet.figure), dragged)) << "not as dragged";
}

class ContentDragTest : public ::testing::TestWithParam<HeadlessView::Kind> {};

TEST_P(ContentDragTest, EachHandleRecordsItsOperationAndSavesWhatIsSeen) {
    for (char const* const name : {"weather-station", "power", "controller"}) {
        for (unsigned const grip : GRIPS) {
            SCOPED_TRACE(std::string(name) + ", handle " + std::to_string(grip));
            DragAndCheck(
                std::string(FIGREP_SOURCE_DIR "/examples/weather-station/") + name + ".kicad_sch",
                GetParam(), grip, true);
        }
    }
}

TEST_P(ContentDragTest, SoItDoesOnRealDesigns) {
    SKIP_WITHOUT_CORPUS();
    std::size_t turn = 0;
    for (std::string const& root : corpus::RootSheets()) {
        unsigned const grip = GRIPS[turn++ % std::size(GRIPS)];
        SCOPED_TRACE(root + ", handle " + std::to_string(grip));
        DragAndCheck(root, GetParam(), grip, false);
    }
}

INSTANTIATE_TEST_SUITE_P(Views, ContentDragTest,
                         ::testing::Values(HeadlessView::DRAWING, HeadlessView::IMAGE),
                         [](auto const& kind) {
                             return kind.param == HeadlessView::DRAWING ? "Drawing" : "Image";
                         });

}  // namespace
}  // namespace fighost
