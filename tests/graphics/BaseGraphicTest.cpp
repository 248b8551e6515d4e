#include "GraphicsTestSupport.h"

namespace figrep {

using namespace testing;

namespace {

SmartPtr<GenericGraphic> KernelGraphic(SmartPtr<figk::Zv2dGraphics> const& picture,
                                       SmartPtr<figk::Group> const& group = nullptr) {
    SmartPtr<figk::GenericGraphic> const record(new FakeGraphic(picture));
    return GenericGraphic::Create(Lock(), record, group);
}

SmartPtr<figk::Zv2dGraphics> Picture() {
    return new figk::Zv2dGraphics(Lock(), Line({0, 0}, {4, 2}));
}

}  // namespace

TEST(BaseGraphic, AGraphicHiddenByItsOwnerStaysHiddenWhateverTheSettingSays) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::ITEM_VISIBILITY, true);
    graphic->SetMemberVisibility(false);
    graphic->UpdateRenderInfoBase();
    EXPECT_FALSE(graphic->GetRenderInfo().IsVisible());
}

TEST(BaseGraphic, ASettingHidesAShownGraphic) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::ITEM_VISIBILITY, false);
    graphic->UpdateRenderInfoBase();
    EXPECT_FALSE(graphic->GetRenderInfo().IsVisible());
    EXPECT_TRUE(graphic->GetVisible());
}

TEST(BaseGraphic, MemberVisibilityShowsAtOnceWithoutALookAtSettings) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::ITEM_VISIBILITY, false);
    graphic->SetMemberVisibility(true);
    EXPECT_TRUE(graphic->GetRenderInfo().IsVisible());
}

TEST(BaseGraphic, WithoutPreselectionAPreselectHighlightIsCleared) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::PRESELECTION_NONE, true);
    graphic->SetMemberPreselectHighlight(true);
    EXPECT_FALSE(graphic->GetPreselectHighlight());
    EXPECT_FALSE(graphic->GetRenderInfo().GetHighlight());
}

TEST(BaseGraphic, OfTwoHighlightsTheLastOneCounts) {
    auto const graphic = LineGraphic(nullptr);
    graphic->SetMemberHighlight(true);
    graphic->SetMemberPreselectHighlight(true);
    EXPECT_FALSE(graphic->GetHighlight());
    EXPECT_TRUE(graphic->GetRenderInfo().GetHighlight());
    graphic->SetMemberHighlight(true);
    EXPECT_TRUE(graphic->GetHighlight());
}

TEST(BaseGraphic, AGraphicWithoutAnOwnerIgnoresSetHighlight) {
    auto const graphic = LineGraphic(nullptr);
    graphic->SetHighlight(true);
    graphic->SetPreselectHighlight(true);
    graphic->SetVisibility(false);
    EXPECT_FALSE(graphic->GetHighlight());
    EXPECT_FALSE(graphic->GetPreselectHighlight());
    EXPECT_TRUE(graphic->GetVisible());
}

TEST(BaseGraphic, HighlightingOneGraphicOfAGroupHighlightsAll) {
    auto const group = FreeGroup();
    auto const first = LineGraphic(group);
    auto const second = LineGraphic(group);
    first->SetHighlight(true);
    EXPECT_TRUE(second->GetHighlight());
    second->SetVisibility(false);
    EXPECT_FALSE(first->GetVisible());
}

TEST(BaseGraphic, ALabelIsHighlightedAlone) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const labels = wire->GetTextLabelContainerGroup();
    auto const first = TextGraphic::Create(Lock(), Symbol("a"), labels);
    auto const second = TextGraphic::Create(Lock(), Symbol("b"), labels);
    first->SetHighlight(true);
    first->SetVisibility(false);
    EXPECT_TRUE(first->GetHighlight());
    EXPECT_FALSE(second->GetHighlight());
    EXPECT_TRUE(second->GetVisible());
}

TEST(BaseGraphic, MovingAGraphicWithoutAPictureStillResetsTheExtents) {
    auto const graphic = KernelGraphic(nullptr);
    graphic->MoveItem(5, 5);
    EXPECT_FALSE(graphic->GetZv2dGraphics());
    EXPECT_EQ(graphic->GetExtents(), DBox2D::EMPTY);
}

TEST(BaseGraphic, TheFirstTransformCopiesTheKernelsPicture) {
    auto const picture = Picture();
    auto const graphic = KernelGraphic(picture);
    EXPECT_EQ(graphic->GetZv2dGraphics(), picture);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(0, 0, 4, 2));
    graphic->MoveItem(10, 0);
    EXPECT_NE(graphic->GetZv2dGraphics(), picture);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(10, 0, 14, 2));
    EXPECT_EQ(picture->GetExtents(), DBox2D(0, 0, 4, 2));
}

TEST(BaseGraphic, TransformsActOnThePicture) {
    auto const graphic = KernelGraphic(Picture());
    graphic->ScaleItem({0, 0}, 2.0);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(0, 0, 8, 4));
    graphic->MirrorItem({0, 0}, true);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(0, -4, 8, 0));
    graphic->MirrorItem({5, 0}, false);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(2, -4, 10, 0));
}

TEST(BaseGraphic, DrawStateTakesColourPictureAndDimmingFromSettings) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::COLOR, Color::BLUE);
    Set(*graphic, Setting::DIM, true);
    graphic->UpdateRenderInfoBase();
    RenderInfo const& info = graphic->GetRenderInfo();
    EXPECT_EQ(info.GetColor(), Color::BLUE);
    EXPECT_TRUE(info.GetDim());
    EXPECT_EQ(info.GetZv2dGraphics(), graphic->GetZv2dGraphics());
}

TEST(BaseGraphic, TheBackgroundIsReadBeforeItsFlagIsSet) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::BACKGROUND_COLOR, Color::YELLOW);
    graphic->SetFillBackground(true);
    graphic->UpdateRenderInfoBase();
    EXPECT_TRUE(graphic->GetRenderInfo().GetFillBackground());
    EXPECT_EQ(graphic->GetRenderInfo().GetBackgroundColor(), Color::WHITE);
    graphic->UpdateRenderInfoBase();
    EXPECT_EQ(graphic->GetRenderInfo().GetBackgroundColor(), Color::YELLOW);
}

TEST(BaseGraphic, FindsItsFigureThroughWhatItBelongsTo) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    EXPECT_EQ(LineGraphic(wire)->GetFigure(), drawing.figure);
    auto const label =
        TextGraphic::Create(Lock(), Symbol("a"), drawing.figure->GetTextLabelContainerGroup());
    EXPECT_EQ(label->GetFigure(), drawing.figure);
    EXPECT_FALSE(LineGraphic(nullptr)->GetFigure());
}

}  // namespace figrep
