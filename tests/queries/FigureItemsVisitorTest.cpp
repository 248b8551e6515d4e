#include <figk/Miscellaneous.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/Miscellaneous.h>
#include <operations/OperationTestSupport.h>

namespace figrep::testing {
namespace {

class FigureItemsVisitorTest : public FigureOfAll {
protected:
    Strings Collected(bool subItems, bool ports) {
        Items items;
        FigureItemsVisitor visitor(items);
        visitor.SetCollectSubItems(subItems);
        visitor.SetCollectPorts(ports);
        figure->Accept(visitor);
        return LabelsOf(items);
    }
};

TEST_F(FigureItemsVisitorTest, ListsTopLevelContentInTheOrderOfTheWalk) {
    Items items;
    FigureItemsVisitor visitor(items);
    figure->Accept(visitor);
    EXPECT_EQ(LabelsOf(items), (Strings{"free", "gline", "g1", "g2", "deep", "U1", "U2", "U3", "K",
                                        "H", "A", "B", "C1", "C2", "D", "T"}));
}

TEST_F(FigureItemsVisitorTest, WithoutSubItemsLeavesOutChildBlocksAndTheSubNetsOfACable) {
    EXPECT_EQ(Collected(false, false), (Strings{"free", "gline", "g1", "g2", "deep", "U1", "U2",
                                                "K", "H", "A", "B", "D", "T"}));
}

TEST_F(FigureItemsVisitorTest, ListsPortsOnlyWhenAsked) {
    EXPECT_EQ(Collected(true, true),
              (Strings{"free", "gline", "g1", "g2", "deep", "U1", "U2", "U3", "K", "H/HP", "D/P",
                       "H", "A", "B", "C1", "C2", "D", "T"}));
}

TEST_F(FigureItemsVisitorTest, NeverListsSegmentsConnectorsFormatsOrPartsOfItems) {
    Items items;
    FigureItemsVisitor visitor(items);
    visitor.SetCollectPorts(true);
    figure->Accept(visitor);
    for (auto const& item : items) {
        auto const type = item->GetType();
        EXPECT_NE(type, AbstractFigureItem::ITEM_NET_SEGMENT);
        EXPECT_NE(type, AbstractFigureItem::ITEM_HIGHWAY_SEGMENT);
        EXPECT_NE(type, AbstractFigureItem::ITEM_UNROUTED_CONNECTION);
        EXPECT_NE(type, AbstractFigureItem::ITEM_CONNECTOR_INSTANCE);
        EXPECT_NE(type, AbstractFigureItem::ITEM_PORT_NODE);
        EXPECT_NE(type, AbstractFigureItem::ITEM_FORMAT);
        EXPECT_NE(type, AbstractFigureItem::ITEM_TITLE_BLOCK);
    }
}

TEST_F(FigureItemsVisitorTest, ListsMiscellaneousItemsLast) {
    SmartPtr<Miscellaneous> const misc = new Miscellaneous(figure->GetLock(), nullptr);
    figure->Receive(misc);
    for (bool const subItems : {true, false}) {
        Items items;
        FigureItemsVisitor visitor(items);
        visitor.SetCollectSubItems(subItems);
        figure->Accept(visitor);
        ASSERT_FALSE(items.empty());
        EXPECT_EQ(items.back(), misc);
    }
}

TEST_F(FigureItemsVisitorTest, AppendsToWhatTheCallerHasAlready) {
    Items items{Item("T")};
    FigureItemsVisitor visitor(items);
    Item("U1")->Accept(visitor);
    EXPECT_EQ(LabelsOf(items), (Strings{"T", "U1"}));
}

}  // namespace
}  // namespace figrep::testing
