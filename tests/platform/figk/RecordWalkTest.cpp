// What a visitor sees of a design, and in which order.
#include <du/Localizer.h>
#include <du/Utf8.h>
#include <figk/AbstractVisitor.h>
#include <figk/FirstVisitCheck.h>
#include <figk/GetSheetVisitor.h>
#include <figk/GraphicGroup.h>
#include <figk/JunctionNode.h>
#include <figk/Zv2dGraphics.h>
#include <gtest/gtest.h>
#include <platform/figk/Records.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

namespace figktest {

void TestKernel::Accept(figk::AbstractVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<figk::SchematicKernel>(this))) return;
    for (auto const& design : designs)
        design->Accept(visitor);
}

namespace {

/// Writes down what it sees; refuses what it is told by name.
class Recorder : public figk::AbstractVisitor {
public:
    using Visitor = figk::AbstractVisitor;
    using Visitor::Visit;

    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override {
        if (!group->IsEmpty()) Note("<");
        return true;
    }
    bool EndGroupVisit(SmartPtr<figk::Group> const& group) override {
        if (!group->IsEmpty()) Note(">");
        return true;
    }
    bool VisitTextLabelContainer(SmartPtr<figk::TextLabelContainer> const&) override {
        return true;
    }
    bool Visit(SmartPtr<figk::Sheet> const& record) override { return Note(record->GetName()); }
    bool Visit(SmartPtr<figk::Format> const& record) override { return Note(record->GetName()); }
    bool Visit(SmartPtr<figk::Design> const& record) override { return Note(record->GetName()); }
    bool Visit(SmartPtr<figk::SubNet> const& record) override { return Note(record->GetName()); }
    bool Visit(SmartPtr<figk::SubHighway> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::NetSegment> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::HighwaySegment> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::PortNode> const& record) override { return Note(record->GetName()); }
    bool Visit(SmartPtr<figk::HighwayNode> const& node) override { return Note(node->ToString()); }
    bool Visit(SmartPtr<figk::JunctionNode> const& node) override {
        return Note(node->IsJunction() ? "J" : "?");
    }
    bool Visit(SmartPtr<figk::ConnectorInstanceNode> const& node) override {
        return Note(node->ToString());
    }
    bool Visit(SmartPtr<figk::ConnectorInstance> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::BlockInstance> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::CableInstance> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::TableInstance> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::Miscellaneous> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::GenericGraphic> const& record) override {
        return Note(record->GetName());
    }
    bool Visit(SmartPtr<figk::TextGraphic> const& record) override {
        return Note(record->GetName());
    }

