#include <connectivity/KernelFakes.h>
#include <figk/Attribute.h>
#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>
#include <figrep/TitleBlock.h>
#include <gtest/gtest.h>
#include <support/LiveObjects.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

/// Writes down what a walk meets.
class WalkRecorder : public AbstractFigureVisitor {
public:
    explicit WalkRecorder(bool enter = true) : enter_(enter) {}
    using AbstractFigureVisitor::Visit;
    using AbstractFigureVisitor::VisitComplete;
    bool Visit(SmartPtr<Figure> const&) override { return Note("figure", enter_); }
    bool Visit(SmartPtr<BlockInstance> const&) override { return Note("block"); }
    bool Visit(SmartPtr<CableInstance> const&) override { return Note("cable"); }
    bool Visit(SmartPtr<Port> const&) override { return Note("port"); }
    bool Visit(SmartPtr<SubHighway> const&) override { return Note("highway"); }
    bool Visit(SmartPtr<SubNet> const&) override { return Note("net"); }
    bool Visit(SmartPtr<TableInstance> const&) override { return Note("table"); }
    void VisitComplete(SmartPtr<Figure> const&) override { Note("complete"); }

    Lines lines;

private:
    bool Note(char const* what, bool answer = true) {
        lines.emplace_back(what);
        return answer;
    }
    bool enter_;
};

class FigureTest : public ::testing::Test {
protected:
    FigureTest() { figure->RegisterObserver(recorder); }

    SmartPtr<BlockInstance> Block(std::string const& id) {
        return Block(SmartPtr<figk::BlockInstance>(new FakeBlockRecord(id, id)));
    }
    /// Into the block without a word to the figure.
    SmartPtr<ConnectorInstance> Connector(SmartPtr<BlockInstance> const& block,
                                          std::string const& name) {
        return new ConnectorInstance(block, figure->GetLock(),
                                     SmartPtr<figk::ConnectorInstance>(new FakeConnector(name)));
    }
    SmartPtr<BlockInstance> Block(SmartPtr<figk::BlockInstance> const& record) {
        SmartPtr<BlockInstance> const block = new BlockInstance(figure->GetLock(), record);
        figure->Receive(block);
        return block;
    }
    SmartPtr<SubNet> Wire(std::string const& name, DPoint2D const& a, DPoint2D const& b) {
        SmartPtr<SubNet> const subNet = new SubNet(figure, figure->GetLock(), name);
        subNet->SetHead(new NetSegment(subNet, figure->GetLock(), a, b, {}));
        return subNet;
    }
    static ConstSmartPtr<Setting> Bool(Setting::RepKey key, bool value,
                                       figk::Setting::Level level = figk::Setting::LEVEL_FIGURE) {
        ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<bool>(value);
        return new Setting(key, held, level, true);
    }

    SmartPtr<Figure> figure = new Figure();
    SmartPtr<Recorder> recorder = new Recorder();
};

TEST_F(FigureTest, NewOneIsEmptyUnloadedAndUnchanged) {
    EXPECT_FALSE(figure->GetLoaded());
    EXPECT_FALSE(figure->HasChanged());
    EXPECT_FALSE(figure->GetFormat());
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    EXPECT_TRUE(figure->GetCableInstances().empty());
    EXPECT_TRUE(figure->GetMiscellaneous().empty());
    EXPECT_TRUE(figure->GetPorts().empty());
    EXPECT_TRUE(figure->GetSubHighways().empty());
    EXPECT_TRUE(figure->GetSubNets().empty());
    EXPECT_TRUE(figure->GetTableInstances().empty());
    EXPECT_TRUE(figure->GetSheets().empty());
    EXPECT_TRUE(figure->GetDesigns().empty());
    EXPECT_EQ(figure->GetExtents(), DBox2D::EMPTY);
    figure->UpdateContent();
    EXPECT_EQ(figure->GetExtents(), DBox2D::EMPTY);
    EXPECT_EQ(figure->GetLock(), figk::SchematicKernel::GetKernelLock());
    EXPECT_TRUE(figure->GetTextOwnerId().IsEmpty());
}

TEST_F(FigureTest, HasDefaultLineAttributesFromTheStart) {
    ConstSmartPtr<zv2d::LineAttributes> attributes;
    EXPECT_TRUE(
        figure->GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, attributes));
}

TEST_F(FigureTest, DrawsNothingBeforeItIsLoaded) {
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(10, 0));
    figure->UpdateContent();
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    figure->SetLoaded();
    figure->UpdateContent();
    EXPECT_FALSE(net->GetGraphicalUpdateNeeded());
}

