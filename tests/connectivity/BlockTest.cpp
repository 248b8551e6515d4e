#include <figk/SettingValue.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/Setting.h>
#include <figrep/TableInstance.h>
#include <gtest/gtest.h>

#include "KernelFakes.h"
#include "Wiring.h"

namespace figrep::testing {
namespace {

class BlockTest : public ::testing::Test {
protected:
    SmartPtr<BlockInstance> Block(DBox2D const& box) {
        SmartPtr<BlockInstance> const block = new BlockInstance(wiring.figure, "");
        if (!box.IsEmpty()) {
            GenericGraphic::Create(wiring.Lock(), box, SmartPtr<figk::Group>(block));
        }
        return block;
    }

    static SmartPtr<Setting> Colored(Color const& color) {
        SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<Color>(color));
        return SmartPtr<Setting>(new Setting(Setting::COLOR, value, Setting::LEVEL_FORCED, true));
    }

    Wiring wiring;
};

/// Counts the transforms that it really goes through.
class CountingBlock : public BlockInstance {
public:
    using BlockInstance::BlockInstance;
    int transforms = 0;

    void Move(double dx, double dy) override {
        ++transforms;
        BlockInstance::Move(dx, dy);
    }
    void Rotate(DPoint2D const& about, double radians) override {
        ++transforms;
        BlockInstance::Rotate(about, radians);
    }
    void Scale(DPoint2D const& about, double factor) override {
        ++transforms;
        BlockInstance::Scale(about, factor);
    }
};

TEST_F(BlockTest, TransformsByNothingLeaveTheBlockAlone) {
    SmartPtr<CountingBlock> const block = new CountingBlock(wiring.figure, "");
    block->MoveItem(0, 0);
    block->RotateItem(DPoint2D(9, 9), 0);
    block->ScaleItem(DPoint2D(9, 9), 0);
    block->ScaleItem(DPoint2D(9, 9), std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(block->transforms, 0);
    block->MoveItem(0, 1);
    block->RotateItem(DPoint2D(9, 9), 1);
    block->ScaleItem(DPoint2D(9, 9), 1);
    EXPECT_EQ(block->transforms, 3);
}

TEST_F(BlockTest, ChildIgnoresTransformsAndMovesWithItsParent) {
    auto const parent = Block(DBox2D(0, 0, 10, 10));
    auto const child = Block(DBox2D(1, 1, 2, 2));
    parent->Add(SmartPtr<BaseBlockInstance>(child));
    child->MoveItem(5, 0);
    child->RotateItem(DPoint2D(0, 0), 1);
    child->ScaleItem(DPoint2D(0, 0), 2);
    child->MirrorItem(DPoint2D(0, 0), true);
    EXPECT_EQ(child->GetExtents(), DBox2D(1, 1, 2, 2));
    parent->MoveItem(5, 0);
    EXPECT_EQ(child->GetExtents(), DBox2D(6, 1, 7, 2));
    EXPECT_EQ(child->GetParent(), parent);
}

TEST_F(BlockTest, BoxIsThatOfItsGraphicsWhenItsChildrenHaveEmptyBoxes) {
    auto const parent = Block(DBox2D(0, 0, 10, 10));
    parent->Add(SmartPtr<BaseBlockInstance>(Block(DBox2D::EMPTY)));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 10, 10));
}

TEST_F(BlockTest, BoxHoldsChildrenAndConnectors) {
    auto const parent = Block(DBox2D(0, 0, 10, 10));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 10, 10));
    auto const child = Block(DBox2D(20, 0, 21, 1));
    parent->Add(SmartPtr<BaseBlockInstance>(child));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 21, 10));
    SmartPtr<ConnectorInstance> const pin =
        new ConnectorInstance(child, wiring.Lock(), "1", DPoint2D(0, 30));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 21, 30));
}

TEST_F(BlockTest, BoxFollowsAGraphicThatMovesByItself) {
    auto const parent = Block(DBox2D(0, 0, 1, 1));
    auto const child = Block(DBox2D::EMPTY);
    parent->Add(SmartPtr<BaseBlockInstance>(child));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 1, 1));
    auto const graphic =
        GenericGraphic::Create(wiring.Lock(), DBox2D(0, 0, 2, 2), SmartPtr<figk::Group>(child));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 2, 2));
    graphic->MoveGraphics(5, 0);
    EXPECT_EQ(child->GetExtents(), DBox2D(5, 0, 7, 2));
    EXPECT_EQ(parent->GetExtents(), DBox2D(0, 0, 7, 2));
}

