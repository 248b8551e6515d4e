// Drags of the content shadow, one after the other, against a few formulas.
#include <operations/ContentShadowTestSupport.h>
#include <support/Random.h>
#include <zvmk/Cursors.h>

#include <cmath>
#include <limits>
#include <string>

namespace zvmk {
namespace {

using namespace testing;  // NOLINT
using dg::DVec2;
using dg::DVec3;

// What isn't a handle but can be picked.
constexpr unsigned OUTLINE = 10;
constexpr unsigned CONTAINER = 11;
constexpr unsigned NOTHING = 12;
constexpr unsigned PICKS[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, OUTLINE, CONTAINER, NOTHING};

bool IsCorner(unsigned pick) {
    return pick < 4;
}
bool IsSide(unsigned pick) {
    return pick == 4 || pick == 5 || pick == 7 || pick == 8;
}

/// The box, what drags do to it, and what letting go records.
struct Model {
    DPoint2D centre;
    double halfWidth = 0;
    double halfHeight = 0;
    double startHalfWidth = 0;
    double startHalfHeight = 0;
    DPoint2D anchor;
    DVec2 direction;
    DPoint2D reference;
    DPoint2D referenceAtStart;

    static DVec2 SidesOf(unsigned pick) {
        static DVec2 const sides[] = {{-1, 1}, {-1, -1}, {1, 1},  {1, -1}, {0, 1},
                                      {0, -1}, {},       {-1, 0}, {1, 0},  {0, 0}};
        return sides[pick];
    }
    DPoint2D At(DVec2 const& sides) const {
        return {centre.x + sides.x * halfWidth, centre.y + sides.y * halfHeight};
    }

    void Fit(dg::DBox2D const& box) {
        centre = {(box.XMin() + box.XMax()) / 2, (box.YMin() + box.YMax()) / 2};
        halfWidth = startHalfWidth = (box.XMax() - box.XMin()) / 2;
        halfHeight = (box.YMax() - box.YMin()) / 2;
    }
    void Start(unsigned pick) {
        referenceAtStart = reference;
        if (!IsCorner(pick) && !IsSide(pick)) return;
        DVec2 const sides = SidesOf(pick);
        anchor = At(-sides);
        if (!IsCorner(pick)) return;
        startHalfWidth = sides.x * halfWidth;
        startHalfHeight = halfHeight;
        DVec2 const way = At(sides) - anchor;
        direction = way * (1 / way.Norm());
    }
    void Step(unsigned pick, DPoint2D const& from, DVec2 const& drag) {
        DPoint2D const to = from + drag;
        if (pick == Shadow::CENTRE || pick == OUTLINE) {
            centre = to;
        } else if (IsCorner(pick) && drag == DVec2()) {
            halfWidth = std::abs(startHalfWidth);
            halfHeight = startHalfHeight;
        } else if (IsCorner(pick)) {
            double const along = Dot(to - anchor, direction);
            halfWidth = std::abs(direction.x * along / 2);
            halfHeight = std::abs(direction.y * along / 2);
        } else if (pick == Shadow::TOP_MIDDLE || pick == Shadow::BOTTOM_MIDDLE) {
            centre.y = (anchor.y + to.y) / 2;
            halfHeight = std::abs(to.y - anchor.y) / 2;
        } else if (IsSide(pick)) {
            centre.x = (anchor.x + to.x) / 2;
            halfWidth = std::abs(to.x - anchor.x) / 2;
        } else {
            reference = referenceAtStart + drag;
            centre = DPoint2D() + drag;
        }
    }
};

Symbol CursorOf(unsigned pick, bool isImage) {
    if (pick == Shadow::TOP_MIDDLE || pick == Shadow::BOTTOM_MIDDLE) return dragCursorTopBottom;
    if (IsSide(pick)) return dragCursorLeftRight;
    if (!IsCorner(pick)) return dragCursorMove;
    bool const falls = pick == Shadow::TOP_LEFT || pick == Shadow::BOTTOM_RIGHT;
    return falls != isImage ? dragCursorSizeRightToLeft : dragCursorSizeLeftToRight;
}

class FigureContentShadowDrags : public FigureContentShadowTest {
protected:
    enum Kind { DRAWING, IMAGE, SOLID, NO_VIEW };