TEST_F(FigureTest, SuspendedRegenerationKeepsTheMarks) {
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(10, 0));
    figure->SetLoaded();
    figure->SetGraphicRegenerationSuspended(true);
    figure->UpdateContent();
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
    figure->SetGraphicRegenerationSuspended(false);
    figure->UpdateContent();
    EXPECT_FALSE(net->GetGraphicalUpdateNeeded());
}

TEST_F(FigureTest, ChangedSettingAsksForTheWiresPicturesAnew) {
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(10, 0));
    figure->SetLoaded();
    figure->UpdateContent();
    figure->AddSetting(Bool(Setting::TOP_SEGMENT_VERTICAL, true), false);
    EXPECT_TRUE(net->GetGraphicalUpdateNeeded());
}

TEST_F(FigureTest, SubNetCounterStartsAnewAfterClearingAndGraphicNamesGoOn) {
    EXPECT_EQ(figure->GetNextSubNetId(), 0u);
    EXPECT_EQ(figure->GetNextSubNetId(), 1u);
    EXPECT_EQ(figure->GetNextSubHighwayId(), 0u);
    auto const first = Figure::GenerateNextGraphicName();
    figure->ClearContent();
    EXPECT_EQ(figure->GetNextSubNetId(), 0u);
    EXPECT_EQ(figure->GetNextSubHighwayId(), 0u);
    auto const second = Figure::GenerateNextGraphicName();
    EXPECT_EQ(std::stoi(second), std::stoi(first) + 1);
    EXPECT_GE(second.size(), 3u);
}

TEST_F(FigureTest, ItemsMadeByNameAreNumbered) {
    EXPECT_EQ(Wire("x", DPoint2D(0, 0), DPoint2D(1, 0))->GetId(), Symbol("subnet/0"));
    EXPECT_EQ(Wire("y", DPoint2D(0, 0), DPoint2D(1, 0))->GetId(), Symbol("subnet/1"));
}

TEST_F(FigureTest, RemovingAPortChangesNothingButTheSearchIsDoneAnew) {
    SmartPtr<Port> const port = new Port(figure, figure->GetLock(), "p");
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    EXPECT_TRUE(figure->Find(net->GetId()));
    figure->RemoveItem(port);
    EXPECT_EQ(figure->GetPorts().size(), 1u);
    EXPECT_EQ(figure->Find(net->GetId()), net);
}

TEST_F(FigureTest, RemovingAPortHasWhatCameInUnannouncedFound) {
    SmartPtr<Port> const port = new Port(figure, figure->GetLock(), "p");
    auto const block = Block("B");
    EXPECT_EQ(figure->Find(Symbol("B")), block);
    auto const connector = Connector(block, "1");
    EXPECT_FALSE(figure->Find(Symbol("B/1")));
    figure->RemoveItem(port);
    EXPECT_EQ(figure->Find(Symbol("B/1")), connector);
}

TEST_F(FigureTest, FindsNothingInAnEmptyFigure) {
    EXPECT_FALSE(figure->Find(Symbol("nowhere")));
    EXPECT_FALSE(figure->Find(Symbol("nowhere")));
    auto const block = Block("B1");
    EXPECT_EQ(figure->Find(Symbol("B1")), block);
}

TEST_F(FigureTest, FindTakesInWhatArrivesAfterTheFirstSearch) {
    auto const a = Block("A");
    EXPECT_EQ(figure->Find(Symbol("A")), a);
    auto const b = Block("B");
    EXPECT_EQ(figure->Find(Symbol("B")), b);
    EXPECT_FALSE(figure->Find(Symbol("C")));
}

TEST_F(FigureTest, FindMeetsTheFirstOfEqualIds) {
    auto const first = Block("same");
    Block("same");
    EXPECT_EQ(figure->Find(Symbol("same")), first);
    EXPECT_EQ(figure->GetBlockInstanceByID(Symbol("same")), first);
    EXPECT_FALSE(figure->GetBlockInstanceByID(Symbol("other")));
}

TEST_F(FigureTest, FindKnowsNoEmptyIdsAndNoSegmentsOrPorts) {
    SmartPtr<BlockInstance> const nameless = new BlockInstance(figure, "by name");
    EXPECT_TRUE(nameless->GetId().IsEmpty());
    EXPECT_FALSE(figure->Find(Symbol::EMPTY));
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    auto const segment = du::DynamicCast<NetSegment>(net->GetHead());
    EXPECT_FALSE(segment->GetId().IsEmpty());
    EXPECT_FALSE(figure->Find(segment->GetId()));
    EXPECT_TRUE(figure->Find(net->GetId()));
}

