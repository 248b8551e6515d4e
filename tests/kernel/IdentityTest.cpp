// Ids of kernel records: what they are made of, and that edits elsewhere leave them alone.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/GenericGraphic.h>
#include <figk/GetSheetVisitor.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TextGraphic.h>
#include <support/Drawing.h>

namespace figrep::test {
namespace {

/// The ids of all sub-nets, and of all segments of one kind, of a design.
std::set<std::string> IdsOf(figk::Design const& design) {
    std::set<std::string> ids;
    for (auto const& sheet : design.GetSheets()) {
        for (auto const& subNet : sheet->GetSubNets()) {
            ids.insert("subnet " + subNet->GetId().GetString());
            auto const head = subNet->GetHead();
            for (auto at = head->Begin(); !(at == head->End()); ++at) {
                auto const segment = du::DynamicCast<figk::NetSegment>(*at);
                if (segment) ids.insert("segment " + segment->GetId().GetString());
            }
        }
        for (auto const& block : sheet->GetBlockInstances()) {
            ids.insert("block " + block->GetId().GetString());
        }
    }
    return ids;
}

TEST(Identity, SubNetsAreNamedBySheetNetAndSmallestWire) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0, "m").Wire("A", 5, 0, 5, 5, "c").Wire("A", 5, 5, 9, 5, "x");
    auto const design = drawing.BuildDesign();
    auto const subNet = design->GetSheets().front()->GetSubNets().front();
    EXPECT_EQ(subNet->GetId().GetString(), "S1/A/c");
    EXPECT_EQ(subNet->GetName(), "A");
    EXPECT_EQ(subNet->GetNet()->GetId().GetString(), "A");
}

TEST(Identity, WhatStandsOnASheetHasTheSheetInFront) {
    Drawing drawing;
    drawing.Pin("A", "U1", "3", 0, 0).Wire("A", 0, 0, 5, 0, "w");
    auto const design = drawing.BuildDesign();
    auto const block = design->GetSheets().front()->GetBlockInstances().front();
    EXPECT_EQ(block->GetId().GetString(), "S1/U1");
    EXPECT_EQ(block->GetConnectorInstances().front()->GetId().GetString(), "S1/U1/3");
    EXPECT_TRUE(IdsOf(*design).count("segment S1/w"));
}

TEST(Identity, TheDesignsPrefixStandsBeforeAll) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0, "w");
    drawing.Source().idPrefix = "left:";
    auto const design = drawing.BuildDesign();
    EXPECT_EQ(design->GetIdPrefix().GetString(), "left:");
    EXPECT_EQ(design->GetNets().front()->GetId().GetString(), "left:A");
    EXPECT_EQ(design->GetSheets().front()->GetId().GetString(), "left:S1");
    EXPECT_TRUE(IdsOf(*design).count("segment left:S1/w"));
}

TEST(Identity, PartsOfASplitWireKeepTheirIdsWhenItIsSplitAgain) {
    Drawing before;
    before.Wire("A", 0, 0, 20, 0, "w").Wire("A", 10, 0, 10, 5, "x");
    Drawing after;
    after.Wire("A", 0, 0, 20, 0, "w").Wire("A", 10, 0, 10, 5, "x").Wire("A", 5, 0, 5, 5, "y");
    auto const old = IdsOf(*before.BuildDesign());
    EXPECT_TRUE(old.count("segment S1/w"));
    EXPECT_TRUE(old.count("segment S1/w@10,0"));
    auto const now = IdsOf(*after.BuildDesign());
    for (std::string const& id : old)
        EXPECT_TRUE(now.count(id)) << id;
    EXPECT_TRUE(now.count("segment S1/w@5,0"));
}

