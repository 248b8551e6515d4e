// What stands on a kernel sheet beside its wires, how it is shown, and what becomes of bad input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/Format.h>
#include <figk/GraphicGroup.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/SchematicKernel.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <figk/Zv2dGraphics.h>
#include <figkernel/DesignBuilder.h>
#include <support/Drawing.h>
#include <support/KernelDump.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {
namespace {

using figkernel::BuildFinding;

std::vector<BuildFinding::Kind> KindsOf(figkernel::BuildResult const& built) {
    std::vector<BuildFinding::Kind> kinds;
    for (BuildFinding const& finding : built.findings)
        kinds.push_back(finding.kind);
    return kinds;
}

TEST(SheetVisit, ShowsFrameLabelsItemsHighwaysAndNetsInOrder) {
    Drawing drawing;
    drawing.Format(297, 210).Text("hello", 1, 1).Box("U1", 0, 0, 5, 5).Pin("A", "U1", "1", 5, 0);
    drawing.Wire("A", 5, 0, 9, 0).Label("A", "label", 7, 0).Bus("H", 0, 20, 9, 20);
    drawing.Cable("C1", "A").Table("T1").Miscellaneous("M1");
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(DumpVisits(*design->GetSheets().front()),
              "sheet S1\n"
              "format\nstart\nend\n"
              "labels\nstart\ntext hello\nend\n"
              "block U1\nstart\ngraphic\nend\nlabels\nstart\ntext U1\nend\n"
              "pin U1:1\nstart\nend\n"
              "cable C1\nstart\nend\n"
              "table T1\nstart\nend\n"
              "miscellaneous M1\nstart\nend\n"
              "highway H\nbus(0,20 9,20)\nstart\nend\n"
              "net A\nwire(5,0 9,0)\nstart\nend\nlabels\nstart\ntext label\nend");
}

TEST(SheetVisit, AnEmptySheetShowsItselfAlone) {
    Drawing drawing;
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(DumpVisits(*design->GetSheets().front()), "sheet S1");
}

TEST(Decoration, GoesToThePieceThatPassesItsAnchor) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("A", 5, 0, 5, 5).Label("A", "far", 8, 0);
    auto const design = drawing.BuildDesign();
    auto const head = design->GetSheets().front()->GetSubNets().front()->GetHead();
    std::string labelled;
    for (auto at = head->Begin(); !(at == head->End()); ++at) {
        auto const segment = du::DynamicCast<figk::NetSegment>(*at);
        if (segment && segment->GetTextLabelContainerGroup()) {
            labelled += segment->GetId().GetString();
        }
    }
    EXPECT_EQ(labelled, "S1/w1@5,0");
}

TEST(Decoration, WithoutAPieceGoesToTheSheet) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Label("A", "lost", 8, 3);
    auto const design = drawing.BuildDesign();
    auto const labels = design->GetSheets().front()->GetTextLabelContainerGroup();
    ASSERT_TRUE(labels);
    auto const text = du::DynamicCast<figk::TextGraphic>(*labels->BeginGroup());
    ASSERT_TRUE(text);
    EXPECT_EQ(text->GetText().GetString(), "lost");
}

TEST(Decoration, OfANetOrHighwayThatTheSheetDoesNotShowGoesToTheSheet) {
    Drawing drawing;
    drawing.Label("A", "net", 8, 3).BusLabel("H", "bus", 4, 0);
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(DumpVisits(*design->GetSheets().front()),
              "sheet S1\nlabels\nstart\ntext bus\ntext net\nend");
}

TEST(Decoration, OfAHighwayGoesToItsSegment) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 10, 0).BusLabel("H", "D[0..7]", 4, 0);
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(DumpVisits(*design->GetSheets().front()),
              "sheet S1\nhighway H\nbus(0,0 10,0)\nstart\nend\nlabels\nstart\ntext D[0..7]\nend");
}

TEST(Nesting, ChildrenKnowThatTheyAre) {
    Drawing drawing;
    drawing.Child("outer", "inner");
    auto const design = drawing.BuildDesign();
    for (auto const& block : design->GetSheets().front()->GetBlockInstances()) {
        bool const isInner = block->GetName() == "inner";
        EXPECT_EQ(block->IsChild(), isInner);
        EXPECT_EQ(block->IsParent(), !isInner);
        EXPECT_EQ(block->GetChildren().size(), isInner ? 0u : 1u);
    }
}