TEST_F(FigureTest, RemovedItemIsNoLongerFound) {
    auto const block = Block("B");
    EXPECT_TRUE(figure->Find(Symbol("B")));
    figure->RemoveItem(block);
    EXPECT_FALSE(figure->Find(Symbol("B")));
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    figure->RemoveItem(block);
    figure->RemoveItem({});
}

TEST_F(FigureTest, RemovingAnAbsentItemKeepsTheOthers) {
    SmartPtr<Figure> const other = new Figure();
    SmartPtr<SubNet> const stranger = new SubNet(other, other->GetLock(), "s");
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    figure->RemoveItem(stranger);
    EXPECT_EQ(figure->GetSubNets().size(), 1u);
    EXPECT_EQ(other->GetSubNets().size(), 1u);
}

TEST_F(FigureTest, RecordWithoutItemsIsVisibleAndHasNone) {
    SmartPtr<figk::BlockInstance> const record = new FakeBlockRecord("r", "r");
    Figure::Items out{Block("other")};
    figure->KernelToRepItems(record, out);
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(figure->IsSbomItemVisible(record));
    EXPECT_FALSE(figure->IsSbomItemInFigure(record));
    EXPECT_FALSE(figure->IsSbomItemInFigure({}));
}

TEST_F(FigureTest, RecordKnowsItsItemsInTheOrderOfArrival) {
    SmartPtr<figk::BlockInstance> const record = new FakeBlockRecord("r", "r");
    auto const first = Block(record);
    auto const second = Block(record);
    Figure::Items out;
    figure->KernelToRepItems(record, out);
    EXPECT_EQ(out, (Figure::Items{first, second}));
    EXPECT_TRUE(figure->IsSbomItemInFigure(record));
    figure->AddItemSetting(second, Bool(Setting::ITEM_VISIBILITY, false), false);
    EXPECT_TRUE(figure->IsSbomItemVisible(record));
    figure->AddItemSetting(first, Bool(Setting::ITEM_VISIBILITY, false), false);
    EXPECT_FALSE(figure->IsSbomItemVisible(record));
    figure->RemoveItem(first);
    figure->RemoveItem(second);
    EXPECT_FALSE(figure->IsSbomItemInFigure(record));
}

TEST_F(FigureTest, ProfileAppliedPostsOnlyWhenItsMarkIsSetAndKeepsTheMark) {
    figure->ProfileApplied();
    EXPECT_EQ(recorder->Take(), Lines{});
    figure->SetProfileRequiresGraphicalRegeneration(true);
    figure->ProfileApplied();
    figure->ProfileApplied();
    EXPECT_EQ(recorder->Take(), (Lines{"content", "content"}));
}

TEST_F(FigureTest, ClearingKeepsWhatBelongsToTheHost) {
    auto const block = Block("B");
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    figure->SetLoaded();
    figure->AddAndApplyDelta(new FakeDelta(false), false, false);
    recorder->Take();
    figure->ClearContent();
    EXPECT_EQ(recorder->Take(), Lines{"content"});
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    EXPECT_TRUE(figure->GetSubNets().empty());
    EXPECT_TRUE(figure->GetDeltas().empty());
    EXPECT_TRUE(figure->HasDeltaFailures());
    EXPECT_TRUE(figure->GetLoaded());
    EXPECT_TRUE(figure->HasChanged());
    EXPECT_TRUE(figure->IsSbomItemInFigure(block->GetKernelItem()));
    EXPECT_FALSE(figure->Find(Symbol("B")));
    EXPECT_TRUE(figure->Empty());
    EXPECT_FALSE(net->GetHead());
}

TEST_F(FigureTest, ClearingKeepsTheSheets) {
    SmartPtr<figk::Sheet> const sheet = new FakeSheet("S");
    figure->AddSheet(sheet);
    figure->ClearContent();
    EXPECT_EQ(figure->GetSheets(), std::vector<SmartPtr<figk::Sheet>>{sheet});
}

TEST_F(FigureTest, WalksItsContentInFixedOrder) {
    Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    new SubHighway(figure, figure->GetLock(), "h");
    new TableInstance(figure, "t");
    new CableInstance(figure, "c");
    new Port(figure, figure->GetLock(), "p");
    Block("b");
    WalkRecorder walk;
    figure->Accept(walk);
    EXPECT_EQ(walk.lines,
              (Lines{"figure", "block", "cable", "port", "highway", "net", "table", "complete"}));
}

