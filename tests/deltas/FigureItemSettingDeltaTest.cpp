#include <figrep/FigureItemSettingDelta.h>

#include <figk/SettingValue.h>
#include <figrep/CableInstance.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubHighway.h>
#include <zvk/Depiction.h>

#include <memory>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

using Deltas = std::vector<SmartPtr<figk::AbstractDelta>>;
using Items = FigureItemSettingDelta::Items;

Symbol const VISIBILITY("ITEM_VISIBILITY");

SmartPtr<Setting> Visibility(bool visible,
                             figk::Setting::Level level = figk::Setting::LEVEL_FIGURE) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, level, true);
}

enum class Own { NONE, SHOWN, HIDDEN };

/// The visibility that an item holds itself.
Own OwnVisibility(AbstractFigureItem const& item) {
    unsigned depth = 0;
    auto const setting = item.SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth);
    if (!setting || depth != 0) return Own::NONE;
    bool visible = true;
    item.GetBooleanSetting(Setting::ITEM_VISIBILITY, visible);
    return visible ? Own::SHOWN : Own::HIDDEN;
}

Items TargetsOf(Deltas const& deltas) {
    Items items;
    for (auto const& delta : deltas)
        items.push_back(du::DynamicCast<FigureItemSettingDelta>(delta)->GetItem());
    return items;
}

class FigureItemSettingDeltaTest : public ::testing::Test {
protected:
    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
    SmartPtr<BlockInstance> block = BlockOf(figure, "U1");

    SmartPtr<FigureItemSettingDelta> Hidden() const {
        SmartPtr<FigureItemSettingDelta> const delta =
            new FigureItemSettingDelta(Visibility(false), block);
        figure->AddAndApplyDelta(delta, false, false);
        return delta;
    }
};

TEST_F(FigureItemSettingDeltaTest, PutsTheSettingOnItsItem) {
    auto const delta = Hidden();
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_EQ(OwnVisibility(*block), Own::HIDDEN);
    EXPECT_TRUE(delta->IsSettingOfType(Setting::ITEM_VISIBILITY));
    EXPECT_FALSE(delta->IsSettingOfType(Setting::COLOR));
}

TEST_F(FigureItemSettingDeltaTest, FindsItsItemById) {
    SmartPtr<FigureItemSettingDelta> const delta =
        new FigureItemSettingDelta(block->GetId(), VISIBILITY, false);
    EXPECT_FALSE(delta->GetItem());
    EXPECT_EQ(delta->GetSetting()->GetLevel(), figk::Setting::LEVEL_FIGURE);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(delta->GetItem(), block);
    EXPECT_EQ(OwnVisibility(*block), Own::HIDDEN);
}

TEST_F(FigureItemSettingDeltaTest, LostItemFails) {
    ExpectLost(figure, new FigureItemSettingDelta(Symbol("gone"), VISIBILITY, false));
    ExpectLost(figure, new FigureItemSettingDelta(Symbol(), VISIBILITY, false));
    OtherReceiver other;
    EXPECT_FALSE(SmartPtr<FigureItemSettingDelta>(
                     new FigureItemSettingDelta(block->GetId(), VISIBILITY, false))
                     ->Apply(other));
}

TEST_F(FigureItemSettingDeltaTest, UndoRestoresTheOppositeValueThatTheItemHeld) {
    block->AddSetting(Visibility(true), false);
    auto const delta = Hidden();
    delta->Undo();
    EXPECT_EQ(OwnVisibility(*block), Own::SHOWN);
    delta->Redo();
    EXPECT_EQ(OwnVisibility(*block), Own::HIDDEN);
    delta->Undo();
    EXPECT_EQ(OwnVisibility(*block), Own::SHOWN);
}

TEST_F(FigureItemSettingDeltaTest, UndoLeavesAFormerSettingOfTheSameValueRemoved) {
    block->AddSetting(Visibility(false), false);
    Hidden()->Undo();
    EXPECT_EQ(OwnVisibility(*block), Own::NONE);
}

TEST_F(FigureItemSettingDeltaTest, UndoOverAnInheritedVisibilityLeavesNoOwnSetting) {
    figure->AddSetting(Visibility(true, figk::Setting::LEVEL_BASE), false);
    Hidden()->Undo();
    EXPECT_EQ(OwnVisibility(*block), Own::NONE);
}

