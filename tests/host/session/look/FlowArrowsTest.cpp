#include <session/look/FlowArrows.h>

#include <figrep/Figure.h>
#include <gtest/gtest.h>
#include <host/Picture.h>
#include <host/ShapeRecorder.h>
#include <host/session/ExampleSession.h>
#include <session/nets/NetHighlight.h>
#include <support/LiveObjects.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

namespace fighost {
namespace {

using dg::DPoint2D;
using test::Record;
using test::RecordedShape;

constexpr double HEIGHT = 210;  // of the sheet, millimetres

std::string LibrarySymbol(std::string const& type) {
    return "(symbol \"T:" + type + "\" (symbol \"" + type + "_1_1\" (pin " + type +
           " line (at 0 0 0) (length 2.54) (name \"~\") (number \"1\"))))\n";
}

std::string At(double x, double y) {
    return std::to_string(x) + " " + std::to_string(y);
}

std::string Part(std::string const& type, std::string const& reference, double x, double y) {
    return "(symbol (lib_id \"T:" + type + "\") (at " + At(x, y) + " 0) (uuid \"" + reference +
           "\") (property \"Reference\" \"" + reference + "\" (at " + At(x, y) + " 0)))\n";
}

std::string Wire(double x1, double y1, double x2, double y2) {
    return "(wire (pts (xy " + At(x1, y1) + ") (xy " + At(x2, y2) + ")) (uuid \"w" + At(x1, y1) +
           At(x2, y2) + "\"))\n";
}

std::string Local(std::string const& text, double x, double y) {
    return "(label \"" + text + "\" (at " + At(x, y) + " 0) (uuid \"" + text + At(x, y) + "\"))\n";
}

std::string Entry(double x, double y, double dx, double dy) {
    return "(bus_entry (at " + At(x, y) + ") (size " + At(dx, dy) + ") (uuid \"e" + At(x, y) +
           "\"))\n";
}

std::string File(std::string const& content) {
    return "(kicad_sch (version 20231120) (generator test) (uuid \"top\") (paper \"A4\")\n"
           "(lib_symbols " +
           LibrarySymbol("output") + LibrarySymbol("input") + LibrarySymbol("passive") + ")\n" +
           content + ")\n";
}

/// An output wired to three inputs, one of them between two others, by wires that branch.
std::string Branches(std::string const& source = "output") {
    return Part("input", "U2", 80, 20) + Wire(80, 20, 50, 20) + Wire(50, 20, 50, 40) +
           Part(source, "U1", 20, 40) + Wire(50, 40, 20, 40) + Part("input", "U3", 50, 80) +
           Wire(50, 40, 50, 60) + Wire(50, 60, 50, 80) + Part("input", "U4", 50, 60) +
           "(junction (at 50 40) (diameter 0) (uuid \"j\"))\n";
}

std::unique_ptr<Session> Open(std::string const& content, bool arrows) {
    MemoryFiles files;
    files.Add("top.kicad_sch", File(content));
    SessionOptions options;
    options.arrows = arrows;
    options.look.frame = false;
    Session::Opened opened = Session::Open(files, "top.kicad_sch", options);
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    return std::move(opened.session);
}

struct Arrow {
    DPoint2D tip;
    DPoint2D base;