TEST_F(FigureTest, WalkThatIsNotWantedIsCompletedAllTheSame) {
    Block("b");
    WalkRecorder walk(false);
    figure->Accept(walk);
    EXPECT_EQ(walk.lines, (Lines{"figure", "complete"}));
}

TEST_F(FigureTest, MovingAnItemTellsObservers) {
    SmartPtr<FakeItem> const item = new FakeItem(figure->GetLock(), "i");
    figure->MoveItem(item, 1, 2);
    figure->RotateItem(item, DPoint2D(0, 0), 1);
    figure->ScaleItem(item, DPoint2D(0, 0), 2);
    figure->MirrorItem(item, DPoint2D(0, 0), true);
    figure->SetItemVisibility(item, false);
    EXPECT_EQ(item->calls, (Lines{"move", "rotate", "scale", "mirror", "visibility"}));
    EXPECT_EQ(recorder->Take(), Lines(5, "content"));
    figure->SetItemHighlight(item, true);
    figure->SetItemPreselectHighlight(item, true);
    EXPECT_EQ(recorder->Take(), Lines(2, "highlighted"));
    figure->MoveItem({}, 1, 2);
    figure->SetItemHighlight({}, true);
    EXPECT_EQ(recorder->Take(), Lines{});
}

TEST_F(FigureTest, AddingASettingMarksAndPostsWhenAsked) {
    figure->AddSetting(Bool(Setting::DIM, true), false);
    EXPECT_TRUE(figure->HasChanged());
    EXPECT_EQ(recorder->Take(), Lines{});
    figure->AddSetting(Bool(Setting::DIM, false), true);
    EXPECT_EQ(recorder->Take(), Lines{"appearance"});
}

TEST_F(FigureTest, RemovingASettingThatIsNotThereIsNoChange) {
    figure->RemoveSetting(Setting::DIM, figk::Setting::LEVEL_FIGURE, true);
    EXPECT_FALSE(figure->ClearSettingList(figk::Setting::LEVEL_FIGURE, true));
    EXPECT_FALSE(figure->HasChanged());
    EXPECT_EQ(recorder->Take(), Lines{});
    figure->AddSetting(Bool(Setting::DIM, true), false);
    figure->ResetHasChanged();
    figure->RemoveSetting(Setting::DIM, figk::Setting::LEVEL_FIGURE, true);
    EXPECT_TRUE(figure->HasChanged());
    EXPECT_EQ(recorder->Take(), Lines{"appearance"});
}

TEST_F(FigureTest, ItemsStartWithTheAttributesOfTheirRecords) {
    class Record : public FakeBlockRecord {
    public:
        Record() : FakeBlockRecord("B", "B") {}
        void GetAttributes(figk::AttributeSet& out) const override {
            out.insert(new figk::Attribute(Symbol("Value"), Symbol("10k")));
        }
    };
    auto const block = Block(SmartPtr<figk::BlockInstance>(new Record()));
    EXPECT_EQ(block->NumAttributes(), 1u);
    auto const value = block->GetAttribute(Symbol("value"), false);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->GetValue(), Symbol("10k"));
    EXPECT_EQ(Block("C")->NumAttributes(), 0u);
}

TEST_F(FigureTest, ItemSettingsFollowTheSameRules) {
    SmartPtr<FakeItem> const item = new FakeItem(figure->GetLock(), "i");
    figure->RemoveItemSetting(item, Setting::DIM, figk::Setting::LEVEL_FIGURE, true);
    EXPECT_FALSE(figure->ClearItemSettingList(item, figk::Setting::LEVEL_FIGURE, true));
    EXPECT_FALSE(figure->HasChanged());
    figure->AddItemSetting(item, Bool(Setting::DIM, true), true);
    EXPECT_TRUE(figure->HasChanged());
    EXPECT_TRUE(figure->ClearItemSettingList(item, figk::Setting::LEVEL_FIGURE, true));
    EXPECT_EQ(recorder->Take(), Lines(2, "appearance"));
    figure->AddItemSetting({}, Bool(Setting::DIM, true), true);
    figure->AddItemSetting(item, {}, true);
    EXPECT_EQ(recorder->Take(), Lines{});
}

