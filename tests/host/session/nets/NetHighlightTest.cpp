#include <session/nets/NetHighlight.h>

#include <figrep/Figure.h>
#include <gtest/gtest.h>
#include <host/ShapeRecorder.h>
#include <session/query/Inventory.h>

#include <algorithm>
#include <map>
#include <set>

namespace fighost {
namespace {

using dg::Color;
using test::Geometry;
using test::Record;
using test::RecordedShape;

bool IsOfBus(RecordedShape const& shape) {
    return shape.item.rfind("HighwaySegment", 0) == 0;
}

class NetHighlightTest : public testing::Test {
protected:
    NetHighlightTest()
        : session(
              Session::Open(FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch")
                  .session) {}

    std::vector<RecordedShape> Shapes() const {
        std::vector<RecordedShape> shapes;
        for (SessionSheet const& sheet : session->GetSheets()) {
            auto const recorder = Record(sheet.figure);
            shapes.insert(shapes.end(), recorder.shapes.begin(), recorder.shapes.end());
        }
        return shapes;
    }

    std::unique_ptr<Session> session;
};

TEST_F(NetHighlightTest, UnknownNetHighlightsNothing) {
    EXPECT_FALSE(HighlightNet(*session, "no such net", Color::RED));
    EXPECT_FALSE(HighlightNet(*session, "", Color::RED));
    for (RecordedShape const& shape : Shapes())
        EXPECT_FALSE(shape.highlighted);
}

TEST_F(NetHighlightTest, ShowsOnTheItemsOfTheNetAndOnNoOthers) {
    ASSERT_TRUE(HighlightNet(*session, "/SDA", Color::RED));
    std::set<std::string> types;
    for (RecordedShape const& shape : Shapes()) {
        EXPECT_EQ(shape.highlighted, shape.net == "/SDA") << shape.item << " on " << shape.net;
        if (shape.highlighted) types.insert(shape.item.substr(0, shape.item.find(' ')));
        for (Color const& ink : shape.inks)
            EXPECT_EQ(ink == Color::RED, shape.highlighted) << shape.item;
    }
    EXPECT_EQ(types, (std::set<std::string>{"ConnectorInstance", "NetSegment", "PortNode"}));
}

TEST_F(NetHighlightTest, ShowsOnAllSheetsThatTheNetIsOn) {
    ASSERT_TRUE(HighlightNet(*session, "/SDA", Color::RED));
    std::vector<std::string> highlighted;
    for (SessionSheet const& sheet : session->GetSheets()) {
        auto const shapes = Record(sheet.figure).shapes;
        bool const any = std::any_of(shapes.begin(), shapes.end(),
                                     [](RecordedShape const& s) { return s.highlighted; });
        if (any) highlighted.push_back(sheet.path);
    }
    for (NetEntry const& net : ListNets(*session)) {
        if (net.name == "/SDA") {
            EXPECT_EQ(highlighted, net.sheets);
        }
    }
}

TEST_F(NetHighlightTest, SeveralNetsHaveTheirOwnColours) {
    std::map<std::string, Color> const colors = {
        {"/SDA", Color::RED}, {"/SCL", Color::BLUE}, {"GND", Color(0.5F, 0.25F, 0)}};
    for (auto const& [net, color] : colors)
        ASSERT_TRUE(HighlightNet(*session, net, color));
    for (RecordedShape const& shape : Shapes()) {
        auto const found = colors.find(shape.net);
        EXPECT_EQ(shape.highlighted, found != colors.end()) << shape.item;
        for (Color const& ink : shape.inks) {
            if (shape.highlighted) {
                EXPECT_EQ(ink, found->second) << shape.item;
            }
        }
    }
}

TEST_F(NetHighlightTest, BusLightsUpWhereTheNetRuns) {
    ASSERT_TRUE(HighlightNet(*session, "/D3", Color::RED));
    std::size_t lit = 0;
    std::size_t dark = 0;
    for (RecordedShape const& shape : Shapes()) {
        if (IsOfBus(shape)) ++(shape.highlighted ? lit : dark);
        bool const onNet = shape.net == "/D3";
        bool const isWire = shape.item.rfind("NetSegment", 0) == 0;
        if (isWire) {
            EXPECT_EQ(shape.highlighted, onNet) << shape.item;
        }
    }
    EXPECT_GT(lit, 0u);
    EXPECT_GT(dark, 0u) << "the bus goes on beyond the tap";
}

TEST_F(NetHighlightTest, AHighlightWidensLinesAndMovesNothing) {
    auto const withoutWidth = [](std::vector<RecordedShape> const& shapes) {
        std::vector<std::string> lines;
        for (RecordedShape const& shape : shapes) {
            if (IsOfBus(shape)) continue;  // is broken where the highlight ends
            lines.push_back(shape.item + shape.geometry.substr(0, shape.geometry.rfind(' ')));
        }
        return lines;
    };
    auto const before = withoutWidth(Shapes());
    ASSERT_TRUE(HighlightNet(*session, "/D3", Color::RED));
    EXPECT_EQ(withoutWidth(Shapes()), before);
}

TEST_F(NetHighlightTest, SurvivesNewPictures) {
    ASSERT_TRUE(HighlightNet(*session, "/SDA", Color::RED));
    auto const before = Geometry(Shapes());
    for (SessionSheet const& sheet : session->GetSheets()) {
        ApplyLook(sheet.figure, {Theme::DARK});
        sheet.figure->UpdateContent();
    }
    EXPECT_EQ(Geometry(Shapes()), before);
    for (RecordedShape const& shape : Shapes())
        EXPECT_EQ(shape.highlighted, shape.net == "/SDA") << shape.item;
}

TEST_F(NetHighlightTest, NamesAreThoseOfTheList) {
    std::vector<std::string> listed;
    for (NetEntry const& net : ListNets(*session))
        listed.push_back(net.name);
    std::vector<std::string> names = NetNames(*session);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, listed);
}

}  // namespace
}  // namespace fighost
