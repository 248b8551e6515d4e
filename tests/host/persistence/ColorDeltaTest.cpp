#include <persistence/ColorDelta.h>

#include <figk/SettingValue.h>
#include <host/Picture.h>
#include <persistence/ApplySaved.h>
#include <persistence/DescribeDelta.h>
#include <support/LiveObjects.h>

#include "../../deltas/DeltaTestSupport.h"

namespace fighost {
namespace {

using namespace figrep;           // NOLINT: the tests speak of both sides
using namespace figrep::testing;  // NOLINT
using figrep::Symbol;
using test::Picture;

Color const PLUM(0.5F, 0.25F, 0.75F);

DeltaTypes Types() {
    DeltaTypes types;
    ColorDelta::AddTo(types);
    return types;
}

std::string Save(SmartPtr<Figure> const& figure) {
    return WriteSavedFigures({{figure, nullptr}}, {});
}

struct Loaded {
    explicit Loaded(std::string const& bytes) {
        auto read = ReadSavedFigures(bytes, "f");
        EXPECT_FALSE(read.error) << read.error->ToString();
        file = *read.file;
        reports = ApplySavedFigure(figure, file.figures.at(0), Types(), file.names);
    }
    ReadFigures::File file;
    SmartPtr<Figure> figure = new Figure();
    std::vector<DeltaReport> reports;
};

Color ColorSettingOf(AbstractFigureItem const& item, Setting::RepKey key) {
    Color color(0, 0, 0, 0);
    item.GetColorSetting(key, color);
    return color;
}

class ColorDeltaTest : public ::testing::Test {
protected:
    SmartPtr<ColorDelta> Apply(ColorDelta::Part part, Color const& color,
                               ColorDelta::Items const& items) {
        SmartPtr<ColorDelta> const delta = new ColorDelta(part, color, items);
        figure->AddAndApplyDelta(delta, false, true);
        return delta;
    }
    SmartPtr<AbstractFigureItem> Block(char const* name) const { return BlockOf(figure, name); }
    SmartPtr<AbstractFigureItem> Net() const { return NetOf(figure, "N"); }

    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
};

TEST_F(ColorDeltaTest, LinesAndTextsTakeTheColorBeforeAnythingElse) {
    Apply(ColorDelta::LINES_AND_TEXTS, PLUM, {Block("U1"), Net()});
    for (auto const key : {Setting::COLOR, Setting::LINE_COLOR, Setting::TEXT_COLOR}) {
        EXPECT_EQ(ColorSettingOf(*Block("U1"), key), PLUM);
        EXPECT_EQ(ColorSettingOf(*Net(), key), PLUM);
        EXPECT_NE(ColorSettingOf(*Block("U2"), key), PLUM);
    }
    EXPECT_NE(Picture(figure).find("#8040bf"), std::string::npos);
}

TEST_F(ColorDeltaTest, FillsAreASettingOfTheirOwn) {
    Apply(ColorDelta::FILLS, PLUM, {Block("U1")});
    ConstSmartPtr<attrs::FillAttr> fill;
    ASSERT_TRUE(
        Block("U1")->GetZv2dFillAttributesSetting(figk::Setting::KEY_FILL_ATTRIBUTES, fill));
    EXPECT_EQ(fill->GetColor(), PLUM);
    EXPECT_NE(ColorSettingOf(*Block("U1"), Setting::COLOR), PLUM);
}

TEST_F(ColorDeltaTest, PaperNeedsNoItems) {
    Apply(ColorDelta::PAPER, PLUM, {});
    EXPECT_FALSE(figure->HasDeltaFailures());
    Color color;
    ASSERT_TRUE(figure->GetColorSetting(Setting::BACKGROUND_COLOR, color));
    EXPECT_EQ(color, PLUM);
}

TEST_F(ColorDeltaTest, WithoutItemsAColorOfItemsFails) {
    Apply(ColorDelta::FILLS, PLUM, {nullptr});
    EXPECT_TRUE(figure->HasDeltaFailures());
}

TEST_F(ColorDeltaTest, OnlyLooksChange) {
    EXPECT_TRUE(Apply(ColorDelta::FILLS, PLUM, {Net()})->IsAppearanceOnly());
}

TEST_F(ColorDeltaTest, UndoBringsBackWhatTheUserHadChosenBefore) {
    std::string const plain = Picture(figure);
    auto const first = Apply(ColorDelta::LINES_AND_TEXTS, Color::BLUE, {Net()});
    std::string const blue = Picture(figure);
    auto const second = Apply(ColorDelta::LINES_AND_TEXTS, PLUM, {Net(), Block("U1")});
    std::string const both = Picture(figure);
    EXPECT_NE(both, blue);
    second->Undo(*figure);
    EXPECT_TRUE(Picture(figure) == blue);
    second->Undo(*figure);
    EXPECT_TRUE(Picture(figure) == blue) << "a second undo finds nothing to take back";
    first->Undo(*figure);
    EXPECT_TRUE(Picture(figure) == plain);
    first->Apply(*figure);
    second->Apply(*figure);
    EXPECT_TRUE(Picture(figure) == both);
}

TEST_F(ColorDeltaTest, UndoneFillsLookAsTheyWereDrawn) {
    std::string const plain = Picture(figure);
    auto const delta = Apply(ColorDelta::FILLS, PLUM, {Block("U1"), Net()});
    Picture(figure);
    delta->Undo(*figure);
    EXPECT_TRUE(Picture(figure) == plain);
}

TEST_F(ColorDeltaTest, AppliedTwiceItStillKnowsWhatStoodThereBefore) {
    std::string const plain = Picture(figure);
    auto const delta = Apply(ColorDelta::LINES_AND_TEXTS, PLUM, {Net()});
    delta->Apply(*figure);
    delta->Undo(*figure);
    EXPECT_TRUE(Picture(figure) == plain);
}

TEST_F(ColorDeltaTest, SavedAndAppliedAfreshItLooksTheSame) {
    Apply(ColorDelta::LINES_AND_TEXTS, PLUM, {Block("U1"), Net()});
    Apply(ColorDelta::FILLS, Color(1, 0.1F, 0, 0.5F), {Block("U2")});
    Apply(ColorDelta::PAPER, Color(0.9F, 0.9F, 0.8F), {});
    std::string const bytes = Save(figure);
    Loaded const loaded(bytes);
    for (auto const& report : loaded.reports)
        EXPECT_EQ(report.outcome, DeltaReport::APPLIED) << report.ToString();
    EXPECT_TRUE(Picture(loaded.figure) == Picture(figure));
    EXPECT_EQ(Save(loaded.figure), bytes);
    EXPECT_EQ(DescribeSavedFigure(loaded.file.figures[0], loaded.file.names),
              (Strings{"show the sheet sheet0", "colour U1, N #8040bf", "fill U2 #ff1a00",
                       "colour the paper #e6e6cc"}));
}

TEST_F(ColorDeltaTest, OfLostTargetsItTellsAndDoesWithTheRest) {
    Apply(ColorDelta::LINES_AND_TEXTS, PLUM, {Block("U1"), Block("U2")});
    Apply(ColorDelta::FILLS, PLUM, {Block("U2")});
    std::string const bytes = Save(figure);
    auto source = TwoBlocksAndAWire();
    source.sheets[0].blocks.pop_back();
    InstalledDesign const revision(source);
    Loaded const loaded(bytes);
    EXPECT_EQ(loaded.reports.at(1).outcome, DeltaReport::PARTLY);
    EXPECT_EQ(loaded.reports.at(2).outcome, DeltaReport::FAILED);
    EXPECT_EQ(ColorSettingOf(*BlockOf(loaded.figure, "U1"), Setting::COLOR), PLUM);
    EXPECT_EQ(WriteSavedFigures({{loaded.figure, &loaded.file.figures[0]}}, loaded.file.names),
              bytes)
        << "saving on a revision that lost a target loses nothing";
}

TEST_F(ColorDeltaTest, DamagedOnesFailAlone) {
    Apply(ColorDelta::FILLS, PLUM, {Block("U1")});
    std::string const bytes = Save(figure);
    auto const with = [&](std::string const& from, std::string const& to) {
        std::string changed = bytes;
        auto const at = changed.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return changed.replace(at, from.size(), to);
    };
    for (std::string const& damaged :
         {with("value=\"fills\"", "value=\"corners\""), with("key=\"red\"", "key=\"infrared\""),
          with("key=\"green\" value=\"0.25\"", "key=\"green\" value=\"nan\""),
          with("key=\"green\" value=\"0.25\"", "key=\"green\" value=\"2\"")}) {
        Loaded const loaded(damaged);
        EXPECT_EQ(loaded.reports.at(0).outcome, DeltaReport::APPLIED);
        EXPECT_EQ(loaded.reports.at(1).outcome, DeltaReport::NOT_UNDERSTOOD) << damaged;
    }
}

TEST_F(ColorDeltaTest, ProgramsThatDoNotKnowItKeepItAndNameItsTargets) {
    Apply(ColorDelta::FILLS, PLUM, {Block("U1")});
    auto read = ReadSavedFigures(Save(figure), "f");
    SmartPtr<Figure> const fresh = new Figure();
    auto const reports =
        ApplySavedFigure(fresh, read.file->figures[0], DeltaTypes(), read.file->names);
    EXPECT_EQ(reports.at(1).outcome, DeltaReport::NOT_UNDERSTOOD);
    EXPECT_EQ(TargetsOf(*read.file->figures[0].components[1].content),
              (std::vector<Symbol>{Block("U1")->GetId()}));
}

TEST_F(ColorDeltaTest, NoFigureNoColor) {
    OtherReceiver other;
    SmartPtr<ColorDelta> const delta = new ColorDelta(ColorDelta::PAPER, PLUM, ColorDelta::Items());
    EXPECT_FALSE(delta->Apply(other));
}

TEST(ColorDelta, LeavesNothingAlive) {
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] {
                  InstalledDesign const drawing(TwoBlocksAndAWire());
                  auto const figure = LoadedFigure(drawing.Sheet());
                  SmartPtr<ColorDelta> const delta =
                      new ColorDelta(ColorDelta::FILLS, PLUM, {BlockOf(figure, "U1")});
                  figure->AddAndApplyDelta(delta, false, true);
                  delta->Undo(*figure);
                  delta->Apply(*figure);
              }),
              0);
}

}  // namespace
}  // namespace fighost
