#include <persistence/SavedFigures.h>

#include <algorithm>

#include <figk/Format.h>
#include <figk/SettingValue.h>
#include <figk/TitleBlock.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TransformAction.h>
#include <host/UnknownParts.h>

#include "SavedFigureSupport.h"

namespace fighost::testing {
namespace {

using namespace figrep;           // NOLINT: the tests speak of both sides
using namespace figrep::testing;  // NOLINT
using figrep::Symbol;

SmartPtr<Setting> Visibility(bool visible) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, figk::Setting::LEVEL_FIGURE, true);
}

// Revisions.

TEST(SavedFigures, ListsExactlyTheChangesThatLostTheirTargets) {
    std::string bytes;
    {
        InstalledDesign const drawing(TwoBlocksAndAWire());
        auto const figure = LoadedFigure(drawing.Sheet());
        figure->AddAndApplyDelta(new FigureMoveDelta({BlockOf(figure, "U1")}, {}, {1, 1}, false),
                                 false, false);
        figure->AddAndApplyDelta(new FigureMoveDelta({BlockOf(figure, "U2")}, {}, {2, 2}, false),
                                 false, false);
        figure->AddAndApplyDelta(
            new FigureSettingDelta(Visibility(false), {BlockOf(figure, "U2"), NetOf(figure, "N")}),
            false, false);
        bytes = Save(figure);
    }
    auto source = TwoBlocksAndAWire();
    source.sheets[0].blocks.pop_back();
    InstalledDesign const revision(source);
    Loaded const loaded(bytes);
    ASSERT_EQ(loaded.reports.size(), 4u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::APPLIED);
    EXPECT_EQ(loaded.reports[1].outcome, DeltaReport::APPLIED);
    EXPECT_EQ(loaded.reports[2].outcome, DeltaReport::FAILED);
    EXPECT_EQ(loaded.reports[3].outcome, DeltaReport::PARTLY);
    EXPECT_EQ(loaded.Report(1), "2: move U1: applied");
    EXPECT_NE(loaded.Report(2).find("3: move U2: not applied: U2 ("), std::string::npos);
    EXPECT_EQ(loaded.figure->GetDeltas().size(), 4u);
    EXPECT_EQ(loaded.SaveAgain(), bytes);
}

TEST(SavedFigures, RenamedBlocksAndReroutedNetsKeepTheirChanges) {
    auto source = TwoBlocksAndAWire();
    auto& sheet = source.sheets[0];
    sheet.wires[0].id = "w1";
    sheet.wires[1].id = "w2";
    std::string bytes;
    {
        InstalledDesign const drawing(source);
        auto const figure = LoadedFigure(drawing.Sheet());
        for (SmartPtr<AbstractFigureItem> const& item :
             {SmartPtr<AbstractFigureItem>(BlockOf(figure, "U1")),
              SmartPtr<AbstractFigureItem>(NetOf(figure, "N"))}) {
            figure->AddAndApplyDelta(new FigureMoveDelta({item}, {}, {1, 1}, false), false, false);
        }
        bytes = Save(figure);
    }
    sheet.blocks[0].name = "U7";
    sheet.wires = {WireOf(0, {0, 0}, {0, 10}), WireOf(0, {0, 10}, {20, 10})};
    sheet.wires[0].id = "w1";
    sheet.wires[1].id = "w2";
    InstalledDesign const revision(source);
    Loaded const loaded(bytes);
    EXPECT_TRUE(loaded.AllApplied()) << loaded.Report(2);
    EXPECT_EQ(BlockOf(loaded.figure, "U7")->GetConnectorInstances().at(0)->GetPosition(),
              DPoint2D(1, 1));
    EXPECT_EQ(NetOf(loaded.figure, "N")->GetExtents(), DBox2D(1, 1, 21, 11));
}

TEST(SavedFigures, LostSheetIsSetAsideAndTheRestIsRun) {
    std::string bytes;
    {
        InstalledDesign const drawing(TwoBlocksAndAWire());
        auto const figure = LoadedFigure(drawing.Sheet());
        bytes = Save(figure);
    }
    InstalledDesign const other(NamedDesign("other", 1));
    Loaded const loaded(bytes);
    EXPECT_EQ(loaded.reports.at(0).outcome, DeltaReport::FAILED);
    EXPECT_TRUE(loaded.figure->GetDeltas().empty());
    EXPECT_EQ(loaded.SaveAgain(), bytes);
}

