#include <dg/Color.h>
#include <figk/SchematicKernel.h>
#include <figrep/BackgroundColorOperationStep.h>
#include <operations/OperationTestSupport.h>

namespace figrep::testing {
namespace {

SmartPtr<Setting> Background(Color const& color,
                             figk::Setting::Level level = figk::Setting::LEVEL_FIGURE) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<Color>(color);
    return new Setting(Setting::BACKGROUND_COLOR, value, level, true);
}

/// A kernel that has one setting for whatever figures ask it.
class KernelWithSetting : public figk::SchematicKernel {
public:
    explicit KernelWithSetting(ConstSmartPtr<Setting> const& setting) : setting_(setting) {}
    SmartPtr<figk::Setting> GetSetting(figk::Setting::Key const&, unsigned int&, bool) override {
        return const_cast<Setting*>(setting_.Get());
    }

private:
    ConstSmartPtr<Setting> setting_;
};

class BackgroundColor : public ::testing::Test {
protected:
    void TearDown() override { figk::SchematicKernel::SetSchematicKernel({}); }

    ConstSmartPtr<figk::Setting> Current(unsigned* depth = nullptr) const {
        unsigned found = 0;
        auto const setting = figure->GetSetting(Setting::BACKGROUND_COLOR, found);
        if (depth) *depth = found;
        return setting;
    }

    SmartPtr<Figure> figure = new Figure();
};

TEST_F(BackgroundColor, StepTellsItsTypeAndIsNotRecordable) {
    BackgroundColorOperationStep const step(figure, Background(Color::RED));
    EXPECT_EQ(step.Type(), Symbol("BackgroundColorOperationStep"));
    EXPECT_FALSE(step.Recordable());
    EXPECT_TRUE(step.HasUndo());
}

TEST_F(BackgroundColor, MakingTheStepAppliesNothing) {
    BackgroundColorOperationStep const step(figure, Background(Color::RED));
    EXPECT_FALSE(Current());
}

TEST_F(BackgroundColor, UndoOfTheFirstColorLeavesNone) {
    auto const red = Background(Color::RED);
    BackgroundColorOperationStep step(figure, red);
    step.Redo();
    EXPECT_EQ(Current(), red);
    step.Undo();
    EXPECT_FALSE(Current());
    EXPECT_TRUE(figure->GetDeltas().empty());
}

TEST_F(BackgroundColor, UndoBringsBackTheColorBefore) {
    auto const red = Background(Color::RED);
    auto const blue = Background(Color::BLUE);
    figure->AddSetting(red, false);
    BackgroundColorOperationStep step(figure, blue);
    for (int round = 0; round < 2; ++round) {
        step.Redo();
        EXPECT_EQ(Current(), blue);
        step.Undo();
        EXPECT_EQ(Current(), red);
    }
}

TEST_F(BackgroundColor, AColorOfAHigherLevelGivesWayAndComesBack) {
    auto const red = Background(Color::RED, figk::Setting::LEVEL_FIGURE);
    auto const blue = Background(Color::BLUE, figk::Setting::LEVEL_PROFILE);
    figure->AddSetting(red, false);
    BackgroundColorOperationStep step(figure, blue);
    step.Redo();
    EXPECT_EQ(Current(), blue);
    step.Undo();
    EXPECT_EQ(Current(), red);
}

TEST_F(BackgroundColor, AnInheritedColorIsRememberedAndUndoPutsItOnTheFigureItself) {
    auto const inherited = Background(Color::GREEN, figk::Setting::LEVEL_DEFAULT);
    figk::SchematicKernel::SetSchematicKernel(new KernelWithSetting(inherited));
    unsigned depth = 0;
    EXPECT_EQ(Current(&depth), inherited);
    EXPECT_EQ(depth, 1u);
    auto const red = Background(Color::RED);
    BackgroundColorOperationStep step(figure, red);
    step.Redo();
    EXPECT_EQ(Current(), red);
    step.Undo();
    EXPECT_EQ(Current(&depth), inherited);
    EXPECT_EQ(depth, 0u);
}

TEST_F(BackgroundColor, ObserversHearOfLooksOnly) {
    SmartPtr<Recorder> const recorder = new Recorder();
    figure->RegisterObserver(recorder);
    figure->AddSetting(Background(Color::BLUE), false);
    BackgroundColorOperationStep step(figure, Background(Color::RED));
    step.Redo();
    EXPECT_EQ(recorder->Take(), (Lines{"appearance", "appearance"}));
    step.Undo();
    EXPECT_EQ(recorder->Take(), (Lines{"appearance", "appearance"}));
}

TEST_F(BackgroundColor, WithoutAFigureOrASettingNothingCrashes) {
    BackgroundColorOperationStep nowhere({}, Background(Color::RED));
    nowhere.Redo();
    nowhere.Undo();
    auto const red = Background(Color::RED);
    figure->AddSetting(red, false);
    BackgroundColorOperationStep none(figure, {});
    none.Redo();
    EXPECT_FALSE(Current());
    none.Undo();
    EXPECT_EQ(Current(), red);
}

}  // namespace
}  // namespace figrep::testing
