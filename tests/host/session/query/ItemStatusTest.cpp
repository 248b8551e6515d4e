#include <session/query/ItemStatus.h>

#include <figk/AbstractDelta.h>
#include <figk/SettingValue.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <host/session/ExampleSession.h>
#include <session/edits/ShowHide.h>
#include <session/items/ForEachItem.h>
#include <session/query/Inventory.h>
#include <support/Drawing.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace fighost {
namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;
using Names = std::vector<std::string>;

SettingStatus const* Setting(ItemStatus const& status, std::string const& name) {
    for (SettingStatus const& setting : status.settings) {
        if (setting.name == name) return &setting;
    }
    return nullptr;
}

class ItemStatusTest : public testing::Test {
protected:
    void SetUp() override {
        session = test::OpenExample();
        ASSERT_TRUE(session);
    }
    ItemStatus Status(std::string const& name) const {
        return StatusOf(FindItems(*session, name).at(0));
    }
    std::unique_ptr<Session> session;
};

TEST_F(ItemStatusTest, APinTellsItsNetAndItsPart) {
    ItemStatus const status = Status("U2:27");
    EXPECT_EQ(status.type, "ConnectorInstance");
    EXPECT_EQ(status.name, "27");
    EXPECT_EQ(status.partOf, "BlockInstance U2");
    EXPECT_EQ(status.nets, Names{"/SDA"});
    EXPECT_EQ(status.place.sheet, "/Controller/");
    EXPECT_TRUE(status.isVisible);
}

TEST_F(ItemStatusTest, APartTellsItsPinsAndFields) {
    ItemStatus const status = Status("R1");
    EXPECT_EQ(status.pins, (ItemStatus::Pairs{{"1", "+3V3"}, {"2", "/SDA"}}));
    EXPECT_EQ(status.nets, (Names{"+3V3", "/SDA"}));
    EXPECT_EQ(status.attributes, (ItemStatus::Pairs{{"Reference", "R1"}, {"Value", "4k7"}}));
}

TEST_F(ItemStatusTest, ATextTellsTheColourThatItsRecordGivesIt) {
    std::vector<ItemEntry> const items = ListItems(*session);
    auto const text = std::find_if(items.begin(), items.end(), [](ItemEntry const& item) {
        return item.type == "TextGraphic" && item.name == "Weather station" && !item.id.empty();
    });
    ASSERT_NE(text, items.end());
    ItemStatus const status = Status(text->id);
    ASSERT_TRUE(Setting(status, "color"));
    EXPECT_EQ(Setting(status, "color")->from, "its record");
    EXPECT_EQ(Setting(status, "color")->steps, 0u);
}

TEST_F(ItemStatusTest, AHighwayTellsItsMembers) {
    std::vector<SheetItem> const pieces =
        FindItems(*session, "/D[0..7]", session->FindSheets("/Controller/").at(0));
    ASSERT_EQ(pieces.size(), 1u);
    ItemStatus const status = StatusOf(pieces[0]);
    EXPECT_EQ(status.type, "SubHighway");
    EXPECT_EQ(status.members, (Names{"/D0", "/D1", "/D2", "/D3", "/D4", "/D5", "/D6", "/D7"}));
    EXPECT_TRUE(status.nets.empty());
}

TEST_F(ItemStatusTest, HidingTellsItsLevelAndHolder) {
    EXPECT_EQ(Setting(Status("U2"), "visible"), nullptr);
    ASSERT_FALSE(ShowOnly(*session, {{}, {"U2"}}));
    ItemStatus const part = Status("U2");
    EXPECT_FALSE(part.isVisible);
    ASSERT_TRUE(Setting(part, "visible"));
    EXPECT_EQ(Setting(part, "visible")->value, "no");
    EXPECT_EQ(Setting(part, "visible")->level, 7);
    EXPECT_EQ(Setting(part, "visible")->levelName, "figure");
    EXPECT_EQ(Setting(part, "visible")->from, "itself");
    ItemStatus const pin = Status("U2:27");
    EXPECT_FALSE(pin.isVisible);
    ASSERT_TRUE(Setting(pin, "visible"));
    EXPECT_EQ(Setting(pin, "visible")->from, "BlockInstance U2");
    EXPECT_EQ(Setting(pin, "visible")->steps, 1u);
}

TEST_F(ItemStatusTest, EveryItemHasAStatusAndEverySettingAHolder) {
    std::vector<SheetItem> items;
    for (SessionSheet const& sheet : session->GetSheets()) {
        ForEachItem(sheet.figure, [&](SmartPtr<AbstractFigureItem> const& item) {
            items.push_back({&sheet, item});
        });
    }
    for (SheetItem const& item : items) {
        ItemStatus const status = StatusOf(item);
        EXPECT_EQ(status.type, item.item->GetTypeName());
        EXPECT_FALSE(status.settings.empty());
        for (SettingStatus const& setting : status.settings) {
            EXPECT_FALSE(setting.value.empty()) << setting.name;
            EXPECT_FALSE(setting.levelName.empty()) << setting.name;
            bool const isHere = setting.from == "itself" || setting.from == "its record";
            EXPECT_EQ(isHere, setting.steps == 0) << status.type << " " << setting.name;
        }
    }
}