TEST(SavedFigures, LostSheetDoesNotStopTheChangesBehindIt) {
    auto source = NamedDesign("two", 2);
    source.sheets[0].blocks = {BlockWith("U1", {Pin("1", DPoint2D(0, 0), 0)})};
    source.sheets[1].blocks = {BlockWith("U2", {Pin("1", DPoint2D(5, 5), 0)})};
    AddNets(source, {"N"});
    std::string bytes;
    {
        InstalledDesign const drawing(source);
        SmartPtr<Figure> const figure = new Figure();
        for (std::size_t i : {0u, 1u}) {
            SmartPtr<FigureSheetDeltaGenerator> const generator =
                new FigureSheetDeltaGenerator(drawing.Sheet(i));
            figure->GenerateDeltas(*generator);
        }
        figure->ApplyDeltas(false);
        for (char const* name : {"U1", "U2"}) {
            figure->AddAndApplyDelta(
                new FigureMoveDelta({BlockOf(figure, name)}, {}, {1, 1}, false), false, false);
        }
        bytes = Save(figure);
    }
    source.sheets.erase(source.sheets.begin());
    InstalledDesign const revision(source);
    Loaded const loaded(bytes);
    ASSERT_EQ(loaded.reports.size(), 4u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::FAILED) << loaded.Reports();
    EXPECT_EQ(loaded.reports[1].outcome, DeltaReport::APPLIED) << loaded.Reports();
    EXPECT_EQ(loaded.reports[2].outcome, DeltaReport::FAILED) << loaded.Reports();
    EXPECT_EQ(loaded.reports[3].outcome, DeltaReport::APPLIED) << loaded.Reports();
    EXPECT_EQ(BlockOf(loaded.figure, "U2")->GetConnectorInstances().at(0)->GetPosition(),
              DPoint2D(6, 6));
    EXPECT_EQ(loaded.figure->GetDeltas().size(), 3u) << "all but the lost sheet";
    EXPECT_EQ(loaded.SaveAgain(), bytes);
}

TEST(SavedFigures, WhatTheProgramDoesNotKnowIsWrittenBackInItsPlace) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    figure->AddAndApplyDelta(new FigureMoveDelta({BlockOf(figure, "U1")}, {}, {1, 1}, false), false,
                             false);
    std::string const bytes = WithUnknownParts(Save(figure), 9);
    ASSERT_GT(bytes.size(), 3 * Save(figure).size());
    Loaded const loaded(bytes);
    EXPECT_TRUE(loaded.AllApplied()) << loaded.Reports();
    EXPECT_EQ(loaded.SaveAgain(), bytes);
}

TEST(SavedFigures, NewChangesStandBehindTheLoadedOnesAndAllElseStaysInItsPlace) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    figure->AddAndApplyDelta(new FigureMoveDelta({BlockOf(figure, "U1")}, {}, {1, 1}, false), false,
                             false);
    std::string const bytes = WithUnknownParts(Save(figure), 9);
    Loaded const loaded(bytes);
    SmartPtr<figk::AbstractDelta> const deletion =
        new FigureItemDeleteDelta(BlockOf(loaded.figure, "U2"));
    loaded.figure->AddAndApplyDelta(deletion, false, false);
    std::string const more = loaded.SaveAgain();
    EXPECT_EQ(DescribeSavedFigure(Read(more).figures[0], {}).size(), 3u);
    std::size_t const from = more.find(
        "    <content key=\"component\">\n      <int key=\"action\" "
        "value=\"2\" />");
    ASSERT_NE(from, std::string::npos) << more;
    std::string const end = "\n    </content>\n";
    std::string rest = more;
    rest.erase(from, more.find(end, from) + end.size() - from);
    EXPECT_EQ(rest, bytes);
    loaded.figure->RemoveDelta(deletion);
    loaded.figure->RemoveDelta(loaded.figure->GetDeltas().at(1));
    std::string const less = loaded.SaveAgain();
    EXPECT_EQ(DescribeSavedFigure(Read(less).figures[0], {}).size(), 1u);
    for (char const* kept : {"unknown1\"", "unknown2\"", "unknown3\""})
        EXPECT_NE(less.find(kept), std::string::npos) << kept;
}

TEST(SavedFigures, DesignUnderAnotherNameIsNotedBehindTheOneThatWasThere) {
    auto source = TwoBlocksAndAWire();
    std::string bytes;
    {
        InstalledDesign const drawing(source);
        bytes = Save(LoadedFigure(drawing.Sheet()));
    }
    source.name = "renamed";
    InstalledDesign const revision(source);
    std::string const again = Loaded(bytes).SaveAgain();
    auto const file = Read(again);
    auto const designs = file.figures[0].content->FindChildren(Figure::s_figure_design);
    ASSERT_EQ(designs.size(), 2u);
    EXPECT_EQ(std::get<Symbol>(*designs[0]->FindProperty(Figure::s_design_name)), Symbol("wired"));
    EXPECT_EQ(std::get<Symbol>(*designs[1]->FindProperty(Figure::s_design_name)),
              Symbol("renamed"));
    EXPECT_LT(again.rfind("key=\"design\""), again.find("key=\"component\""));
    EXPECT_EQ(Loaded(again).SaveAgain(), again);
}