TEST(Identity, AnEditElsewhereChangesNoId) {
    Drawing before;
    before.Pin("A", "U1", "1", 0, 0).Wire("A", 0, 0, 5, 0, "a1").Wire("A", 5, 0, 5, 5, "a2");
    before.Bus("H", 30, 0, 60, 0).Tap("C", "H", 40, 0, 41, 1).Tap("C", "H", 50, 0, 51, 1);
    Drawing after;
    after.Wire("B", 0, 9, 5, 9, "0first").Pin("B", "U0", "1", 0, 9).Bus("H", 45, 0, 45, 9);
    after.Pin("A", "U1", "1", 0, 0).Wire("A", 0, 0, 5, 0, "a1").Wire("A", 5, 0, 5, 5, "a2");
    after.Bus("H", 30, 0, 60, 0).Tap("C", "H", 40, 0, 41, 1).Tap("C", "H", 50, 0, 51, 1);
    auto const now = IdsOf(*after.BuildDesign());
    for (std::string const& id : IdsOf(*before.BuildDesign()))
        EXPECT_TRUE(now.count(id)) << id;
}

TEST(Identity, WiresWithoutAnIdAreToldApartByWhereTheyStand) {
    Drawing before;
    before.Wire("A", 0, 0, 5, 0).Wire("B", 0, 2.54, 5, 2.54);
    Drawing after;
    after.Wire("C", 7, 7, 8, 8).Wire("A", 0, 0, 5, 0).Wire("B", 0, 2.54, 5, 2.54);
    for (Drawing* drawing : {&before, &after}) {
        for (auto& wire : drawing->Current().wires)
            wire.id.clear();
    }
    auto const now = IdsOf(*after.BuildDesign());
    auto const old = IdsOf(*before.BuildDesign());
    EXPECT_TRUE(old.count("segment S1/wire@0,2.54@5,2.54"));
    for (std::string const& id : old)
        EXPECT_TRUE(now.count(id)) << id;
}

TEST(Identity, ASecondRecordWithTheSameIdGetsANumberAndIsReported) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0, "w").Wire("B", 0, 9, 5, 9, "w").Wire("C", 0, 8, 5, 8, "w");
    auto const built = drawing.Build();
    auto const ids = IdsOf(*built.design);
    EXPECT_TRUE(ids.count("segment S1/w"));
    EXPECT_TRUE(ids.count("segment S1/w#2"));
    EXPECT_TRUE(ids.count("segment S1/w#3"));
    ASSERT_EQ(built.findings.size(), 2u);
    EXPECT_EQ(built.findings[0].kind, figkernel::BuildFinding::DUPLICATE_ID);
    EXPECT_EQ(built.findings[0].sheet, "S1");
}

TEST(Identity, TheSameFileOnTwoSheetsHasDifferentIds) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 5, 0, "w").Sheet("S2").Wire("B", 0, 0, 5, 0, "w");
    auto const built = drawing.Build();
    EXPECT_TRUE(built.findings.empty());
    auto const ids = IdsOf(*built.design);
    EXPECT_TRUE(ids.count("segment S1/w"));
    EXPECT_TRUE(ids.count("segment S2/w"));
}

TEST(Identity, ShapesWithoutAnIdHaveNoneAndOthersHaveTheirOwners) {
    Drawing drawing;
    drawing.Box("U1", 0, 0, 5, 5);
    auto const design = drawing.BuildDesign();
    auto const block = design->GetSheets().front()->GetBlockInstances().front();
    auto const shape = du::DynamicCast<figk::GenericGraphic>(*block->BeginGroup());
    ASSERT_TRUE(shape);
    EXPECT_TRUE(shape->GetId().IsEmpty());
    auto const text =
        du::DynamicCast<figk::TextGraphic>(*block->GetTextLabelContainerGroup()->BeginGroup());
    ASSERT_TRUE(text);
    EXPECT_EQ(text->GetId().GetString(), "S1/U1/reference");
    EXPECT_EQ(text->GetText().GetString(), "U1");
}

TEST(Identity, APortIsOneOverAllSheets) {
    Drawing drawing;
    drawing.NetPort("P", "A", 0, 0).Wire("A", 0, 0, 5, 0);
    drawing.Sheet("S2").NetPort("P", "A", 3, 3).Wire("A", 3, 3, 5, 3);
    auto const design = drawing.BuildDesign();
    ASSERT_EQ(design->GetPorts().size(), 1u);
    EXPECT_EQ(design->GetPorts().front()->GetPortNodes().size(), 2u);
    EXPECT_EQ(design->GetPorts().front()->GetNet(), design->GetNets().front());
    EXPECT_EQ(design->GetNets().front()->GetSubNets().size(), 2u);
}

}  // namespace
}  // namespace figrep::test