TEST_F(FigureTest, GridIsOffUntilItIsSwitchedOn) {
    EXPECT_FALSE(figure->GetFormatGridOn());
    figure->SetFormatGridOn(true);
    EXPECT_TRUE(figure->GetFormatGridOn());
    figure->SetFormatGridOn(false);
    EXPECT_FALSE(figure->GetFormatGridOn());
}

TEST_F(FigureTest, PickedGraphicStandsForTheItemOfItsTopmostGroup) {
    auto const block = Block("B");
    auto const inBlock = GenericGraphic::Create(figure->GetLock(), DBox2D(0, 0, 1, 1), block);
    auto const again = GenericGraphic::Create(figure->GetLock(), DBox2D(0, 0, 2, 2), block);
    auto const free =
        GenericGraphic::Create(figure->GetLock(), DBox2D(0, 0, 1, 1), SmartPtr<figk::Group>());
    Figure::Items out;
    figure->GetHigherLevelContent({inBlock, again, free, {}}, out);
    EXPECT_EQ(out, (Figure::Items{block, free}));
}

TEST_F(FigureTest, DebugGraphicStandsOnTheFigureItself) {
    auto const graphic = figure->AddDebugGraphic(DBox2D(1, 2, 3, 4));
    ASSERT_TRUE(graphic);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(1, 2, 3, 4));
    EXPECT_FALSE(figure->GetTextLabelContainerGroup()->IsEmpty());
    EXPECT_EQ(recorder->Take(), Lines{"content"});
}

TEST_F(FigureTest, ExtentsHoldUntilTheyAreForgotten) {
    Wire("n", DPoint2D(0, 0), DPoint2D(10, 5));
    figure->SetLoaded();
    figure->SetExtents(DBox2D(1, 1, 2, 2));
    EXPECT_EQ(figure->GetExtents(), DBox2D(1, 1, 2, 2));
    figure->SetExtents(DBox2D::EMPTY);
    EXPECT_EQ(figure->GetExtents(), DBox2D(0, 0, 10, 5));
}

TEST_F(FigureTest, OnlyWiresHaveCrossings) {
    auto const across = Wire("a", DPoint2D(0, 0), DPoint2D(10, 0));
    auto const upright = Wire("u", DPoint2D(5, -5), DPoint2D(5, 5));
    auto const apart = Wire("p", DPoint2D(50, -5), DPoint2D(50, 5));
    figure->SetLoaded();
    figure->UpdateContent();
    EXPECT_TRUE(figure->ItemHasCrossingPoints(across));
    EXPECT_TRUE(figure->ItemHasCrossingPoints(upright));
    EXPECT_FALSE(figure->ItemHasCrossingPoints(apart));
    EXPECT_FALSE(figure->ItemHasCrossingPoints(Block("B")));
    EXPECT_FALSE(figure->ItemHasCrossingPoints({}));
}

TEST_F(FigureTest, MovedWireLosesItsCrossingsAtTheNextUpdate) {
    auto const across = Wire("a", DPoint2D(0, 0), DPoint2D(10, 0));
    auto const upright = Wire("u", DPoint2D(5, -5), DPoint2D(5, 5));
    figure->SetLoaded();
    figure->UpdateContent();
    figure->MoveItem(upright, 100, 0);
    figure->UpdateContent();
    EXPECT_FALSE(figure->ItemHasCrossingPoints(across));
    EXPECT_FALSE(figure->ItemHasCrossingPoints(upright));
}

TEST_F(FigureTest, RemovedWireTakesItsCrossingsAlong) {
    auto const across = Wire("a", DPoint2D(0, 0), DPoint2D(10, 0));
    auto const upright = Wire("u", DPoint2D(5, -5), DPoint2D(5, 5));
    figure->SetLoaded();
    figure->UpdateContent();
    figure->RemoveItem(upright);
    EXPECT_FALSE(figure->ItemHasCrossingPoints(across));
    figure->Receive(upright);
    figure->UpdateContent();
    EXPECT_TRUE(figure->ItemHasCrossingPoints(across));
}

TEST_F(FigureTest, ReceivingNothingAndTitleBlocksWithoutFormatAreIgnored) {
    figure->Receive(SmartPtr<BlockInstance>());
    figure->Receive(SmartPtr<SubNet>());
    figure->Receive(SmartPtr<Format>());
    figure->Receive(SmartPtr<TitleBlock>());
    figure->Receive(SmartPtr<figk::Design>());
    figure->AddSheet({});
    EXPECT_TRUE(figure->GetBlockInstances().empty());
    EXPECT_TRUE(figure->GetSheets().empty());
}

