#include <gtest/gtest.h>

#include <cmath>

#include <figk/Setting.h>
#include <figk/SettingValue.h>
#include <readers/kicad/pictures/Looks.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Picture.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

#include "SheetText.h"

namespace {

using namespace sheettext;
using figkernel::GroupSource;
using figkernel::SheetSource;
using figkernel::TextSource;

constexpr double A4_HEIGHT = 210;

SheetSource const& OnlySheet(fighost::kicad::ReadResult const& result) {
    return result.design.sheets.at(0);
}

zv2d::Text const& TextOf(TextSource const& source) {
    auto const& entities = source.instance->GetDefinition()->GetEntities();
    return dynamic_cast<zv2d::Text const&>(*entities.at(0));
}

double DegreesOf(TextSource const& source) {
    auto const& m = source.instance->GetMatrix();
    return std::round(std::atan2(m(1, 0), m(0, 0)) * 180 / 3.14159265358979);
}

dg::Color ColorIn(figkernel::DesignSource const& design, figkernel::SourceIndex settings) {
    for (auto const& setting : design.settingSets.at(settings)) {
        if (setting.key != figk::Setting::KEY_COLOR) continue;
        return dynamic_cast<figk::SettingValue<dg::Color> const&>(*setting.value).value;
    }
    ADD_FAILURE() << "no colour";
    return {};
}

TextSource const* FindText(GroupSource const& group, std::string const& text) {
    for (auto const& source : group.texts) {
        if (source.text == text) return &source;
    }
    return nullptr;
}

/// A symbol with a field "Note" of that text, angle and justification.
std::string WithNote(int angle, std::string const& mirror, int fieldAngle,
                     std::string const& justify) {
    return Symbol("T:two", "U1", "V", 100, 100, angle,
                  mirror + " (property \"Note\" \"note\" (at 90 95 " + std::to_string(fieldAngle) +
                      ") (effects (font (size 2 2)) (justify " + justify + ")))");
}

struct Seen {
    double degrees;
    int alignment;
};

Seen NoteOf(std::string const& file) {
    auto const result = Read(File(file));
    TextSource const* note = FindText(OnlySheet(result).blocks[0].labels, "note");
    EXPECT_NE(note, nullptr);
    if (!note) return {-1, -1};
    EXPECT_NEAR(note->instance->GetMatrix().GetTranslation().x, 90, 1e-9);
    EXPECT_NEAR(note->instance->GetMatrix().GetTranslation().y, A4_HEIGHT - 95, 1e-9);
    EXPECT_FLOAT_EQ(TextOf(*note).GetTextAttr().GetHeight(), 2);
    return {DegreesOf(*note), TextOf(*note).GetAlignment()};
}

using Text = zv2d::Text;

TEST(Fields, StandWhereTheFileSaysOnAnUnturnedSymbol) {
    Seen const seen = NoteOf(WithNote(0, "", 0, "left bottom"));
    EXPECT_EQ(seen.degrees, 0);
    EXPECT_EQ(seen.alignment, Text::BOTTOM_LEFT);
    EXPECT_EQ(NoteOf(WithNote(0, "", 90, "right top")).degrees, 90);
    EXPECT_EQ(NoteOf(WithNote(0, "", 90, "right top")).alignment, Text::TOP_RIGHT);
}

TEST(Fields, TurnWithTheirSymbolAndStayReadable) {
    EXPECT_EQ(NoteOf(WithNote(90, "", 0, "left bottom")).degrees, 90);
    EXPECT_EQ(NoteOf(WithNote(90, "", 0, "left bottom")).alignment, Text::BOTTOM_LEFT);
    EXPECT_EQ(NoteOf(WithNote(90, "", 90, "left")).degrees, 0);
    EXPECT_EQ(NoteOf(WithNote(90, "", 90, "left")).alignment, Text::MIDDLE_RIGHT);
    EXPECT_EQ(NoteOf(WithNote(180, "", 0, "left bottom")).degrees, 0);
    EXPECT_EQ(NoteOf(WithNote(180, "", 0, "left bottom")).alignment, Text::TOP_RIGHT);
}

TEST(Fields, KeepToTheirSideOfAMirroredSymbol) {
    EXPECT_EQ(NoteOf(WithNote(0, "(mirror y)", 0, "left bottom")).alignment, Text::BOTTOM_RIGHT);
    EXPECT_EQ(NoteOf(WithNote(0, "(mirror x)", 0, "left bottom")).alignment, Text::TOP_LEFT);
}

TEST(Fields, AreHiddenInEveryDialect) {
    for (char const* hidden :
         {"(effects (font (size 1 1)) hide)", "(effects (font (size 1 1)) (hide yes))",
          "(hide yes) (effects (font (size 1 1)))"}) {
        auto const result = Read(
            File(Symbol("T:two", "U1", "V", 0, 0, 0,
                        "(property \"Note\" \"note\" (at 0 0 0) " + std::string(hidden) + ")")));
        auto const& block = OnlySheet(result).blocks[0];
        EXPECT_EQ(FindText(block.labels, "note"), nullptr) << hidden;
        EXPECT_NE(FindText(block.labels, "U1"), nullptr);
        EXPECT_EQ(block.attributes[0].name, "Note");
        EXPECT_EQ(block.attributes[0].value, "note");
    }
}

TEST(Fields, ShowTheirNameWhenTheyShould) {
    auto const result = Read(File(Symbol("T:two", "U1", "V", 0, 0, 0,
                                         "(property \"Tol\" \"1%\" (at 0 0 0) (show_name yes))")));
    EXPECT_NE(FindText(OnlySheet(result).blocks[0].labels, "Tol: 1%"), nullptr);
}

TEST(Fields, AReferenceOfAManyUnitPartNamesTheUnit) {
    auto const result = Read(File(Symbol("T:units", "U1", "V", 0, 0, 0, "(unit 2)")));
    auto const& block = OnlySheet(result).blocks[0];
    EXPECT_EQ(block.name, "U1");
    EXPECT_NE(FindText(block.labels, "U1B"), nullptr);
}

std::string WithLibrary(std::string const& library, std::string const& content) {
    std::string text = File(content);
    text.insert(text.find("(lib_symbols ") + 13, library);
    return text;
}

/// A symbol with one pin of length 5 that runs right from the origin to its body.
std::string PinSymbol(std::string const& words, std::string const& shape = "line",
                      std::string const& pinWords = "") {
    return "(symbol \"T:p\" " + words +
           " (symbol \"p_1_1\" (rectangle (start 5 2) (end 9 -2) "
           "(stroke (width 0.254) (type default)) (fill (type background)))"
           " (pin input " +
           shape + " (at 0 0 0) (length 5) " + pinWords +
           " (name \"~{CS}\" (effects (font (size 1 1)))) (number \"7\" (effects (font (size 1 "
           "1)))))))";
}

dg::DPoint2D PlaceOf(TextSource const* text) {
    EXPECT_NE(text, nullptr);
    return text ? text->instance->GetMatrix().GetTranslation() : dg::DPoint2D();
}

TEST(Pins, NamesStandInsideAndNumbersAbove) {
    auto const result = Read(
        WithLibrary(PinSymbol("(pin_names (offset 0.5))"), Symbol("T:p", "U1", "V", 100, 100)));
    auto const& pin = OnlySheet(result).blocks[0].pins[0];
    EXPECT_EQ(pin.name, "7");
    EXPECT_NEAR(PlaceOf(FindText(pin.labels, "CS")).x, 105.5, 1e-9);
    EXPECT_NEAR(PlaceOf(FindText(pin.labels, "CS")).y, 110, 1e-9);
    EXPECT_EQ(TextOf(*FindText(pin.labels, "CS")).GetAlignment(), Text::MIDDLE_LEFT);
    EXPECT_TRUE(TextOf(*FindText(pin.labels, "CS")).HasMarkup());
    EXPECT_EQ(TextOf(*FindText(pin.labels, "CS")).GetText(), L"~{CS}");
    EXPECT_NEAR(PlaceOf(FindText(pin.labels, "7")).x, 102.5, 1e-9);
    EXPECT_GT(PlaceOf(FindText(pin.labels, "7")).y, 110);
}

TEST(Pins, WithoutOffsetNamesStandAboveAndNumbersBelow) {
    auto const result =
        Read(WithLibrary(PinSymbol("(pin_names (offset 0))"), Symbol("T:p", "U1", "V", 100, 100)));
    auto const& pin = OnlySheet(result).blocks[0].pins[0];
    EXPECT_GT(PlaceOf(FindText(pin.labels, "CS")).y, 110);
    EXPECT_LT(PlaceOf(FindText(pin.labels, "7")).y, 110);
    EXPECT_EQ(TextOf(*FindText(pin.labels, "7")).GetAlignment(), Text::TOP_CENTRE);
}

TEST(Pins, NamesOfMirroredSymbolsReadFromLeftToRight) {
    auto const result = Read(WithLibrary(PinSymbol("(pin_names (offset 0.5))"),
                                         Symbol("T:p", "U1", "V", 100, 100, 0, "(mirror y)")));
    auto const& pin = OnlySheet(result).blocks[0].pins[0];
    EXPECT_NEAR(PlaceOf(FindText(pin.labels, "CS")).x, 94.5, 1e-9);
    EXPECT_EQ(TextOf(*FindText(pin.labels, "CS")).GetAlignment(), Text::MIDDLE_RIGHT);
    EXPECT_EQ(DegreesOf(*FindText(pin.labels, "CS")), 0);
}

TEST(Pins, HideNamesAndNumbersInEveryDialect) {
    for (char const* words : {"(pin_names (offset 1) hide) (pin_numbers hide)",
                              "(pin_names (offset 1) (hide yes)) (pin_numbers (hide yes))"}) {
        auto const result = Read(WithLibrary(PinSymbol(words), Symbol("T:p", "U1", "V", 100, 100)));
        EXPECT_TRUE(OnlySheet(result).blocks[0].pins[0].labels.IsEmpty()) << words;
    }
}

TEST(Pins, HiddenOnesAreNotDrawn) {
    for (char const* words : {"hide", "(hide yes)"}) {
        auto const result =
            Read(WithLibrary(PinSymbol("", "line", words), Symbol("T:p", "U1", "V", 100, 100)));
        auto const& pin = OnlySheet(result).blocks[0].pins[0];
        EXPECT_TRUE(pin.hidden);
        EXPECT_TRUE(pin.graphics.IsEmpty());
        EXPECT_TRUE(pin.labels.IsEmpty());
    }
}

TEST(Pins, InvertedOnesHaveACircle) {
    auto const result =
        Read(WithLibrary(PinSymbol("", "inverted"), Symbol("T:p", "U1", "V", 100, 100)));
    auto const& pin = OnlySheet(result).blocks[0].pins[0];
    auto const& definition = *pin.graphics.graphics[0].instances[0]->GetDefinition();
    bool circle = false;
    for (auto const& entity : definition) {
        circle = circle || dynamic_cast<zv2d::CircularArc const*>(entity.Get());
    }
    EXPECT_TRUE(circle);
    EXPECT_NEAR(definition.GetExtents()[2], 5, 1e-9);
}

TEST(Bodies, AreShapesUnderTheMatrixOfTheSymbol) {
    auto const result = Read(WithLibrary(
        PinSymbol(""), Symbol("T:p", "U1", "V", 100, 100, 90) + Symbol("T:p", "U2", "V", 50, 50)));
    auto const& blocks = OnlySheet(result).blocks;
    auto const& first = *blocks[0].graphics.graphics.at(0).instances.at(0);
    auto const& second = *blocks[1].graphics.graphics.at(0).instances.at(0);
    EXPECT_EQ(first.GetDefinition().Get(), second.GetDefinition().Get());
    EXPECT_NEAR(first.GetExtents()[0], 98, 1e-9);
    EXPECT_NEAR(first.GetExtents()[1], 115, 1e-9);
    EXPECT_NEAR(second.GetExtents()[0], 55, 1e-9);
    auto const& shape = *first.GetDefinition()->GetEntities()[0];
    EXPECT_TRUE(shape.IsFilled());
    EXPECT_EQ(shape.GetAttributes()->GetFillAttr()->GetKind(), attrs::FillAttr::BODY);
    EXPECT_FLOAT_EQ(shape.GetAttributes()->GetLineAttributes()->GetWeight(), 0.254F);
}

TEST(Bodies, PartsThatAreNotFittedAreCrossedOut) {
    auto const plain = Read(WithLibrary(PinSymbol(""), Symbol("T:p", "U1", "V", 0, 0)));
    auto const crossed =
        Read(WithLibrary(PinSymbol(""), Symbol("T:p", "U1", "V", 0, 0, 0, "(dnp yes)")));
    EXPECT_TRUE(OnlySheet(plain).blocks[0].labels.graphics.empty());
    ASSERT_EQ(OnlySheet(crossed).blocks[0].labels.graphics.size(), 1u);
    EXPECT_EQ(OnlySheet(crossed).blocks[0].attributes.back().name, "DNP");
}

TEST(Wires, AreInMillimetresWithYUpward) {
    auto const result = Read(File(Wire(10, 20, 30, 20.5)));
    auto const& wire = OnlySheet(result).wires[0];
    EXPECT_EQ(wire.from.x, 10);
    EXPECT_EQ(wire.from.y, A4_HEIGHT - 20);
    EXPECT_EQ(wire.to.y, A4_HEIGHT - 20.5);
}

TEST(Wires, HaveTheColourOfTheirKindUnlessTheFileGivesOne) {
    using fighost::Role;
    using fighost::kicad::ColorOf;
    auto const result = Read(
        File(Wire(0, 0, 1, 0) + Bus(0, 5, 1, 5) +
             "(wire (pts (xy 0 9) (xy 1 9)) (stroke (width 0.5) (type dash) (color 255 0 0 1)))"));
    auto const& sheet = OnlySheet(result);
    EXPECT_EQ(ColorIn(result.design, sheet.wires[0].settings), ColorOf(Role::WIRE));
    EXPECT_EQ(ColorIn(result.design, sheet.buses[0].settings), ColorOf(Role::BUS));
    EXPECT_EQ(ColorIn(result.design, sheet.wires[1].settings), (dg::Color{1, 0, 0, 1}));
    EXPECT_NE(sheet.wires[0].settings, sheet.wires[1].settings);
}

TEST(Looks, TellTheRoleAndWhetherTheFileChoseTheColour) {
    using fighost::Role;
    figkernel::DesignSource design;
    fighost::kicad::Looks looks(design);
    dg::Color const wire = fighost::kicad::ColorOf(Role::WIRE);
    auto const plain = looks.Colored(Role::WIRE);
    auto const chosen = looks.Colored(Role::WIRE, wire);
    auto const pin = looks.Colored(Role::PIN, wire);
    EXPECT_EQ(plain, looks.Colored(Role::WIRE)) << "equal looks are shared";
    EXPECT_NE(plain, chosen) << "the same colour, but chosen";
    EXPECT_NE(chosen, pin) << "the same colour in another role";
    auto const levelOf = [&](figkernel::SourceIndex set, int key) {
        for (auto const& setting : design.settingSets.at(set)) {
            if (setting.key == key) return setting.level;
        }
        return -1;
    };
    EXPECT_EQ(levelOf(plain, figk::Setting::KEY_COLOR), figk::Setting::LEVEL_DEFAULT);
    EXPECT_EQ(levelOf(chosen, figk::Setting::KEY_COLOR), figk::Setting::LEVEL_BASE);
    for (auto const& setting : design.settingSets.at(pin)) {
        if (setting.key != fighost::KEY_ROLE) continue;
        EXPECT_EQ(dynamic_cast<figk::SettingValue<float> const&>(*setting.value).value,
                  static_cast<float>(Role::PIN));
    }
    EXPECT_EQ(levelOf(pin, fighost::KEY_ROLE), figk::Setting::LEVEL_DEFAULT);
}

TEST(Labels, LocalOnesAreTextsAtTheirWire) {
    auto const result = Read(File(Wire(0, 0, 20, 0) + Local("~{RST}", 10, 0)));
    auto const& sheet = OnlySheet(result);
    ASSERT_EQ(sheet.decorations.size(), 1u);
    EXPECT_EQ(sheet.decorations[0].net, sheet.wires[0].net);
    EXPECT_EQ(sheet.decorations[0].anchor.x, 10);
    ASSERT_EQ(sheet.decorations[0].graphics.texts.size(), 1u);
    EXPECT_EQ(sheet.decorations[0].graphics.texts[0].text, "RST");
    EXPECT_GT(PlaceOf(&sheet.decorations[0].graphics.texts[0]).y, A4_HEIGHT);
}

TEST(Labels, BusLabelsBelongToTheirHighway) {
    auto const result = Read(File(Bus(0, 0, 20, 0) + Local("D[0..3]", 10, 0)));
    auto const& decoration = OnlySheet(result).decorations.at(0);
    EXPECT_EQ(decoration.net, figkernel::NO_INDEX);
    EXPECT_EQ(decoration.highway, OnlySheet(result).buses[0].highway);
}

TEST(Ports, AGlobalLabelIsOnePortOnAllSheets) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File(Global("G", 0, 0) + Sheet("s", "s"))},
        {"s", File(Global("G", 0, 0), 20231120, "s")}});
    ASSERT_EQ(result.design.ports.size(), 1u);
    EXPECT_EQ(result.design.ports[0].name, "G");
    EXPECT_EQ(result.design.nets[result.design.ports[0].net].name, "G");
    for (auto const& sheet : result.design.sheets) {
        ASSERT_EQ(sheet.portNodes.size(), 1u);
        EXPECT_EQ(sheet.portNodes[0].port, 0u);
        EXPECT_FALSE(sheet.portNodes[0].graphics.graphics.empty());
    }
}

