#include <dg/Angle.h>
#include <dg/Box.h>
#include <dg/CircularArc.h>
#include <dg/Close.h>
#include <dg/Color.h>
#include <dg/Location.h>
#include <dg/Matrix.h>
#include <dg/Point.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using namespace dg;

constexpr double PI = std::numbers::pi;
double const NaN = std::numeric_limits<double>::quiet_NaN();
double const Infinity = std::numeric_limits<double>::infinity();

void ExpectNear(DPoint2D const& a, DPoint2D const& b, double tolerance = 1e-12) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
}

TEST(Point, IndexMayBeABool) {
    DPoint2D p(1, 2);
    bool const mirrorY = true;
    p[mirrorY] = 5;
    EXPECT_EQ(p, DPoint2D(1, 5));
    EXPECT_EQ(p[false], 1);
}

TEST(Point, DifferenceOfPointsIsAVector) {
    DVec2 const v = DPoint2D(4, 6) - DPoint2D(1, 2);
    EXPECT_EQ(v, DVec2(3, 4));
    EXPECT_EQ(v.Norm(), 5);
    EXPECT_EQ(DPoint2D(1, 1) + v * 2, DPoint2D(7, 9));
    EXPECT_EQ(DVec2().Normalise(), DVec2());
    EXPECT_EQ(v.Normalise(), DVec2(0.6, 0.8));
}

TEST(Point, PlanePointsLieAtHeightZero) {
    EXPECT_EQ(DPoint3D(DPoint2D(1, 2)), DPoint3D(1, 2, 0));
    EXPECT_EQ(DPoint3D(1, 2, 3) + DVec3(1, 1, 1), DPoint3D(2, 3, 4));
    Location location;
    location.SetPos(DPoint2D(3, 4));
    EXPECT_EQ(location.GetPos(), DPoint3D(3, 4, 0));
}

TEST(Box, EmptyHasNoSizeAndTouchesNothing) {
    EXPECT_EQ(DBox2D::EMPTY.Centre(), DPoint2D());
    EXPECT_EQ(DBox2D::EMPTY.Size(), DVec2());
    EXPECT_TRUE(DBox2D::EMPTY.IsEmpty());
    EXPECT_EQ(DBox2D(), DBox2D::EMPTY);
    DBox2D const all(-1e300, -1e300, 1e300, 1e300);
    EXPECT_FALSE(DBox2D::EMPTY.Intersects(all, 1e6));
    EXPECT_FALSE(all.Intersects(DBox2D::EMPTY, 1e6));
    EXPECT_FALSE(DBox2D::EMPTY.Intersects(DBox2D::EMPTY, 1e6));
    EXPECT_FALSE(all.Contains(DBox2D::EMPTY));
    EXPECT_FALSE(DBox2D::EMPTY.Contains(DPoint2D()));
}

TEST(Box, EmptyHoldsNoNanAndStaysItselfWhenMoved) {
    for (unsigned side = 0; side < 4; ++side) {
        EXPECT_EQ(DBox2D::EMPTY[side], DBox2D::EMPTY[side]);
    }
    DBox2D moved = DBox2D::EMPTY;
    moved.Translate(DVec2(3, 4));
    EXPECT_EQ(moved, DBox2D::EMPTY);
    EXPECT_EQ(DMat33::RotationZ(1) * DBox2D::EMPTY, DBox2D::EMPTY);
}

TEST(Box, EnclosingEmptyChangesNothing) {
    DBox2D box(1, 2, 3, 4);
    box.Enclose(DBox2D::EMPTY);
    EXPECT_EQ(box, DBox2D(1, 2, 3, 4));
    box = DBox2D::EMPTY;
    box.Enclose(DPoint2D(1, 2));
    EXPECT_EQ(box, DBox2D(1, 2, 1, 2));
    EXPECT_FALSE(box.IsEmpty());
}

TEST(Box, CornersMayComeInAnyOrder) {
    EXPECT_EQ(DBox2D(DPoint2D(3, 1), DPoint2D(0, 2)), DBox2D(0, 1, 3, 2));
}

TEST(Box, PointsThatAreNoNumbersAreLeftOut) {
    DBox2D box(0, 0, 1, 1);
    box.Enclose(DPoint2D(NaN, 5));
    EXPECT_EQ(box, DBox2D(0, 0, 1, 1));
}

TEST(Box, SidesBelongToTheBox) {
    DBox2D const box(0, 0, 2, 2);
    EXPECT_TRUE(box.Intersects(DBox2D(2, 2, 3, 3)));
    EXPECT_FALSE(box.Intersects(DBox2D(2.1, 0, 3, 3)));
    EXPECT_TRUE(box.Intersects(DBox2D(2.1, 0, 3, 3), 0.2));
    EXPECT_TRUE(box.Contains(box));
    EXPECT_FALSE(box.Contains(DBox2D(0, 0, 2.1, 2)));
    EXPECT_TRUE(box.Contains(DBox2D(0, 0, 2.1, 2), 0.2));
    EXPECT_TRUE(box.Contains(DPoint2D(0, 2)));
}

TEST(Matrix, QuarterTurnsAreExact) {
    EXPECT_EQ(DMat33::RotationZ(PI / 2) * DPoint2D(1, 0), DPoint2D(0, 1));
    EXPECT_EQ(DMat33::RotationZ(PI) * DPoint2D(1, 2), DPoint2D(-1, -2));
    EXPECT_TRUE(DMat33::RotationZ(-PI / 2).KeepsAxes());
    EXPECT_FALSE(DMat33::RotationZ(PI / 4).KeepsAxes());
}

