#include <figrep/SettingList.h>

#include <figk/ArrowStyle.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SettingItems.h"

namespace figrep::testing {
namespace {

// Which of several settings counts.

TEST(SettingLookup, OwnFigureLevelWinsOverTheParentsWithDepthZero) {
    Item parent;
    Item item(&parent);
    parent.AddSetting(Colour(Color::RED, FIGURE), true);
    item.AddSetting(Colour(Color::BLUE, FIGURE), true);
    unsigned int depth = 9;
    Found const found = item.GetSetting(Setting::COLOR, depth);
    EXPECT_EQ(depth, 0u);
    EXPECT_EQ(ColourOf(item), Color::BLUE);
    EXPECT_EQ(found->GetLevel(), FIGURE);
}

TEST(SettingLookup, AParentsHigherLevelWinsOverAnOwnProfileLevel) {
    Item parent;
    Item item(&parent);
    item.AddSetting(Colour(Color::BLUE, PROFILE), true);
    parent.AddSetting(Colour(Color::RED, UPPER_A), true);
    unsigned int depth = 0;
    EXPECT_EQ(item.GetSetting(Setting::COLOR, depth)->GetLevel(), UPPER_A);
    EXPECT_EQ(depth, 1u);
}

TEST(SettingLookup, OwnUpperLevelsEndTheSearchInTheirOrder) {
    Item parent;
    Item item(&parent);
    parent.AddSetting(Colour(Color::RED, FIGURE), true);
    item.AddSetting(Colour(Color::BLUE, UPPER_A), true);
    EXPECT_EQ(ColourOf(item), Color::BLUE);
    item.AddSetting(Colour(Color::GREEN, UPPER_B), true);
    EXPECT_EQ(ColourOf(item), Color::GREEN);
    item.AddSetting(Colour(Color::CYAN, FIGURE), true);
    EXPECT_EQ(ColourOf(item), Color::CYAN);
}

TEST(SettingLookup, AForcedLocalEntryBeatsTheProfileLevel) {
    Item item;
    item.AddSetting(Colour(Color::BLUE, PROFILE), true);
    item.AddSetting(Colour(Color::RED, FORCED), true);
    EXPECT_EQ(ColourOf(item), Color::RED);
}

TEST(SettingLookup, ALowerLocalEntryDoesntBeatTheProfileLevel) {
    for (Level level : {DEFAULT, BASE}) {
        Item item;
        item.AddSetting(Colour(Color::RED, level), true);
        item.AddSetting(Colour(Color::BLUE, PROFILE), true);
        EXPECT_EQ(ColourOf(item), Color::BLUE);
    }
}

TEST(SettingLookup, ATieGoesToTheNearestHolder) {
    Item parent;
    Item item(&parent, Kernel(Color::GREEN, BASE));
    EXPECT_EQ(ColourOf(item), Color::GREEN);
    parent.AddSetting(Colour(Color::RED, BASE), true);
    EXPECT_EQ(ColourOf(item), Color::RED);  // inherited over the kernel's
    item.AddSetting(Colour(Color::BLUE, BASE), true);
    EXPECT_EQ(ColourOf(item), Color::BLUE);  // own over inherited
}

TEST(SettingLookup, TheKernelsHigherLevelWins) {
    Item item(nullptr, Kernel(Color::GREEN, PROFILE));
    item.AddSetting(Colour(Color::BLUE, BASE), true);
    unsigned int depth = 5;
    EXPECT_EQ(item.GetSetting(Setting::COLOR, depth)->GetLevel(), PROFILE);
    EXPECT_EQ(depth, 0u);
}

TEST(SettingLookup, DepthCountsTheStepsUp) {
    Item top;
    Item middle(&top);
    Item item(&middle);
    top.AddSetting(Colour(Color::RED, FIGURE), true);
    unsigned int depth = 0;
    EXPECT_TRUE(item.GetSetting(Setting::COLOR, depth));
    EXPECT_EQ(depth, 2u);
}

TEST(SettingLookup, WhatCantBeInheritedIsFoundOnTheHolderAlone) {
    Item parent;
    Item item(&parent);
    for (Level level : {FIGURE, UPPER_A, UPPER_B, PROFILE, BASE}) {
        parent.ClearAll();
        parent.AddSetting(Colour(Color::RED, level, false), true);
        EXPECT_EQ(ColourOf(parent), Color::RED) << level;
        unsigned int depth = 0;
        EXPECT_FALSE(item.GetSetting(Setting::COLOR, depth)) << level;
    }
}

TEST(SettingLookup, ChildrenDontSeeTheKernelListOfTheirParent) {
    Item parent(nullptr, Kernel(Color::GREEN));
    Item const item(&parent);
    unsigned int depth = 0;
    EXPECT_TRUE(parent.GetSetting(Setting::COLOR, depth));
    EXPECT_FALSE(item.GetSetting(Setting::COLOR, depth));
}

TEST(SettingLookup, AFigureOnlyKeyReachesTheKernelWithKeyZero) {
    du::SmartPtr<figk::SettingList> const kernel(new figk::SettingList);
    kernel->Add(new figk::Setting(figk::Setting::KEY_NONE,
                                  new figk::SettingValue<Color>(Color::CYAN), BASE, true));
    Item const item(nullptr, kernel);
    Color color;
    EXPECT_TRUE(item.GetColorSetting(Setting::TEXT_COLOR, color));
    EXPECT_EQ(color, Color::CYAN);
}

TEST(SettingLookup, AnItemThatStandsNowhereAnswersNull) {
    Item const item;
    unsigned int depth = 7;
    EXPECT_FALSE(item.GetSetting(Setting::COLOR, depth));
    EXPECT_EQ(depth, 0u);
}

// What a list keeps.

TEST(SettingChanges, AValueEqualToTheKernelsIsNotKept) {
    Item item(nullptr, Kernel(Color::GREEN));
    item.AddSetting(Colour(Color::GREEN, BASE), true);
    EXPECT_FALSE(item.RemoveSetting(Setting::COLOR, BASE));
    EXPECT_EQ(item.changes, 0);
}

TEST(SettingChanges, AValueEqualToTheKernelsTakesOutALowerLocalEntry) {
    for (Level level : {DEFAULT, BASE}) {
        Item item(nullptr, Kernel(Color::GREEN));
        item.AddSetting(Colour(Color::RED, level), true);
        item.AddSetting(Colour(Color::GREEN, BASE), true);
        EXPECT_FALSE(item.RemoveSetting(Setting::COLOR, level));
        EXPECT_EQ(item.changes, 2);
    }
}

TEST(SettingChanges, AValueEqualToTheKernelsLeavesAForcedEntry) {
    Item item(nullptr, Kernel(Color::GREEN));
    item.AddSetting(Colour(Color::RED, FORCED), true);
    item.AddSetting(Colour(Color::GREEN, BASE), true);
    EXPECT_EQ(ColourOf(item), Color::RED);
}

TEST(SettingChanges, FigureLevelIsKeptAlsoWhenEqualToTheKernels) {
    Item item(nullptr, Kernel(Color::GREEN));
    item.AddSetting(Colour(Color::GREEN, FIGURE), true);
    EXPECT_TRUE(item.RemoveSetting(Setting::COLOR, FIGURE));
}

TEST(SettingChanges, TheHigherLocalLevelStays) {
    Item item;
    item.AddSetting(Colour(Color::RED, BASE), true);
    item.AddSetting(Colour(Color::BLUE, DEFAULT), true);
    EXPECT_EQ(ColourOf(item), Color::RED);
    Item other;
    other.AddSetting(Colour(Color::BLUE, DEFAULT), true);
    other.AddSetting(Colour(Color::RED, BASE), true);
    EXPECT_EQ(ColourOf(other), Color::RED);
    other.AddSetting(Colour(Color::CYAN, BASE), true);
    EXPECT_EQ(ColourOf(other), Color::CYAN);
}

TEST(SettingChanges, SingleLevelsAreReplaced) {
    for (Level level : {PROFILE, UPPER_A, UPPER_B, FIGURE}) {
        Item item;
        item.AddSetting(Colour(Color::RED, level), true);
        item.AddSetting(Colour(Color::BLUE, level), true);
        EXPECT_EQ(ColourOf(item), Color::BLUE);
    }
}

TEST(SettingChanges, RemovingIgnoresTheLevelOfALocalEntry) {
    Item item;
    item.AddSetting(Colour(Color::RED, FORCED), true);
    Found const removed = item.RemoveSetting(Setting::COLOR, DEFAULT);
    ASSERT_TRUE(removed);
    EXPECT_EQ(removed->GetLevel(), FORCED);
    EXPECT_TRUE(item.Empty());
}

TEST(SettingChanges, RemovingTakesFromTheNamedLevelAlone) {
    Item item;
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    EXPECT_FALSE(item.RemoveSetting(Setting::COLOR, PROFILE));
    EXPECT_FALSE(item.RemoveSetting(Setting::DIM, FIGURE));
    EXPECT_EQ(ColourOf(item), Color::RED);
}

TEST(SettingChanges, LocalLevelsCantBeCleared) {
    for (Level level : {ALL, DEFAULT, BASE, FORCED}) {
        Item item;
        item.AddSetting(Colour(Color::RED, BASE), true);
        item.changes = 0;
        EXPECT_FALSE(item.ClearSettingList(level, true));
        EXPECT_EQ(ColourOf(item), Color::RED);
        EXPECT_EQ(item.changes, 0);
    }
}

TEST(SettingChanges, ClearingALevelTellsWhetherItHeldAnything) {
    for (Level level : {PROFILE, UPPER_A, UPPER_B, FIGURE}) {
        Item item;
        item.AddSetting(Colour(Color::RED, level), true);
        item.AddSetting(Make(Setting::DIM, true, level), true);
        item.AddSetting(Colour(Color::BLUE, BASE), true);
        EXPECT_TRUE(item.ClearSettingList(level, true));
        EXPECT_FALSE(item.ClearSettingList(level, true));
        EXPECT_EQ(ColourOf(item), Color::BLUE);
    }
}

TEST(SettingChanges, ClearingAllEmptiesEveryLevel) {
    Item item;
    for (Level level : {BASE, PROFILE, UPPER_A, UPPER_B, FIGURE}) {
        item.AddSetting(Colour(Color::RED, level), true);
    }
    item.ClearAll();
    EXPECT_EQ(ColourOf(item), Color::WHITE);
}

TEST(SettingChanges, EveryChangeReachesTheHookOnceAndNothingElseDoes) {
    Item item;
    item.AddSetting(nullptr, true);
    EXPECT_EQ(item.changes, 0);
    item.AddSetting(Colour(Color::RED, FORCED), true);
    EXPECT_EQ(item.changes, 1);
    item.AddSetting(Colour(Color::BLUE, BASE), true);  // dropped
    EXPECT_EQ(item.changes, 1);
    item.AddSetting(Colour(Color::BLUE, FIGURE), false);
    EXPECT_EQ(item.changes, 2);
    item.RemoveSetting(Setting::COLOR, PROFILE);  // nothing there
    EXPECT_EQ(item.changes, 2);
    item.RemoveSetting(Setting::COLOR, FIGURE);
    EXPECT_EQ(item.changes, 3);
    item.ClearAll();
    EXPECT_EQ(item.changes, 4);
    item.ClearAll();
    EXPECT_EQ(item.changes, 4);
}

TEST(SettingChanges, EmptyLooksAtTheKernelListButNotAtUpperLevels) {
    Item item;
    EXPECT_TRUE(item.Empty());
    item.AddSetting(Colour(Color::RED, UPPER_A), true);
    item.AddSetting(Colour(Color::RED, UPPER_B), true);
    EXPECT_TRUE(item.Empty());
    item.AddSetting(Colour(Color::RED, PROFILE), true);
    EXPECT_FALSE(item.Empty());
    EXPECT_FALSE(Item(nullptr, Kernel(Color::RED)).Empty());
    EXPECT_TRUE(Item(nullptr, new figk::SettingList).Empty());
}

TEST(SettingChanges, AnItemWithoutSettingsCostsThreePointers) {
    struct Bare : virtual du::RefCounted {};
    EXPECT_LE(sizeof(SettingList), sizeof(Bare) + 3 * sizeof(void*));
}

// Visiting.

class Seen : public figrep::SettingListVisitor {
public:
    bool Visit(Found const& setting) override {
        return Note("kernel:" + std::to_string(setting->GetKey()), setting);
    }
    bool Visit(Setting::RepKey const& key, Found const& setting) override {
        return Note(std::to_string(key), setting);
    }