TEST_F(FigureItemSettingDeltaTest, AppliedAgainItRemembersWhatStoodThereAtFirst) {
    block->AddSetting(Visibility(true), false);
    auto const delta = Hidden();
    EXPECT_TRUE(delta->Apply(*figure));
    delta->Undo();
    EXPECT_EQ(OwnVisibility(*block), Own::SHOWN);
}

TEST_F(FigureItemSettingDeltaTest, PutsItsSettingOnThroughTheFigure) {
    figure->ResetHasChanged();
    SmartPtr<FigureItemSettingDelta> const delta =
        new FigureItemSettingDelta(Visibility(false), block);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_TRUE(figure->HasChanged());
}

TEST_F(FigureItemSettingDeltaTest, UndoTakesTheVisibilityOffAtTheLevelOfFiguresOnly) {
    SmartPtr<FigureItemSettingDelta> const delta =
        new FigureItemSettingDelta(Visibility(false, figk::Setting::LEVEL_BASE), block);
    block->AddSetting(Visibility(true), false);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(OwnVisibility(*block), Own::SHOWN);
    delta->RemoveSetting();
    EXPECT_EQ(OwnVisibility(*block), Own::HIDDEN) << "what stands at another level stays";
}

TEST_F(FigureItemSettingDeltaTest, RemoveSettingBringsNothingBack) {
    block->AddSetting(Visibility(true), false);
    Hidden()->RemoveSetting();
    EXPECT_EQ(OwnVisibility(*block), Own::NONE);
}

TEST_F(FigureItemSettingDeltaTest, WritesIdKeyAndValue) {
    EXPECT_EQ(
        Written(Hidden()),
        (Strings{"action=int 3", "type='setting_delta'", "id='" + block->GetId().GetString() + "'",
                 "setting_type='ITEM_VISIBILITY'", "setting_value=false"}));
    EXPECT_EQ(FigureItemSettingDelta::GetClassTypeValue().GetString(), "setting_delta");
}

TEST_F(FigureItemSettingDeltaTest, NeverVerifiedItWritesNothingAtAll) {
    EXPECT_TRUE(Written(SmartPtr<FigureItemSettingDelta>(
                            new FigureItemSettingDelta(Visibility(false), block)))
                    .empty());
    EXPECT_TRUE(Written(SmartPtr<FigureItemSettingDelta>(
                            new FigureItemSettingDelta(block->GetId(), VISIBILITY, false)))
                    .empty());
}

TEST_F(FigureItemSettingDeltaTest, OutlivesItsFigure) {
    auto const delta = Hidden();
    figure = nullptr;
    delta->Undo();
    delta->Redo();
    EXPECT_TRUE(Written(delta).empty());
}

// Which items change.

TEST(VisibilityDeltas, HidingABlockHidesDescendantsThatDifferAndNoOthers) {
    test::Drawing nested;
    nested.Pin("", "top", "1", 0, 0).Child("top", "middle").Child("middle", "leaf");
    nested.Child("top", "quiet");
    InstalledDesign const drawing(nested.Source());
    auto const figure = LoadedFigure(drawing.Sheet());
    figure->AddSetting(Visibility(true, figk::Setting::LEVEL_BASE), false);
    BlockOf(figure, "quiet")->AddSetting(Visibility(false), false);
    Deltas deltas;
    FigureItemSettingDelta::CreateDeltas({BlockOf(figure, "top")}, deltas, Visibility(false));
    EXPECT_EQ(TargetsOf(deltas),
              (Items{BlockOf(figure, "leaf"), BlockOf(figure, "middle"), BlockOf(figure, "top")}));
}

TEST_F(FigureItemSettingDeltaTest, ItemOfWhichNothingIsSaidIsATargetWhateverTheValue) {
    for (bool const visible : {true, false}) {
        Deltas deltas;
        FigureItemSettingDelta::CreateDeltas({block, NetOf(figure, "N")}, deltas,
                                             Visibility(visible));
        EXPECT_EQ(TargetsOf(deltas), (Items{block, NetOf(figure, "N")}));
    }
}