TEST(Matrix, VectorsIgnoreTheTranslation) {
    DMat33 m = DMat33::Scale(2);
    m.SetTranslation(DPoint2D(10, 20));
    EXPECT_EQ(m * DPoint2D(1, 1), DPoint2D(12, 22));
    EXPECT_EQ(m * DVec2(1, 1), DVec2(2, 2));
    EXPECT_EQ(m.GetTranslation(), DPoint2D(10, 20));
    EXPECT_EQ(m(0, 2), 10);
    EXPECT_EQ(m(2, 2), 1);
    EXPECT_EQ(m(2, 0), 0);
}

TEST(Matrix, AProductAppliesTheRightFactorFirst) {
    DMat33 const m = DMat33::Translation(DVec2(1, 0)) * DMat33::Scale(3, 2);
    EXPECT_EQ(m * DPoint2D(1, 1), DPoint2D(4, 2));
}

TEST(Matrix, TransformsAboutAPointKeepThatPoint) {
    DPoint2D const about(3, -2);
    for (DMat33 const& m : {DMat33::RotationZ(0.7), DMat33::Scale(4), DMat33::Mirror(false)}) {
        ExpectNear(DMat33::About(about, m) * about, about);
    }
    EXPECT_EQ(DMat33::About(DPoint2D(1, 0), DMat33::Mirror(false)) * DPoint2D(3, 4),
              DPoint2D(-1, 4));
    EXPECT_EQ(DMat33::About(DPoint2D(1, 1), DMat33::Mirror(true)) * DPoint2D(3, 4),
              DPoint2D(3, -2));
}

TEST(Matrix, TheInverseUndoes) {
    DMat33 const m =
        DMat33::Translation(DVec2(5, 6)) * DMat33::RotationZ(0.3) * DMat33::Scale(2, -3);
    ExpectNear(Inverse(m) * (m * DPoint2D(7, 8)), DPoint2D(7, 8));
    EXPECT_LT(m.Determinant(), 0);
}

TEST(Angle, LiesBetweenZeroAndAFullTurn) {
    EXPECT_EQ(Angle(DVec2(1, 0)), 0);
    EXPECT_NEAR(Angle(DVec2(0, -1)), 1.5 * PI, 1e-15);
    EXPECT_LT(Angle(DVec2(1, -1e-300)), TWO_PI);
    EXPECT_GE(Angle(DVec2(-1, -0.0)), 0);
}

TEST(Angle, OfTheZeroVectorIsZero) {
    EXPECT_EQ(Angle(DVec2()), 0);
    EXPECT_EQ(Angle(DVec2(NaN, 1)), 0);
}

TEST(Arc, ItsBoxIsNotThatOfItsCircle) {
    CircularArc<double, 2> const quarter(DPoint2D(0, 0), 2, 0, PI / 2);
    DBox2D const box = quarter.GetExtents();
    EXPECT_NEAR(box[0], 0, 1e-12);
    EXPECT_NEAR(box[1], 0, 1e-12);
    EXPECT_EQ(box[2], 2);
    EXPECT_EQ(box[3], 2);
}

TEST(Arc, RunsCounterClockwiseThroughAngleZero) {
    CircularArc<double, 2> const arc(DPoint2D(1, 1), 1, 1.5 * PI, 0.5 * PI);
    EXPECT_NEAR(arc.GetSweep(), PI, 1e-12);
    EXPECT_TRUE(arc.HasAngle(0));
    EXPECT_FALSE(arc.HasAngle(PI));
    EXPECT_NEAR(arc.GetExtents()[2], 2, 1e-12);
    EXPECT_NEAR(arc.GetExtents()[0], 1, 1e-12);
}

TEST(Arc, AFullTurnIsTheCircle) {
    CircularArc<double, 2> const circle(DPoint2D(0, 0), 1, 0, TWO_PI);
    EXPECT_TRUE(circle.IsFullCircle());
    EXPECT_EQ(circle.GetExtents(), DBox2D(-1, -1, 1, 1));
}

TEST(Close, ToleranceGrowsWithTheCoordinates) {
    EXPECT_TRUE(Close(DPoint2D(0, 0), DPoint2D(0, 0.0001)));
    EXPECT_FALSE(Close(DPoint2D(0, 0), DPoint2D(0, 0.00011)));
    EXPECT_TRUE(Close(DPoint2D(1000, 0), DPoint2D(1000, 0.09)));
    EXPECT_TRUE(CloseCoordinate(1000, 1000.09));
    EXPECT_FALSE(CloseCoordinate(0.5, 0.50011));
    EXPECT_FALSE(Close(DPoint2D(1, 1), DPoint2D(1, 1.0000001), std::ldexp(1.0, -50)));
}

TEST(Close, NothingIsCloseToWhatIsNoNumber) {
    EXPECT_FALSE(Close(DPoint2D(NaN, 0), DPoint2D(NaN, 0)));
    EXPECT_FALSE(Close(DPoint2D(0, 0), DPoint2D(Infinity, 0)));
}

TEST(Color, NamedColoursAreOpaque) {
    for (Color const& color : {Color::BLACK, Color::WHITE, Color::RED, Color::GREEN, Color::BLUE,
                               Color::YELLOW, Color::MAGENTA, Color::CYAN}) {
        EXPECT_EQ(color.a, 1.0F);
    }
    EXPECT_EQ(Color(), Color::BLACK);
}

}  // namespace