    void Begin(Kind kind) {
        figure = LoadedFigure(drawing.Sheet());
        recorded.clear();
        if (kind == DRAWING) where = new zvk::View2D(nullptr, window);
        if (kind == IMAGE) where = new zvk::ImageView(nullptr, window);
        if (kind == SOLID) where = new SolidView();
        if (kind == NO_VIEW) where.Reset();
        isImage = kind == IMAGE;
        isPlane = kind == DRAWING || kind == IMAGE;
        shadow = Make(where);
        model = Model();
        model.Fit(figure->GetExtents());
    }

    SmartPtr<zvmu::ModelBase> ModelOf(unsigned pick) const {
        if (pick == OUTLINE) return shadow->GetOutline();
        if (pick == CONTAINER) return shadow->GetContent()->GetModelBase();
        return shadow->GetHandle(pick);
    }

    static void ExpectNear(DPoint3D const& point, DPoint2D const& expected) {
        EXPECT_NEAR(point.x, expected.x, 1e-9 * (1 + std::abs(expected.x)));
        EXPECT_NEAR(point.y, expected.y, 1e-9 * (1 + std::abs(expected.y)));
        EXPECT_EQ(point.z, 0.0);
    }
    void ExpectBox() const {
        for (unsigned const pick : PICKS) {
            if (pick > Shadow::CENTRE) continue;
            ExpectNear(At(*shadow, pick), model.At(Model::SidesOf(pick)));
        }
        auto const& outline = shadow->GetOutline()->GetPoints();
        ASSERT_EQ(outline.size(), 4u);
        unsigned const round[] = {0, 2, 3, 1};
        for (unsigned i = 0; i < 4; ++i)
            ExpectNear(outline[i], model.At(Model::SidesOf(round[i])));
        DPoint3D const reference = shadow->GetReferencePosition();
        ExpectNear(DPoint2D(reference.x, reference.y), model.reference);
        EXPECT_EQ(shadow->GetContent()->GetModelBase()->GetLocation().GetPos(), reference);
        EXPECT_NEAR(shadow->GetWidth(), model.halfWidth, 1e-5 * (1 + model.halfWidth));
        EXPECT_NEAR(shadow->GetHeight(), model.halfHeight, 1e-5 * (1 + model.halfHeight));
    }
    void ExpectCursor(Symbol const& cursor) const {
        EXPECT_EQ(window->GetCursor(), isPlane ? cursor : Symbol::EMPTY);
    }

    /// What the last operation recorded did, when `ratio` and not rounding decides.
    void ExpectRecorded(double ratio, DPoint2D const& from) {
        ASSERT_EQ(recorded.back()->GetSteps().size(), 1u);
        auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
        ASSERT_TRUE(move);
        Figure::Items items;
        shadow->CollectItemsForTransformation(items);
        EXPECT_EQ(move->GetItems(), items);
        if (ratio == 1.0) {
            EXPECT_TRUE(move->GetTransforms().empty());
            ExpectNear(move->GetOffset(), DPoint2D() + (model.centre - from));
        } else if (std::abs(ratio - 1.0) > 1e-9) {
            EXPECT_EQ(move->GetOffset(), DPoint2D());
            ASSERT_EQ(move->GetTransforms().size(), 1u);
            auto const scale = du::DynamicCast<ScaleAction>(move->GetTransforms()[0]);
            ASSERT_TRUE(scale);
            EXPECT_NEAR(scale->GetScale(), ratio, 1e-9 * ratio);
            ExpectNear(scale->GetAbout(), model.centre);
        }
    }

    DVec2 RandomWay() { return {random.Unit() * 60 - 30, random.Unit() * 60 - 30}; }