TEST_F(FigureItemSettingDeltaTest, ItemsThatAgreeLeaveTheListEmpty) {
    auto const subNet = NetOf(figure, "N");
    subNet->AddSetting(Visibility(false), false);
    Deltas deltas{Hidden(), Hidden()};
    FigureItemSettingDelta::CreateDeltas({subNet}, deltas, Visibility(false));
    EXPECT_TRUE(deltas.empty());
}

TEST_F(FigureItemSettingDeltaTest, OneDeltaForAnItemThatIsNamedTwiceAndOneSettingForAll) {
    Deltas deltas;
    auto const setting = Visibility(false);
    FigureItemSettingDelta::CreateDeltas({block, NetOf(figure, "N"), block, nullptr}, deltas,
                                         setting);
    ASSERT_EQ(deltas.size(), 2u);
    for (auto const& delta : deltas)
        EXPECT_EQ(du::DynamicCast<FigureItemSettingDelta>(delta)->GetSetting(), setting);
    FigureItemSettingDelta::CreateDeltas({block}, deltas, nullptr);
    EXPECT_TRUE(deltas.empty());
}

TEST(VisibilityDeltas, CablesTakeTheirSubNetsAlong) {
    test::Drawing cabled;
    cabled.Wire("N", 0, 0, 10, 0).Cable("W1", "N");
    InstalledDesign const drawing(cabled.Source());
    auto const figure = LoadedFigure(drawing.Sheet());
    auto const cable = figure->GetCableInstances().at(0);
    cable->AddSetting(Visibility(true), false);
    Deltas deltas;
    FigureItemSettingDelta::CreateDeltas({cable}, deltas, Visibility(false));
    EXPECT_EQ(TargetsOf(deltas), (Items{NetOf(figure, "N"), cable}));
}

// Ports on highways.

class HiddenPortTest : public ::testing::Test {
protected:
    HiddenPortTest() {
        test::Drawing bus;
        bus.Bus("H", 0, 0, 30, 0).BusPort("HP", "H", 0, 0);
        bus.Tap("A", "H", 10, 0, 12, 2).Wire("A", 12, 2, 12, 30);
        bus.Tap("B", "H", 20, 0, 22, 2).Wire("B", 22, 2, 40, 2);
        drawing = std::make_unique<InstalledDesign>(bus.Source());
        figure = LoadedFigure(drawing->Sheet());
        node = figure->GetPorts().at(0)->GetPortNodes().at(0);
    }
    ~HiddenPortTest() override { zvk::depiction::SetRunningDepict(false); }

    SmartPtr<FigureItemSettingDelta> Hide() const {
        SmartPtr<FigureItemSettingDelta> const delta =
            new FigureItemSettingDelta(Visibility(false), node);
        figure->AddAndApplyDelta(delta, false, false);
        return delta;
    }
    std::size_t SegmentsOf(std::string const& net) const {
        return NodesOf<HighwaySegment>(NetOf(figure, net)).size();
    }

    std::unique_ptr<InstalledDesign> drawing;
    SmartPtr<Figure> figure;
    SmartPtr<PortNode> node;
};

TEST_F(HiddenPortTest, HidingItTakesItsNetsOffTheHighway) {
    ASSERT_EQ(node->GetHighwaySubNets().size(), 2u);
    ASSERT_GE(SegmentsOf("A"), 1u);
    std::size_t const before = SegmentsOf("A");
    auto const delta = Hide();
    EXPECT_LT(SegmentsOf("A"), before);
    std::size_t const hidden = SegmentsOf("A");
    delta->Undo();
    EXPECT_EQ(SegmentsOf("A"), hidden);  // showing it doesn't bring them back
}

TEST_F(HiddenPortTest, AuthoringHostLeavesItsNetsAlone) {
    zvk::depiction::SetRunningDepict(true);
    std::size_t const before = SegmentsOf("A");
    Hide();
    EXPECT_EQ(SegmentsOf("A"), before);
}

TEST_F(HiddenPortTest, ShowingItChangesNoHighway) {
    std::size_t const before = SegmentsOf("A");
    SmartPtr<FigureItemSettingDelta> const delta =
        new FigureItemSettingDelta(Visibility(true), node);
    EXPECT_TRUE(delta->Apply(*figure));
    EXPECT_EQ(SegmentsOf("A"), before);
}

}  // namespace
}  // namespace figrep::testing
