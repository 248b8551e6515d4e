// Pictures of records and items.
#include <figk/Zv2dGraphics.h>
#include <gtest/gtest.h>
#include <zv2d/TexPolyline.h>
#include <zvk/ReadWriteLock.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace figktest {
namespace {

using figk::Zv2dGraphics;
using InstancePtr = du::SmartPtr<zv2d::Instance>;

InstancePtr Line(dg::DPoint2D const& a, dg::DPoint2D const& b) {
    du::SmartPtr<zv2d::Definition> definition(new zv2d::Definition());
    definition->Add(
        du::ConstSmartPtr<zv2d::Entity>(new zv2d::TexPolyline(std::vector<dg::DPoint2D>{a, b})));
    return InstancePtr(new zv2d::Instance(definition));
}

void ExpectBox(dg::DBox2D const& box, double xmin, double ymin, double xmax, double ymax) {
    EXPECT_NEAR(box[0], xmin, 1e-12);
    EXPECT_NEAR(box[1], ymin, 1e-12);
    EXPECT_NEAR(box[2], xmax, 1e-12);
    EXPECT_NEAR(box[3], ymax, 1e-12);
}

TEST(Zv2dGraphics, ExtentsHoldAllInstances) {
    Zv2dGraphics graphics(nullptr, {Line({0, 0}, {1, 2}), nullptr, Line({3, -1}, {4, 0})});
    ExpectBox(graphics.GetExtents(), 0, -1, 4, 2);
    EXPECT_EQ(graphics.GetInstances().size(), 2u);
}

TEST(Zv2dGraphics, WithoutInstancesThereIsNothing) {
    Zv2dGraphics graphics(nullptr, InstancePtr());
    EXPECT_TRUE(graphics.IsEmpty());
    EXPECT_TRUE(graphics.GetExtents().IsEmpty());
    EXPECT_FALSE(graphics.FineContentCheck(dg::DBox2D(-9, -9, 9, 9)));
    EXPECT_FALSE(graphics.InstanceContained(dg::DBox2D(-9, -9, 9, 9)));
    EXPECT_FALSE(graphics.InstanceOverlaps(dg::DPoint2D(0, 0)));
}

TEST(Zv2dGraphics, TransformsActOnAllInstances) {
    Zv2dGraphics graphics(nullptr, {Line({0, 0}, {2, 1}), Line({2, 1}, {2, 3})});
    graphics.Move(1, 1);
    ExpectBox(graphics.GetExtents(), 1, 1, 3, 4);
    graphics.Rotate({1, 1}, std::numbers::pi / 2);
    ExpectBox(graphics.GetExtents(), -2, 1, 1, 3);
    graphics.Mirror({1, 1}, false);
    ExpectBox(graphics.GetExtents(), 1, 1, 4, 3);
    graphics.Mirror({1, 1}, true);
    ExpectBox(graphics.GetExtents(), 1, -1, 4, 1);
    graphics.Scale({1, 1}, 2);
    ExpectBox(graphics.GetExtents(), 1, -3, 7, 1);
}

TEST(Zv2dGraphics, ScalingByZeroOrByWhatIsNoNumberDoesNothing) {
    Zv2dGraphics graphics(nullptr, Line({0, 0}, {2, 1}));
    graphics.Scale({0, 0}, 0);
    graphics.Scale({0, 0}, std::numeric_limits<double>::quiet_NaN());
    graphics.Scale({0, 0}, std::numeric_limits<double>::infinity());
    ExpectBox(graphics.GetExtents(), 0, 0, 2, 1);
}

TEST(Zv2dGraphics, ACopyIsMovedWithoutTheOriginal) {
    du::SmartPtr<zvk::ReadWriteLock> lock(new zvk::ReadWriteLock());
    Zv2dGraphics graphics(lock, Line({0, 0}, {1, 1}));
    Zv2dGraphics copy(graphics);
    copy.Move(5, 0);
    ExpectBox(graphics.GetExtents(), 0, 0, 1, 1);
    ExpectBox(copy.GetExtents(), 5, 0, 6, 1);
    EXPECT_EQ(copy.GetInstances()[0]->GetDefinition(), graphics.GetInstances()[0]->GetDefinition());
}

TEST(Zv2dGraphics, FineOverlapAsksTheShapeAndInstanceOverlapItsBox) {
    Zv2dGraphics graphics(nullptr, Line({0, 0}, {10, 10}));
    dg::DBox2D const corner(8, 1, 9, 2);
    EXPECT_FALSE(graphics.FineOverlapCheck(corner));
    EXPECT_TRUE(graphics.InstanceOverlaps(corner));
    EXPECT_TRUE(graphics.FineOverlapCheck(dg::DBox2D(4, 4, 6, 5)));
    EXPECT_TRUE(graphics.InstanceOverlaps(dg::DPoint2D(9, 1)));
    EXPECT_FALSE(graphics.InstanceOverlaps(dg::DPoint2D(11, 1)));
}

TEST(Zv2dGraphics, ContentIsWhatLiesWhollyInTheBox) {
    Zv2dGraphics graphics(nullptr, {Line({0, 0}, {1, 1}), Line({4, 4}, {5, 5})});
    EXPECT_TRUE(graphics.FineContentCheck(dg::DBox2D(0, 0, 5, 5)));
    EXPECT_TRUE(graphics.InstanceContained(dg::DBox2D(0, 0, 5, 5)));
    EXPECT_FALSE(graphics.FineContentCheck(dg::DBox2D(0, 0, 4.5, 5)));
    EXPECT_FALSE(graphics.InstanceContained(dg::DBox2D(0, 0, 4.5, 5)));
}

TEST(Zv2dGraphics, ABoxInstanceIsTheOutlineOfTheBox) {
    dg::DBox2D const box(1, 2, 5, 4);
    InstancePtr const instance = Zv2dGraphics::CreateBoxInstance(box);
    EXPECT_EQ(instance->GetExtents(), box);
    EXPECT_TRUE(instance->Overlaps(dg::DBox2D(0, 3, 2, 3.5)));
    EXPECT_FALSE(instance->Overlaps(dg::DBox2D(2, 2.5, 4, 3.5)));
    EXPECT_TRUE(Zv2dGraphics::CreateBoxInstance(dg::DBox2D::EMPTY)->GetDefinition()->IsEmpty());
}

}  // namespace
}  // namespace figktest