TEST_F(BlockTest, BoxFollowsTheGraphicsOfAConnector) {
    auto const block = Block(DBox2D(0, 0, 1, 1));
    SmartPtr<ConnectorInstance> const pin =
        new ConnectorInstance(block, wiring.Lock(), "1", DPoint2D(0, 0));
    EXPECT_EQ(block->GetExtents(), DBox2D(0, 0, 1, 1));
    auto const graphic =
        GenericGraphic::Create(wiring.Lock(), DBox2D(0, 0, 2, 2), SmartPtr<figk::Group>(pin));
    EXPECT_EQ(pin->GetExtents(), DBox2D(0, 0, 2, 2));
    EXPECT_EQ(block->GetExtents(), DBox2D(0, 0, 2, 2));
    graphic->MoveGraphics(5, 0);
    EXPECT_EQ(pin->GetExtents(), DBox2D(5, 0, 7, 2));
    EXPECT_EQ(block->GetExtents(), DBox2D(0, 0, 7, 2));
}

TEST_F(BlockTest, BoxForgetsAChildThatWentToAnotherBlock) {
    auto const former = Block(DBox2D(0, 0, 1, 1));
    auto const later = Block(DBox2D(0, 0, 1, 1));
    SmartPtr<BaseBlockInstance> const child = Block(DBox2D(5, 0, 6, 1));
    former->Add(child);
    EXPECT_EQ(former->GetExtents(), DBox2D(0, 0, 6, 1));
    later->Add(child);
    EXPECT_EQ(former->GetExtents(), DBox2D(0, 0, 1, 1));
    EXPECT_EQ(later->GetExtents(), DBox2D(0, 0, 6, 1));
}

TEST_F(BlockTest, DyingIsNobodysBlockAndNobodysParent) {
    class Asking : public BlockInstance {
    public:
        using BlockInstance::BlockInstance;
        ~Asking() override {
            EXPECT_FALSE(pin->GetBlockInstance());
            EXPECT_FALSE(child->GetParent());
        }
        SmartPtr<ConnectorInstance> pin;
        SmartPtr<BlockInstance> child;
    };
    SmartPtr<Asking> block = new Asking(nullptr, "");
    block->pin = new ConnectorInstance(block, wiring.Lock(), "1", DPoint2D());
    block->child = Block(DBox2D(0, 0, 1, 1));
    block->Add(SmartPtr<BaseBlockInstance>(block->child));
    EXPECT_EQ(block->pin->GetBlockInstance(), block);
    block.Reset();
}

TEST_F(BlockTest, WithoutChildrenHasNone) {
    auto const block = Block(DBox2D(0, 0, 1, 1));
    EXPECT_FALSE(block->HasChildren());
    block->Add(SmartPtr<BaseBlockInstance>(Block(DBox2D::EMPTY)));
    EXPECT_TRUE(block->HasChildren());
}

TEST_F(BlockTest, NeverStandsInsideItself) {
    auto const outer = Block(DBox2D(0, 0, 1, 1));
    auto const inner = Block(DBox2D(0, 0, 1, 1));
    outer->Add(SmartPtr<BaseBlockInstance>(inner));
    inner->Add(SmartPtr<BaseBlockInstance>(outer));
    outer->Add(SmartPtr<BaseBlockInstance>(outer));
    outer->Add(SmartPtr<BaseBlockInstance>(inner));
    EXPECT_EQ(outer->GetChildren().size(), 1u);
    EXPECT_FALSE(inner->HasChildren());
    outer->MoveItem(1, 0);
    EXPECT_EQ(inner->GetExtents(), DBox2D(1, 0, 2, 1));
}

