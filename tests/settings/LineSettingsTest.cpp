// Line attributes and the members of which they consist.
#include <figrep/SettingList.h>
#include <gtest/gtest.h>

#include "SettingItems.h"

namespace figrep::testing {
namespace {

TEST(LineSettings, MembersAreTakenFromTheWhole) {
    Item item;
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(0.7F, Color::BLUE), FIGURE), true);
    Color color;
    EXPECT_TRUE(item.GetColorSetting(Setting::LINE_COLOR, color));
    EXPECT_EQ(color, Color::BLUE);
    figk::WeightAttr weight;
    EXPECT_TRUE(item.GetWeightSetting(Setting::LINE_WEIGHT, weight));
    EXPECT_EQ(weight, (figk::WeightAttr{0.7F, 3}));
    figk::LineStyleAttr style;
    EXPECT_TRUE(item.GetLineStyleSetting(Setting::LINE_STYLE, style));
    EXPECT_EQ(style.style, zv2d::LineStyleList::Get(zv2d::LineStyleList::DASH));
    EXPECT_EQ(style.kind, 4);
    EXPECT_EQ(style.scale, 0.5F);
}

TEST(LineSettings, AMemberCountsUnlessTheWholeOutranksIt) {
    Item item;
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(1, Color::BLUE), BASE), true);
    item.AddSetting(Make(Setting::LINE_COLOR, Color::RED, BASE), true);
    Color color;
    item.GetColorSetting(Setting::LINE_COLOR, color);
    EXPECT_EQ(color, Color::RED);  // a tie at one depth goes to the member
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(1, Color::BLUE), PROFILE), true);
    item.GetColorSetting(Setting::LINE_COLOR, color);
    EXPECT_EQ(color, Color::BLUE);
}

TEST(LineSettings, OfEqualLevelsTheNearerOfMemberAndWholeCounts) {
    Item parent;
    Item item(&parent);
    parent.AddSetting(Make(Setting::LINE_COLOR, Color::RED, BASE), true);
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(1, Color::BLUE), BASE), true);
    unsigned int depth = 5;
    EXPECT_EQ(item.GetSetting(Setting::LINE_COLOR, depth)->GetKey(),
              figk::Setting::KEY_LINE_ATTRIBUTES);
    EXPECT_EQ(depth, 0u);
    Color color;
    item.GetColorSetting(Setting::LINE_COLOR, color);
    EXPECT_EQ(color, Color::BLUE);
}

TEST(LineSettings, AnOwnMemberOfFigureLevelEndsTheSearch) {
    Item item;
    item.AddSetting(Make(Setting::LINE_COLOR, Color::RED, FIGURE), true);
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(1, Color::BLUE), FIGURE), true);
    Color color;
    item.GetColorSetting(Setting::LINE_COLOR, color);
    EXPECT_EQ(color, Color::RED);
}

TEST(LineSettings, AnyOtherKeyIsRefused) {
    Item item;
    item.AddSetting(Make(Setting::COLOR, Line(1, Color::BLUE), FIGURE), true);
    LinePtr const before = Line(2, Color::RED);
    LinePtr out = before;
    Level level = UPPER_A;
    unsigned int depth = 8;
    EXPECT_FALSE(item.GetZv2dLineAttributesSetting(figk::Setting::KEY_COLOR, out, level, depth));
    EXPECT_EQ(out, before);
    EXPECT_EQ(level, UPPER_A);
    EXPECT_EQ(depth, 8u);
}

TEST(LineSettings, NothingFoundClearsTheOutputs) {
    Item const item;
    LinePtr out = Line(2, Color::RED);
    Level level = UPPER_A;
    unsigned int depth = 8;
    EXPECT_FALSE(
        item.GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, out, level, depth));
    EXPECT_FALSE(out);
    EXPECT_EQ(level, ALL);
    EXPECT_EQ(depth, 0u);
}

class MergedLines : public ::testing::Test {
protected:
    bool Query() {
        return item.GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, out, level,
                                                 depth);
    }

    Item figure;
    Item item{&figure};
    LinePtr out;
    Level level = ALL;
    unsigned int depth = 0;
};

