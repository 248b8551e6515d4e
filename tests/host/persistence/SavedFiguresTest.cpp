#include <persistence/SavedFigures.h>

#include <algorithm>

#include <figk/Format.h>
#include <figk/SettingValue.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figk/TitleBlock.h>
#include <figrep/BrokenConnectionRecord.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/FigureConnectionsDelta.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/Format.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/MirrorAction.h>
#include <figrep/NetSegment.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <persistence/ApplySaved.h>
#include <support/GeneratedDesign.h>
#include <support/Random.h>
#include <support/RandomEdits.h>

#include "../../deltas/DeltaTestSupport.h"

namespace fighost {
namespace {

using namespace figrep;           // NOLINT: the tests speak of both sides
using namespace figrep::testing;  // NOLINT
using figrep::Symbol;

std::string Save(SmartPtr<Figure> const& figure, SavedFigure const* saved = nullptr,
                 KnownNames const& names = {}) {
    return WriteSavedFigures({{figure, saved}}, names);
}

ReadFigures::File Read(std::string const& bytes) {
    auto read = ReadSavedFigures(bytes, "test.figrep");
    EXPECT_FALSE(read.error) << read.error->ToString();
    return read.file ? *read.file : ReadFigures::File{{SavedFigure()}, {}};
}

/// A figure made again from a file.
struct Loaded {
    explicit Loaded(std::string const& bytes, SmartPtr<Figure> const& fresh = new Figure())
        : file(Read(bytes)), figure(fresh) {
        reports = ApplySavedFigure(figure, file.figures.at(0), DeltaTypes(), file.names);
    }
    std::string SaveAgain() const { return Save(figure, &file.figures[0], file.names); }
    bool AllApplied() const {
        return std::all_of(reports.begin(), reports.end(), [](DeltaReport const& report) {
            return report.outcome == DeltaReport::APPLIED;
        });
    }
    std::string Report(std::size_t index) const { return reports.at(index).ToString(); }

    ReadFigures::File file;
    SmartPtr<Figure> figure;
    std::vector<DeltaReport> reports;
};

SmartPtr<Setting> Visibility(bool visible) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, figk::Setting::LEVEL_FIGURE, true);
}

/// A figure of two blocks and a wire, changed by one delta of a kind.
class DeltaContractTest : public ::testing::TestWithParam<std::string> {
protected:
    SmartPtr<figk::AbstractDelta> Make() const {
        SmartPtr<AbstractFigureItem> const block = BlockOf(figure, "U2");
        auto const net = NetOf(figure, "N");
        std::string const& kind = GetParam();
        if (kind == "move") {
            FigureMoveDelta::Transforms const transforms{new MirrorAction(DPoint2D(1, 2), true),
                                                         new RotateAction(DPoint2D(3, 4), 0.7),
                                                         new ScaleAction(DPoint2D(5, 6), 1.0 / 3)};
            return new FigureMoveDelta({block, net}, transforms, DPoint2D(0.1, -2), false);
        }
        if (kind == "setting") return new FigureSettingDelta(Visibility(false), {block, net});
        if (kind == "item setting") return new FigureItemSettingDelta(Visibility(false), block);
        if (kind == "delete") return new FigureItemDeleteDelta(net);
        if (kind == "copy") {
            return new FigureSubNetDelta(net->GetKernelSubNet(), figk::AbstractDelta::ACTION_COPY);
        }
        if (kind == "create") return MakeDrawnNet(net);
        SmartPtr<BrokenConnectionRecord> const record = new BrokenConnectionRecord(
            net, DPoint2D(20, 0), DPoint2D(20, 0), DPoint2D(20, 0), true);
        return new FigureConnectionsDelta({record}, figk::AbstractDelta::ACTION_CREATE);
    }

    static SmartPtr<figk::AbstractDelta> MakeDrawnNet(SmartPtr<SubNet> const& net) {
        SmartPtr<DeltaVertexNode> const head =
            new DeltaVertexNode(nullptr, DPoint2D(0, 0), nullptr);
        SmartPtr<DeltaVertexNode> const bend = new DeltaVertexNode(nullptr, DPoint2D(0, 10), head);
        SmartPtr<DeltaVertexNode>(new DeltaVertexNode(nullptr, DPoint2D(20, 10), bend));
        SmartPtr<ItemAttrInfo> const info = new ItemAttrInfo();
        info->label = Symbol("drawn <&> \"here\"");
        info->attributes.push_back(new figk::Attribute(Symbol("a"), Symbol("b")));
        return new FigureSubNetDelta(head, info, figk::AbstractDelta::ACTION_CREATE,
                                     net->GetKernelSubNet());
    }

