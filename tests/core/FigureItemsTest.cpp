#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <figrep/UnroutedConnection.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Fakes.h"

namespace figrep::testing {
namespace {

SmartPtr<zvk::ReadWriteLock> Lock() {
    return figk::SchematicKernel::GetKernelLock();
}

TEST(FigureItem, PickProxyIsSpelledOddlyAsATypeAndRightAsAnId) {
    auto const proxy = PickGraphicProxy::Create(Lock(), {}, DPoint2D(0, 0), DPoint2D(1, 0));
    EXPECT_EQ(proxy->GetTypeName(), "PickGRaphicProxy");
    EXPECT_EQ(proxy->GetId(), Symbol("PickGraphicProxy"));
}

TEST(FigureItem, KindsThatTheKernelDoesNotKnowHaveKernelTypeZero) {
    using Item = AbstractFigureItem;
    EXPECT_EQ(Item::GetKernelType(Item::ITEM_UNROUTED_CONNECTION), 0);
    EXPECT_EQ(Item::GetKernelType(Item::ITEM_PICK_GRAPHIC_PROXY), 0);
    auto const zero = static_cast<figk::TypeDefinitions::KernelItemType>(0);
    auto const proxy = PickGraphicProxy::Create(Lock(), {}, DPoint2D(0, 0), DPoint2D(1, 0));
    EXPECT_EQ(proxy->GetUITypeName(), figk::AbstractItem::GetUITypeName(zero));
    EXPECT_EQ(Item::GetUITypeName(Item::ITEM_UNROUTED_CONNECTION),
              figk::AbstractItem::GetUITypeName(zero));
}

TEST(FigureItem, EveryTypeHasItsNameAndItsKernelType) {
    struct Expected {
        int type;
        char const* name;
        int kernelType;
    };
    std::vector<Expected> const table{{0, "Unknown", 0},
                                      {1, "BlockInstance", 1},
                                      {2, "CableInstance", 2},
                                      {3, "ConnectorInstance", 3},
                                      {4, "Format", 5},
                                      {5, "GenericGraphic", 6},
                                      {6, "HighwaySegment", 8},
                                      {7, "Miscellaneous", 9},
                                      {8, "NetSegment", 11},
                                      {9, "PickGRaphicProxy", 0},
                                      {10, "Port", 12},
                                      {11, "PortNode", 13},
                                      {12, "SubHighway", 15},
                                      {13, "SubNet", 16},
                                      {14, "TableInstance", 17},
                                      {15, "TextGraphic", 18},
                                      {16, "TitleBlock", 19},
                                      {17, "UnroutedConnection", 0},
                                      {18, "Error : Unrecognised item type", 0},
                                      {-1, "Error : Unrecognised item type", 0}};
    for (auto const& expected : table) {
        auto const type = static_cast<AbstractFigureItem::FigureItemType>(expected.type);
        SmartPtr<FakeItem> const item = new FakeItem(Lock(), std::string(), type);
        EXPECT_EQ(item->GetTypeName(), expected.name);
        EXPECT_EQ(item->GetKernelType(), expected.kernelType) << expected.name;
    }
}

TEST(FigureItem, WithoutRecordAndNameIsNamedByTheEmptyText) {
    SmartPtr<FakeItem> const item = new FakeItem(Lock(), std::string());
    EXPECT_EQ(item->GetName(), "");
    EXPECT_FALSE(item->GetKernelItem());
}

TEST(FigureItem, LocalNameHidesTheKernelsName) {
    SmartPtr<FakeItem> const item =
        new FakeItem(Lock(), SmartPtr<figk::AbstractItem>(new FakeBlockRecord("id", "kernel")));
    EXPECT_EQ(item->GetName(), "kernel");
    item->SetName("local");
    EXPECT_EQ(item->GetName(), "local");
}

TEST(FigureItem, IsVisibleWithoutAnySetting) {
    SmartPtr<FakeItem> const item = new FakeItem(Lock(), "item");
    EXPECT_TRUE(item->IsVisible());
    EXPECT_TRUE(item->Empty());
}

TEST(FigureItem, VisibilitySettingDecides) {
    SmartPtr<FakeItem> const item = new FakeItem(Lock(), "item");
    ConstSmartPtr<figk::BaseSettingValue> const hidden = new figk::SettingValue<bool>(false);
    item->AddSetting(
        new Setting(Setting::ITEM_VISIBILITY, hidden, figk::Setting::LEVEL_FIGURE, true), false);
    EXPECT_FALSE(item->IsVisible());
}

TEST(FigureItem, TextWithoutRecordHasNoId) {
    auto const text = TextGraphic::Create(Lock(), Symbol("label"), SmartPtr<figk::Group>());
    EXPECT_TRUE(text->GetId().IsEmpty());
}

TEST(FigureItem, WithoutALockRunsUnlocked) {
    SmartPtr<FakeItem> const item = new FakeItem({}, "free");
    EXPECT_EQ(item->GetName(), "free");
    EXPECT_FALSE(item->GetFigure());
    EXPECT_FALSE(item->GetLock());
    EXPECT_TRUE(item->IsVisible());
    EXPECT_EQ(item->GetExtents(), DBox2D::EMPTY);
}

TEST(FigureItem, OutlivesItsFigureWithoutAWayBack) {
    SmartPtr<FakeItem> const item = new FakeItem(Lock(), "item");
    SmartPtr<Figure> figure = new Figure();
    item->SetFigure(figure);
    EXPECT_EQ(item->GetFigure(), figure);
    figure.Reset();
    EXPECT_FALSE(item->GetFigure());
}

TEST(FigureItem, FineChecksOfTheBaseLetTheBoxDecide) {
    SmartPtr<FakeItem> const item = new FakeItem(Lock(), "item");
    EXPECT_TRUE(item->FineContentCheck(DBox2D::EMPTY));
    EXPECT_TRUE(item->FineOverlapCheck(DPoint2D(3, 4)));
    EXPECT_TRUE(item->FineOverlapCheck(DBox2D(0, 0, 1, 1)));
}

TEST(FigureItem, TreeOrderLooksAtOneNumberOfTheBox) {
    auto const low = PickGraphicProxy::Create(Lock(), {}, DPoint2D(0, 9), DPoint2D(1, 9));
    auto const high = PickGraphicProxy::Create(Lock(), {}, DPoint2D(5, 1), DPoint2D(7, 1));
    EXPECT_TRUE(TreeEntryComparator(0)(low, high));
    EXPECT_FALSE(TreeEntryComparator(1)(low, high));
    EXPECT_TRUE(TreeEntryComparator(2)(low, high));
    EXPECT_FALSE(TreeEntryComparator(3)(low, high));
}

class EmptyVisitor : public AbstractFigureVisitor {};

TEST(FigureVisitor, DefaultsGoOnEverywhere) {
    EmptyVisitor visitor;
    EXPECT_TRUE(visitor.StartGroupVisit({}));
    EXPECT_TRUE(visitor.EndGroupVisit({}));
    EXPECT_TRUE(visitor.Visit(SmartPtr<SubNet>()));
    EXPECT_TRUE(visitor.Visit(SmartPtr<Figure>()));
    EXPECT_TRUE(visitor.Visit(SmartPtr<UnroutedConnection>()));
    EXPECT_TRUE(visitor.VisitTextLabelContainer({}));
}

}  // namespace
}  // namespace figrep::testing