TEST_F(MergedLines, WithoutMembersTheWholeItselfIsShared) {
    LinePtr const whole = Line(1, Color::BLUE);
    figure.AddSetting(Make(Setting::LINE_ATTRIBUTES, whole, DEFAULT), true);
    ASSERT_TRUE(Query());
    EXPECT_EQ(out, whole);
    EXPECT_EQ(level, DEFAULT);
    EXPECT_EQ(depth, 1u);
}

TEST_F(MergedLines, AnOwnColourIsPutIntoTheFiguresLine) {
    figure.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(0.7F, Color::BLUE), DEFAULT), true);
    item.AddSetting(Make(Setting::LINE_COLOR, Color::RED, FIGURE), true);
    ASSERT_TRUE(Query());
    zv2d::LineAttributes const expected(2, 1, zv2d::LineStyleList::Get(zv2d::LineStyleList::DASH),
                                        0.7F, 3, 0.5F, 4, Color::RED, Color::GREEN);
    EXPECT_EQ(*out, expected);
    EXPECT_EQ(level, FIGURE);
    EXPECT_EQ(depth, 1u);
}

TEST_F(MergedLines, AMemberThatTheWholeBeatsIsDropped) {
    LinePtr const whole = Line(1, Color::BLUE);
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, whole, BASE), true);
    figure.AddSetting(Make(Setting::LINE_COLOR, Color::RED, BASE), true);  // further away
    item.AddSetting(Make(Setting::LINE_WEIGHT, figk::WeightAttr{2, 3}, DEFAULT), true);  // lower
    ASSERT_TRUE(Query());
    EXPECT_EQ(out, whole);
}

TEST_F(MergedLines, ThreeMembersLeaveOnlyJoinAndCapOfTheWhole) {
    figure.AddSetting(Make(Setting::LINE_ATTRIBUTES, Line(1, Color::BLUE), DEFAULT), true);
    auto const dots = zv2d::LineStyleList::Get(zv2d::LineStyleList::DOT);
    item.AddSetting(Make(Setting::LINE_COLOR, Color::RED, PROFILE), true);
    item.AddSetting(Make(Setting::LINE_WEIGHT, figk::WeightAttr{2, 3}, BASE), true);
    item.AddSetting(Make(Setting::LINE_STYLE, figk::LineStyleAttr{dots, 3, 1.5F}, BASE), true);
    ASSERT_TRUE(Query());
    EXPECT_EQ(*out, zv2d::LineAttributes(2, 1, dots, 2, 3, 1.5F, 3, Color::RED, Color::GREEN));
    EXPECT_EQ(level, PROFILE);
    EXPECT_EQ(depth, 0u);  // the whole, one step up, isn't asked any more
}

TEST_F(MergedLines, MembersAloneFillUpThePlatformsDefault) {
    item.AddSetting(Make(Setting::LINE_WEIGHT, figk::WeightAttr{2, 3}, BASE), true);
    ASSERT_TRUE(Query());
    zv2d::LineAttributes const standard;
    EXPECT_EQ(*out, zv2d::LineAttributes(standard.GetLineJoin(), standard.GetEndCap(),
                                         standard.GetLineStyle(), 2, 3, 0, 3, Color::BLACK,
                                         Color::BLACK));
    EXPECT_EQ(level, BASE);
    EXPECT_EQ(depth, 0u);
}

TEST(LineSettings, AKernelsLineIsTheWhole) {
    du::SmartPtr<figk::SettingList> const kernel(new figk::SettingList);
    LinePtr const whole = Line(1, Color::BLUE);
    kernel->Add(new figk::Setting(figk::Setting::KEY_LINE_ATTRIBUTES,
                                  new figk::SettingValue<LinePtr>(whole), BASE, true));
    Item const item(nullptr, kernel);
    LinePtr out;
    EXPECT_TRUE(item.GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, out));
    EXPECT_EQ(out, whole);
}

}  // namespace
}  // namespace figrep::testing