TEST(SavedFigures, ChangesTakenOffTheListAreNotSavedAndNewOnesAre) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    SmartPtr<figk::AbstractDelta> const first =
        new FigureMoveDelta({BlockOf(figure, "U1")}, {}, {1, 1}, false);
    figure->AddAndApplyDelta(first, false, false);
    Loaded const loaded(Save(figure));
    loaded.figure->RemoveDelta(loaded.figure->GetDeltas().at(1));
    loaded.figure->AddAndApplyDelta(new FigureItemDeleteDelta(BlockOf(loaded.figure, "U2")), false,
                                    false);
    auto const again = Read(loaded.SaveAgain());
    ASSERT_EQ(again.figures[0].components.size(), 2u);
    EXPECT_EQ(DescribeSavedFigure(again.figures[0], again.names),
              (Strings{"show the sheet sheet0", "delete U2"}));
}

TEST(SavedFigures, DeletionOfWhatCanNotBeDeletedIsAFailure) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    figure->AddAndApplyDelta(
        new FigureItemDeleteDelta(BlockOf(figure, "U1")->GetConnectorInstances().at(0)), false,
        false);
    Loaded const loaded(Save(figure));
    EXPECT_EQ(loaded.reports.at(1).outcome, DeltaReport::FAILED);
    EXPECT_NE(loaded.Report(1).find("can't be deleted"), std::string::npos);
}

// The title block.

class SavedTitleBlockTest : public ::testing::Test {
protected:
    static SmartPtr<Figure> WithTexts(Strings const& texts) {
        SmartPtr<Figure> const figure = new Figure();
        figure->Receive(SmartPtr<Format>(new Format(figure->GetLock(), nullptr)));
        SmartPtr<TitleBlock> const block = new TitleBlock(figure->GetLock(), nullptr, nullptr);
        std::vector<SmartPtr<TitleBlockTextSection>> sections;
        for (auto const& text : texts) {
            std::vector<TitleBlockTextSection::TextSegment> const segments{{1, "t", true, text}};
            sections.push_back(new TitleBlockTextSection(0, segments));
        }
        block->SetTextSections(sections);
        figure->Receive(block);
        return figure;
    }
};

TEST_F(SavedTitleBlockTest, TextsComeBackAndSavingTwiceGivesTheSameFile) {
    std::string const bytes = Save(WithTexts({"a", "b"}));
    Loaded const loaded(bytes, WithTexts({"new", "new"}));
    EXPECT_TRUE(loaded.AllApplied());
    EXPECT_TRUE(loaded.figure->GetDeltas().empty());
    EXPECT_EQ(loaded.SaveAgain(), bytes);
}

TEST_F(SavedTitleBlockTest, WhatStandsBesideTheTextsIsKeptWithThem) {
    constexpr std::size_t IN_COMPONENTS = 3;
    auto const count = [](std::string const& text) {
        std::size_t found = 0;
        for (auto at = text.find("key=\"unknown"); at != std::string::npos;
             at = text.find("key=\"unknown", at + 1))
            ++found;
        return found;
    };
    std::string const bytes = WithUnknownParts(Save(WithTexts({"a", "b"})), IN_COMPONENTS);
    Loaded const loaded(bytes, WithTexts({"new", "new"}));
    EXPECT_TRUE(loaded.AllApplied());
    std::string const again = loaded.SaveAgain();
    EXPECT_EQ(count(again), count(bytes));
    EXPECT_EQ(Read(again).figures[0].components.size(), 1u);
    EXPECT_EQ(Loaded(again, WithTexts({"new", "new"})).SaveAgain(), again);
}

TEST_F(SavedTitleBlockTest, TextsOfAnotherTitleBlockAreKept) {
    std::string const bytes = Save(WithTexts({"a", "b"}));
    Loaded const loaded(bytes, WithTexts({"new"}));
    EXPECT_EQ(loaded.reports.at(0).outcome, DeltaReport::FAILED);
    std::string const again = loaded.SaveAgain();
    EXPECT_EQ(Read(again).figures[0].components.size(), 2u);
    Loaded const third(again, WithTexts({"new"}));
    EXPECT_EQ(third.SaveAgain(), again);
}

}  // namespace
}  // namespace fighost::testing
