#include <readers/kicad/file/DrawingSheet.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <zv2d/Picture.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

#include <host/readers/kicad/SheetText.h>

namespace {

using namespace sheettext;
using fighost::kicad::DrawingSheet;
using fighost::kicad::DrawingSheetItem;
using fighost::kicad::Limits;
using fighost::kicad::ReadResult;

std::string const SETUP =
    "(setup (textsize 1.5 2) (linewidth 0.2) (left_margin 10) (right_margin 20) (top_margin 30)"
    " (bottom_margin 40))";

std::string Frame(std::string const& items) {
    return "(kicad_wks (version 20231118) (generator \"pl_editor\")\n" + SETUP + "\n" + items + ")";
}

// A design on paper of 200 x 150 mm, with its drawing sheet named in the project.
ReadResult Drawn(std::string const& drawingSheet, std::string const& content = "") {
    return Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File("(paper \"User\" 200 150)" + content)},
        {"root.kicad_pro", R"({"schematic": {"page_layout_descr_file": "frame.kicad_wks"},
                               "text_variables": {"DOC": "D-${#}"}})"},
        {"frame.kicad_wks", drawingSheet}});
}

figkernel::FormatSource const& Format(ReadResult const& result, std::size_t sheet = 0) {
    return *result.design.sheets.at(sheet).format;
}

using Points = std::vector<dg::DPoint2D>;

// The corners of all lines and polygons that the frame shows.
std::vector<Points> Lines(ReadResult const& result) {
    std::vector<Points> lines;
    for (auto const& graphic : Format(result).graphics.graphics) {
        for (auto const& entity : *graphic.instances.at(0)->GetDefinition()) {
            auto const line = du::DynamicCast<zv2d::TexPolyline const>(entity);
            if (line) lines.push_back(line->GetVertices());
        }
    }
    return lines;
}

struct Written {
    std::string text;
    dg::DPoint2D at;
    bool operator==(Written const&) const = default;
};

std::ostream& operator<<(std::ostream& out, Written const& written) {
    return out << written.text << " (" << written.at.x << ", " << written.at.y << ")";
}

std::vector<Written> Texts(ReadResult const& result, std::size_t sheet = 0) {
    std::vector<Written> texts;
    for (auto const& text : Format(result, sheet).graphics.texts)
        texts.push_back({text.text, text.instance->GetMatrix().GetTranslation()});
    return texts;
}

std::string SectionText(figkernel::TitleBlockSectionSource const& section) {
    std::string text;
    for (auto const& segment : section.segments)
        text += segment.text;
    return text;
}

TEST(DrawingSheets, PointsCountFromTheirCornersInwards) {
    auto const result =
        Drawn(Frame("(line (start 1 2 ltcorner) (end 3 4))"
                    "(line (start 1 2 lbcorner) (end 3 4 rtcorner))"));
    EXPECT_EQ(Lines(result), (std::vector<Points>{{{11, 118}, {177, 44}}, {{11, 42}, {177, 116}}}));
}

TEST(DrawingSheets, CopiesStopAtTheMargins) {
    // 170 mm lie between the margins: copies at 0, 50, 100 and 150.
    auto const result =
        Drawn(Frame("(line (start 0 0 ltcorner) (end 0 2 ltcorner) (repeat 30) (incrx 50))"));
    auto const lines = Lines(result);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3][0], dg::DPoint2D(160, 120));
}

TEST(DrawingSheets, ARectangleIsRepeatedInwards) {
    auto const lines =
        Lines(Drawn(Frame("(rect (start 0 0 ltcorner) (end 0 0) (repeat 2) (incrx 2) (incry 2))")));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], (Points{{12, 118}, {178, 118}, {178, 42}, {12, 42}}));
}

TEST(DrawingSheets, CopiesThatDoNotMoveAreDrawnOnce) {
    EXPECT_EQ(Lines(Drawn(Frame("(line (start 0 0) (end 1 1) (repeat 100))"))).size(), 1u);
}

TEST(DrawingSheets, LabelsCountUpInNumbersAndLetters) {
    auto const label = [](std::string const& text, unsigned copy, int step = 1) {
        DrawingSheetItem item;
        item.text = text;
        item.labelStep = step;
        return item.LabelOf(copy);
    };
    EXPECT_EQ(label("1", 0), "1");
    EXPECT_EQ(label("1", 9), "10");
    EXPECT_EQ(label("X9", 2), "X11");
    EXPECT_EQ(label("A", 2), "C");
    EXPECT_EQ(label("Y", 2), "AA");
    EXPECT_EQ(label("a", 1), "b");
    EXPECT_EQ(label("1", 3, 2), "7");
    EXPECT_EQ(label("1", 3, 0), "1");
    EXPECT_EQ(label("B", 5, -1), "B") << "there is nothing before A";
    EXPECT_EQ(label("Row", 1), "Row");
    EXPECT_EQ(label("", 1), "");
    EXPECT_EQ(label("99999999999999999999", 1),
              "99999999999"
              "1000000000");
}

