// The embedded kernel, and how long its records live.
#include <gtest/gtest.h>

#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/GetSheetVisitor.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figkernel/SchematicKernel.h>
#include <support/Drawing.h>
#include <support/LiveObjects.h>

namespace figrep::test {
namespace {

using figk::Setting;

Drawing SmallDrawing(std::string const& id) {
    Drawing drawing(id);
    drawing.Pin("A", "U1", "1", 0, 5).Wire("A", 0, 5, 9, 5).Tap("A", "H", 10, 0, 9, 5);
    drawing.Bus("H", 0, 0, 20, 0).BusPort("P", "H", 20, 0).NetPort("Q", "A", 0, 5);
    return drawing;
}

class EmbeddedKernel : public ::testing::Test {
protected:
    du::SmartPtr<figkernel::SchematicKernel> kernel{new figkernel::SchematicKernel};
};

TEST_F(EmbeddedKernel, FindsSheetsByTheIdsOfDesignAndSheet) {
    Drawing first = SmallDrawing("D1");
    Drawing second = SmallDrawing("D2");
    auto const one = first.BuildDesign();
    auto const two = second.BuildDesign();
    kernel->AddDesign(one);
    kernel->AddDesign(two);
    figk::GetSheetVisitor finder(du::Symbol("D2"), du::Symbol("S1"));
    kernel->Accept(finder);
    EXPECT_EQ(finder.GetSheet(), two->GetSheets().front());
    EXPECT_EQ(finder.GetSheet()->GetDesign(), two);
    figk::GetSheetVisitor stranger(du::Symbol("D2"), du::Symbol("S9"));
    kernel->Accept(stranger);
    EXPECT_FALSE(stranger.GetSheet());
}

TEST_F(EmbeddedKernel, KeepsDesignsOnceAndInTheOrderOfAdding) {
    auto const one = SmallDrawing("D1").BuildDesign();
    auto const two = SmallDrawing("D2").BuildDesign();
    kernel->AddDesign(two);
    kernel->AddDesign(one);
    kernel->AddDesign(two);
    kernel->AddDesign(nullptr);
    ASSERT_EQ(kernel->GetDesigns().size(), 2u);
    EXPECT_EQ(kernel->GetDesigns()[0], two);
    EXPECT_EQ(kernel->FindDesign(du::Symbol("D1")), one);
    EXPECT_TRUE(kernel->RemoveDesign(one));
    EXPECT_FALSE(kernel->RemoveDesign(one));
    EXPECT_FALSE(kernel->RemoveDesign(nullptr));
    EXPECT_FALSE(kernel->FindDesign(du::Symbol("D1")));
}

TEST_F(EmbeddedKernel, AnswersKernelWideSettings) {
    unsigned level = 3;
    EXPECT_FALSE(kernel->GetSetting(Setting::KEY_COLOR, level, false));
    figk::SmartPtr<Setting> const red(
        new Setting(Setting::KEY_COLOR, new figk::SettingValue<dg::Color>(dg::Color(1, 0, 0, 1)),
                    Setting::LEVEL_DEFAULT, false));
    kernel->SetSetting(red);
    kernel->SetSetting(nullptr);
    EXPECT_EQ(kernel->GetSetting(Setting::KEY_COLOR, level, false), red);
    EXPECT_FALSE(kernel->GetSetting(Setting::KEY_COLOR, level, true));
    EXPECT_EQ(level, 3u);
    kernel->RemoveSetting(Setting::KEY_COLOR);
    EXPECT_FALSE(kernel->GetSetting(Setting::KEY_COLOR, level, false));
}

TEST_F(EmbeddedKernel, CanBeInstalledAsTheKernelOfTheProcess) {
    auto const design = SmallDrawing("D1").BuildDesign();
    kernel->AddDesign(design);
    figk::SchematicKernel::SetSchematicKernel(kernel);
    figk::GetSheetVisitor finder(du::Symbol("D1"), du::Symbol("S1"));
    figk::SchematicKernel::GetSchematicKernel()->Accept(finder);
    EXPECT_TRUE(finder.GetSheet());
    figk::SchematicKernel::SetSchematicKernel(nullptr);
}

TEST(RecordLife, NothingStaysWhenADesignGoes) {
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] { SmallDrawing("D").BuildDesign(); }), 0);
}

TEST(RecordLife, RecordsThatOutliveTheirDesignAnswerNullUpwards) {
    auto design = SmallDrawing("D").BuildDesign();
    auto const sheet = design->GetSheets().front();
    auto const subNet = sheet->GetSubNets().front();
    auto const node = subNet->GetHead();
    auto const net = subNet->GetNet();
    auto const block = sheet->GetBlockInstances().front();
    auto const connector = block->GetConnectorInstances().front();
    auto const piece = sheet->GetSubHighways().front();
    auto const port = design->GetPorts().front();
    auto const portNode = port->GetPortNodes().front();
    EXPECT_EQ(subNet->GetDesign(), design);
    design.Reset();
    EXPECT_FALSE(sheet->GetDesign());
    EXPECT_FALSE(net->GetDesign());
    EXPECT_FALSE(block->GetDesign());
    EXPECT_FALSE(port->GetDesign());
    EXPECT_FALSE(portNode->GetDesign());
    EXPECT_FALSE(piece->GetHighway());
    EXPECT_EQ(connector->GetBlockInstance(), block);
}

TEST(RecordLife, PartsOfASubNetThatOutliveItAnswerNull) {
    auto design = SmallDrawing("D").BuildDesign();
    auto const head = design->GetSheets().front()->GetSubNets().front()->GetHead();
    figk::SmartPtr<figk::NetSegment> segment;
    for (auto at = head->Begin(); !(at == head->End()); ++at) {
        if (auto const found = du::DynamicCast<figk::NetSegment>(*at)) segment = found;
    }
    ASSERT_TRUE(segment);
    EXPECT_TRUE(segment->GetSubNet());
    design.Reset();
    EXPECT_FALSE(segment->GetSubNet());
    EXPECT_FALSE(segment->GetDesign());
    EXPECT_TRUE(segment->IsHead());
    EXPECT_TRUE(segment->IsLeaf());
}

}  // namespace
}  // namespace figrep::test