    void DragAnything() {
        unsigned const pick = PICKS[random.Below(std::size(PICKS))];
        SCOPED_TRACE("pick " + std::to_string(pick));
        auto const handle = shadow->GetHandle(pick);
        DPoint2D const from =
            pick <= Shadow::CENTRE ? model.At(Model::SidesOf(pick)) : DPoint2D() + RandomWay();
        shadow->SetPick(ModelOf(pick), handle ? handle->GetPosition() : DPoint3D(from));
        model.Start(pick);
        EXPECT_TRUE(shadow->HandleDragStart());
        ExpectCursor(CursorOf(pick, isImage));
        for (auto steps = random.Below(4); steps > 0; --steps) {
            DVec2 const drag = RandomWay();
            shadow->SetDragVector({drag.x, drag.y, 5});
            model.Step(pick, from, isPlane ? drag : DVec2());
            EXPECT_TRUE(shadow->HandleDragStep());
            ExpectBox();
        }
        auto const before = recorded.size();
        if (random.OneIn(5)) {
            shadow->Stop();
            EXPECT_EQ(recorded.size(), before);
        } else {
            EXPECT_TRUE(shadow->HandleDragStop());
            EXPECT_EQ(recorded.size(), before + 1);
            double const ratio = std::abs(model.halfWidth / model.startHalfWidth);
            model.startHalfWidth = model.halfWidth;
            ExpectRecorded(ratio, from);
        }
        ExpectCursor(Symbol::EMPTY);
        ExpectBox();
    }

    /// Brings the box back to the content, one way or the other.
    void FitAgain() {
        switch (recorded.empty() ? 0 : random.Below(3)) {
            case 0:
                shadow->FigureExtentsChanged();
                break;
            case 1:
                recorded.back()->Undo();
                recorded.pop_back();
                break;
            default:
                recorded.back()->Undo();
                recorded.back()->Redo();
        }
        model.Fit(figure->GetExtents());
        ExpectBox();
    }

    void DragAtRandom(Kind kind) {
        for (std::uint64_t seed = 1; seed <= 40 && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            random = test::Random(seed);
            Begin(kind);
            ExpectBox();
            for (int i = 0; i < 12; ++i) {
                DragAnything();
                if (random.OneIn(2)) FitAgain();
                if (HasFailure()) return;
            }
        }
    }