TEST(DrawingSheets, RepeatedLabelsAreTheGridOfTheFormat) {
    auto const result =
        Drawn(Frame("(tbtext \"1\" (pos 25 1 ltcorner) (repeat 100) (incrx 50))"
                    "(tbtext \"A\" (pos 1 10 ltcorner) (justify center) (repeat 100) (incry 20))"));
    EXPECT_EQ(Texts(result)[0], (Written{"1", {35, 119}}));
    auto const& columns = Format(result).columnCells;
    ASSERT_EQ(columns.size(), 3u);  // at 35, 85 and 135; one at 185 would be beyond the margin
    EXPECT_EQ(columns[0].name, "1");
    EXPECT_EQ(columns[0].end, 60);
    EXPECT_EQ(columns[1].end, 110);
    auto const& rows = Format(result).rowCells;
    ASSERT_EQ(rows.size(), 4u);  // 40, 60, 80, 100 below the upper edge
    EXPECT_EQ(rows[3].name, "D");
    EXPECT_EQ(rows[0].end, 50);
}

TEST(DrawingSheets, LabelsFromTheRightAreAGridToo) {
    auto const result = Drawn(Frame("(tbtext \"1\" (pos 25 1 rtcorner) (repeat 100) (incrx 50))"));
    auto const& columns = Format(result).columnCells;
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[0].name, "3");
    EXPECT_EQ(columns[2].name, "1");
}

TEST(DrawingSheets, WithoutLabelsTheEvenGridStays) {
    auto const result = Drawn(Frame("(line (start 0 0) (end 1 1))"));
    EXPECT_TRUE(Format(result).columnCells.empty());
    EXPECT_EQ(Format(result).columns, 4u);
    EXPECT_EQ(Format(result).rows, 3u);
}

TEST(DrawingSheets, TextsWithVariablesAreSectionsWithPlaces) {
    auto const result =
        Drawn(Frame("(tbtext \"Id: ${#}/${##}\" (pos 24 4) (font (size 2 3) bold italic)"
                    " (justify right top) (rotate 90) (maxlen 50) (maxheight 6))"
                    "(tbtext \"${DOC}${TITLE}\" (pos 1 1))"),
              "(title_block (title \"Board\"))");
    auto const& block = result.design.sheets.at(0).titleBlock;
    ASSERT_TRUE(block);
    ASSERT_EQ(block->sections.size(), 2u);
    auto const& section = block->sections[0];
    ASSERT_EQ(section.segments.size(), 4u);
    EXPECT_EQ(section.segments[1].token, "#");
    EXPECT_EQ(section.segments[1].type, 1);
    EXPECT_EQ(SectionText(section), "Id: 1/1");
    EXPECT_EQ(section.alignment, 2);
    EXPECT_EQ(section.fontSize, 3);
    EXPECT_TRUE(section.bold && section.italic);
    ASSERT_TRUE(section.place);
    EXPECT_EQ(section.place->at, dg::DPoint2D(156, 44));
    EXPECT_EQ(section.place->vertical, 2);
    EXPECT_NEAR(section.place->angle, 1.5708, 1e-4);
    EXPECT_EQ(section.place->greatestWidth, 50);
    EXPECT_EQ(section.place->greatestHeight, 6);
    EXPECT_EQ(SectionText(block->sections[1]), "D-1Board");
    EXPECT_EQ(block->sections[1].fontSize, 2) << "the sheet's own size";
    EXPECT_EQ(block->sections[1].alignment, 0);
    EXPECT_EQ(block->sections[1].place->vertical, 1);
    EXPECT_TRUE(Texts(result).empty());
}

TEST(DrawingSheets, EveryStandardVariableIsResolved) {
    std::string items;
    for (char const* name :
         {"TITLE", "SHEETPATH", "SHEETNAME", "#", "##", "ISSUE_DATE", "REVISION", "COMPANY",
          "COMMENT1", "COMMENT9", "KICAD_VERSION", "PAPER", "FILENAME", "LAYER", "PROJECTNAME"}) {
        items += "(tbtext \"${" + std::string(name) + "}\" (pos 1 1))";
    }
    auto const result = Drawn(Frame(items));
    for (auto const& section : result.design.sheets.at(0).titleBlock->sections) {
        EXPECT_EQ(SectionText(section).find("${"), std::string::npos)
            << section.segments.at(0).token;
    }
}