TEST(Nesting, ARingIsCutOnceAndReported) {
    Drawing drawing;
    drawing.Child("a", "b").Child("b", "c").Child("c", "a");
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), std::vector{BuildFinding::BAD_NESTING});
    std::size_t children = 0;
    for (auto const& block : built.design->GetSheets().front()->GetBlockInstances()) {
        children += block->GetChildren().size();
    }
    EXPECT_EQ(children, 2u);
}

TEST(Nesting, ABlockStandsInsideOneOther) {
    Drawing drawing;
    drawing.Child("a", "c").Child("b", "c");
    EXPECT_EQ(KindsOf(drawing.Build()), std::vector{BuildFinding::BAD_NESTING});
}

TEST(Nesting, AHundredThousandDeepIsDroppedWithoutDepth) {
    Drawing drawing;
    auto& blocks = drawing.Current().blocks;
    blocks.resize(100000);
    for (std::uint32_t i = 1; i < blocks.size(); ++i)
        blocks[i].children.push_back(i - 1);
    auto const built = drawing.Build();
    EXPECT_TRUE(built.findings.empty());
}

TEST(Groups, NestAndKeepTheirOrder) {
    Drawing drawing;
    drawing.Box("U1", 0, 0, 5, 5);
    figkernel::GroupSource inner;
    inner.texts.push_back({{}, "inside", Drawing::MakeText("inside", 0, 0), figkernel::NO_INDEX});
    drawing.Block("U1").graphics.groups = {inner, figkernel::GroupSource{}};
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(DumpVisits(*design->GetSheets().front()),
              "sheet S1\nblock U1\nstart\ngraphic\nstart\ntext inside\nend\nstart\nend\nend\n"
              "labels\nstart\ntext U1\nend");
}

TEST(Groups, NestedTooDeepMoveOutwardsAndAreReported) {
    figkernel::GroupSource group;
    group.texts.push_back({{}, "deep", Drawing::MakeText("deep", 0, 0), figkernel::NO_INDEX});
    for (int i = 0; i < 500; ++i) {
        figkernel::GroupSource outer;
        outer.groups.push_back(std::move(group));
        group = std::move(outer);
    }
    Drawing drawing;
    drawing.Block("U1").graphics = group;
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), std::vector{BuildFinding::DEEP_GROUP});
    std::string const visits = DumpVisits(*built.design->GetSheets().front());
    EXPECT_NE(visits.find("text deep"), std::string::npos);
}

TEST(Format, NamesTheCellsOfItsGrid) {
    Drawing drawing;
    drawing.Format(400, 200, 8, 4);
    auto const design = drawing.BuildDesign();
    auto const format = design->GetSheets().front()->GetFormat();
    ASSERT_TRUE(format);
    EXPECT_EQ(format->GetWidth(), 400);
    auto const cell = [&](double x, double y) {
        du::Symbol column;
        du::Symbol row;
        format->CalculateGridLocation({x, y}, column, row);
        return row.GetString() + column.GetString();
    };
    EXPECT_EQ(cell(1, 199), "A1");
    EXPECT_EQ(cell(399, 1), "D8");
    EXPECT_EQ(cell(400, 0), "D8");
    EXPECT_EQ(cell(60, 120), "B2");
    EXPECT_EQ(cell(401, 0), "");
    EXPECT_EQ(cell(std::nan(""), 0), "");
}

TEST(Format, CellsOfItsOwnReplaceTheEvenOnes) {
    figkernel::DesignSource source;
    source.id = "design";
    source.sheets.resize(1);
    figkernel::FormatSource& format = source.sheets[0].format.emplace();
    format.width = 100;
    format.height = 50;
    format.rows = 2;
    format.columnCells = {{"left", 30}, {"right", 60}};
    auto const design = figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
    auto const cell = [&](double x, double y) {
        figk::Symbol column;
        figk::Symbol row;
        design->GetSheets().front()->GetFormat()->CalculateGridLocation({x, y}, column, row);
        return column.GetString() + "/" + row.GetString();
    };
    EXPECT_EQ(cell(0, 50), "left/A");
    EXPECT_EQ(cell(29.9, 10), "left/B");
    EXPECT_EQ(cell(30, 10), "right/B");
    EXPECT_EQ(cell(100, 10), "right/B") << "the last reaches to the edge";
    EXPECT_EQ(cell(101, 10), "/");
}

TEST(Format, WithoutAGridNamesNoCell) {
    Drawing drawing;
    drawing.Format(400, 200);
    auto const design = drawing.BuildDesign();
    du::Symbol column("x");
    du::Symbol row("y");
    design->GetSheets().front()->GetFormat()->CalculateGridLocation({1, 1}, column, row);
    EXPECT_TRUE(column.IsEmpty());
    EXPECT_TRUE(row.IsEmpty());
}