    SmartPtr<zvk::View> where;
    SmartPtr<Shadow> shadow;
    Model model;
    test::Random random{1};
    bool isImage = false;
    bool isPlane = true;
};

TEST_F(FigureContentShadowDrags, InADrawingDoToTheBoxAndRecordWhatTheFormulasSay) {
    DragAtRandom(DRAWING);
}

TEST_F(FigureContentShadowDrags, InAnImageDoTheSameUnderTheCursorsOfAnImage) {
    DragAtRandom(IMAGE);
}

TEST_F(FigureContentShadowDrags, OutsideAPlaneGoNowhereWhateverIsPicked) {
    DragAtRandom(SOLID);
    DragAtRandom(NO_VIEW);
}

// Single points of them.

TEST_F(FigureContentShadowTest, AllHandlesHaveTheSameSizeInTheWindow) {
    auto const shadow = Make(view);
    for (unsigned const number : {0, 1, 2, 3, 4, 5, 7, 8, 9}) {
        auto const handle = shadow->GetHandle(number);
        EXPECT_EQ(handle->GetWidth(), 1.5F) << number;
        EXPECT_EQ(handle->GetHeight(), 1.5F) << number;
        EXPECT_TRUE(handle->IsSizeOfWindow()) << number;
    }
}

TEST_F(FigureContentShadowTest, EveryChangeOfTheBoxAsksForARepaint) {
    auto const shadow = Make(view);
    view->TakeRepaintNeeded();
    shadow->FigureExtentsChanged();
    EXPECT_TRUE(view->TakeRepaintNeeded());
    shadow->HandleDragStep();
    EXPECT_TRUE(view->TakeRepaintNeeded());
    shadow->HandleDragStop();
    EXPECT_TRUE(view->TakeRepaintNeeded());
}

TEST_F(FigureContentShadowTest, CentreDraggedAfterACornerOnlyMoves) {
    auto const shadow = Make(view);
    DragHandle(*shadow, Shadow::BOTTOM_LEFT, {-100, -40, 0});
    recorded.clear();
    DragHandle(*shadow, Shadow::CENTRE, {3, 4, 0});
    auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
    ASSERT_TRUE(move);
    EXPECT_TRUE(move->GetTransforms().empty()) << "the size is that of the last drag";
    EXPECT_EQ(move->GetOffset(), DPoint2D(3, 4));
}

TEST_F(FigureContentShadowTest, CornerThatComesBackCountsAsNotMoved) {
    test::Random random(7);
    SmartPtr<zvk::View> const solid = new SolidView();
    for (int i = 0; i < 300; ++i) {
        double const x = random.Unit() * 400 - 200;
        double const y = random.Unit() * 400 - 200;
        figure->SetExtents(dg::DBox2D(x, y, x + random.Unit() * 90, y + random.Unit() * 90));
        auto const centre = figure->GetExtents().Centre();
        auto const shadow = Make(i % 3 == 0 ? solid : i % 3 == 1 ? view : imageView);
        auto const corner = shadow->GetHandle(CORNERS[i % 4]);
        auto const start = corner->GetPosition();
        shadow->SetPick(corner, start);
        shadow->HandleDragStart();
        for (DVec3 const& by : {DVec3(9, -3, 0), DVec3()}) {
            shadow->SetDragVector(by);
            shadow->HandleDragStep();
        }
        shadow->HandleDragStop();
        auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
        ASSERT_TRUE(move);
        ASSERT_TRUE(move->GetTransforms().empty()) << i;
        EXPECT_NEAR(move->GetOffset().x, centre.x - start.x, 1e-9);
        EXPECT_NEAR(move->GetOffset().y, centre.y - start.y, 1e-9);
        recorded.back()->Undo();
    }
}

TEST_F(FigureContentShadowTest, OnlyABoxNearlyWithoutADiagonalIsDraggedAlongTheBisector) {
    figure->SetExtents(dg::DBox2D(0, 0, 9e-6, 0));
    auto const small = Make(view);
    DragHandle(*small, Shadow::TOP_RIGHT, {8, 0, 0});
    EXPECT_NEAR(small->GetWidth(), 2.0F, 1e-4F);
    EXPECT_NEAR(small->GetHeight(), 2.0F, 1e-4F);
    figure->SetExtents(dg::DBox2D(0, 0, 2e-5, 0));
    auto const larger = Make(view);
    DragHandle(*larger, Shadow::TOP_RIGHT, {8, 0, 0});
    EXPECT_NEAR(larger->GetWidth(), 4.0F, 1e-4F);
    EXPECT_EQ(larger->GetHeight(), 0.0F);
}

TEST_F(FigureContentShadowTest, OperationIsRecordedWhenAllIsDone) {
    auto const shadow = Make(view);
    unsigned count = 0;
    zvk::SetOperationSink([&](auto const& operation) {
        ++count;
        EXPECT_EQ(operation->GetSteps().size(), 1u);
        EXPECT_EQ(figure->GetDeltas().size(), 1u + count);
        EXPECT_TRUE(window->GetCursor().IsEmpty());
        // What the host does now counts from the new box.
        shadow->SetPick(shadow->GetHandle(Shadow::CENTRE), At(*shadow, Shadow::CENTRE));
        if (count == 1) shadow->HandleDragStop();
    });
    DragHandle(*shadow, Shadow::TOP_RIGHT, {100, 40, 0});
    EXPECT_EQ(count, 2u);
    auto const move = du::DynamicCast<FigureMoveDelta>(figure->GetDeltas().back());
    EXPECT_TRUE(move->GetTransforms().empty()) << "the second is a move by nothing";
    EXPECT_EQ(move->GetOffset(), DPoint2D());
}

TEST_F(FigureContentShadowTest, PositionsThatAreNotFiniteLeaveBoxAndContentAlone) {
    double const notANumber = std::nan("");
    double const infinite = std::numeric_limits<double>::infinity();
    auto const shadow = Make(view);
    auto const before = DumpOf(figure);
    for (unsigned const number : {0, 2, 4, 7, 9}) {
        for (DVec3 const& by : {DVec3(notANumber, 0, 0), DVec3(0, infinite, 0)}) {
            shadow->SetPick(shadow->GetHandle(number), At(*shadow, number));
            shadow->HandleDragStart();
            shadow->SetDragVector(by);
            EXPECT_TRUE(shadow->HandleDragStep());
            EXPECT_EQ(At(*shadow, Shadow::TOP_RIGHT), DPoint3D(110, 60, 0)) << number;
            EXPECT_EQ(At(*shadow, Shadow::BOTTOM_LEFT), DPoint3D(10, 20, 0)) << number;
        }
    }
    DragModel(*shadow, shadow->GetOutline(), {notANumber, infinite, 0}, {1, 1, 0});
    EXPECT_TRUE(recorded.empty()) << "nothing moved, so there is nothing to take back";
    EXPECT_EQ(DumpOf(figure), before);
}

}  // namespace
}  // namespace zvmk