TEST(Ports, ASheetPinAndTheLabelInsideAreOnePort) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch",
         File(Sheet("s", "s", SheetPin("IO", 100, 110) + SheetPin("D[0..3]", 100, 115)))},
        {"s", File(Hierarchical("IO", 0, 0) + Hierarchical("D[0..3]", 0, 10), 20231120, "s")}});
    ASSERT_EQ(result.design.ports.size(), 2u);
    EXPECT_NE(result.design.ports[0].net, figkernel::NO_INDEX);
    EXPECT_NE(result.design.ports[1].highway, figkernel::NO_INDEX);
    for (auto const& sheet : result.design.sheets) {
        ASSERT_EQ(sheet.portNodes.size(), 2u);
        EXPECT_EQ(sheet.portNodes[0].port, 0u);
        EXPECT_EQ(sheet.portNodes[1].port, 1u);
    }
}

TEST(Marks, JunctionDotsAndNoConnectsBelongToTheirNet) {
    auto const result = Read(File(Wire(0, 0, 20, 0) + Wire(10, -5, 10, 5) + Junction(10, 0) +
                                  Pin("A", 0, 50) + NoConnect(0, 50)));
    auto const& sheet = OnlySheet(result);
    ASSERT_EQ(sheet.decorations.size(), 2u);
    EXPECT_EQ(sheet.decorations[0].net, sheet.wires[0].net);
    ASSERT_EQ(sheet.joins.size(), 1u);
    EXPECT_EQ(sheet.joins[0].net, sheet.wires[0].net);
    EXPECT_EQ(sheet.decorations[1].net, sheet.blocks[0].pins[0].net);
}

