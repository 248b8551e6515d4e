#include <painters/SvgPainter.h>

#include <gtest/gtest.h>
#include <host/XmlChecker.h>
#include <cmath>
#include <limits>
#include <numbers>

namespace fighost {
namespace {

using test::CheckXml;
using test::XmlDocument;
using test::XmlElement;

Paint Line(double width = 0.2) {
    Paint paint;
    paint.stroke.width = width;
    return paint;
}

PaintedSheet Sheet() {
    PaintedSheet sheet;
    sheet.box = {0, -210, 297, 0};
    sheet.background = dg::Color::WHITE;
    return sheet;
}

PaintedText Text(std::wstring_view words, dg::DPoint2D const& anchor, double angle = 0) {
    PaintedText text;
    text.anchor = anchor;
    text.angle = angle;
    text.style.height = 1.27;
    text.layout =
        LayOutText(words, true, HorizontalAlignment::LEFT, VerticalAlignment::BOTTOM, text.style);
    return text;
}

template <typename Draw>
std::string Paint1(Draw draw) {
    SvgPainter painter;
    painter.BeginSheet(Sheet());
    draw(painter);
    painter.EndSheet();
    return painter.TakeDocument();
}

template <typename Draw>
XmlDocument Painted(Draw draw) {
    XmlDocument document = CheckXml(Paint1(draw));
    EXPECT_EQ(document.mistake, "");
    return document;
}

TEST(SvgPainter, SheetIsMeasuredInMillimetres) {
    XmlDocument const document = Painted([](SvgPainter&) {});
    ASSERT_FALSE(document.elements.empty());
    XmlElement const& root = document.elements[0];
    EXPECT_EQ(root.attributes.at("width"), "297mm");
    EXPECT_EQ(root.attributes.at("height"), "210mm");
    EXPECT_EQ(root.attributes.at("viewBox"), "0 0 297 210");
}

TEST(SvgPainter, YIsFlippedOnceAndTheBoxBecomesTheOrigin) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Polyline({{10, -20}, {30, -20}}, false, Line());
    });
    EXPECT_EQ(document.Named("path").at(0).attributes.at("d"), "M10 20L30 20");
}

TEST(SvgPainter, ClosedPolylineEndsWhereItBegan) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Polyline({{0, 0}, {1, 0}, {1, -1}}, true, Line());
    });
    EXPECT_EQ(document.Named("path").at(0).attributes.at("d"), "M0 0L1 0L1 1Z");
}

TEST(SvgPainter, CounterClockwiseArcBulgesUpward) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Arc({10, -10}, 2, 0, std::numbers::pi, Line());
    });
    EXPECT_EQ(document.Named("path").at(0).attributes.at("d"), "M12 10A2 2 0 0 0 8 10");
}

TEST(SvgPainter, MoreThanHalfATurnIsALargeArc) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Arc({0, 0}, 1, 0, 1.5 * std::numbers::pi, Line());
    });
    EXPECT_NE(document.Named("path").at(0).attributes.at("d").find(" 0 1 0 "), std::string::npos);
}

TEST(SvgPainter, FullTurnIsACircle) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Arc({5, -5}, 1, 0, 2 * std::numbers::pi, Line());
    });
    EXPECT_EQ(document.Named("circle").at(0).attributes.at("r"), "1");
}

TEST(SvgPainter, NumbersAreShortAndZeroHasNoSign) {
    std::string text;
    for (double number : {0.1 + 0.2, -0.00001, 1e-4, 25.4, -3.0, 1e20}) {
        XmlWriter::AppendNumber(text, number);
        text += ' ';
    }
    EXPECT_EQ(text, "0.3 0 0.0001 25.4 -3 100000000000000000000 ");
}

TEST(SvgPainter, NumbersThatAreNotFiniteAreLeftOut) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    XmlDocument const document = Painted([&](SvgPainter& p) {
        p.Polyline({{nan, 0}, {1, 1}}, false, Line());
        p.Arc({0, 0}, std::numeric_limits<double>::infinity(), 0, 1, Line());
        p.Text(Text(L"x", {0, nan}));
    });
    EXPECT_EQ(document.Named("path").size(), 0u);
    EXPECT_EQ(document.Named("text").size(), 0u);
}

TEST(SvgPainter, ItemsCarryTheirIdTypeAndNet) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.BeginItem({"/a/b 1", "NetSegment", "n", "/SDA", "", false});
        p.EndItem();
    });
    XmlElement const group = document.Named("g").at(0);
    EXPECT_EQ(group.attributes.at("id"), "item-_a_b_1");
    EXPECT_EQ(group.attributes.at("data-item"), "/a/b 1");
    EXPECT_EQ(group.attributes.at("data-type"), "NetSegment");
    EXPECT_EQ(group.attributes.at("data-net"), "/SDA");
}

TEST(SvgPainter, ItemsThatShareAnIdGetIdsOfTheirOwn) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        for (char const* id : {"a/b", "a_b", "a/b", "", ""}) {
            p.BeginItem({id, "T", "", "", "", false});
            p.EndItem();
        }
    });
    EXPECT_TRUE(document.HasUniqueIds());
}

