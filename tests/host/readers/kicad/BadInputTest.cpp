#include <gtest/gtest.h>

#include "SheetText.h"

namespace {

using namespace sheettext;
using fighost::kicad::Limits;
using fighost::kicad::ReadDesign;
using fighost::kicad::ReadDesignBytes;

std::string ErrorOf(std::string const& file) {
    auto const result = Read(file);
    return result.error ? result.error->ToString() : std::string();
}

TEST(BadInput, ATruncatedFileNamesFileLineAndColumn) {
    std::string const whole = File(Pin("A", 0, 0));
    EXPECT_EQ(ErrorOf("(kicad_sch (version 20231120)\n  (wire"),
              "root.kicad_sch:2:8: The file ends inside a list: 2 ')' are missing");
    for (std::size_t cut = 0; cut + 2 < whole.size(); cut += 7) {
        EXPECT_NE(ErrorOf(whole.substr(0, cut)), "") << cut;
    }
}

TEST(BadInput, AFileOfAnotherKindIsNamedSo) {
    EXPECT_EQ(ErrorOf("(kicad_pcb (version 20231120))"),
              "root.kicad_sch:1:1: This is no KiCad schematic: it begins with 'kicad_pcb'");
    EXPECT_NE(ErrorOf("{\"json\": true}"), "");
    EXPECT_NE(ErrorOf(std::string("\x89PNG\r\n\x1a\n\0\0\0", 11)), "");
    EXPECT_NE(ErrorOf("(kicad_sch)"), "");
    EXPECT_NE(ErrorOf("(kicad_sch (version x))"), "");
}

TEST(BadInput, AnOlderFormatIsNamedSo) {
    EXPECT_EQ(ErrorOf("(kicad_sch (version 20200310))"),
              "root.kicad_sch:1:12: The file format is of version 20200310; this program reads "
              "20210126 and later");
}

TEST(BadInput, ANewerFormatIsReadWithAWarning) {
    auto const result = Read(File(Pin("A", 0, 0), 20990101));
    EXPECT_TRUE(result.IsGood());
    EXPECT_EQ(Warnings(result, "newer-format"), 1u);
}

TEST(BadInput, AMissingRootIsAnError) {
    fighost::MemoryFiles none;
    auto const result = ReadDesign(none, "a/b.kicad_sch");
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->ToString(), "a/b.kicad_sch: There is no such file");
}

TEST(BadInput, AMissingSubSheetIsAMarkedBlockAndAWarning) {
    auto const result = Read(File(Sheet("s", "gone.kicad_sch") + Pin("A", 0, 0)));
    ASSERT_TRUE(result.IsGood());
    EXPECT_EQ(Warnings(result, "missing-sheet"), 1u);
    EXPECT_EQ(result.design.sheets.size(), 1u);
    auto const& block = result.design.sheets[0].blocks[0];
    EXPECT_EQ(block.graphics.graphics.back().name, "missing");
    ASSERT_FALSE(block.graphics.texts.empty());
    EXPECT_EQ(block.graphics.texts[0].text, "gone.kicad_sch\nfile is missing");
}

TEST(BadInput, ABrokenSubSheetIsAMarkedBlockAndItsPlaceIsTold) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File(Sheet("s", "sub.kicad_sch"))}, {"sub.kicad_sch", "(kicad_sch\n("}});
    ASSERT_TRUE(result.IsGood());
    ASSERT_EQ(Warnings(result, "unreadable-sheet"), 1u);
    for (auto const& warning : result.findings.GetWarnings()) {
        EXPECT_NE(warning.first.sentence.find("sub.kicad_sch:2:2"), std::string::npos);
    }
}

TEST(BadInput, ASubSheetThatIncludesItselfIsAMarkedBlock) {
    auto const direct = Read(File(Sheet("s", "root.kicad_sch")));
    ASSERT_TRUE(direct.IsGood());
    EXPECT_EQ(Warnings(direct, "recursive-sheet"), 1u);
    EXPECT_EQ(direct.design.sheets.size(), 1u);
    auto const around = Read(
        std::map<std::string, std::string>{{"root.kicad_sch", File(Sheet("a", "x/../a.kicad_sch"))},
                                           {"a.kicad_sch", File(Sheet("b", "./b.kicad_sch"))},
                                           {"b.kicad_sch", File(Sheet("a", "a.kicad_sch"))}});
    EXPECT_EQ(Warnings(around, "recursive-sheet"), 1u);
    EXPECT_EQ(around.design.sheets.size(), 3u);
}

TEST(BadInput, SheetsThatDoubleEndAtTheLimit) {
    std::map<std::string, std::string> files;
    for (int i = 0; i < 40; ++i) {
        std::string const name = i == 0 ? "root.kicad_sch" : "s" + std::to_string(i);
        std::string const next = "s" + std::to_string(i + 1);
        files[name] = File(Sheet("a", next) + Sheet("b", next));
    }
    auto const result = Read(files);
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->sentence, "The design has too many sheets");
}