TEST(Drawings, ShapesAndTextsAreOnTheSheet) {
    auto const result = Read(File(
        "(text \"a\\nb\" (at 10 20 0) (effects (font (size 2 2) bold) (justify left bottom)))"
        "(text \"${SHEETPATH}\" (at 10 20 270) (effects (font (size 2 2))))"
        "(polyline (pts (xy 0 0) (xy 5 5)) (stroke (width 0) (type dash)))"
        "(rectangle (start 0 0) (end 5 5) (stroke (width 0) (type default)) (fill (type none)))"
        "(circle (center 5 5) (radius 2) (stroke (width 0) (type default)) (fill (type none)))"
        "(arc (start 0 0) (mid 1 1) (end 2 0) (stroke (width 0) (type default)) (fill (type none)))"
        "(bezier (pts (xy 0 0) (xy 1 1) (xy 2 2) (xy 3 0)))"
        "(text_box \"words that are broken\" (at 0 0 0) (size 12 20) (margins 1 1 1 1)"
        " (stroke (width 0) (type default)) (fill (type none)) (effects (font (size 1.27 1.27)) "
        "(justify left top)))"
        "(rule_area (polyline (pts (xy 0 0) (xy 5 0) (xy 5 5)) (stroke (width 0) (type dash))))"));
    auto const& labels = OnlySheet(result).labels;
    EXPECT_EQ(labels.graphics.size(), 7u);
    ASSERT_EQ(labels.texts.size(), 3u);
    EXPECT_EQ(labels.texts[0].text, "a\nb");
    EXPECT_TRUE(TextOf(labels.texts[0]).GetTextAttr().IsBold());
    EXPECT_EQ(labels.texts[1].text, "/");
    EXPECT_EQ(DegreesOf(labels.texts[1]), 90);
    EXPECT_NE(labels.texts[2].text.find('\n'), std::string::npos);
    EXPECT_EQ(result.findings.GetWarningCount(), 0u);
}