    std::string seen;
    std::string refused;

private:
    bool Note(std::string const& what) {
        if (!seen.empty()) seen += ' ';
        seen += what;
        return what != refused;
    }
};

SmartPtr<TestBlock> BlockWithPin() {
    SmartPtr<TestBlock> block(new TestBlock("U1"));
    block->Insert(new TestGraphic("body"));
    block->labels->Insert(new TestText("ref"));
    SmartPtr<TestConnector> pin(new TestConnector("pin"));
    pin->Insert(new TestGraphic("pinline"));
    block->connectors.push_back(pin);
    return block;
}

TEST(RecordWalk, ABlockShowsGraphicsThenLabelsThenConnectors) {
    Recorder recorder;
    BlockWithPin()->Accept(recorder);
    EXPECT_EQ(recorder.seen, "U1 < body > < ref > pin < pinline >");
}

TEST(RecordWalk, ARefusedRecordHidesWhatItHolds) {
    Recorder recorder;
    recorder.refused = "U1";
    BlockWithPin()->Accept(recorder);
    EXPECT_EQ(recorder.seen, "U1");
}

TEST(RecordWalk, NestedGroupsAreStartedAndEndedInPlace) {
    SmartPtr<TestBlock> block(new TestBlock("U1"));
    SmartPtr<figk::GraphicGroup> inner(new figk::GraphicGroup());
    inner->Insert(new TestGraphic("a"));
    block->Insert(inner);
    block->Insert(new TestGraphic("b"));
    Recorder recorder;
    block->Accept(recorder);
    EXPECT_EQ(recorder.seen, "U1 < < a > b >");
}

TEST(RecordWalk, SubHighwaysComeBeforeSubNetsAndPredecessorsBeforeSuccessors) {
    SmartPtr<TestSheet> sheet(new TestSheet("sheet"));
    sheet->format = new TestFormat("frame");
    sheet->labels->Insert(new TestText("note"));
    sheet->blocks.push_back(SmartPtr<TestBlock>(new TestBlock("block")));
    sheet->cables.push_back(SmartPtr<TestCable>(new TestCable("cable")));
    sheet->tables.push_back(SmartPtr<TestTable>(new TestTable("table")));
    sheet->others.push_back(SmartPtr<TestMiscellaneous>(new TestMiscellaneous("misc")));
    SmartPtr<TestSubNet> net(new TestSubNet("net"));
    net->head = new TestNetSegment("n1", nullptr);
    SmartPtr<figk::ConnectionNode> n2(new TestNetSegment("n2", net->head));
    new TestConnectorNode(n2);
    new TestHighwayNode(net->head);
    new TestPortNode("port", net->head);
    sheet->nets.push_back(net);
    SmartPtr<TestSubHighway> highway(new TestSubHighway("bus"));
    highway->head = new TestHighwaySegment("b1", nullptr);
    new TestHighwaySegment("b2", highway->head);
    sheet->highways.push_back(highway);
    Recorder recorder;
    sheet->Accept(recorder);
    EXPECT_EQ(recorder.seen,
              "sheet frame < note > block cable table misc bus b1 b2 "
              "net n1 n2 ConnectorInstanceNode J HighwayNode port");
}

TEST(RecordWalk, ARefusedNodeHidesWhatIsBelowIt) {
    TestSubNet net("net");
    net.head = new TestNetSegment("a", nullptr);
    SmartPtr<figk::ConnectionNode> b(new TestNetSegment("b", net.head));
    new TestNetSegment("c", b);
    new TestNetSegment("d", net.head);
    Recorder recorder;
    recorder.refused = "b";
    net.head->Accept(recorder);
    EXPECT_EQ(recorder.seen, "a b d");
}

TEST(RecordWalk, AChainOfNodesIsWalkedWithoutRecursion) {
    SmartPtr<figk::ConnectionNode> head(new TestNetSegment("s", nullptr));
    SmartPtr<figk::ConnectionNode> last = head;
    for (int i = 0; i < 100000; ++i)
        last = new TestNetSegment("s", last);
    figk::GetSheetVisitor visitor{Symbol(), Symbol()};
    head->Accept(visitor);
    head->CutTree();
}

TEST(RecordWalk, NodesAndItemsAgreeOnTheirTypes) {
    SmartPtr<TestNetSegment> segment(new TestNetSegment("s", nullptr));
    EXPECT_EQ(segment->GetNodeType(), figk::BaseConnectionNode::NODE_NET_SEGMENT);
    EXPECT_EQ(segment->GetKernelItemType(), figk::TypeDefinitions::ITEM_NET_SEGMENT);
    EXPECT_EQ(segment->GetExtents(), dg::DBox2D(0, 1, 3, 2));
    EXPECT_TRUE(segment->IsGroup());
    SmartPtr<figk::AbstractItem> item = segment;
    EXPECT_EQ(du::DynamicCast<figk::ConnectionNode>(item).Get(),
              static_cast<figk::ConnectionNode*>(segment.Get()));
}

TEST(RecordWalk, KernelNodesAnswerTypedNeighbours) {
    SmartPtr<figk::ConnectionNode> a(new TestNetSegment("a", nullptr));
    SmartPtr<figk::ConnectionNode> b(new TestNetSegment("b", a));
    SmartPtr<figk::ConnectionNode> c(new TestNetSegment("c", a));
    EXPECT_EQ(a->GetLeftSuccessor(), b);
    EXPECT_EQ(a->GetRightSuccessor(), c);
    EXPECT_EQ(b->GetPredecessor(), a);
    EXPECT_FALSE(a->GetPredecessor());
    EXPECT_TRUE(du::DynamicCast<figk::FirstVisitCheck>(a->GetVisitChecker()));
    a->CutTree();
}

TEST(AbstractItem, TypesHaveNamesForUsers) {
    TestBlock const block("U1");
    EXPECT_EQ(block.GetUITypeName(), Symbol("Block"));
    EXPECT_TRUE(
        figk::AbstractItem::GetUITypeName(static_cast<figk::TypeDefinitions::KernelItemType>(99))
            .IsEmpty());
    EXPECT_TRUE(figk::AbstractItem::GetUITypeName(figk::TypeDefinitions::ITEM_NONE).IsEmpty());
    du::Localizer::SetCatalogue("figk:itemTypes", {{"Block", "Baustein"}});
    EXPECT_EQ(block.GetUITypeName(), Symbol("Baustein"));
    du::Localizer::ClearCatalogues();
}

TEST(AbstractItem, WhatARecordLacksReadsAsNothing) {
    TestBlock const block("U1");
    EXPECT_FALSE(block.GetZv2dGraphics());
    EXPECT_FALSE(block.GetDesign());
    EXPECT_FALSE(block.GetSettings());
    figk::AttributeSet attributes;
    block.GetAttributes(attributes);
    EXPECT_TRUE(attributes.empty());
}

TEST(TextGraphic, ReadsTheFirstTextOfAnInstance) {
    SmartPtr<zv2d::Definition> definition(new zv2d::Definition());
    definition->Add(new zv2d::TexPolyline(std::vector<dg::DPoint2D>{{0, 0}, {1, 0}}));
    auto text = [](char const* what) {
        return new zv2d::Text({0, 0}, du::Utf8ToWideStr(what), true, zv2d::Text::BOTTOM_LEFT,
                              false);
    };
    definition->Add(text("Größe"));
    definition->Add(text("second"));
    EXPECT_EQ(figk::TextGraphic::GetTextFromInstance(new zv2d::Instance(definition)),
              Symbol("Größe"));
    EXPECT_TRUE(figk::TextGraphic::GetTextFromInstance(nullptr).IsEmpty());
    EXPECT_TRUE(figk::TextGraphic::GetTextFromInstance(new zv2d::Instance(nullptr)).IsEmpty());
}

// The kernel.

class InstalledKernel : public testing::Test {
protected:
    InstalledKernel() {
        for (char const* id : {"d1", "d2"}) {
            SmartPtr<TestDesign> design(new TestDesign(id));
            design->Add("s1");
            design->Add("s2");
            kernel->designs.push_back(design);
        }
        figk::SchematicKernel::SetSchematicKernel(kernel);
    }
    ~InstalledKernel() override { figk::SchematicKernel::SetSchematicKernel(nullptr); }