    bool operator<(Arrow const& other) const {
        return std::pair(tip.x, tip.y) < std::pair(other.tip.x, other.tip.y);
    }
};

bool IsOfWire(RecordedShape const& shape) {
    return shape.item.rfind("NetSegment", 0) == 0;
}

bool IsArrow(RecordedShape const& shape) {
    return IsOfWire(shape) && shape.geometry.rfind("area", 0) == 0;
}

Arrow ArrowOf(RecordedShape const& shape) {
    std::istringstream text(shape.geometry.substr(4));
    std::vector<double> numbers(6);
    for (double& number : numbers)
        text >> number;
    return {{numbers[0], HEIGHT - numbers[1]},
            {(numbers[2] + numbers[4]) / 2, HEIGHT - (numbers[3] + numbers[5]) / 2}};
}

/// In the coordinates of the file, by their tips.
std::vector<Arrow> ArrowsOf(Session const& session) {
    std::vector<Arrow> arrows;
    for (RecordedShape const& shape : Record(session.GetSheets().front().figure).shapes) {
        if (IsArrow(shape)) arrows.push_back(ArrowOf(shape));
    }
    std::sort(arrows.begin(), arrows.end());
    return arrows;
}

/// An arrow as "to 80,20 heading 1,0"; y grows downward.
std::string Describe(Arrow const& arrow) {
    dg::DVec2 const heading = (arrow.tip - arrow.base).Normalise();
    std::ostringstream text;
    text << "to " << arrow.tip.x << "," << arrow.tip.y << " heading " << std::lround(heading.x)
         << "," << std::lround(heading.y);
    return text.str();
}

std::vector<std::string> Described(Session const& session) {
    std::vector<std::string> lines;
    for (Arrow const& arrow : ArrowsOf(session))
        lines.push_back(Describe(arrow));
    return lines;
}

using Lines = std::vector<std::string>;

TEST(FlowArrows, PointFromTheOutputToTheLoadAtEachEnd) {
    auto const session = Open(Branches(), true);
    EXPECT_EQ(Described(*session), (Lines{"to 50,80 heading 0,1", "to 80,20 heading 1,0"}));
}

TEST(FlowArrows, PointTheOtherWayWhereTheOutputIsAtTheOtherEnd) {
    std::string const wire = Wire(10, 10, 30, 10);
    EXPECT_EQ(Described(*Open(wire + Part("output", "U1", 10, 10), true)),
              Lines{"to 30,10 heading 1,0"});
    EXPECT_EQ(Described(*Open(wire + Part("output", "U1", 30, 10), true)),
              Lines{"to 10,10 heading -1,0"});
}

TEST(FlowArrows, RunFromAnOutputInTheMiddleBothWays) {
    std::string const drawing = Wire(10, 10, 20, 10) + Wire(20, 10, 30, 10);
    EXPECT_EQ(Described(*Open(drawing + Part("output", "U1", 20, 10), true)),
              (Lines{"to 10,10 heading -1,0", "to 30,10 heading 1,0"}));
}

TEST(FlowArrows, NonePointsAsideWhereSeveralPinsMeetAtAnEnd) {
    std::string const drawing = Wire(10, 10, 10, 30) + Wire(10, 10, 40, 10) +
                                Part("output", "U1", 10, 10) + Part("input", "U4", 40, 10);
    EXPECT_EQ(Described(*Open(drawing + Part("input", "U2", 10, 30) + Part("passive", "R1", 10, 30),
                              true)),
              Lines{"to 40,10 heading 1,0"});
}

TEST(FlowArrows, NonePointsAtAPinThatAWirePasses) {
    std::string const drawing =
        Part("output", "U1", 10, 10) + Wire(10, 10, 20, 10) + Wire(20, 10, 20, 30) +
        Wire(20, 30, 40, 30) + Wire(40, 30, 60, 30) +
        "(junction (at 40 30) (diameter 0) (uuid \"j\"))\n"
        "(hierarchical_label \"OUT\" (shape output) (at 60 30 0) (uuid \"h\"))\n";
    for (std::string const reference : {"R1", "V9"}) {
        EXPECT_EQ(Described(*Open(drawing + Part("passive", reference, 40, 30), true)),
                  Lines{"to 60,30 heading 1,0"});
    }
}

TEST(FlowArrows, PointAtTheBusAndToTheLoadsBesideIt) {
    std::string const drawing =
        Part("output", "U1", 20, 40) + Wire(20, 40, 40, 40) + Wire(40, 40, 40, 60) +
        Part("input", "U2", 40, 60) + Wire(40, 40, 50, 40) + Local("B0", 45, 40) +
        "(junction (at 40 40) (diameter 0) (uuid \"j\"))\n" + Entry(50, 40, 5, -5) +
        "(bus (pts (xy 55 20) (xy 55 60)) (uuid \"b\"))\n" + Local("B[0..1]", 55, 60);
    EXPECT_EQ(Described(*Open(drawing, true)),
              (Lines{"to 40,60 heading 0,1", "to 55,35 heading 1,-1"}));
}

TEST(FlowArrows, StartAtAPortByWhichASignalComesIn) {
    std::string const drawing = "(global_label \"G\" (shape input) (at 20 40 0) (uuid \"g\"))\n" +
                                Wire(20, 40, 40, 40) + Wire(20, 40, 20, 60) +
                                Part("input", "U1", 40, 40) + Part("input", "U2", 20, 60);
    EXPECT_EQ(Described(*Open(drawing, true)),
              (Lines{"to 20,60 heading 0,1", "to 40,40 heading 1,0"}));
}

TEST(FlowArrows, ANetWithTwoOutputsOrNoneHasNoArrows) {
    EXPECT_EQ(Described(*Open(Branches() + Part("output", "U9", 80, 20), true)), Lines{});
    EXPECT_EQ(Described(*Open(Branches("passive"), true)), Lines{});
}

TEST(FlowArrows, WithoutTheOptionAPictureDoesNotTellOutputsFromOtherPins) {
    auto const session = Open(Branches(), false);
    EXPECT_EQ(Described(*session), Lines{});
    std::string const picture = test::Picture(session->GetSheets().front().figure);
    auto const other = Open(Branches("passive"), false);
    EXPECT_EQ(picture, test::Picture(other->GetSheets().front().figure));
}

std::unique_ptr<Session> OpenExample(bool arrows, Theme theme = Theme::LIGHT) {
    SessionOptions options;
    options.arrows = arrows;
    options.look.theme = theme;
    return Session::Open(test::EXAMPLE_FILE, options).session;
}

/// What is painted of all sheets but of wires, and how many of these are drawn as arcs.
std::pair<Lines, std::size_t> Rest(Session const& session) {
    Lines lines;
    std::size_t arcs = 0;
    for (SessionSheet const& sheet : session.GetSheets()) {
        for (RecordedShape const& shape : Record(sheet.figure).shapes) {
            bool const isArc = shape.geometry.rfind("arc", 0) == 0;
            if (!IsOfWire(shape)) lines.push_back(shape.item + shape.geometry);
            if (IsOfWire(shape) && isArc) ++arcs;
        }
    }
    std::sort(lines.begin(), lines.end());
    return {lines, arcs};
}

TEST(FlowArrows, LeaveAllButTheWiresAsItIs) {
    auto const [plainLines, plainArcs] = Rest(*OpenExample(false));
    auto const [lines, arcs] = Rest(*OpenExample(true));
    EXPECT_EQ(lines, plainLines);
    EXPECT_EQ(arcs, plainArcs);
    EXPECT_GT(arcs, 0u);
}

TEST(FlowArrows, HaveTheColourOfTheirWireInEveryTheme) {
    for (Theme const theme : {Theme::LIGHT, Theme::DARK, Theme::PRINT}) {
        auto const session = OpenExample(true, theme);
        std::map<std::string, dg::Color> inks;
        std::size_t arrows = 0;
        for (SessionSheet const& sheet : session->GetSheets()) {
            auto const shapes = Record(sheet.figure).shapes;
            for (RecordedShape const& shape : shapes) {
                bool const isLine = IsOfWire(shape) && shape.geometry.rfind("line", 0) == 0;
                if (isLine) inks[shape.net] = shape.inks.front();
            }
            for (RecordedShape const& shape : shapes) {
                if (!IsArrow(shape)) continue;
                ++arrows;
                ASSERT_EQ(shape.fills.size(), 1u);
                EXPECT_EQ(shape.fills.front(), inks.at(shape.net)) << shape.net;
                EXPECT_TRUE(shape.inks.empty());
            }
        }
        EXPECT_GT(arrows, 10u);
    }
}

TEST(FlowArrows, AreHighlightedWithTheirNet) {
    auto const session = Open(Branches(), true);
    ASSERT_TRUE(HighlightNet(*session, "Net-(U1-Pad1)", dg::Color::RED));
    std::size_t arrows = 0;
    for (RecordedShape const& shape : Record(session->GetSheets().front().figure).shapes) {
        if (!IsArrow(shape)) continue;
        ++arrows;
        EXPECT_EQ(shape.fills, std::vector<dg::Color>{dg::Color::RED});
    }
    EXPECT_EQ(arrows, 2u);
}

TEST(FlowArrows, AreNoChangeOfAFigureAndStayOverUpdates) {
    auto const session = Open(Branches(), true);
    auto const figure = session->GetSheets().front().figure;
    auto const plain = Open(Branches(), false);
    EXPECT_EQ(figure->HasChanged(), plain->GetSheets().front().figure->HasChanged());
    figure->ResetHasChanged();
    Lines const before = Described(*session);
    ShowFlow(figure);
    figure->UpdateContent();
    EXPECT_EQ(Described(*session), before);
    EXPECT_FALSE(figure->HasChanged());
}

TEST(FlowArrows, ANullFigureDoesNothing) {
    ShowFlow(nullptr);
}

TEST(FlowArrows, NothingIsLeftWhenTheSessionGoes) {
    Open(Branches(), true);
    EXPECT_EQ(figrep::test::ObjectsLeftBy([] { Open(Branches(), true); }), 0);
}

}  // namespace
}  // namespace fighost