TEST(Drawings, AnArcKeepsItsSide) {
    auto const result = Read(File("(arc (start 10 10) (mid 15 5) (end 20 10))"));
    auto const extents = OnlySheet(result).labels.graphics.at(0).instances[0]->GetExtents();
    EXPECT_NEAR(extents[0], 10, 1e-6);
    EXPECT_NEAR(extents[1], A4_HEIGHT - 10, 1e-6);
    EXPECT_NEAR(extents[3], A4_HEIGHT - 5, 1e-6);
}

TEST(Drawings, ImagesKnowTheirKindAndSize) {
    // A PNG header of 300 by 150 dots, which are 25.4 by 12.7 mm.
    auto const result = Read(File(
        "(image (at 50 50) (scale 2) (data \"iVBORw0KGgoAAAANSUhEUgAAASwAAACW\" \"CAIAAAA=\"))"));
    auto const& graphic = OnlySheet(result).labels.graphics.at(0);
    auto const& entity = *graphic.instances[0]->GetDefinition()->GetEntities()[0];
    auto const& picture = dynamic_cast<zv2d::Picture const&>(entity);
    EXPECT_EQ(picture.GetMimeType(), "image/png");
    EXPECT_NEAR(picture.GetBox().Size().x, 50.8, 1e-9);
    EXPECT_NEAR(picture.GetBox().Size().y, 25.4, 1e-9);
    ASSERT_TRUE(picture.GetBytes());
    EXPECT_EQ(picture.GetBytes()->substr(1, 3), "PNG");
}