// One figure with a cable, to be given settings at each step of the chain.
class SettingChainTest : public testing::Test {
protected:
    void SetUp() override {
        figrep::test::Drawing drawing;
        drawing.Wire("A", 0, 0, 10, 0).Cable("W1", "A");
        design = drawing.BuildDesign();
        figure = figrep::KernelToFigureFactory().CreateFigure();
        figrep::FigureSheetDeltaGenerator generator(design->GetSheets().at(0));
        figure->GenerateDeltas(generator);
        figure->ApplyDeltas(false);
        ForEachItem(figure, [&](SmartPtr<AbstractFigureItem> const& item) {
            if (item->GetType() == AbstractFigureItem::ITEM_NET_SEGMENT) segment = item;
        });
        ASSERT_TRUE(segment);
        ASSERT_EQ(figure->GetCableInstances().size(), 1u);
    }

    static figrep::ConstSmartPtr<figrep::Setting> Color(figk::Setting::Level level) {
        SmartPtr<figk::BaseSettingValue> const value(
            new figk::SettingValue<dg::Color>(dg::Color::RED));
        return SmartPtr<figrep::Setting>(
            new figrep::Setting(figrep::Setting::COLOR, value, level, true));
    }

    std::string Holder() const {
        for (SettingStatus const& setting : SettingsOf(*segment)) {
            if (setting.name != "color") continue;
            EXPECT_EQ(setting.value, "#ff0000");
            return setting.from + " " + std::to_string(setting.steps);
        }
        return "nobody";
    }

    SmartPtr<figk::Design> design;
    SmartPtr<figrep::Figure> figure;
    SmartPtr<AbstractFigureItem> segment;
};

TEST_F(SettingChainTest, TheNearestHolderOfTheHighestLevelIsTold) {
    EXPECT_EQ(Holder(), "nobody");
    figure->AddSetting(Color(figk::Setting::LEVEL_PROFILE), false);
    EXPECT_EQ(Holder(), "figure 3");
    figure->GetCableInstances()[0]->AddSetting(Color(figk::Setting::LEVEL_PROFILE), false);
    EXPECT_EQ(Holder(), "CableInstance W1 2");
    figure->GetSubNets()[0]->AddSetting(Color(figk::Setting::LEVEL_PROFILE), false);
    EXPECT_EQ(Holder(), "SubNet A 1");
    segment->AddSetting(Color(figk::Setting::LEVEL_PROFILE), false);
    EXPECT_EQ(Holder(), "itself 0");
    figure->GetCableInstances()[0]->AddSetting(Color(figk::Setting::LEVEL_UPPER_A), false);
    EXPECT_EQ(Holder(), "CableInstance W1 2") << "a higher level further up";
}

TEST_F(SettingChainTest, EverySettingOfALookIsTold) {
    using figrep::Setting;
    // Line attributes are told by their members, and the uses of lowlight decide no look.
    Setting::RepKey const keys[] = {Setting::TEXT_COLOR,
                                    Setting::BACKGROUND_COLOR,
                                    Setting::ARROW_STYLE,
                                    Setting::COLOR,
                                    Setting::CROSSING_POINT_STYLE,
                                    Setting::FILL_ATTRIBUTES,
                                    Setting::SELECTION_HIGHLIGHT_COLOR,
                                    Setting::PRESELECTION_HIGHLIGHT_COLOR,
                                    Setting::LINE_COLOR,
                                    Setting::LINE_WEIGHT,
                                    Setting::LINE_STYLE,
                                    Setting::TOP_SEGMENT_VERTICAL,
                                    Setting::TEXTURE,
                                    Setting::TRANSPARENCY,
                                    Setting::PRESELECTION_NONE,
                                    Setting::DIM,
                                    Setting::FORMAT_GRID_ON,
                                    Setting::ITEM_VISIBILITY};
    std::set<std::string> names;
    for (Setting::RepKey const& key : keys) {
        SmartPtr<figk::BaseSettingValue> const on(new figk::SettingValue<bool>(true));
        segment->AddSetting(
            SmartPtr<Setting>(new Setting(key, on, figk::Setting::LEVEL_FIGURE, true)), false);
        for (SettingStatus const& setting : SettingsOf(*segment)) {
            if (setting.from == "itself" && setting.level == 7 && setting.value == "yes") {
                names.insert(setting.name);
            }
        }
        EXPECT_EQ(names.size(), static_cast<std::size_t>(&key - keys) + 1) << key;
    }
}

TEST_F(SettingChainTest, ANetInACableTellsTheCable) {
    SessionSheet sheet;
    sheet.figure = figure;
    ItemStatus const status = StatusOf({&sheet, segment});
    EXPECT_EQ(status.cables, Names{"W1"});
    EXPECT_EQ(status.nets, Names{"A"});
    EXPECT_EQ(status.partOf, "SubNet A");
}

}  // namespace
}  // namespace fighost
