#include <session/Trace.h>

#include <gtest/gtest.h>
#include <session/Inventory.h>
#include <support/Corpus.h>
#include <algorithm>
#include <map>

namespace fighost {
namespace {

std::unique_ptr<Session> OpenDesign(std::string const& path) {
    Session::Opened opened = Session::Open(path);
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    return std::move(opened.session);
}

std::unique_ptr<Session> OpenExample() {
    return OpenDesign(FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch");
}

TraceSheet const* Find(NetTrace const& trace, std::string const& path) {
    for (TraceSheet const& sheet : trace.sheets) {
        if (sheet.path == path) return &sheet;
    }
    return nullptr;
}

std::vector<std::string> SheetsOf(NetTrace const& trace) {
    std::vector<std::string> sheets;
    for (TraceSheet const& sheet : trace.sheets)
        sheets.push_back(sheet.path);
    std::sort(sheets.begin(), sheets.end());
    return sheets;
}

std::vector<std::string> PinsOf(NetTrace const& trace) {
    std::vector<std::string> pins;
    for (TraceSheet const& sheet : trace.sheets)
        pins.insert(pins.end(), sheet.pins.begin(), sheet.pins.end());
    std::sort(pins.begin(), pins.end());
    pins.erase(std::unique(pins.begin(), pins.end()), pins.end());
    return pins;
}

// Every trace names the sheets and the pins that the list of nets has.
void ExpectTracesAgreeWithNets(Session const& session, std::string const& what) {
    for (NetEntry const& net : ListNets(session)) {
        auto const trace = TraceNet(session, net.name);
        ASSERT_TRUE(trace) << what << " " << net.name;
        std::vector<std::string> sheets = net.sheets;
        std::sort(sheets.begin(), sheets.end());
        EXPECT_EQ(SheetsOf(*trace), sheets) << what << " " << net.name;
        EXPECT_EQ(PinsOf(*trace), net.pins) << what << " " << net.name;
    }
}

TEST(Trace, UnknownNetHasNone) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    EXPECT_FALSE(TraceNet(*session, "no such net"));
}

TEST(Trace, SheetsAndPinsAreThoseOfTheListOfNets) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    ExpectTracesAgreeWithNets(*session, "example");
}

TEST(Trace, NetGoesFromPortToPortWithGridLocations) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const trace = TraceNet(*session, "/SDA");
    ASSERT_TRUE(trace);
    ASSERT_EQ(trace->sheets.size(), 4u);
    EXPECT_EQ(trace->sheets[0].path, "/");
    EXPECT_FALSE(trace->sheets[0].reachedByPort);
    EXPECT_EQ(trace->sheets[0].pins, std::vector<std::string>{"R1:2"});
    EXPECT_EQ(trace->sheets[0].ports.size(), 3u);
    for (TracePort const& port : trace->sheets[0].ports) {
        EXPECT_EQ(port.place.y.size(), 1u);
        ASSERT_EQ(port.leadsTo.size(), 3u) << "one port joins all sheets";
        for (TracePlace const& place : port.leadsTo) {
            TraceSheet const* target = Find(*trace, place.sheet);
            ASSERT_TRUE(target) << place.sheet;
            EXPECT_TRUE(target->reachedByPort);
            ASSERT_EQ(target->ports.size(), 1u);
            EXPECT_EQ(target->ports[0].place, place) << "the same place from both ends";
        }
    }
}

TEST(Trace, NetOfABusPassesByThePortOfTheBus) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const trace = TraceNet(*session, "/D3");
    ASSERT_TRUE(trace);
    TraceSheet const* display = Find(*trace, "/Display/");
    TraceSheet const* controller = Find(*trace, "/Controller/");
    ASSERT_TRUE(display && controller);
    EXPECT_EQ(display->pins, std::vector<std::string>{"U7:5"});
    EXPECT_EQ(controller->pins, std::vector<std::string>{"U2:14"});
    EXPECT_FALSE(display->ports.empty());
}

TEST(Trace, PowerGoesByNameAlone) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const trace = TraceNet(*session, "GND");
    ASSERT_TRUE(trace);
    EXPECT_GT(trace->sheets.size(), 2u);
    for (TraceSheet const& sheet : trace->sheets) {
        EXPECT_FALSE(sheet.reachedByPort) << sheet.path;
    }
}

TEST(Trace, EveryNetOfTheCorpusIsTracedThroughTheSheetsThatShowIt) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        auto const session = OpenDesign(root);
        ASSERT_TRUE(session) << root;
        ExpectTracesAgreeWithNets(*session, root);
    }
}

}  // namespace
}  // namespace fighost
