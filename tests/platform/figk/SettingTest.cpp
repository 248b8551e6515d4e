// Settings, their values and lists, attributes and arrow styles.
#include <figk/Attribute.h>
#include <figk/SettingList.h>
#include <gtest/gtest.h>

namespace figktest {
namespace {

using figk::BaseSettingValue;
using figk::Setting;
using figk::SettingValue;
using ValuePtr = du::ConstSmartPtr<BaseSettingValue>;
using SettingPtr = du::ConstSmartPtr<Setting>;

template <typename T>
ValuePtr Value(T const& value) {
    return ValuePtr(new SettingValue<T>(value));
}

SettingPtr MakeSetting(Setting::Key key, Setting::Level level, ValuePtr const& value) {
    return SettingPtr(new Setting(key, value, level, true));
}

TEST(SettingValue, TypeNumbersAreTheAgreedOnes) {
    EXPECT_EQ(Value(true)->GetType(), 1);
    EXPECT_EQ(Value(dg::Color())->GetType(), 2);
    EXPECT_EQ(Value(du::ConstSmartPtr<zv2d::LineAttributes>())->GetType(), 5);
    EXPECT_EQ(Value(du::ConstSmartPtr<attrs::FillAttr>())->GetType(), 6);
    EXPECT_EQ(Value(figk::LineStyleAttr())->GetType(), 8);
    EXPECT_EQ(Value(figk::WeightAttr())->GetType(), 9);
}

TEST(SettingValue, ValuesOfDifferentTypesAreNeverEqual) {
    EXPECT_TRUE(*Value(true) == *Value(true));
    EXPECT_FALSE(*Value(true) == *Value(false));
    EXPECT_FALSE(*Value(true) == *Value(1.0f));
    EXPECT_FALSE(*Value(1.0f) == *Value(true));
}

TEST(SettingValue, PointersAreEqualWhenWhatTheyPointToIs) {
    using FillPtr = du::ConstSmartPtr<attrs::FillAttr>;
    ValuePtr const red = Value(FillPtr(new attrs::FillAttr(1, dg::Color::RED)));
    EXPECT_TRUE(*red == *Value(FillPtr(new attrs::FillAttr(1, dg::Color::RED))));
    EXPECT_FALSE(*red == *Value(FillPtr(new attrs::FillAttr(1, dg::Color::BLUE))));
    EXPECT_FALSE(*red == *Value(FillPtr()));
    EXPECT_TRUE(*Value(FillPtr()) == *Value(FillPtr()));
}

TEST(SettingValue, ACloneIsAnotherObjectWithTheSameValue) {
    ValuePtr const value = Value(figk::CROSSING_GAP);
    ValuePtr const clone = value->Clone();
    EXPECT_NE(clone.Get(), value.Get());
    EXPECT_TRUE(*clone == *value);
    EXPECT_EQ(clone->ToString(), "gap");
}

TEST(SettingValue, TextsTellWhatTheValueIs) {
    EXPECT_EQ(Value(false)->ToString(), "false");
    EXPECT_EQ(Value(dg::Color::RED)->ToString(), "(1, 0, 0, 1)");
    EXPECT_EQ(Value(figk::WeightAttr{0.5f, 3})->ToString(), "0.5 of kind 3");
    EXPECT_EQ(Value(du::ConstSmartPtr<zv2d::Texture>())->ToString(), "none");
}

TEST(Setting, HoldsWhatItWasBuiltWith) {
    ValuePtr const value = Value(true);
    Setting const setting(Setting::KEY_DIM, value, Setting::LEVEL_FORCED, false);
    EXPECT_EQ(setting.GetKey(), 14);
    EXPECT_EQ(setting.GetLevel(), 4);
    EXPECT_EQ(setting.GetBaseValue(), value);
    EXPECT_FALSE(setting.CanBeInherited());
    EXPECT_EQ(setting.ToString(), "Key=<14>, Value=<true>, Level=<4>");
}

TEST(Setting, ACloneSharesNoValue) {
    SettingPtr const setting = MakeSetting(Setting::KEY_DIM, Setting::LEVEL_BASE, Value(true));
    SettingPtr const clone = setting->Clone();
    EXPECT_NE(clone->GetBaseValue().Get(), setting->GetBaseValue().Get());
    EXPECT_TRUE(*clone->GetBaseValue() == *setting->GetBaseValue());
    EXPECT_EQ(clone->GetLevel(), Setting::LEVEL_BASE);
}

TEST(Setting, ANullValueIsCarriedAlong) {
    SettingPtr const setting = MakeSetting(Setting::KEY_DIM, Setting::LEVEL_BASE, nullptr);
    EXPECT_FALSE(setting->Clone()->GetBaseValue());
    EXPECT_EQ(setting->ToString(), "Key=<14>, Value=<>, Level=<2>");
}

class Collect : public figk::SettingListVisitor {
public:
    bool Visit(SettingPtr const& setting) override {
        keys.push_back(setting->GetKey());
        return keys.size() < limit;
    }