    InstalledDesign drawing{TwoBlocksAndAWire()};
    SmartPtr<Figure> figure = LoadedFigure(drawing.Sheet());
};

TEST_P(DeltaContractTest, AppliedSavedAndAppliedAfreshItGivesTheSameFigure) {
    Strings const before = DumpOf(figure);
    figure->AddAndApplyDelta(Make(), false, false);
    ASSERT_FALSE(figure->HasDeltaFailures());
    ASSERT_NE(DumpOf(figure), before);
    std::string const bytes = Save(figure);
    Loaded const loaded(bytes);
    EXPECT_TRUE(loaded.AllApplied()) << loaded.Report(1);
    EXPECT_EQ(DumpOf(loaded.figure), DumpOf(figure));
    EXPECT_EQ(Save(loaded.figure), bytes);
    EXPECT_EQ(loaded.SaveAgain(), bytes);
    EXPECT_FALSE(loaded.figure->HasChanged());
    EXPECT_TRUE(loaded.figure->GetLoaded());
}

TEST_P(DeltaContractTest, OnADesignThatLostTheTargetItIsReportedAndKept) {
    figure->AddAndApplyDelta(Make(), false, false);
    std::string const bytes = Save(figure);
    auto bare = NamedDesign("wired", 1);
    InstalledDesign const revision(bare);
    auto const untouched = LoadedFigure(revision.Sheet());
    Loaded const loaded(bytes);
    ASSERT_EQ(loaded.reports.size(), 2u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::APPLIED);
    EXPECT_EQ(loaded.reports[1].outcome, DeltaReport::FAILED);
    EXPECT_NE(loaded.Report(1).find(" gone"), std::string::npos) << loaded.Report(1);
    EXPECT_EQ(DumpOf(loaded.figure), DumpOf(untouched));
    EXPECT_EQ(loaded.SaveAgain(), bytes) << "saving on a revision that lost a target loses nothing";
}