    SmartPtr<TestKernel> kernel{new TestKernel()};
};

TEST_F(InstalledKernel, ASheetIsFoundByTheIdsOfDesignAndSheet) {
    figk::GetSheetVisitor visitor{Symbol("d2"), Symbol("s1")};
    figk::SchematicKernel::GetSchematicKernel()->Accept(visitor);
    EXPECT_EQ(visitor.GetSheet(), kernel->designs[1]->sheets[0]);
}

TEST_F(InstalledKernel, AnUnknownOrEmptyIdFindsNoSheet) {
    for (auto const& [design, sheet] :
         {std::pair("d3", "s1"), {"d1", "s3"}, {"", "s1"}, {"d1", ""}}) {
        figk::GetSheetVisitor visitor{Symbol(design), Symbol(sheet)};
        kernel->Accept(visitor);
        EXPECT_FALSE(visitor.GetSheet());
    }
}

TEST(SchematicKernel, IsNeverNullAndEmptyByDefault) {
    SmartPtr<figk::SchematicKernel> const kernel = figk::SchematicKernel::GetSchematicKernel();
    ASSERT_TRUE(kernel);
    Recorder recorder;
    kernel->Accept(recorder);
    EXPECT_EQ(recorder.seen, "");
    unsigned int level = 3;
    EXPECT_FALSE(kernel->GetSetting(figk::Setting::KEY_COLOR, level, false));
    EXPECT_EQ(level, 3u);
}

TEST(SchematicKernel, TheLockIsOneObjectThatAReaderMayTakeForWriting) {
    auto const& lock = figk::SchematicKernel::GetKernelLock();
    EXPECT_EQ(lock, figk::SchematicKernel::GetKernelLock());
    zvk::ReadGuard read(lock);
    zvk::WriteGuard write(lock);
    EXPECT_TRUE(lock->IsWriteHeldByThisThread());
}

}  // namespace
}  // namespace figktest
