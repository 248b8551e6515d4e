#include <figrep/FigureSettingDelta.h>

#include <figk/SettingValue.h>
#include <figrep/ConnectorInstance.h>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

Symbol const VISIBILITY("ITEM_VISIBILITY");
constexpr auto FIGURE_LEVEL = figk::Setting::LEVEL_FIGURE;

SmartPtr<Setting> Visibility(bool visible) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, FIGURE_LEVEL, true);
}

bool IsHidden(AbstractFigureItem const& item) {
    bool visible = true;
    item.GetBooleanSetting(Setting::ITEM_VISIBILITY, visible);
    return !visible;
}

class FigureSettingDeltaTest : public ::testing::Test {
protected:
    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
    SmartPtr<BlockInstance> first = BlockOf(figure, "U1");
    SmartPtr<BlockInstance> second = BlockOf(figure, "U2");
};

TEST_F(FigureSettingDeltaTest, PutsTheSettingOnItsItems) {
    SmartPtr<FigureSettingDelta> const delta =
        new FigureSettingDelta(Visibility(false), {first, second});
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_FALSE(delta->IsAppearanceOnly());
    figure->AddAndApplyDelta(delta, false, false);
    EXPECT_TRUE(IsHidden(*first));
    EXPECT_TRUE(IsHidden(*second));
}

TEST_F(FigureSettingDeltaTest, TellsTheItemsAndNotTheFigure) {
    figure->ResetHasChanged();
    EXPECT_TRUE(SmartPtr<FigureSettingDelta>(new FigureSettingDelta(Visibility(false), {first}))
                    ->Apply(*figure));
    EXPECT_TRUE(IsHidden(*first));
    EXPECT_FALSE(figure->HasChanged());
}

TEST_F(FigureSettingDeltaTest, AppliesToTheOneTargetThatIsLeft) {
    SmartPtr<FigureSettingDelta> const delta = new FigureSettingDelta(
        {Symbol("gone"), Symbol("lost"), second->GetId()}, VISIBILITY, false, FIGURE_LEVEL);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_TRUE(IsHidden(*second));
    EXPECT_FALSE(IsHidden(*first));
    EXPECT_EQ(delta->GetItems(), FigureSettingDelta::Items{second});
}

TEST_F(FigureSettingDeltaTest, FailsWhenNoTargetIsLeft) {
    ExpectLost(figure, new FigureSettingDelta({Symbol("gone"), Symbol("lost")}, VISIBILITY, false,
                                              FIGURE_LEVEL));
    ExpectLost(figure, new FigureSettingDelta(Visibility(false), {}));
}

TEST_F(FigureSettingDeltaTest, SecondVerificationAddsNoItemAgain) {
    SmartPtr<FigureSettingDelta> const delta =
        new FigureSettingDelta({first->GetId(), first->GetId()}, VISIBILITY, false, FIGURE_LEVEL);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(delta->GetItems().size(), 1u);
}

TEST_F(FigureSettingDeltaTest, WritesTheItemsThatItHas) {
    SmartPtr<FigureSettingDelta> const delta =
        new FigureSettingDelta(Visibility(true), {first, second, first});
    EXPECT_EQ(Written(delta),
              (Strings{"action=int 3", "type='setting_delta_v2'",
                       "id_list_entry='" + first->GetId().GetString() + "'",
                       "id_list_entry='" + second->GetId().GetString() + "'",
                       "setting_type='ITEM_VISIBILITY'", "setting_value=true", "level=int 7"}));
}

TEST_F(FigureSettingDeltaTest, UnverifiedWritesKeySettingAndLevelAndNoIds) {
    SmartPtr<FigureSettingDelta> const delta = new FigureSettingDelta(
        {first->GetId()}, Symbol("BACKGROUND_COLOR"), false, figk::Setting::LEVEL_BASE);
    EXPECT_EQ(Written(delta),
              (Strings{"action=int 3", "type='setting_delta_v2'", "setting_type='BACKGROUND_COLOR'",
                       "setting_value=false", "level=int 2"}));
}

TEST_F(FigureSettingDeltaTest, BuiltFromAKeyTheSettingMayBeInherited) {
    SmartPtr<FigureSettingDelta> const delta =
        new FigureSettingDelta({first->GetId()}, VISIBILITY, false, figk::Setting::LEVEL_BASE);
    EXPECT_TRUE(delta->GetSetting()->CanBeInherited());
    EXPECT_EQ(delta->GetSetting()->GetLevel(), figk::Setting::LEVEL_BASE);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_TRUE(IsHidden(*first->GetConnectorInstances().at(0)));
}

TEST_F(FigureSettingDeltaTest, RefreshMarksADeltaOfWhichNothingElseIsToBeSaid) {
    SmartPtr<FigureSettingDelta> const delta = new FigureSettingDelta(Visibility(false), {first});
    delta->Refresh();
    EXPECT_EQ(delta->GetStatus(), 4);
    delta->Refresh();
    EXPECT_EQ(delta->GetStatus(), 4);
    delta->Reset();
    EXPECT_EQ(delta->GetStatus(), 0);
}

TEST_F(FigureSettingDeltaTest, NullsDoNothing) {
    SmartPtr<FigureSettingDelta> const delta = new FigureSettingDelta(nullptr, {first, nullptr});
    Strings const before = DumpOf(figure);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(DumpOf(figure), before);
    EXPECT_EQ(Written(delta).size(), 3u);
}

}  // namespace
}  // namespace figrep::testing