    std::vector<int> keys;
    size_t limit = 100;
};

struct Listed {
    Listed() {
        list.Add(MakeSetting(Setting::KEY_DIM, Setting::LEVEL_BASE, Value(true)));
        list.Add(MakeSetting(Setting::KEY_COLOR, Setting::LEVEL_DEFAULT, Value(dg::Color())));
        list.Add(nullptr);
    }

    figk::SettingList list;
};

TEST(SettingList, FindsByKeyAndLeavesTheDepthAloneWhenItFindsNothing) {
    Listed listed;
    unsigned int depth = 7;
    EXPECT_FALSE(listed.list.GetSetting(Setting::KEY_TEXTURE, depth));
    EXPECT_EQ(depth, 7u);
    EXPECT_EQ(listed.list.GetSetting(Setting::KEY_DIM, depth)->GetKey(), Setting::KEY_DIM);
    EXPECT_EQ(depth, 0u);
    EXPECT_FALSE(listed.list.Empty());
    EXPECT_TRUE(figk::SettingList().Empty());
}

TEST(SettingList, AnotherSettingOfTheKeyReplacesTheFirst) {
    Listed listed;
    listed.list.Add(MakeSetting(Setting::KEY_DIM, Setting::LEVEL_PROFILE, Value(false)));
    unsigned int depth = 0;
    EXPECT_EQ(listed.list.GetSetting(Setting::KEY_DIM, depth)->GetLevel(), Setting::LEVEL_PROFILE);
}

TEST(SettingList, IsVisitedInTheOrderOfKeysByLevel) {
    Listed listed;
    Collect all;
    EXPECT_TRUE(listed.list.Visit(all, Setting::LEVEL_ALL));
    EXPECT_EQ(all.keys, (std::vector<int>{2, 14}));
    Collect base;
    EXPECT_TRUE(listed.list.Visit(base, Setting::LEVEL_BASE));
    EXPECT_EQ(base.keys, (std::vector<int>{14}));
    Collect first;
    first.limit = 1;
    EXPECT_FALSE(listed.list.Visit(first, Setting::LEVEL_ALL));
    EXPECT_EQ(first.keys, (std::vector<int>{2}));
}

using AttributePtr = du::SmartPtr<figk::Attribute>;

TEST(Attribute, NamesAreComparedWithoutRegardToCase) {
    figk::AttributeSet set;
    AttributePtr const lower(new figk::Attribute(du::Symbol("value"), du::Symbol("10k")));
    set.insert(lower);
    set.insert(AttributePtr(new figk::Attribute(du::Symbol("VALUE"), du::Symbol("x"))));
    set.insert(AttributePtr(new figk::Attribute(du::Symbol("Maker"), du::Symbol("y"))));
    ASSERT_EQ(set.size(), 2u);
    EXPECT_EQ((*set.begin())->GetUpperName(), du::Symbol("MAKER"));
    EXPECT_EQ((*set.rbegin())->GetValue(), du::Symbol("10k"));
    EXPECT_EQ((*set.rbegin())->GetName(), du::Symbol("value"));
}

TEST(Attribute, ACopyCanBeChangedAlone) {
    figk::Attribute const first(du::Symbol("a"), du::Symbol("1"));
    figk::Attribute copy(first);
    copy.SetValue(du::Symbol("2"));
    EXPECT_EQ(first.GetValue(), du::Symbol("1"));
}

TEST(ArrowStyle, ComparesEveryPart) {
    using figk::ArrowStyle;
    du::ConstSmartPtr<zv2d::Definition> const shape(new zv2d::Definition());
    ArrowStyle const style(ArrowStyle::PATTERN_CENTRE, 2.0, shape, nullptr, true);
    ArrowStyle copy = style;
    EXPECT_TRUE(copy == style);
    EXPECT_TRUE(style != ArrowStyle(ArrowStyle::PATTERN_END, 2.0, shape, nullptr, true));
    EXPECT_TRUE(style != ArrowStyle(ArrowStyle::PATTERN_CENTRE, 3.0, shape, nullptr, true));
    EXPECT_TRUE(style != ArrowStyle(ArrowStyle::PATTERN_CENTRE, 2.0, nullptr, nullptr, true));
    EXPECT_TRUE(style != ArrowStyle(ArrowStyle::PATTERN_CENTRE, 2.0, shape, nullptr, false));
    EXPECT_FALSE(ArrowStyle().GetShape());
}

}  // namespace
}  // namespace figktest