TEST_F(FigureTest, AsksTheKernelForWhatNoItemSets) {
    SmartPtr<figkernel::SchematicKernel> const kernel = new figkernel::SchematicKernel();
    ConstSmartPtr<figk::BaseSettingValue> const red = new figk::SettingValue<Color>(Color::RED);
    kernel->SetSetting(
        new figk::Setting(figk::Setting::KEY_COLOR, red, figk::Setting::LEVEL_BASE, true));
    figk::SchematicKernel::SetSchematicKernel(kernel);
    Color color = Color::BLACK;
    EXPECT_TRUE(figure->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::RED);
    auto const net = Wire("n", DPoint2D(0, 0), DPoint2D(1, 0));
    unsigned int onFigure = 0;
    unsigned int onNet = 0;
    EXPECT_TRUE(figure->GetSetting(Setting::COLOR, onFigure));
    EXPECT_TRUE(net->GetSetting(Setting::COLOR, onNet));
    EXPECT_EQ(onNet, onFigure + 1);
    EXPECT_FALSE(figure->GetSetting(Setting::BACKGROUND_COLOR, onFigure));
    figk::SchematicKernel::SetSchematicKernel({});
    EXPECT_FALSE(figure->GetColorSetting(Setting::COLOR, color));
}

TEST(FigureLife, LeavesNothingBehind) {
    Figure::GenerateNextGraphicName();
    auto const work = [] {
        SmartPtr<Figure> const figure = new Figure();
        auto const lock = figure->GetLock();
        SmartPtr<SubNet> const net = new SubNet(figure, lock, "n");
        SmartPtr<NetSegment> const head =
            new NetSegment(net, lock, DPoint2D(0, 0), DPoint2D(10, 0), {});
        net->SetHead(head);
        for (int i = 0; i < 4; ++i) {
            new NetSegment(net, lock, DPoint2D(10, 0), DPoint2D(10, i + 1), head);
        }
        SmartPtr<SubNet> const removed = new SubNet(figure, lock, "r");
        removed->SetHead(new NetSegment(removed, lock, DPoint2D(5, -5), DPoint2D(5, 5), {}));
        SmartPtr<CableInstance> const cable = new CableInstance(figure, "c");
        cable->Add(net);
        figure->AddDebugGraphic(DBox2D(0, 0, 1, 1));
        figure->SetLoaded();
        figure->UpdateContent();
        figure->RemoveItem(removed);
    };
    EXPECT_EQ(figrep::test::ObjectsLeftBy(work), 0);
}

TEST(FigureLife, ClearingCutsWhatItClears) {
    SmartPtr<Figure> const figure = new Figure();
    auto const lock = figure->GetLock();
    auto const before = du::RefCounted::LiveCount();
    {
        SmartPtr<SubNet> const net = new SubNet(figure, lock, "n");
        SmartPtr<NetSegment> const head =
            new NetSegment(net, lock, DPoint2D(0, 0), DPoint2D(10, 0), {});
        net->SetHead(head);
        new NetSegment(net, lock, DPoint2D(10, 0), DPoint2D(20, 0), head);
        figure->SetLoaded();
        figure->UpdateContent();
    }
    figure->ClearContent();
    EXPECT_LE(du::RefCounted::LiveCount(), before);
}

TEST(FigureLife, LeavesAWireAloneThatWentToAnotherFigure) {
    SmartPtr<Figure> first = new Figure();
    SmartPtr<Figure> const second = new Figure();
    SmartPtr<SubNet> const net = new SubNet(first, first->GetLock(), "n");
    net->SetHead(new NetSegment(net, first->GetLock(), DPoint2D(0, 0), DPoint2D(1, 0), {}));
    first->RemoveItem(net);
    second->Receive(net);
    first.Reset();
    EXPECT_EQ(net->GetFigure(), second);
    EXPECT_TRUE(net->GetHead());
}

TEST(FigureLife, SurvivesWhoeverKeepsAPointerThroughItsTeardown) {
    SmartPtr<SubNet> net;
    {
        SmartPtr<Figure> const figure = new Figure();
        net = new SubNet(figure, figure->GetLock(), "n");
        net->SetHead(new NetSegment(net, figure->GetLock(), DPoint2D(0, 0), DPoint2D(1, 0), {}));
    }
    EXPECT_FALSE(net->GetFigure());
    EXPECT_FALSE(net->GetHead());
}

}  // namespace
}  // namespace figrep::testing