TEST_F(BlockTest, NestedDeeplyTransformsAndMeasuresWithoutRecursion) {
    SmartPtr<BlockInstance> const innermost = new BlockInstance(nullptr, "");
    GenericGraphic::Create(wiring.Lock(), DBox2D(0, 0, 1, 1), SmartPtr<figk::Group>(innermost));
    SmartPtr<BaseBlockInstance> outermost = innermost;
    for (int i = 0; i < 100'000; ++i) {
        SmartPtr<BaseBlockInstance> const parent = new BlockInstance(nullptr, "");
        parent->Add(outermost);
        outermost = parent;
    }
    EXPECT_EQ(outermost->GetExtents(), DBox2D(0, 0, 1, 1));
    outermost->MoveItem(3, 0);
    outermost->SetHighlight(true);
    EXPECT_EQ(innermost->GetExtents(), DBox2D(3, 0, 4, 1));
    EXPECT_EQ(outermost->GetExtents(), DBox2D(3, 0, 4, 1));
    outermost->AddSetting(Colored(Color::GREEN), false);
    unsigned int depth = 0;
    EXPECT_TRUE(innermost->GetSetting(Setting::COLOR, depth));
    EXPECT_EQ(depth, 100'000u);
}

TEST_F(BlockTest, NestedDeeplyDiesWithoutRecursion) {
    auto const before = du::RefCounted::LiveCount();
    SmartPtr<BaseBlockInstance> outermost = new BlockInstance(nullptr, "");
    for (int i = 0; i < 100'000; ++i) {
        SmartPtr<BaseBlockInstance> const parent = new BlockInstance(nullptr, "");
        parent->Add(outermost);
        outermost = parent;
    }
    outermost = nullptr;
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST_F(BlockTest, ChildOutlivesItsParentWithoutPointingAtIt) {
    SmartPtr<BaseBlockInstance> parent = new BlockInstance(nullptr, "");
    SmartPtr<BaseBlockInstance> const child = new BlockInstance(nullptr, "");
    parent->Add(child);
    parent = nullptr;
    EXPECT_FALSE(child->GetParent());
    child->MoveItem(1, 0);
}

TEST_F(BlockTest, MadeByNameHasNoIdWhileCableAndTableTakeTheirNames) {
    EXPECT_EQ(Block(DBox2D::EMPTY)->GetId(), Symbol::EMPTY);
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    SmartPtr<TableInstance> const table = new TableInstance(wiring.figure, "T1");
    EXPECT_EQ(cable->GetId(), Symbol("W1"));
    EXPECT_EQ(table->GetId(), Symbol("T1"));
    EXPECT_EQ(wiring.figure->GetCableInstances(), std::vector{cable});
    EXPECT_EQ(wiring.figure->GetTableInstances(), std::vector{table});
    EXPECT_EQ(cable->GetFigure(), wiring.figure);
}

TEST_F(BlockTest, FromAKernelRecordTakesItsId) {
    SmartPtr<FakeBlock> const block = new FakeBlock("b");
    SmartPtr<FakeCable> const cable = new FakeCable("c");
    SmartPtr<FakeTable> const table = new FakeTable("t");
    SmartPtr<FakeMiscellaneous> const other = new FakeMiscellaneous("m");
    SmartPtr<BlockInstance> const a = new BlockInstance(wiring.Lock(), block);
    SmartPtr<CableInstance> const b = new CableInstance(wiring.Lock(), cable);
    SmartPtr<TableInstance> const c = new TableInstance(wiring.Lock(), table);
    SmartPtr<Miscellaneous> const d = new Miscellaneous(wiring.Lock(), other);
    EXPECT_EQ(a->GetId(), Symbol("b"));
    EXPECT_EQ(b->GetId(), Symbol("c"));
    EXPECT_EQ(c->GetId(), Symbol("t"));
    EXPECT_EQ(d->GetId(), Symbol("m"));
    EXPECT_EQ(a->GetKernelBlockInstance(), block);
    EXPECT_EQ(b->GetKernelCableInstance(), cable);
    EXPECT_EQ(c->GetKernelTableInstance(), table);
    EXPECT_EQ(d->GetKernelMiscellaneous(), other);
    EXPECT_EQ(a->GetTextOwnerId(), Symbol("b"));
}

TEST_F(BlockTest, FineChecksAskTheKernelPictureUntilTheBlockIsTransformed) {
    SmartPtr<FakeBlock> const record = new FakeBlock("b");
    record->picture = BoxPicture(DBox2D(0, 0, 2, 2));
    SmartPtr<BlockInstance> const block = new BlockInstance(wiring.Lock(), record);
    GenericGraphic::Create(wiring.Lock(), DBox2D(0, 0, 2, 2), SmartPtr<figk::Group>(block));
    EXPECT_TRUE(block->FineOverlapCheck(DPoint2D(1, 1)));
    EXPECT_TRUE(block->FineContentCheck(DBox2D(-1, -1, 3, 3)));
    block->MoveItem(10, 0);
    EXPECT_FALSE(block->FineOverlapCheck(DPoint2D(1, 1)));
    EXPECT_TRUE(block->FineOverlapCheck(DPoint2D(11, 1)));
    EXPECT_FALSE(block->FineContentCheck(DBox2D(-1, -1, 3, 3)));
    EXPECT_TRUE(block->FineContentCheck(DBox2D(9, -1, 13, 3)));
    EXPECT_TRUE(block->FineOverlapCheck(DBox2D(9, 1, 10.5, 1.5)));
}

TEST_F(BlockTest, WithoutKernelGraphicsAsksItsGroup) {
    auto const block = Block(DBox2D(0, 0, 2, 2));
    EXPECT_TRUE(block->FineOverlapCheck(DPoint2D(1, 1)));
    EXPECT_FALSE(block->FineOverlapCheck(DPoint2D(5, 5)));
    auto const nothing = Block(DBox2D::EMPTY);
    EXPECT_FALSE(nothing->FineOverlapCheck(DPoint2D(1, 1)));
    EXPECT_FALSE(nothing->FineContentCheck(DBox2D(-9, -9, 9, 9)));
}

TEST_F(BlockTest, InheritsFromItsParentAndElseFromTheFigure) {
    auto const parent = Block(DBox2D(0, 0, 1, 1));
    auto const child = Block(DBox2D(0, 0, 1, 1));
    parent->Add(SmartPtr<BaseBlockInstance>(child));
    wiring.figure->AddSetting(Colored(Color::RED), false);
    Color color = Color::BLACK;
    EXPECT_TRUE(child->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::RED);
    parent->AddSetting(Colored(Color::GREEN), false);
    EXPECT_TRUE(child->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::GREEN);
}

TEST_F(BlockTest, CableWithoutSubNetsHasNothingToClear) {
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    cable->ClearSubNets();
    EXPECT_TRUE(cable->GetSubNets().empty());
}

TEST_F(BlockTest, CableTakesItsSubNetsAlongOnce) {
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    auto const net = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    cable->Add(net);
    cable->Add(net);
    cable->MoveItem(5, 0);
    EXPECT_EQ(wire->GetExtents(), DBox2D(5, 0, 6, 0));
    cable->SetHighlight(true);
    EXPECT_TRUE(wire->GetHighlight());
    cable->ScaleItem(DPoint2D(0, 0), 2);
    EXPECT_EQ(net->GetExtents(), DBox2D(10, 0, 12, 0));
}

TEST_F(BlockTest, CableInsideABlockMovesWithIt) {
    auto const block = Block(DBox2D(0, 0, 9, 9));
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    auto const net = wiring.Net();
    auto const wire = wiring.Wire(net, DPoint2D(0, 0), DPoint2D(1, 0));
    cable->Add(net);
    block->Add(SmartPtr<BaseBlockInstance>(cable));
    block->MoveItem(5, 0);
    EXPECT_EQ(wire->GetExtents(), DBox2D(5, 0, 6, 0));
}

TEST_F(BlockTest, SettingsOfABlockConcernTheNetsOfACableInsideIt) {
    SmartPtr<BlockInstance> outer = new BlockInstance(nullptr, "");
    SmartPtr<BaseBlockInstance> const inner = new BlockInstance(nullptr, "");
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    auto const net = wiring.Net();
    cable->Add(net);
    inner->Add(SmartPtr<BaseBlockInstance>(cable));
    auto const asksAnew = [&](auto const& change) {
        net->SetGraphicalUpdateNeeded(false);
        change();
        return net->GetGraphicalUpdateNeeded();
    };
    EXPECT_TRUE(asksAnew([&] { outer->Add(inner); }));
    EXPECT_TRUE(asksAnew([&] { outer->AddSetting(Colored(Color::RED), false); }));
    EXPECT_TRUE(asksAnew([&] { inner->AddSetting(Colored(Color::RED), false); }));
    EXPECT_TRUE(asksAnew([&] { outer.Reset(); }));
    EXPECT_FALSE(asksAnew([] {}));
}

TEST_F(BlockTest, AcceptShowsConnectorsOfABlockOnly) {
    class Counter : public AbstractFigureVisitor {
    public:
        using AbstractFigureVisitor::Visit;
        bool Visit(SmartPtr<ConnectorInstance> const&) override {
            ++connectors;
            return true;
        }
        void VisitComplete(SmartPtr<ConnectorInstance> const&) override { ++completed; }
        int connectors = 0;
        int completed = 0;
    };
    auto const block = Block(DBox2D(0, 0, 1, 1));
    SmartPtr<CableInstance> const cable = new CableInstance(wiring.figure, "W1");
    SmartPtr<ConnectorInstance> const a =
        new ConnectorInstance(block, wiring.Lock(), "1", DPoint2D());
    SmartPtr<ConnectorInstance> const b =
        new ConnectorInstance(cable, wiring.Lock(), "1", DPoint2D());
    Counter onBlock;
    block->Accept(onBlock);
    EXPECT_EQ(onBlock.connectors, 1);
    EXPECT_EQ(onBlock.completed, 1);
    Counter onCable;
    cable->Accept(onCable);
    EXPECT_EQ(onCable.connectors, 0);
}

}  // namespace
}  // namespace figrep::testing