TEST(TitleBlock, GivesItsSectionsByNumber) {
    Drawing drawing;
    figkernel::TitleBlockSource block;
    block.corner = 1;
    block.sections.resize(2);
    block.sections[1].id = 7;
    block.sections[1].segments.push_back({1, "TITLE", true, "${TITLE}"});
    drawing.Current().titleBlock = block;
    auto const design = drawing.BuildDesign();
    auto const record = design->GetSheets().front()->GetTitleBlock();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->GetCorner(), figk::TitleBlock::CORNER_BOTTOM_RIGHT);
    EXPECT_FALSE(record->GetTextSection(8));
    ASSERT_TRUE(record->GetTextSection(7));
    std::vector<figk::TitleBlockTextSection::TextSegment_s> segments;
    record->GetTextSection(7)->GetText(segments);
    ASSERT_EQ(segments.size(), 1u);
    EXPECT_EQ(segments[0].token, "TITLE");
}

TEST(Settings, AreSharedByTheRecordsThatNameThem) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Wire("B", 0, 9, 5, 9);
    auto const red = drawing.Source().AddSettings(
        {{figk::Setting::KEY_COLOR, figk::Setting::LEVEL_BASE,
          new figk::SettingValue<dg::Color>(dg::Color(1, 0, 0, 1)), true}});
    drawing.Source().nets[0].settings = red;
    drawing.Current().wires[1].settings = red;
    auto const design = drawing.BuildDesign();
    auto const subNets = design->GetSheets().front()->GetSubNets();
    auto const ofNet = subNets[0]->GetSettings();
    ASSERT_TRUE(ofNet);
    unsigned depth = 5;
    EXPECT_TRUE(ofNet->GetSetting(figk::Setting::KEY_COLOR, depth));
    auto const wire = du::DynamicCast<figk::NetSegment>(subNets[1]->GetHead());
    EXPECT_EQ(wire->GetSettings(), ofNet);
    EXPECT_FALSE(subNets[1]->GetSettings());
}

TEST(BadSource, IndicesThatPointNowhereAreReportedAndIgnored) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0).Pin("A", "U1", "1", 0, 0).Cable("C", "A");
    drawing.Current().wires[0].settings = 99;
    drawing.Block("U1").pins[0].net = 99;
    drawing.Current().cables[0].nets[0] = 99;
    drawing.Current().portNodes.emplace_back();
    drawing.Current().portNodes[0].port = 99;
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), (std::vector{BuildFinding::BAD_INDEX, BuildFinding::BAD_INDEX,
                                           BuildFinding::BAD_INDEX, BuildFinding::BAD_INDEX}));
    EXPECT_EQ(JoinLines(FindBrokenTrees(*built.design)), "");
}

TEST(BadSource, APortOnNetAndHighwayIsLeftOut) {
    Drawing drawing;
    drawing.NetPort("P", "A", 0, 0).Bus("H", 0, 0, 5, 0);
    drawing.Source().ports[0].highway = 0;
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), std::vector{BuildFinding::BAD_INDEX});
    EXPECT_TRUE(built.design->GetPorts().empty());
}

TEST(BadSource, CoordinatesThatAreNotNumbersAreLeftOut) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const far = std::numeric_limits<double>::infinity();
    Drawing drawing;
    drawing.Wire("A", nan, 0, 5, 0).Bus("H", 0, far, 5, 0).Pin("A", "U1", "1", 1e300, 0);
    drawing.Tap("A", "H", nan, 0, 1, 1).NetPort("P", "A", 0, nan).Join("A", nan, nan);
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), std::vector<BuildFinding::Kind>(6, BuildFinding::BAD_POINT));
    EXPECT_TRUE(built.design->GetSheets().front()->GetSubNets().empty());
}

TEST(BadSource, WiresWithoutLengthAndOnOthersAreReported) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 9, 0).Wire("A", 3, 3, 3, 3).Wire("A", 2, 0, 5, 0);
    auto const built = drawing.Build();
    EXPECT_EQ(KindsOf(built), (std::vector{BuildFinding::NO_LENGTH, BuildFinding::COVERED}));
    EXPECT_EQ(built.findings[0].id, "w2");
    EXPECT_EQ(built.findings[1].id, "w3");
}

TEST(BadSource, AnEmptyDesignIsADesign) {
    auto const built = figkernel::Build(figkernel::DesignSource{}, nullptr);
    ASSERT_TRUE(built.design);
    EXPECT_TRUE(built.findings.empty());
    EXPECT_TRUE(built.design->GetSheets().empty());
}

}  // namespace
}  // namespace figrep::test