TEST(SvgPainter, TextStaysText) {
    XmlDocument const document = Painted([](SvgPainter& p) { p.Text(Text(L"10 kΩ", {1, -2})); });
    XmlElement const text = document.Named("text").at(0);
    EXPECT_EQ(text.text, "10 k\xCE\xA9");
    EXPECT_EQ(text.attributes.at("x"), "1");
    EXPECT_EQ(text.attributes.at("y"), "2");
}

TEST(SvgPainter, MarkupBecomesSpansInOneTextAndALineAbove) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Text(Text(L"~{RST}_{n}", {0, 0}));
    });
    ASSERT_EQ(document.Named("text").size(), 1u);
    EXPECT_EQ(document.Named("text")[0].text, "RSTn");
    EXPECT_EQ(document.Named("tspan").size(), 2u);
    EXPECT_EQ(document.Named("path").at(0).attributes.at("class"), "overbar");
}

TEST(SvgPainter, TurnedTextIsTurnedTheOtherWayWithYDown) {
    XmlDocument const document = Painted([](SvgPainter& p) {
        p.Text(Text(L"a", {3, -4}, std::numbers::pi / 2));
    });
    EXPECT_EQ(document.Named("g").at(0).attributes.at("transform"), "translate(3 4) rotate(-90)");
}

TEST(SvgPainter, HostileNamesAndTextsLeaveTheDocumentWellFormed) {
    std::string const nasty = "<&>\"'\x01\x1B\xFF\xC0\x80 ]]> \xEF\xBF\xBF\n";
    XmlDocument const document = Painted([&](SvgPainter& p) {
        p.BeginItem({nasty, nasty, nasty, nasty, "", true});
        p.Text(Text(L"<&>\"'\x01]]>\x1B", {0, 0}));
        p.EndItem();
    });
    EXPECT_EQ(document.Named("text").at(0).text, "<&>\"']]>");
}

TEST(SvgPainter, SpacesThatCountAreKept) {
    XmlDocument const document = Painted([](SvgPainter& p) { p.Text(Text(L"a  b", {0, 0})); });
    EXPECT_EQ(document.Named("text").at(0).attributes.at("xml:space"), "preserve");
}

TEST(SvgPainter, FillAndOpacityAreWritten) {
    Paint paint = Line();
    paint.fill = {true, dg::Color(1, 0, 0, 0.5F)};
    XmlDocument const document = Painted([&](SvgPainter& p) {
        p.Polyline({{0, 0}, {1, 0}, {1, 1}}, true, paint);
    });
    XmlElement const path = document.Named("path").at(0);
    EXPECT_EQ(path.attributes.at("fill"), "#ff0000");
    EXPECT_EQ(path.attributes.at("fill-opacity"), "0.5");
}

TEST(SvgPainter, DashesAreWritten) {
    Paint paint = Line();
    paint.stroke.dashes = {1.5, 0.5};
    XmlDocument const document = Painted([&](SvgPainter& p) {
        p.Polyline({{0, 0}, {1, 0}}, false, paint);
    });
    EXPECT_EQ(document.Named("path").at(0).attributes.at("stroke-dasharray"), "1.5 0.5");
}

TEST(SvgPainter, PictureIsEmbeddedUpright) {
    dg::DMat33 matrix = dg::DMat33::Scale(10, 20);
    matrix.SetTranslation({1, -50});
    XmlDocument const document = Painted([&](SvgPainter& p) {
        p.Picture({matrix, "image/png", "\x89PNG"});
    });
    XmlElement const image = document.Named("image").at(0);
    EXPECT_EQ(image.attributes.at("href"), "data:image/png;base64,iVBORw==");
    EXPECT_EQ(image.attributes.at("transform"), "matrix(10 0 0 20 1 30)");
}

TEST(SvgPainter, TransparentSheetHasNoBackground) {
    SvgPainter painter;
    PaintedSheet sheet = Sheet();
    sheet.paintBackground = false;
    painter.BeginSheet(sheet);
    painter.EndSheet();
    EXPECT_TRUE(CheckXml(painter.TakeDocument()).Named("rect").empty());
}

TEST(SvgPainter, TheSameCallsGiveTheSameBytes) {
    auto draw = [](SvgPainter& p) {
        p.BeginItem({"a", "T", "", "", "", false});
        p.Text(Text(L"~{A}B", {1, 2}));
        p.EndItem();
    };
    EXPECT_EQ(Paint1(draw), Paint1(draw));
}

TEST(SvgPainter, EmptyBoxStillGivesADocument) {
    SvgPainter painter;
    painter.BeginSheet({});
    painter.EndSheet();
    EXPECT_EQ(CheckXml(painter.TakeDocument()).mistake, "");
}

TEST(XmlChecker, FindsMistakes) {
    EXPECT_NE(CheckXml("<a><b></a>").mistake, "");
    EXPECT_NE(CheckXml("<a x=\"1\" x=\"2\"/>").mistake, "");
    EXPECT_NE(CheckXml("<a>&nbsp;</a>").mistake, "");
    EXPECT_NE(CheckXml("<a>\x01</a>").mistake, "");
    EXPECT_NE(CheckXml("<a>").mistake, "");
    EXPECT_NE(CheckXml("<a/><b/>").mistake, "");
    EXPECT_EQ(CheckXml("<a><b/>x &amp; y</a>").mistake, "");
}

}  // namespace
}  // namespace fighost