    std::vector<std::string> lines;
    size_t stopAfter = 100;

private:
    bool Note(std::string const& key, Found const& setting) {
        lines.push_back(key + "@" + std::to_string(setting->GetLevel()));
        return lines.size() < stopAfter;
    }
};

using Lines = std::vector<std::string>;

TEST(SettingVisits, AllLevelsLeaveOutTheUpperTwo) {
    Item item;
    item.AddSetting(Colour(Color::RED, BASE), true);
    item.AddSetting(Make(Setting::DIM, true, PROFILE), true);
    item.AddSetting(Colour(Color::RED, PROFILE), true);
    item.AddSetting(Colour(Color::RED, UPPER_A), true);
    item.AddSetting(Colour(Color::RED, UPPER_B), true);
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    Seen seen;
    EXPECT_TRUE(item.Visit(seen, false, ALL));
    EXPECT_EQ(seen.lines, (Lines{"32@7", "32@3", "224@3", "32@2"}));
    Seen upper;
    item.Visit(upper, false, UPPER_A);
    item.Visit(upper, false, UPPER_B);
    EXPECT_EQ(upper.lines, Lines());
}

TEST(SettingVisits, OneSingleLevelIsShownAlone) {
    Item item;
    item.AddSetting(Colour(Color::RED, BASE), true);
    item.AddSetting(Colour(Color::RED, PROFILE), true);
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    Seen seen;
    EXPECT_TRUE(item.Visit(seen, false, PROFILE));
    EXPECT_TRUE(item.Visit(seen, false, FIGURE));
    EXPECT_EQ(seen.lines, (Lines{"32@3", "32@7"}));
}

TEST(SettingVisits, ALocalLevelStopsAtTheFirstEntryOfAnotherLevel) {
    Item item;
    item.AddSetting(Make(Setting::COLOR, Color::RED, BASE), true);
    item.AddSetting(Make(Setting::DIM, true, DEFAULT), true);
    item.AddSetting(Make(Setting::FORMAT_GRID_ON, true, BASE), true);
    Seen seen;
    EXPECT_FALSE(item.Visit(seen, false, BASE));
    EXPECT_EQ(seen.lines, Lines{"32@2"});
    EXPECT_TRUE(Item().Visit(seen, false, BASE));
}

TEST(SettingVisits, TheKernelComesFirstAndWithoutAKeyOfTheFigure) {
    Item item(nullptr, Kernel(Color::GREEN));
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    Seen seen;
    EXPECT_TRUE(item.Visit(seen, true, ALL));
    EXPECT_EQ(seen.lines, (Lines{"kernel:2@2", "32@7"}));
    Seen kernelVisitor;
    EXPECT_TRUE(item.Visit(static_cast<figk::SettingListVisitor&>(kernelVisitor), true, ALL));
    EXPECT_EQ(kernelVisitor.lines, (Lines{"kernel:2@2", "kernel:2@7"}));
}

TEST(SettingVisits, AVisitorStopsTheWalk) {
    Item item(nullptr, Kernel(Color::GREEN));
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    item.AddSetting(Make(Setting::DIM, true, FIGURE), true);
    Seen first;
    first.stopAfter = 1;
    EXPECT_FALSE(item.Visit(first, true, ALL));
    EXPECT_EQ(first.lines.size(), 1u);
    Seen second;
    second.stopAfter = 2;
    EXPECT_FALSE(item.Visit(second, true, ALL));
    EXPECT_EQ(second.lines.size(), 2u);
}

TEST(SettingVisits, AVisitorMayChangeTheList) {
    struct Remover : Seen {
        explicit Remover(Item* changed) : item(changed) {}
        bool Visit(Found const& setting) override { return Seen::Visit(setting); }
        bool Visit(Setting::RepKey const& key, Found const& setting) override {
            item->RemoveSetting(key, setting->GetLevel());
            return Seen::Visit(key, setting);
        }
        Item* item;
    };
    Item item;
    item.AddSetting(Colour(Color::RED, FIGURE), true);
    item.AddSetting(Make(Setting::DIM, true, FIGURE), true);
    Remover remover(&item);
    EXPECT_TRUE(item.Visit(remover, false, ALL));
    EXPECT_EQ(remover.lines.size(), 2u);
    EXPECT_TRUE(item.Empty());
}

// Typed queries.

TEST(TypedSettings, FoundValuesComeWithLevelAndDepth) {
    Item parent;
    Item const item(&parent);
    parent.AddSetting(Make(Setting::TRANSPARENCY, 0.25F, PROFILE), true);
    float value = 1;
    Level level = ALL;
    unsigned int depth = 0;
    EXPECT_TRUE(item.GetFloatSetting(Setting::TRANSPARENCY, value, level, depth));
    EXPECT_EQ(value, 0.25F);
    EXPECT_EQ(level, PROFILE);
    EXPECT_EQ(depth, 1u);
}

TEST(TypedSettings, NothingFoundLeavesTheOutputsAlone) {
    Item const item;
    bool value = true;
    Level level = UPPER_B;
    unsigned int depth = 42;
    EXPECT_FALSE(item.GetBooleanSetting(Setting::DIM, value, level, depth));
    EXPECT_TRUE(value);
    EXPECT_EQ(level, UPPER_B);
    EXPECT_EQ(depth, 42u);
}

TEST(TypedSettings, AValueOfAnotherTypeIsNotFound) {
    Item item;
    item.AddSetting(Make(Setting::COLOR, true, FIGURE), true);
    item.AddSetting(Make(Setting::DIM, Color::RED, FIGURE), true);
    item.AddSetting(Make(Setting::LINE_ATTRIBUTES, true, FIGURE), true);
    item.AddSetting(new Setting(Setting::TRANSPARENCY, nullptr, FIGURE, true), true);
    Color color;
    bool flag = false;
    float number = 0;
    LinePtr line;
    EXPECT_FALSE(item.GetColorSetting(Setting::COLOR, color));
    EXPECT_FALSE(item.GetBooleanSetting(Setting::DIM, flag));
    EXPECT_FALSE(item.GetFloatSetting(Setting::TRANSPARENCY, number));
    EXPECT_FALSE(item.GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, line));
}

TEST(TypedSettings, EachTypeIsReadBack) {
    Item item;
    item.AddSetting(Make(Setting::CROSSING_POINT_STYLE, figk::CROSSING_GAP, FIGURE), true);
    figk::ArrowStyle const arrows(figk::ArrowStyle::PATTERN_END, 3, nullptr, nullptr, true);
    item.AddSetting(Make(Setting::ARROW_STYLE, arrows, FIGURE), true);
    du::ConstSmartPtr<attrs::FillAttr> const fill(new attrs::FillAttr(1, Color::RED));
    item.AddSetting(Make(Setting::FILL_ATTRIBUTES, fill, FIGURE), true);
    du::ConstSmartPtr<zv2d::Texture> const texture(new zv2d::Texture(du::Symbol("hatch")));
    item.AddSetting(Make(Setting::TEXTURE, texture, FIGURE), true);

    figk::CrossingPointStyle crossing{};
    EXPECT_TRUE(item.GetCrossingPointStyleSetting(Setting::CROSSING_POINT_STYLE, crossing));
    EXPECT_EQ(crossing, figk::CROSSING_GAP);
    figk::ArrowStyle style;
    EXPECT_TRUE(item.GetArrowStyleSetting(Setting::ARROW_STYLE, style));
    EXPECT_TRUE(style == arrows);
    du::ConstSmartPtr<attrs::FillAttr> foundFill;
    EXPECT_TRUE(item.GetZv2dFillAttributesSetting(figk::Setting::KEY_FILL_ATTRIBUTES, foundFill));
    EXPECT_EQ(foundFill, fill);
    du::ConstSmartPtr<zv2d::Texture> foundTexture;
    EXPECT_TRUE(item.GetZv2dTextureSetting(figk::Setting::KEY_TEXTURE, foundTexture));
    EXPECT_EQ(foundTexture, texture);
}

TEST(SettingLocks, ANullLockIsSkipped) {
    struct Unlocked : SettingList {
        Unlocked() : SettingList(nullptr, nullptr) {}
    } list;
    list.AddSetting(Colour(Color::RED, FIGURE), true);
    EXPECT_EQ(ColourOf(list), Color::RED);
    EXPECT_TRUE(list.RemoveSetting(Setting::COLOR, FIGURE));
}

}  // namespace
}  // namespace figrep::testing