TEST(BadInput, DeepNestingOfUnknownListsIsAnErrorAndNoCrash) {
    EXPECT_NE(ErrorOf("(kicad_sch (version 20231120) " + std::string(100'000, '(') +
                      std::string(100'001, ')')),
              "");
}

TEST(BadInput, NumbersThatAreNoneLeaveTheirItemOut) {
    for (char const* number : {"x", "1e999", "nan", "inf", "\"\"", "1.2.3", "99999999", "()"}) {
        auto const result =
            Read(File("(wire (pts (xy " + std::string(number) + " 0) (xy 1 1)))" + Pin("A", 0, 0)));
        ASSERT_TRUE(result.IsGood()) << number;
        EXPECT_TRUE(result.design.sheets[0].wires.empty()) << number;
        EXPECT_EQ(result.design.sheets[0].blocks.size(), 1u) << number;
        EXPECT_GE(Warnings(result, "bad-number"), 1u) << number;
    }
}

TEST(BadInput, UnknownWordsAreSkippedAndCounted) {
    auto const result = Read(File("(strange (deep (er))) (wire (pts (xy 0 0) (xy 1 1)) odd)" +
                                  Pin("A", 0, 0) + "(text \"t\" (at 0 0 0) (shape (odd)))"));
    ASSERT_TRUE(result.IsGood());
    EXPECT_EQ(Warnings(result, "unknown-token"), 3u);
    EXPECT_EQ(result.design.sheets[0].wires.size(), 1u);
    EXPECT_EQ(result.findings.GetWarnings()[0].first.place.file, "root.kicad_sch");
    EXPECT_GT(result.findings.GetWarnings()[0].first.place.line, 1u);
}

TEST(BadInput, InvalidUtf8IsShownAsReplacements) {
    auto const result = Read(File(Pin("A", 0, 0) + Local("N\xFF", 0, 0)));
    ASSERT_TRUE(result.IsGood());
    EXPECT_EQ(NetOf(result, "A:1"), "/N\xEF\xBF\xBD");
    EXPECT_EQ(Warnings(result, "bad-characters"), 1u);
}

TEST(BadInput, IncompleteItemsAreNoCrash) {
    for (char const* item : {"(wire)",
                             "(bus (pts))",
                             "(bus_entry)",
                             "(junction)",
                             "(no_connect)",
                             "(label)",
                             "(symbol)",
                             "(sheet)",
                             "(text)",
                             "(text_box)",
                             "(polyline)",
                             "(rectangle)",
                             "(circle)",
                             "(arc)",
                             "(bezier)",
                             "(rule_area (polyline))",
                             "(image)",
                             "(table (cells (table_cell)))",
                             "(bus_alias)",
                             "(title_block (comment))",
                             "(paper)",
                             "(lib_symbols (symbol (symbol (pin))))",
                             "(symbol_instances (path))",
                             "(sheet_instances (path))",
                             "(global_label)",
                             "(sheet (pin))",
                             "(netclass_flag)",
                             "()",
                             "(\"quoted\")",
                             "(paper \"User\" 5)",
                             "(paper \"User\" -1 -1)",
                             "(symbol (instances (project (path))))",
                             "(image (data \"!!!\"))"}) {
        EXPECT_TRUE(Read(File(item)).IsGood()) << item;
    }
}

TEST(BadInput, ABrokenProjectIsAWarning) {
    for (std::string const& project :
         {std::string("{"), std::string(5000, '['), std::string("[]")}) {
        auto const result = Read(std::map<std::string, std::string>{
            {"root.kicad_sch", File(Pin("A", 0, 0))}, {"root.kicad_pro", project}});
        EXPECT_TRUE(result.IsGood());
        EXPECT_EQ(Warnings(result, "unreadable-project"), 1u);
    }
}

TEST(BadInput, FurtherRootSheetsOfTheProjectAreAWarning) {
    auto const result = Read(std::map<std::string, std::string>{
        {"root.kicad_sch", File(Pin("A", 0, 0))},
        {"root.kicad_pro", R"({"schematic": {"top_level_sheets": [{}, {}]}})"}});
    EXPECT_EQ(Warnings(result, "further-root-sheets"), 1u);
}

TEST(BadInput, BytesOfAStrangerAreTakenInOneCall) {
    EXPECT_TRUE(ReadDesignBytes(File(Pin("A", 0, 0))).IsGood());
    Limits limits;
    limits.items = 3;
    auto const result = ReadDesignBytes(
        File(Wire(0, 0, 1, 1) + Wire(0, 0, 1, 1) + Wire(0, 0, 1, 1) + Wire(0, 0, 1, 1)), limits);
    ASSERT_TRUE(result.error);
    EXPECT_EQ(result.error->sentence, "The design has too many items");
}

}  // namespace