// A PNG header of 300 by 150 dots with a resolution of 150 dots per inch.
constexpr char const* COARSE_IMAGE =
    "(image (at 50 50) (data \"iVBORw0KGgoAAAANSUhEUgAAASwAAACWCAIAAADrOSKF\" "
    "\"AAAACXBIWXMAABcSAAAXEgFnn9JS\"))";

double WidthOfCoarseImage(int version) {
    auto const result = Read(File(COARSE_IMAGE, version));
    return OnlySheet(result).labels.graphics.at(0).instances[0]->GetExtents().Size().x;
}

TEST(Drawings, ImagesOfOldFilesHave300DotsPerInchWhateverTheySay) {
    EXPECT_NEAR(WidthOfCoarseImage(20211123), 25.4, 1e-3);
    EXPECT_NEAR(WidthOfCoarseImage(20230121), 25.4, 1e-3);
    EXPECT_NEAR(WidthOfCoarseImage(20231120), 50.8, 1e-2);
}

TEST(Drawings, AnUnknownImageIsAFrameAndAWarning) {
    auto const result = Read(File("(image (at 50 50) (data \"AAAA\"))"));
    EXPECT_EQ(Warnings(result, "unknown-image"), 1u);
    EXPECT_EQ(OnlySheet(result).labels.graphics.size(), 1u);
}

