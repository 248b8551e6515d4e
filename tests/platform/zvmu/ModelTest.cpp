#include <zvmu/ModelContainer.h>
#include <zvmu/ModelPolygon.h>
#include <zvmu/ModelShadowPoint.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using du::SmartPtr;
using zvmu::ModelContainer;
using zvmu::ModelPolygon;
using zvmu::ModelShadowPoint;
using zvmu::PickPoint;

PickPoint At(double x, double y, double tolerance = 0.0) {
    return {dg::DPoint3D(x, y, 0.0), tolerance, 1.0};
}

SmartPtr<ModelPolygon> Square() {
    SmartPtr<ModelPolygon> const square = new ModelPolygon(4);
    square->SetPoints({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}});
    return square;
}

TEST(ModelShadowPoint, IsTouchedAnywhereInItsRectangleAndAnswersItsPosition) {
    SmartPtr<ModelShadowPoint> const handle = new ModelShadowPoint({5, 5, 0}, 2, 4, false);
    EXPECT_EQ(handle->Pick(At(5.9, 6.9)).model, handle);
    EXPECT_EQ(handle->Pick(At(5.9, 6.9)).at, dg::DPoint3D(5, 5, 0));
    EXPECT_FALSE(handle->Pick(At(6.1, 5)).model);
    EXPECT_FALSE(handle->Pick(At(5, 7.1)).model);
    EXPECT_TRUE(handle->Pick(At(6.1, 5, 0.2)).model) << "the tolerance comes on top";
}

TEST(ModelShadowPoint, KeepsItsSizeOfTheWindowAtAnyScale) {
    SmartPtr<ModelShadowPoint> const handle = new ModelShadowPoint({0, 0, 0}, 2, 2, true);
    PickPoint pointer = At(15, 0);
    EXPECT_FALSE(handle->Pick(pointer).model);
    pointer.windowMillimetre = 20.0;
    EXPECT_TRUE(handle->Pick(pointer).model) << "2 mm of the window are 40 units of the drawing";
}

TEST(ModelPolygon, IsTouchedAtItsEdgesTheLastOneIncluded) {
    auto const square = Square();
    square->SetFlags(0);
    EXPECT_EQ(square->Pick(At(4, 0.5, 1)).at, dg::DPoint3D(4, 0, 0)) << "the place on the edge";
    EXPECT_EQ(square->Pick(At(-0.5, 3, 1)).at, dg::DPoint3D(0, 3, 0));
    EXPECT_EQ(square->Pick(At(10.5, 10.5, 1)).at, dg::DPoint3D(10, 10, 0));
    EXPECT_FALSE(square->Pick(At(11, 11, 1)).model);
    EXPECT_FALSE(square->Pick(At(5, 5, 1)).model) << "not inside";
}

TEST(ModelPolygon, IsTouchedInsideAsLongAsTheFlagIsSet) {
    auto const square = Square();
    EXPECT_EQ(square->Pick(At(5, 5)).model, square);
    EXPECT_EQ(square->Pick(At(5, 5)).at, dg::DPoint3D(5, 5, 0));
    EXPECT_FALSE(square->Pick(At(15, 5)).model);
    EXPECT_FALSE(square->Pick(At(-5, 5)).model);
    square->SetPoints({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {5, 2, 0}, {0, 10, 0}});
    EXPECT_FALSE(square->Pick(At(5, 6)).model) << "in the notch";
    EXPECT_TRUE(square->Pick(At(1, 6)).model);
}

TEST(ModelPolygon, WithoutSizeOrPointsDoesNoHarm) {
    SmartPtr<ModelPolygon> const polygon = new ModelPolygon(8);
    EXPECT_FALSE(polygon->Pick(At(0, 0, 1)).model);
    polygon->SetPoints({{1, 1, 0}, {1, 1, 0}});
    EXPECT_TRUE(polygon->Pick(At(1, 1)).model);
    EXPECT_FALSE(polygon->Pick(At(std::nan(""), 1, 5)).model);
}

TEST(ModelPolygon, TakesItsOwnPointsAndAnyExpectation) {
    auto const square = Square();
    square->SetPoints(square->GetPoints());
    EXPECT_EQ(square->GetPoints().size(), 4u);
    SmartPtr<ModelPolygon> const hopeful =
        new ModelPolygon(std::numeric_limits<std::size_t>::max());
    hopeful->SetPoints(square->GetPoints());
    EXPECT_EQ(hopeful->GetPoints(), square->GetPoints());
}

TEST(ModelBase, HiddenModelsAreNotTouched) {
    auto const square = Square();
    square->SetFlags(square->GetFlags() | zvmu::ModelBase::HIDDEN);
    EXPECT_FALSE(square->Pick(At(5, 5)).model);
}

TEST(ModelBase, LocationsOfModelAndContainerAddUp) {
    SmartPtr<ModelShadowPoint> const handle = new ModelShadowPoint({1, 0, 0}, 1, 1, false);
    SmartPtr<ModelContainer> const container = new ModelContainer();
    container->AddHead(handle);
    dg::Location location;
    location.SetPos({10, 0, 0});
    handle->SetLocation(location);
    location.SetPos({0, 20, 0});
    container->SetLocation(location);
    EXPECT_FALSE(container->Pick(At(1, 0)).model);
    auto const picked = container->Pick(At(11.2, 20.2));
    EXPECT_EQ(picked.model, handle);
    EXPECT_EQ(picked.at, dg::DPoint3D(11, 20, 0));
}

TEST(ModelContainer, TheModelAddedLastLiesOnTop) {
    SmartPtr<ModelShadowPoint> const below = new ModelShadowPoint({0, 0, 0}, 9, 9, false);
    SmartPtr<ModelShadowPoint> const above = new ModelShadowPoint({0, 0, 0}, 2, 2, false);
    SmartPtr<ModelContainer> const container = new ModelContainer();
    container->AddHead(below);
    container->AddHead(above);
    EXPECT_EQ(container->GetModels().front(), above);
    EXPECT_EQ(container->Pick(At(0, 0)).model, above);
    EXPECT_EQ(container->Pick(At(4, 0)).model, below);
    EXPECT_FALSE(container->Pick(At(40, 0)).model);
}

TEST(ModelContainer, RefusesNullsDoublesAndWhateverHoldsIt) {
    SmartPtr<ModelContainer> const outer = new ModelContainer();
    SmartPtr<ModelContainer> const inner = new ModelContainer();
    outer->AddHead(nullptr);
    outer->AddHead(outer);
    EXPECT_TRUE(outer->GetModels().empty());
    outer->AddHead(inner);
    outer->AddHead(inner);
    inner->AddHead(outer);
    EXPECT_EQ(outer->GetModels().size(), 1u);
    EXPECT_TRUE(inner->GetModels().empty());
}

TEST(RenderAttrs, MarksInvertWhatIsBelow) {
    auto const& marker = zvmu::RenderAttrs::GetMarkerXor();
    ASSERT_EQ(marker.size(), 1u);
    EXPECT_EQ(marker[0]->GetMode(), zvmu::RenderAttrs::XOR);
    EXPECT_EQ(zvmu::RenderAttrs::GetMarkerXor()[0], marker[0]);
}

}  // namespace
