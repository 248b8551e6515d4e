#include <figrep/Setting.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using figrep::Setting;
using KernelSetting = figk::Setting;

du::SmartPtr<Setting> MakeBool(Setting::RepKey key, bool value = true) {
    return new Setting(key, new figk::SettingValue<bool>(value), KernelSetting::LEVEL_BASE, true);
}

Setting::RepKey Key(int number) {
    return static_cast<Setting::RepKey>(number);
}

TEST(Setting, ComplexKeysShareTheKernelKeyOfTheirComposite) {
    EXPECT_EQ(Setting::ConvertToRepKey(KernelSetting::KEY_LINE_ATTRIBUTES), 112);
    for (int key : {112, 113, 114, 115})
        EXPECT_EQ(Setting::GetKernelKey(Key(key)), 7) << key;
}

TEST(Setting, KernelKeyIsAnArithmeticShift) {
    EXPECT_EQ(Setting::GetKernelKey(Key(-1)), -1);
    EXPECT_EQ(Setting::GetKernelKey(Key(15)), 0);
    Setting::RepKey out{};
    EXPECT_TRUE(Setting::GetRepKey(static_cast<KernelSetting::Key>(999), out));
    EXPECT_EQ(out, 999 * 16);
}

TEST(Setting, OnlyFigureOnlyKeysHaveNoKernelKey) {
    EXPECT_FALSE(Setting::HasKernelKey(Key(2)));
    EXPECT_TRUE(Setting::HasKernelKey(Key(113)));
    EXPECT_TRUE(Setting::HasKernelKey(Key(112)));
}

TEST(Setting, OnlyMembersOfACompositeAreComplex) {
    EXPECT_TRUE(Setting::IsComplexKey(Key(113)));
    EXPECT_FALSE(Setting::IsComplexKey(Key(112)));
    EXPECT_FALSE(Setting::IsComplexKey(Key(2)));
}

TEST(Setting, StoresTheKernelKeyInItsBase) {
    EXPECT_EQ(MakeBool(Setting::BACKGROUND_COLOR)->GetKey(), 0);
    EXPECT_EQ(MakeBool(Setting::LINE_STYLE)->GetKey(), KernelSetting::KEY_LINE_ATTRIBUTES);
    EXPECT_EQ(MakeBool(Setting::LINE_STYLE)->GetRepKey(), 115);
}

TEST(Setting, TextOfLineAttributesIsNotTranslated) {
    std::string const text = MakeBool(Setting::LINE_ATTRIBUTES)->ToString();
    EXPECT_TRUE(text.ends_with(", RepKey=<Not translated>")) << text;
    std::string const base =
        static_cast<KernelSetting const&>(*MakeBool(Setting::COLOR)).KernelSetting::ToString();
    EXPECT_EQ(MakeBool(Setting::COLOR)->ToString(), base + ", RepKey=<COLOR>");
}

TEST(Setting, TextTellsTheKeysThatItKnows) {
    struct Case {
        int key;
        char const* text;
    };
    for (Case const& c : {Case{1, "TEXT_COLOR"},
                          Case{2, "BACKGROUND_COLOR"},
                          Case{16, "ARROW_STYLE"},
                          Case{48, "CROSSING_POINT_STYLE"},
                          Case{64, "FILL_ATTRIBUTES"},
                          Case{113, "LINE_COLOR"},
                          Case{114, "LINE_WEIGHT"},
                          Case{115, "LINE_STYLE"},
                          Case{128, "TOP_SEGMENT_VERTICAL"},
                          Case{144, "TEXTURE"},
                          Case{160, "TRANSPARENCY"},
                          Case{176, "SELECTION_USE_LOWLIGHT"},
                          Case{192, "PRESELECTION_USE_LOWLIGHT"},
                          Case{208, "PRESELECTION_NONE"},
                          Case{224, "DIM"},
                          Case{240, "Not translated"},
                          Case{256, "Not translated"},
                          Case{272, "Not translated"},
                          Case{288, "Not translated"},
                          Case{-5, "Not translated"}}) {
        std::string const text = MakeBool(Key(c.key))->ToString();
        EXPECT_TRUE(text.ends_with(std::string("RepKey=<") + c.text + ">")) << text;
    }
}

TEST(Setting, TextDoesntTellSelectionFromPreselectionColour) {
    auto const keyText = [](Setting::RepKey key) {
        std::string const text = MakeBool(key)->ToString();
        return text.substr(text.rfind("RepKey"));
    };
    EXPECT_EQ(keyText(Setting::SELECTION_HIGHLIGHT_COLOR),
              keyText(Setting::PRESELECTION_HIGHLIGHT_COLOR));
}

TEST(Setting, OnlyTwoKeysKeepTheirIdentityThroughASymbol) {
    EXPECT_EQ(Setting::SymbolToRepKey(du::Symbol::EMPTY), Setting::UNKNOWN_REP_KEY);
    EXPECT_EQ(Setting::SymbolToRepKey(du::Symbol("COLOR")), 288);
    EXPECT_TRUE(MakeBool(Setting::COLOR)->RepKeyToSymbol().IsEmpty());
    for (Setting::RepKey key : {Setting::BACKGROUND_COLOR, Setting::ITEM_VISIBILITY}) {
        EXPECT_EQ(Setting::SymbolToRepKey(MakeBool(key)->RepKeyToSymbol()), key);
    }
    EXPECT_EQ(MakeBool(Setting::ITEM_VISIBILITY)->RepKeyToSymbol(), du::Symbol("ITEM_VISIBILITY"));
}

TEST(Setting, ACopyAtAnotherLevelHoldsACloneOfTheValue) {
    auto const original = MakeBool(Setting::DIM);
    auto const copy = original->Copy(KernelSetting::LEVEL_FIGURE);
    EXPECT_EQ(copy->GetRepKey(), Setting::DIM);
    EXPECT_EQ(copy->GetLevel(), KernelSetting::LEVEL_FIGURE);
    EXPECT_TRUE(copy->CanBeInherited());
    EXPECT_FALSE(copy->GetBaseValue() == original->GetBaseValue());
    EXPECT_TRUE(*copy->GetBaseValue() == *original->GetBaseValue());
}

TEST(Setting, ANullValueIsCopiedAsNull) {
    Setting const none(Setting::DIM, nullptr, KernelSetting::LEVEL_BASE, false);
    EXPECT_FALSE(none.Copy(KernelSetting::LEVEL_FORCED)->GetBaseValue());
}

}  // namespace