TEST(Frames, FollowThePaper) {
    struct Case {
        char const* paper;
        double width, height;
    };
    for (Case const& c :
         {Case{"(paper \"A3\")", 420, 297}, Case{"(paper \"A4\" portrait)", 210, 297},
          Case{"(paper \"User\" 100 50)", 100, 50}}) {
        auto const result = Read(File(c.paper));
        EXPECT_EQ(OnlySheet(result).format->width, c.width) << c.paper;
        EXPECT_EQ(OnlySheet(result).format->height, c.height) << c.paper;
        EXPECT_GT(OnlySheet(result).format->columns, 0u);
    }
}

TEST(Frames, ATinySheetHasNone) {
    auto const result = Read(File("(paper \"User\" 40 40)"));
    EXPECT_TRUE(OnlySheet(result).format->graphics.IsEmpty());
    EXPECT_FALSE(OnlySheet(result).titleBlock);
}

TEST(Frames, TheTitleBlockTakesVariablesOfTheProject) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File("(title_block (title \"${TITLE}\") (rev \"2\"))")},
        {"root.kicad_pro", R"({"text_variables": {"TITLE": "Board"}})"}});
    bool found = false;
    for (auto const& section : OnlySheet(result).titleBlock->sections) {
        found = found || section.segments[0].text == "Board";
    }
    EXPECT_TRUE(found);
}

TEST(SheetBlocks, ShowNameAndFile) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File(Sheet("power", "p.kicad_sch"))}, {"p.kicad_sch", File("")}});
    auto const& block = OnlySheet(result).blocks.at(0);
    EXPECT_EQ(block.name, "power");
    EXPECT_NE(FindText(block.labels, "power"), nullptr);
    EXPECT_NE(FindText(block.labels, "File: p.kicad_sch"), nullptr);
}

}  // namespace
