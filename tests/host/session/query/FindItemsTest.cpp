#include <session/query/FindItems.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <host/session/ExampleSession.h>
#include <session/query/Inventory.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace fighost {
namespace {

std::vector<std::string> IdsOf(std::vector<SheetItem> const& items) {
    std::vector<std::string> ids;
    for (SheetItem const& item : items)
        ids.push_back(item.item->GetId().GetString());
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::set<std::string> TypesOf(std::vector<SheetItem> const& items) {
    std::set<std::string> types;
    for (SheetItem const& item : items)
        types.insert(item.item->GetTypeName());
    return types;
}

class FindItemsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { session = test::OpenExample(); }
    static void TearDownTestSuite() { session.reset(); }
    void SetUp() override { ASSERT_TRUE(session); }

    static std::unique_ptr<Session> session;
};

std::unique_ptr<Session> FindItemsTest::session;

TEST_F(FindItemsTest, ANetMeansItsPiecesOnAllSheets) {
    for (NetEntry const& net : ListNets(*session)) {
        std::vector<std::string> pieces = net.subnets;
        std::sort(pieces.begin(), pieces.end());
        std::vector<SheetItem> found = FindItems(*session, net.name);
        std::erase_if(found, [](SheetItem const& item) {
            return item.item->GetType() != figrep::AbstractFigureItem::ITEM_SUB_NET;
        });
        EXPECT_EQ(IdsOf(found), pieces) << net.name;
    }
}

TEST_F(FindItemsTest, EveryIdMeansTheItemsThatAreListedWithIt) {
    std::map<std::string, std::size_t> counts;
    for (ItemEntry const& item : ListItems(*session)) {
        if (!item.id.empty()) ++counts[item.id];
    }
    std::vector<std::string> ids;
    std::size_t total = 0;
    for (auto const& [id, count] : counts) {
        ids.push_back(id);
        total += count;
    }
    NamedItems const found = FindNamedItems(*session, ids);
    EXPECT_TRUE(found.unknown.empty());
    EXPECT_EQ(found.items.size(), total);
    for (SheetItem const& item : found.items) {
        ASSERT_TRUE(item.sheet);
        EXPECT_TRUE(item.item->GetFigure() == item.sheet->figure);
    }
}

TEST_F(FindItemsTest, AReferenceMeansThePart) {
    std::vector<SheetItem> const found = FindItems(*session, "U2");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].item->GetType(), figrep::AbstractFigureItem::ITEM_BLOCK_INSTANCE);
    EXPECT_EQ(found[0].sheet->path, "/Controller/");
}

TEST_F(FindItemsTest, APinIsNamedWithItsPart) {
    std::vector<SheetItem> const found = FindItems(*session, "U2:27");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].item->GetType(), figrep::AbstractFigureItem::ITEM_CONNECTOR_INSTANCE);
    EXPECT_EQ(found[0].item->GetName(), "27");
}

TEST_F(FindItemsTest, APortMeansAllPlacesWhereItShows) {
    std::size_t nodes = 0;
    for (ItemEntry const& item : ListItems(*session)) {
        if (item.type == "PortNode" && item.name == "SDA") ++nodes;
    }
    std::vector<SheetItem> const found = FindItems(*session, "SDA");
    EXPECT_EQ(TypesOf(found), std::set<std::string>{"PortNode"});
    EXPECT_EQ(found.size(), nodes);
    EXPECT_GE(nodes, 4u);
}

TEST_F(FindItemsTest, ANameSharedByANetAndItsPortMeansBoth) {
    EXPECT_EQ(TypesOf(FindItems(*session, "UART_TX")),
              (std::set<std::string>{"PortNode", "SubNet"}));
}

TEST_F(FindItemsTest, ASheetNarrowsTheSearch) {
    SessionSheet const* const power = session->FindSheets("/Power/").at(0);
    EXPECT_TRUE(FindItems(*session, "U2", power).empty());
    std::vector<SheetItem> const found = FindItems(*session, "+3V3", power);
    EXPECT_FALSE(found.empty());
    for (SheetItem const& item : found)
        EXPECT_EQ(item.sheet, power);
}

TEST_F(FindItemsTest, NamesAreComparedExactly) {
    for (char const* name : {"", "u2", "U", "U2 ", "U2:", ":27", "27", "nothing"})
        EXPECT_TRUE(FindItems(*session, name).empty()) << name;
}

TEST_F(FindItemsTest, OneUnknownNameLeavesNothingOfTheOthers) {
    NamedItems const items = FindNamedItems(*session, {"U2", "U2000", "", "GND"});
    EXPECT_TRUE(items.items.empty());
    EXPECT_EQ(items.unknown, (std::vector<std::string>{"U2000", ""}));
    EXPECT_EQ(ComplaintAbout(items), "no item, part, net or port is called 'U2000' or ''");
}

TEST_F(FindItemsTest, AnItemNamedTwiceIsTakenOnce) {
    std::string const id = FindItems(*session, "U2").at(0).item->GetId().GetString();
    NamedItems const items = FindNamedItems(*session, {"U2", id, "U2"});
    ASSERT_EQ(items.items.size(), 1u);
    EXPECT_FALSE(ComplaintAbout(items));
    EXPECT_EQ(items.On(*items.items[0].sheet).size(), 1u);
    EXPECT_TRUE(items.On(session->GetSheets()[0]).empty());
}

}  // namespace
}  // namespace fighost