INSTANTIATE_TEST_SUITE_P(Kinds, DeltaContractTest,
                         ::testing::Values("move", "setting", "item setting", "delete", "copy",
                                           "create", "connections"),
                         [](auto const& kind) {
                             std::string name = kind.param;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST(SavedFigures, RandomChangesOfGeneratedDesignsComeBackExactly) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        test::GridOptions options;
        options.seed = seed;
        options.segments = 150;
        InstalledDesign const drawing(test::GenerateGrid(options));
        auto const figure = LoadedFigure(drawing.Sheet());
        test::RandomEdits edits(figure, seed);
        for (int i = 0; i < 20; ++i)
            edits.Edit();
        std::string const bytes = Save(figure);
        Loaded const loaded(bytes);
        ASSERT_EQ(DumpOf(loaded.figure), DumpOf(figure)) << "seed " << seed;
        ASSERT_EQ(loaded.SaveAgain(), bytes);
    }
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

TEST_F(SavedTitleBlockTest, TextsOfAnotherTitleBlockAreKept) {
    std::string const bytes = Save(WithTexts({"a", "b"}));
    Loaded const loaded(bytes, WithTexts({"new"}));
    EXPECT_EQ(loaded.reports.at(0).outcome, DeltaReport::FAILED);
    std::string const again = loaded.SaveAgain();
    EXPECT_EQ(Read(again).figures[0].components.size(), 2u);
    Loaded const third(again, WithTexts({"new"}));
    EXPECT_EQ(third.SaveAgain(), again);
}

// Files.

std::string File(std::string const& components) {
    return "<?xml version=\"1.0\"?>\n<figrep-figures>\n<content key=\"figure\">\n"
           "<int key=\"content_version\" value=\"1\"/><bool key=\"show_grid\" value=\"true\"/>\n" +
           components + "</content></figrep-figures>\n";
}

std::string ErrorOf(std::string const& bytes) {
    auto const read = ReadSavedFigures(bytes, "f");
    EXPECT_FALSE(read.file);
    return read.error ? read.error->ToString() : "";
}

TEST(SavedFigures, UnknownComponentsAreKeptAsTheyAreAndReported) {
    std::string const bytes = File(
        "<content key=\"component\"><text key=\"type\" value=\"from_the_future\"/>"
        "<content key=\"x\"><int key=\"n\" value=\"3\"/></content>"
        "<text key=\"later\" value-hex=\"00ff\"/></content><content key=\"component\"/>");
    Loaded const loaded(bytes);
    ASSERT_EQ(loaded.reports.size(), 2u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::NOT_UNDERSTOOD);
    EXPECT_NE(loaded.Report(0).find("from_the_future"), std::string::npos);
    EXPECT_TRUE(loaded.figure->GetFormatGridOn());
    auto const again = Read(loaded.SaveAgain());
    auto const before = Read(bytes);
    ASSERT_EQ(again.figures[0].components.size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(test::LinesOf(*again.figures[0].components[i].content),
                  test::LinesOf(*before.figures[0].components[i].content));
    }
}

TEST(SavedFigures, WrongTypesMissingFieldsAndNumbersThatAreNoneFailForThatChangeAlone) {
    std::string const action = "<int key=\"action\" value=\"3\"/>";
    std::string const move = "<text key=\"type\" value=\"move_delta\"/>";
    auto const component = [](std::string const& content) {
        return "<content key=\"component\">" + content + "</content>";
    };
    Loaded const loaded(
        File(component(action + move) +
             component(action + move + "<text key=\"offset\" value=\"far\"/>") +
             component(action + move + "<point key=\"offset\" x=\"nan\" y=\"0\" z=\"0\"/>") +
             component(action + move + "<point key=\"offset\" x=\"inf\" y=\"0\" z=\"0\"/>") +
             component(action + "<text key=\"type\" value=\"setting_delta\"/><text key=\"id\" "
                                "value=\"a\"/><text key=\"setting_type\" value=\"SIZE\"/>") +
             component(action + move + "<point key=\"offset\" x=\"1\" y=\"0\" z=\"0\"/>")));
    ASSERT_EQ(loaded.reports.size(), 6u);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(loaded.reports[i].outcome, DeltaReport::NOT_UNDERSTOOD) << loaded.Report(i);
    EXPECT_EQ(loaded.reports[5].outcome, DeltaReport::APPLIED);
    EXPECT_EQ(Read(loaded.SaveAgain()).figures[0].components.size(), 6u);
}

TEST(SavedFigures, FilesThatAreNoneAreOneClearMessage) {
    std::string const whole = File("");
    EXPECT_NE(ErrorOf(whole.substr(0, whole.size() / 2)).find("no whole XML"), std::string::npos);
    EXPECT_NE(ErrorOf("").find("f:1:1"), std::string::npos);
    EXPECT_NE(ErrorOf("<svg/>").find("'svg'"), std::string::npos);
    EXPECT_NE(ErrorOf("<figrep-figures/>").find("no saved figure"), std::string::npos);
    std::string newer = whole;
    newer.replace(newer.find("value=\"1\"") + 7, 1, "2");
    EXPECT_NE(ErrorOf(newer).find("newer program"), std::string::npos);
    EXPECT_NE(ErrorOf(File("<int key=\"n\" value=\"many\"/>")).find("f:5:"), std::string::npos);
    EXPECT_NE(ErrorOf(File("<blob key=\"n\"/>")).find("'blob'"), std::string::npos);
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<content key=\"x\">";
    for (int i = 0; i < 100000; ++i)
        deep += "</content>";
    EXPECT_NE(ErrorOf(File(deep)).find("too deeply"), std::string::npos);
    MemoryFiles files;
    EXPECT_NE(ReadSavedFigures(files, "gone").error->ToString().find("no such file"),
              std::string::npos);
}

TEST(SavedFigures, MutatedFilesNeverHarm) {
    InstalledDesign const drawing(TwoBlocksAndAWire());
    auto const figure = LoadedFigure(drawing.Sheet());
    test::RandomEdits edits(figure, 3);
    for (int i = 0; i < 12; ++i)
        edits.Edit();
    std::string const bytes = Save(figure);
    test::Random random(11);
    for (int round = 0; round < 10000; ++round) {
        std::string mutated = bytes;
        for (std::size_t i = 1 + random.Below(4); i > 0; --i) {
            std::size_t const at = random.Below(mutated.size());
            switch (random.Below(3)) {
                case 0:
                    mutated[at] = static_cast<char>(random.Next());
                    break;
                case 1:
                    mutated.erase(at, random.Below(20));
                    break;
                default:
                    mutated.insert(at, mutated.substr(random.Below(mutated.size()), 9));
            }
        }
        auto read = ReadSavedFigures(mutated, "m");
        ASSERT_NE(read.file.has_value(), read.error.has_value());
        if (!read.file) continue;
        SmartPtr<Figure> const fresh = new Figure();
        auto& saved = read.file->figures[0];
        auto const reports = ApplySavedFigure(fresh, saved, DeltaTypes(), read.file->names);
        ASSERT_FALSE(Save(fresh, &saved, read.file->names).empty());
    }
}

}  // namespace
}  // namespace fighost
