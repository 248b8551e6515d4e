#include "GraphicsTestSupport.h"

#include <attrs/FillAttr.h>
#include <figrep/RenderInfo.h>
#include <zv2d/Texture.h>

namespace figrep {

using namespace testing;

TEST(RenderInfo, DimmedRedOnWhiteIsPink) {
    RenderInfo info(Lock());
    info.SetColor(Color::RED);
    info.SetDim(true);
    EXPECT_EQ(info.GetDisplayColor(Color::WHITE), Color(1.0F, 0.75F, 0.75F, 1.0F));
}

TEST(RenderInfo, TheDisplayColourSurvivesAnotherBackground) {
    RenderInfo info(Lock());
    info.SetColor(Color::RED);
    info.SetDim(true);
    Color const first = info.GetDisplayColor(Color::WHITE);
    info.SetDim(true);
    EXPECT_EQ(info.GetDisplayColor(Color::BLACK), first);
    info.SetDim(false);
    info.SetDim(true);
    EXPECT_NE(info.GetDisplayColor(Color::BLACK), first);
}

TEST(RenderInfo, ADimmedTranslucentColourIsOpaque) {
    RenderInfo info(Lock());
    info.SetColor(Color(1.0F, 0.0F, 0.0F, 0.25F));
    info.SetDim(true);
    EXPECT_EQ(info.GetDisplayColor(Color(1.0F, 1.0F, 1.0F, 0.5F)).a, 1.0F);
}

TEST(RenderInfo, HighlightingAltersNoColour) {
    RenderInfo info(Lock());
    info.SetColor(Color::GREEN);
    info.SetHighlight(true);
    EXPECT_TRUE(info.GetHighlight());
    EXPECT_EQ(info.GetDisplayColor(Color::WHITE), Color::GREEN);
}

TEST(RenderInfo, StartsVisibleBlackOnWhiteWithoutAPicture) {
    RenderInfo const info(nullptr);
    EXPECT_TRUE(info.IsVisible());
    EXPECT_FALSE(info.GetHighlight());
    EXPECT_FALSE(info.GetDim());
    EXPECT_EQ(info.GetColor(), Color::BLACK);
    EXPECT_EQ(info.GetBackgroundColor(), Color::WHITE);
    EXPECT_FALSE(info.GetZv2dGraphics());
    EXPECT_EQ(info.GetDisplayColor(Color::RED), Color::BLACK);
}

TEST(RenderInfo, ACloneHasAPictureOfItsOwn) {
    RenderInfo info(Lock());
    SmartPtr<figk::Zv2dGraphics> const picture(
        new figk::Zv2dGraphics(Lock(), Line({0, 0}, {1, 0})));
    info.SetZv2dGraphics(picture);
    SmartPtr<RenderInfo> const clone = info.Clone();
    clone->GetZv2dGraphics()->Move(10, 0);
    EXPECT_EQ(picture->GetExtents(), DBox2D(0, 0, 1, 0));
    EXPECT_EQ(clone->GetZv2dGraphics()->GetExtents(), DBox2D(10, 0, 11, 0));
}

TEST(RenderInfo, EqualTexturesBecomeOne) {
    RenderInfo first(Lock());
    RenderInfo second(Lock());
    Symbol const name("hatching");
    first.SetTexture(ConstSmartPtr<zv2d::Texture>(new zv2d::Texture(name)));
    second.SetTexture(ConstSmartPtr<zv2d::Texture>(new zv2d::Texture(name)));
    EXPECT_TRUE(first.GetTexture());
    EXPECT_EQ(first.GetTexture(), second.GetTexture());
    second.SetTexture(nullptr);
    EXPECT_FALSE(second.GetTexture());
}

}  // namespace figrep
