#include <session/nets/Trace.h>

#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/Format.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <gtest/gtest.h>
#include <session/nets/TraceIndex.h>
#include <session/query/Inventory.h>
#include <support/Corpus.h>
#include <support/GeneratedDesign.h>
#include <zvk/Depiction.h>

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
    TraceIndex const index = IndexNets(session);
    for (NetEntry const& net : ListNets(session)) {
        auto const trace = TraceNet(index, net.name);
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

TEST(Trace, MovedFormatStillNamesTheKernelsCell) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    auto const placeOfPort = [&] {
        auto const trace = TraceNet(*session, "UART_TX");
        return trace && !trace->sheets.empty() ? trace->sheets[0].ports.at(0).place : TracePlace();
    };
    TracePlace const before = placeOfPort();
    ASSERT_FALSE(before.x.empty());
    auto const figure = session->FindSheets(before.sheet).at(0)->figure;
    // A column of the grid is nearly 50 mm wide: the port falls into the next one to the left.
    double const column = figure->GetFormat()->GetWidth() / 6;
    figure->MoveItem(figure->GetFormat(), column, 0);
    TracePlace const moved = placeOfPort();
    EXPECT_EQ(std::stoi(moved.x), std::stoi(before.x) - 1);
    EXPECT_EQ(moved.y, before.y);
}

// What a file of traces answers with no design at hand.
class LoadedTraces {
public:
    explicit LoadedTraces(std::string const& bytes) {
        MemoryFiles files;
        files.Add("saved", bytes);
        ReadTracesResult read = ReadTraces(files, "saved");
        EXPECT_FALSE(read.error) << read.error->ToString();
        index = read.index.value_or(TraceIndex());
    }
    TraceIndex index;
};

// The traces of all nets, and the bytes of their file. The design is closed then.
struct LiveTraces {
    std::map<std::string, NetTrace> traces;
    std::string bytes;
    std::size_t onSeveralSheets = 0;
};

LiveTraces TraceAll(std::string const& path) {
    LiveTraces live;
    auto const session = OpenDesign(path);
    if (!session) return live;
    TraceIndex const index = IndexNets(*session);
    for (NetEntry const& net : ListNets(*session)) {
        live.traces[net.name] = TraceNet(index, net.name).value_or(NetTrace());
        live.onSeveralSheets += net.sheets.size() > 1 ? 1 : 0;
    }
    live.bytes = WriteTraces(index);
    return live;
}

void ExpectSavedAnswersLikeLive(std::string const& path) {
    LiveTraces const live = TraceAll(path);
    LoadedTraces const saved(live.bytes);
    EXPECT_EQ(saved.index.nets.size(), live.traces.size()) << path;
    for (auto const& [net, trace] : live.traces) {
        auto const again = TraceNet(saved.index, net);
        ASSERT_TRUE(again) << path << " " << net;
        EXPECT_TRUE(*again == trace) << path << " " << net;
    }
    EXPECT_EQ(WriteTraces(saved.index), live.bytes) << path << ": byte for byte";
}

TEST(SavedTraces, AnswerLikeTheDesignAndAreWrittenAgainByteForByte) {
    ExpectSavedAnswersLikeLive(FIGREP_SOURCE_DIR
                               "/examples/weather-station/weather-station.kicad_sch");
    EXPECT_GT(TraceAll(FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch")
                  .onSeveralSheets,
              10u);
}

TEST(Trace, IndexOfOneNetIsThatOfAllNets) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    TraceIndex const all = IndexNets(*session);
    for (auto const& [net, stops] : all.nets) {
        TraceIndex const one = IndexNet(*session, net);
        EXPECT_EQ(one.nets.size(), 1u) << net;
        EXPECT_EQ(TraceNet(one, net), TraceNet(all, net)) << net;
    }
    EXPECT_TRUE(IndexNet(*session, "no such net").nets.empty());
}

TEST(SavedTraces, OfTheCorpusAnswerLikeTheDesigns) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets())
        ExpectSavedAnswersLikeLive(root);
}

TEST(SavedTraces, OfGeneratedDesignsKeepTheRecordByteForByte) {
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
        figrep::test::GridOptions options;
        options.seed = seed;
        options.sheets = 3;
        options.segments = 600;
        options.graphics = false;
        auto const design = figkernel::Build(figrep::test::GenerateGrid(options),
                                             figk::SchematicKernel::GetKernelLock())
                                .design;
        auto const record = figrep::SchematicRepresentation::GetSingleton();
        zvk::depiction::SetRunningDepict(true);
        for (auto const& sheet : design->GetSheets()) {
            figrep::KernelToFigureFactory factory;
            auto const figure = factory.CreateFigure();
            figrep::FigureSheetDeltaGenerator generator(sheet);
            figure->GenerateDeltas(generator);
            figure->ApplyDeltas(false);
            record->AddActiveFigure(figure, sheet->GetId());
            for (auto const& port : figure->GetPorts()) {
                for (auto const& node : port->GetPortNodes())
                    record->PortNodeAddFigureDetail(node, figure);
            }
        }
        zvk::depiction::SetRunningDepict(false);
        std::string const bytes = WriteTraces({});
        EXPECT_NE(bytes.find("sch_net_names"), std::string::npos) << "no bus went off a sheet";
        LoadedTraces const saved(bytes);
        EXPECT_EQ(WriteTraces(saved.index), bytes) << seed;
        record->ResetMap();
    }
}

TEST(SavedTraces, DamagedFilesAreToldAndLeaveTheRecord) {
    auto const session = OpenExample();
    ASSERT_TRUE(session);
    std::string const bytes = WriteTraces(IndexNets(*session));
    auto const errorOf = [](std::string const& text) {
        MemoryFiles files;
        files.Add("saved", text);
        auto const read = ReadTraces(files, "saved");
        return read.error ? read.error->ToString() : std::string();
    };
    EXPECT_EQ(errorOf(bytes.substr(0, bytes.size() / 2)).rfind("saved:", 0), 0u);
    EXPECT_NE(errorOf("<other/>"), "");
    EXPECT_NE(errorOf(""), "");
    std::string newer = bytes;
    std::size_t const version = newer.find('1', newer.find("version", newer.find("<int")));
    newer.replace(version, 1, "9");
    EXPECT_NE(errorOf(newer).find("unknown version 9"), std::string::npos);
    MemoryFiles none;
    EXPECT_EQ(ReadTraces(none, "gone").error->ToString(), "gone: There is no such file");
    EXPECT_EQ(WriteTraces(IndexNets(*session)), bytes);
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
