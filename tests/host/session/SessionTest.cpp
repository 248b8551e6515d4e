#include <session/Session.h>

#include <gtest/gtest.h>
#include <session/SheetFileName.h>
#include <session/query/Inventory.h>

namespace fighost {
namespace {

std::string Example() {
    return FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch";
}

std::unique_ptr<Session> OpenExample() {
    Session::Opened opened = Session::Open(Example());
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    return std::move(opened.session);
}

NetEntry const* Find(std::vector<NetEntry> const& nets, std::string const& name) {
    for (NetEntry const& net : nets) {
        if (net.name == name) return &net;
    }
    return nullptr;
}

TEST(SheetFileNames, KeepsWhatIsSafeAndReplacesTheRest) {
    SheetFileNames names;
    EXPECT_EQ(names.Next("Power-1_a.b"), "Power-1_a.b");
    EXPECT_EQ(names.Next("a/b\\c:d e"), "a_b_c_d_e");
    EXPECT_EQ(names.Next("../../etc"), "_._.._etc") << "no way up";
    EXPECT_EQ(names.Next("Größe"), "Größe");
}

TEST(SheetFileNames, EqualNamesGetNumbersWhateverTheirCase) {
    SheetFileNames names;
    EXPECT_EQ(names.Next("Sensor"), "Sensor");
    EXPECT_EQ(names.Next("sensor"), "sensor-2");
    EXPECT_EQ(names.Next("Sensor"), "Sensor-3");
    EXPECT_EQ(names.Next(""), "sheet");
}

TEST(SheetFileNames, LongNamesAreCutBetweenCharacters) {
    std::string name;
    for (int i = 0; i < 200; ++i)
        name += "\xC3\xA9";
    std::string const cut = SheetFileNames().Next(name);
    EXPECT_LE(cut.size(), 120u);
    EXPECT_EQ(cut.size() % 2, 0u);
}

TEST(SheetFileNames, PatternIsFilledEverywhere) {
    EXPECT_EQ(FillPattern("%s/a-%s.svg", "x"), "x/a-x.svg");
    EXPECT_EQ(FillPattern("a.svg", "x"), "a.svg");
    EXPECT_EQ(FillPattern("100%", "x"), "100%");
}

TEST(Session, MissingFileIsAnErrorWithItsName) {
    Session::Opened const opened = Session::Open("/nowhere/at-all.kicad_sch");
    EXPECT_FALSE(opened.session);
    ASSERT_TRUE(opened.error);
    EXPECT_NE(opened.error->ToString().find("at-all.kicad_sch"), std::string::npos);
}

TEST(Session, ExampleHasAFigureForEachSheetInstance) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::vector<std::string> paths;
    for (SessionSheet const& sheet : session->GetSheets())
        paths.push_back(sheet.path);
    EXPECT_EQ(paths, (std::vector<std::string>{"/", "/Power/", "/Controller/", "/Sensor indoors/",
                                               "/Sensor outdoors/", "/Display/"}));
    EXPECT_EQ(session->GetFindings().GetWarningCount(), 0u);
}

TEST(Session, SheetsAreFoundByNameAndByPath) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    EXPECT_EQ(session->FindSheets("Display").size(), 1u);
    EXPECT_EQ(session->FindSheets("/Sensor indoors/").size(), 1u);
    EXPECT_TRUE(session->FindSheets("nothing").empty());
}

TEST(Session, NetsOfTheExampleGoAcrossSheets) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::vector<NetEntry> const nets = ListNets(*session);
    NetEntry const* sda = Find(nets, "/SDA");
    ASSERT_TRUE(sda);
    EXPECT_EQ(sda->pins, (std::vector<std::string>{"R1:2", "U2:27", "U3:1", "U5:1"}));
    EXPECT_EQ(sda->sheets.size(), 4u);
    NetEntry const* tx = Find(nets, "UART_TX");
    ASSERT_TRUE(tx);
    EXPECT_EQ(tx->pins, (std::vector<std::string>{"J4:2", "U2:3"}));
}

TEST(Session, BusOfTheExampleCarriesEightNets) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::vector<NetEntry> const nets = ListNets(*session);
    for (int i = 0; i < 8; ++i) {
        NetEntry const* net = Find(nets, "/D" + std::to_string(i));
        ASSERT_TRUE(net) << i;
        EXPECT_EQ(net->pins, (std::vector<std::string>{"U2:" + std::to_string(11 + i),
                                                       "U7:" + std::to_string(2 + i)}));
    }
}

TEST(Session, ExampleHasCrossings) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    EXPECT_GE(CountCrossings(*session), 6u);
}

TEST(Session, ItemsAreListedOnceAndCounted) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::vector<ItemEntry> const items = ListItems(*session);
    std::map<std::string, std::size_t> const counts = CountItems(items);
    std::size_t sum = 0;
    for (auto const& [type, count] : counts)
        sum += count;
    EXPECT_EQ(sum, items.size());
    EXPECT_GT(counts.at("BlockInstance"), 50u);
    EXPECT_GT(counts.at("HighwaySegment"), 0u);
    EXPECT_EQ(counts.count("PickGRaphicProxy"), 0u);
}

TEST(Session, TwoSessionsOfOneDesignStandSideBySide) {
    auto const first = OpenExample();
    auto const second = OpenExample();
    ASSERT_TRUE(first && second);
    EXPECT_EQ(ListNets(*first).size(), ListNets(*second).size());
}

}  // namespace
}  // namespace fighost
