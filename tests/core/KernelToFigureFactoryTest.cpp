#include <figk/HighwayNode.h>
#include <figk/NetSegment.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/SubNet.h>
#include <figk/TitleBlock.h>
#include <figrep/BlockInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwayNode.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlock.h>
#include <figrep/TokenObserver.h>
#include <gtest/gtest.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

SmartPtr<figk::BlockInstance> BlockRecord() {
    return new FakeBlockRecord("B", "block");
}

TEST(KernelToFigureFactory, WithoutALockMakesItemsThatRunUnlocked) {
    KernelToFigureFactory factory;
    auto const block = factory.CreateBlockInstance(BlockRecord());
    EXPECT_FALSE(block->GetLock());
    EXPECT_EQ(block->GetName(), "block");
    block->MoveItem(1, 1);
    block->SetVisibility(false);
    EXPECT_EQ(block->GetExtents(), DBox2D::EMPTY);
}

TEST(KernelToFigureFactory, TakesTheLockOfTheFirstFigure) {
    KernelToFigureFactory factory;
    auto const figure = factory.CreateFigure();
    auto const block = factory.CreateBlockInstance(BlockRecord());
    EXPECT_EQ(block->GetLock(), figure->GetLock());
    EXPECT_EQ(block->GetRefCount(), 1u);
    EXPECT_TRUE(figure->GetBlockInstances().empty());
}

TEST(KernelToFigureFactory, KeepsALockThatItHas) {
    KernelToFigureFactory factory;
    SmartPtr<zvk::ReadWriteLock> const own = new zvk::ReadWriteLock();
    factory.SetLock(own);
    auto const figure = factory.CreateFigure();
    EXPECT_EQ(factory.CreateBlockInstance(BlockRecord())->GetLock(), own);
    EXPECT_EQ(figure->GetLock(), figk::SchematicKernel::GetKernelLock());
}

TEST(KernelToFigureFactory, NullRecordsMakeNothing) {
    KernelToFigureFactory factory;
    EXPECT_FALSE(factory.CreateBlockInstance({}));
    EXPECT_FALSE(factory.CreateConnectorInstance({}, {}));
    EXPECT_FALSE(factory.CreateHighwayNode({}, {}, {}));
    EXPECT_FALSE(factory.CreateNetSegment({}, {}, {}));
    EXPECT_FALSE(factory.CreatePortNode({}, SmartPtr<SubNet>(), {}, {}));
    EXPECT_FALSE(factory.CreateSubNet({}, {}));
    EXPECT_FALSE(factory.CreateTitleBlock({}, {}));
    EXPECT_TRUE(factory.CreateGraphicGroup({}));
}

}  // namespace
}  // namespace figrep::testing