TEST(DrawingSheets, AnUnknownVariableStaysAsItIsWritten) {
    auto const result = Drawn(Frame("(tbtext \"${NOBODY}\" (pos 1 1))"));
    EXPECT_EQ(SectionText(result.design.sheets.at(0).titleBlock->sections.at(0)), "${NOBODY}");
}

TEST(DrawingSheets, OlderFilesWriteVariablesAsLetters) {
    auto const result =
        Drawn("(page_layout " + SETUP + "(tbtext \"%T %C0 %S/%N 5%% %Q\" (pos 1 1)))",
              "(title_block (title \"Board\") (comment 1 \"first\"))");
    auto const& section = result.design.sheets.at(0).titleBlock->sections.at(0);
    EXPECT_EQ(SectionText(section), "Board first 1/1 5% %Q");
}

TEST(DrawingSheets, OptionsChooseTheFirstPageOrTheOthers) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File(sheettext::Sheet("s", "sub.kicad_sch"))},
        {"sub.kicad_sch", File("")},
        {"root.kicad_wks", Frame("(tbtext \"first\" (pos 1 1) (option page1only))"
                                 "(tbtext \"other\" (pos 1 1) (option notonpage1))")}});
    ASSERT_EQ(result.design.sheets.size(), 2u);
    ASSERT_EQ(Texts(result, 0).size(), 1u);
    ASSERT_EQ(Texts(result, 1).size(), 1u);
    EXPECT_EQ(Texts(result, 0)[0].text, "first");
    EXPECT_EQ(Texts(result, 1)[0].text, "other");
}

TEST(DrawingSheets, PolygonsStandAtTheirPlaceAndTurn) {
    auto const lines =
        Lines(Drawn(Frame("(polygon (pos 0 0 ltcorner) (rotate 90) (linewidth 0.1)"
                          " (pts (xy 0 0) (xy 4 0) (xy 4 -2)) (pts (xy 0 0) (xy 1 0) (xy 1 1))"
                          " (pts (xy 0 0)))")));
    ASSERT_EQ(lines.size(), 2u) << "an outline of one point is none";
    EXPECT_NEAR(lines[0][1].x, 10, 1e-9);
    EXPECT_NEAR(lines[0][1].y, 124, 1e-9);
    EXPECT_NEAR(lines[0][2].x, 8, 1e-9);
}

TEST(DrawingSheets, PicturesThatCannotBeShownAreAFrameAndAWarning) {
    auto const result =
        Drawn(Frame("(bitmap (pos 10 10) (scale 1) (data \"AAAA\"))"
                    "(bitmap (pos 10 10) (pngdata (data \"89 50\") (data 4E 47)))"
                    "(bitmap (pos 10 10))"));
    EXPECT_EQ(Warnings(result, "unknown-image"), 3u);
    EXPECT_EQ(Format(result).graphics.graphics.size(), 3u);
}

TEST(DrawingSheets, TheProjectNamesItOrItHasTheProjectsName) {
    std::string const mine = Frame("(tbtext \"mine\" (pos 1 1))");
    for (char const* name : {"x/frame.kicad_wks", "${KIPRJMOD}/x/frame.kicad_wks"}) {
        auto const named = Read(std::map<std::string, std::string>{
            {"root.kicad_sch", File("")},
            {"root.kicad_pro",
             R"({"schematic": {"page_layout_descr_file": ")" + std::string(name) + "\"}}"},
            {"x/frame.kicad_wks", mine}});
        ASSERT_EQ(Texts(named).size(), 1u) << name;
    }
    auto const beside = Read(
        std::map<std::string, std::string>{{"root.kicad_sch", File("")}, {"root.kicad_wks", mine}});
    ASSERT_EQ(Texts(beside).size(), 1u);
    EXPECT_EQ(beside.findings.GetWarningCount(), 0u);
}

TEST(DrawingSheets, AMissingOneIsAWarningAndTheUsualFrame) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File("")},
        {"root.kicad_pro", R"({"schematic": {"page_layout_descr_file": "gone.kicad_wks"}})"}});
    ASSERT_TRUE(result.IsGood());
    EXPECT_EQ(Warnings(result, "missing-drawing-sheet"), 1u);
    EXPECT_FALSE(Texts(result).empty());
    EXPECT_TRUE(result.design.sheets.at(0).titleBlock);
}

TEST(DrawingSheets, AnEmptyOneIsNoFrame) {
    auto const result = Drawn("(kicad_wks (version 20231118))");
    EXPECT_TRUE(Format(result).graphics.IsEmpty());
    EXPECT_FALSE(result.design.sheets.at(0).titleBlock);
    EXPECT_EQ(Format(result).columns, 4u) << "locations can be told all the same";
}

