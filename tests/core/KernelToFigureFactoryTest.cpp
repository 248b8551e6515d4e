#include <figk/Design.h>
#include <figk/Format.h>
#include <figk/HighwayNode.h>
#include <figk/NetSegment.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figk/TitleBlock.h>
#include <figrep/BlockInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwayNode.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/NetSegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TokenObserver.h>
#include <gtest/gtest.h>
#include <support/Drawing.h>

#include "Fakes.h"

namespace figrep::testing {
namespace {

SmartPtr<figk::BlockInstance> BlockRecord() {
    return new FakeBlockRecord("B", "block");
}

SmartPtr<figk::Design> DesignWithFrame() {
    test::Drawing drawing;
    drawing.Format(100, 50, 4, 2);
    drawing.Current().titleBlock.emplace();
    drawing.Current().titleBlock->sections.emplace_back();
    return drawing.BuildDesign();
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

TEST(KernelToFigureFactory, MakesFormatAndTitleBlockForTheCallerAlone) {
    auto const design = DesignWithFrame();
    auto const sheet = design->GetSheets().at(0);
    KernelToFigureFactory factory;
    auto const figure = factory.CreateFigure();
    auto const format = factory.CreateFormat(sheet->GetFormat());
    auto const titleBlock = factory.CreateTitleBlock(sheet->GetTitleBlock(), {});
    EXPECT_EQ(format->GetLock(), figure->GetLock());
    EXPECT_EQ(titleBlock->GetLock(), figure->GetLock());
    EXPECT_EQ(format->GetRefCount(), 1u);
    EXPECT_EQ(titleBlock->GetRefCount(), 1u);
    EXPECT_EQ(format->GetKernelFormat(), sheet->GetFormat());
    EXPECT_EQ(titleBlock->GetKernelTitleBlock(), sheet->GetTitleBlock());
    EXPECT_EQ(titleBlock->GetTextSections().size(), 1u);
    EXPECT_FALSE(figure->GetFormat());
    EXPECT_FALSE(format->GetTitleBlock());
}

TEST(KernelToFigureFactory, WithoutALockFormatAndTitleBlockRunUnlocked) {
    auto const design = DesignWithFrame();
    auto const sheet = design->GetSheets().at(0);
    KernelToFigureFactory factory;
    auto const format = factory.CreateFormat(sheet->GetFormat());
    auto const titleBlock = factory.CreateTitleBlock(sheet->GetTitleBlock(), {});
    EXPECT_FALSE(format->GetLock());
    EXPECT_FALSE(titleBlock->GetLock());
    format->Add(titleBlock);
    format->MoveItem(1, 2);
    format->SetShowGrid(true);
    titleBlock->SetOffsetX(3);
    EXPECT_EQ(format->GetPosition(), DPoint2D(1, 2));
    EXPECT_EQ(titleBlock->GetFormat(), format);
}

TEST(KernelToFigureFactory, NullRecordsMakeNothing) {
    KernelToFigureFactory factory;
    EXPECT_FALSE(factory.CreateBlockInstance({}));
    EXPECT_FALSE(factory.CreateConnectorInstance({}, {}));
    EXPECT_FALSE(factory.CreateHighwayNode({}, {}, {}));
    EXPECT_FALSE(factory.CreateNetSegment({}, {}, {}));
    EXPECT_FALSE(factory.CreatePortNode({}, SmartPtr<SubNet>(), {}, {}));
    EXPECT_FALSE(factory.CreateSubNet({}, {}));
    EXPECT_FALSE(factory.CreateFormat({}));
    EXPECT_FALSE(factory.CreateTitleBlock({}, {}));
    EXPECT_TRUE(factory.CreateGraphicGroup({}));
}

}  // namespace
}  // namespace figrep::testing