std::string Complaint(std::string const& drawingSheet) {
    auto const result = Drawn(drawingSheet);
    EXPECT_TRUE(result.IsGood());
    EXPECT_FALSE(Texts(result).empty()) << "the usual frame";
    for (auto const& warning : result.findings.GetWarnings()) {
        if (warning.kind == "unreadable-drawing-sheet") return warning.first.ToString();
    }
    return {};
}

TEST(DrawingSheets, ABrokenOneIsToldWithFileLineAndColumn) {
    EXPECT_EQ(Complaint("(kicad_wks\n  (line (start"),
              "frame.kicad_wks:2:15: The drawing sheet is not used: The file ends inside a list: "
              "3 ')' are missing");
    EXPECT_EQ(Complaint("\n (kicad_pcb)"),
              "frame.kicad_wks:2:2: The drawing sheet is not used: This is no KiCad drawing sheet: "
              "it begins with 'kicad_pcb'");
    EXPECT_NE(Complaint(""), "");
    EXPECT_NE(Complaint(std::string(100'000, '(')), "");
}

TEST(DrawingSheets, HostileAmountsAreRefused) {
    std::string items;
    for (int i = 0; i < 100; ++i)
        items += "(line (start 0 0) (end 0 1) (repeat 99999) (incrx 0.0001))\n";
    EXPECT_NE(Complaint(Frame(items)).find("too many items"), std::string::npos);
    auto const result = Drawn(Frame("(tbtext \"" + std::string(20'000, 'x') + "\" (pos 1 1))"));
    EXPECT_EQ(Warnings(result, "long-text"), 1u);
}

TEST(DrawingSheets, UnknownWordsAndBadNumbersAreWarnings) {
    auto const result =
        Drawn(Frame("(circle (pos 1 1)) (line (start x 0) (end 1 1))"
                    "(line (start 0 0) (end 1 1) (odd))"));
    EXPECT_EQ(Warnings(result, "unknown-token"), 2u);
    EXPECT_EQ(Warnings(result, "bad-number"), 1u);
    EXPECT_EQ(Lines(result).size(), 1u);
}

std::string const VARIED = Frame(
    "(rect (start 110 34) (end 2 2) (comment \"c\"))"
    "(line (start 50 2 ltcorner) (end 50 0 ltcorner) (repeat 30) (incrx 50))"
    "(tbtext \"1\" (pos 25 1 ltcorner) (font (size 1.3 1.3)) (repeat 100) (incrx 50) (incrlabel 2))"
    "(tbtext \"${TITLE} ${#}\" (pos 1 1) (justify right) (rotate 30) (maxlen 9) (maxheight 2))"
    "(polygon (pos 9 9) (rotate 9) (pts (xy 0 0) (xy 1 0) (xy 1 1)))"
    "(bitmap (pos 9 9) (scale 2) (pngdata (data \"89 50 4E\")))");

TEST(DrawingSheets, NoMutationOfAFileDoesHarm) {
    std::mt19937 random(7);
    std::string const pieces[] = {"(", ")", "\"", "-1", "1e9", "nan", "${", "}", "\xFF", "(repeat"};
    for (int round = 0; round < 2000; ++round) {
        std::string text = VARIED;
        for (int change = 0; change <= round % 4; ++change) {
            std::size_t const at = random() % text.size();
            std::size_t const length = std::min<std::size_t>(random() % 8, text.size() - at);
            text.replace(at, length, pieces[random() % std::size(pieces)]);
        }
        auto const result = Drawn(text);
        ASSERT_TRUE(result.IsGood()) << text;
        ASSERT_TRUE(result.design.sheets.at(0).format) << text;
    }
    for (std::size_t cut = 0; cut < VARIED.size(); cut += 3)
        EXPECT_TRUE(Drawn(VARIED.substr(0, cut)).IsGood());
}

TEST(DrawingSheets, TheOneOfTheCorpusIsReadWithoutAWarning) {
    char const* const corpus = std::getenv("FIGREP_CORPUS");
    auto const path = std::filesystem::path(corpus ? corpus : "") / "worksheet-sample" /
                      "Sheet_Template.kicad_wks";
    if (!corpus || !std::filesystem::exists(path)) GTEST_SKIP() << "FIGREP_CORPUS names no folder";
    std::ifstream file(path, std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File("(paper \"A4\")")}, {"root.kicad_wks", bytes.str()}});
    EXPECT_EQ(result.findings.GetWarningCount(), 0u);
    auto const& format = Format(result);
    ASSERT_EQ(format.columnCells.size(), 6u);
    ASSERT_EQ(format.rowCells.size(), 4u);
    EXPECT_EQ(format.columnCells[5].name, "6");
    EXPECT_EQ(format.rowCells[3].name, "D");
    EXPECT_EQ(result.design.sheets.at(0).titleBlock->sections.size(), 10u);
}

}  // namespace
